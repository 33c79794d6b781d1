// SPDX-License-Identifier: MIT
#include "shell/report/outcome_json.h"

namespace kelvarin
{

void begin_answer(json_writer& writer, std::string_view file, std::string_view kind, std::string_view title)
{
    writer.begin_object();
    writer.member("file", file);
    writer.member("kind", kind);
    writer.member("title", title);
}

void write_ending(json_writer& writer, bool ok, std::span<const message_box> boxes)
{
    writer.member("ok", ok);
    writer.member_objects("messages", boxes, [&](const message_box& box) {
        writer.member("title", box.title);
        writer.member("text", box.text);
    });
}

} // namespace kelvarin
