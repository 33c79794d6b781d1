// SPDX-License-Identifier: MIT
#include "tools/window/database_viewer.h"

#include "desktop/qt_text.h"
#include "platform/data_files.h"

#include <QProcess>

namespace kelvarin
{

std::optional<message_box> start_database_viewer(const std::filesystem::path& folder)
{
    const auto viewer = find_data_file("kvrdata.exe", {folder});
    const auto data_base = find_data_file("KvrDB.mdb", {folder});
    if (!viewer || !data_base) return message_box{"KvrData files not found.", box_icon::exclamation};
    if (!QProcess::startDetached(path_text(*viewer), {path_text(*data_base)}, path_text(folder)))
        return message_box{"KvrData could not be started.", box_icon::exclamation};
    return std::nullopt;
}

} // namespace kelvarin
