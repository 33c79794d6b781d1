// SPDX-License-Identifier: MIT
// Tables of other programs.

#include "desktop/qt_text.h"
#include "platform/saver.h"
#include "platform/text_file.h"
#include "reg/table/table_export.h"
#include "reg/table/table_import.h"
#include "reg/window/frmImport.h"
#include "reg/window/frmRGT.h"
#include "reg/window/table_grid.h"
#include "reg/window/table_grid_model.h"
#include "shell/document/file_places.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>

namespace kelvarin
{

namespace
{

/// Where the folder of such files is kept.
constexpr const char* exchange_key = "csv";

constexpr const char* import_filter =
    "CSV and text (*.csv;*.tsv;*.txt;*.dat)|*.csv;*.tsv;*.txt;*.dat|All files (*.*)|*.*";

constexpr const char* export_filter =
    "Comma separated (*.csv)|*.csv|Semicolons, decimal commas (*.csv)|*.csv|Tab separated (*.txt)|*.txt";
constexpr std::array export_forms = {import_form{',', '.', true}, import_form{';', ',', true},
                                     import_form{'\t', '.', true}};

message_box import_refusal(const std::string& reason)
{
    return {"The file can not be imported: " + reason + ".", box_icon::critical};
}

} // namespace

void frmRGT::import_table()
{
    if (is_running()) return;
    take_over_typing();
    if (!may_replace(kind().unsaved_on_open)) return;
    const auto chosen =
        context().user.choose_file_to_open(this, {.caption = tr("Import"),
                                                  .filter = import_filter,
                                                  .proposed = last_folder(context().registry, exchange_key) / ""});
    if (!chosen) return;
    import_sample sample = read_import_sample(chosen->path);
    if (!sample.failure.reason.empty()) return context().user.show(this, import_refusal(sample.failure.reason));
    remember_folder(context().registry, exchange_key, chosen->path);
    auto* dialog = new frmImport(context(), path_text(chosen->path.filename()), std::move(sample.text), this);
    connect(dialog, &frmImport::form_chosen, this,
            [this, path = chosen->path](const import_form& form) { import_file_as(path, form); });
    dialog->open();
}

void frmRGT::import_file_as(const std::filesystem::path& path, const import_form& form)
{
    table_content current({1, 1});
    current.new_size = table_.content().new_size;
    current.calc_digits = table_.content().calc_digits;
    const auto job = [path, form, current](run_listener& listener) {
        return import_file(path, form, current, [&listener] { return listener.stop_asked(); });
    };
    start_run(job, [this, title = path.stem().string()](import_result read) {
        if (!read.content) return context().user.show(this, import_refusal(read.failure));
        read.content->title = field_text(title);
        table_.start_imported(std::move(*read.content));
        document_replaced();
        cells_->clear_formats();
        document_changed();
        grdMain_->set_current_cell(0, 0);
        if (read.notes.empty()) return;
        std::string told;
        for (const std::string& note : read.notes)
            told += (told.empty() ? "" : "\r") + note;
        context().user.show(this, {told, box_icon::information});
    });
}

void frmRGT::export_table()
{
    take_over_typing();
    std::filesystem::path proposed =
        last_folder(context().registry, exchange_key) / file_name_of_title(table_.title(), ".csv");
    if (!table_.path().empty()) proposed = std::filesystem::path(table_.path()).replace_extension(".csv");
    const auto chosen = context().user.choose_file_to_save(this, {.caption = tr("Export"),
                                                                  .filter = export_filter,
                                                                  .proposed = proposed,
                                                                  .default_extension = QStringLiteral("csv")});
    if (!chosen) return;
    const auto at = static_cast<std::size_t>(chosen->filter_index - 1);
    const import_form& form = export_forms[std::min(at, export_forms.size() - 1)];
    if (save_file(chosen->path, export_text(table_.content(), form)))
        return context().user.show(this, {"Error while trying to save file.", box_icon::critical});
    remember_folder(context().registry, exchange_key, chosen->path);
}

} // namespace kelvarin
