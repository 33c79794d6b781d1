// SPDX-License-Identifier: MIT
#include "app/export_picture.h"

#include "graph/axis_limits.h"
#include "graph/graph_entries.h"
#include "graph/graph_file.h"
#include "graph/window/graph_picture.h"
#include "kinds/kinds.h"
#include "platform/message_box.h"
#include "platform/saver.h"
#include "platform/text_file.h"
#include "shell/document/recognition.h"

#include <QDateTime>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace kelvarin
{

namespace
{

constexpr std::string_view export_option = "--export";
constexpr int failed = 1;
constexpr int unusable = 2;
/// Of bitmaps, whose size is that of the other forms.
constexpr double dots_per_inch = 150.0;

int refuse(std::ostream& err, const std::string& file, const message_box& box, int status)
{
    std::string text = box.text;
    std::ranges::replace(text, '\r', '\n');
    err << "kelvarin: " << file << ": " << box.title << "\n" << text << "\n";
    return status;
}

/// The moment that stands for the present one in what is made, so that the same input gives the same bytes; nullopt if
/// none is set.
std::optional<std::chrono::seconds> set_moment()
{
    const char* const text = std::getenv("SOURCE_DATE_EPOCH");
    std::int64_t seconds = 0;
    if (text == nullptr) return std::nullopt;
    const std::string_view digits(text);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), seconds);
    if (digits.empty() || error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return std::chrono::seconds(seconds);
}

/// Puts a date in place of the present one in a PDF file of the toolkit.
void set_date_of_pdf(std::string& pdf, std::chrono::seconds moment)
{
    constexpr std::string_view head = "/CreationDate (D:";
    constexpr qsizetype digits = 14;
    const std::size_t place = pdf.find(head);
    const QString date =
        QDateTime::fromSecsSinceEpoch(moment.count(), Qt::UTC).toString(QStringLiteral("yyyyMMddHHmmss"));
    if (place != pdf.npos && date.size() == digits) pdf.replace(place + head.size(), digits, date.toStdString());
}

} // namespace

std::optional<std::variant<export_request, std::string>> read_export(const std::vector<std::string>& arguments)
{
    const auto options_end = std::ranges::find(arguments, "--");
    const auto option = std::find(arguments.begin(), options_end, export_option);
    if (option == options_end) return std::nullopt;
    std::vector<std::string> names;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument)
        if (argument != option && argument != options_end) names.push_back(*argument);
    // The picture's name follows the option.
    if (names.size() != 2 || option + 1 == options_end) return "--export: a picture and one graph file are expected.";
    const auto picture = static_cast<std::size_t>(option - arguments.begin());
    const export_request request = {names[picture], names[1 - picture]};
    if (!picture_format_of(request.picture))
        return "--export: the name of a picture ends in .svg, .pdf, .png or .bmp, not '" + request.picture + "'.";
    std::error_code unknown;
    if (std::filesystem::equivalent(request.picture, request.graph, unknown))
        return "--export: the picture would replace the graph.";
    return request;
}

bool needs_no_toolkit(const export_request& request)
{
    return picture_format_of(request.picture) == picture_format::svg;
}

int export_picture(const export_request& request, std::ostream& err)
{
    const text_file file = read_text_file(request.graph, bounds_of_numbers);
    if (!file.ok()) return refuse(err, request.graph, {"The file can not be read: " + file.failure.reason}, unusable);
    if (recognise_document(request.graph, file.text, problem_kinds()).form != document_form::graph)
        return refuse(err, request.graph, {unknown_format_text(request.graph)}, unusable);
    const std::optional<graph_content> graph = read_graph(file.text);
    if (!graph) return refuse(err, request.graph, {"Error while trying to open file."}, unusable);
    if (const std::optional<message_box> refused = drawing_refusal(find_axis_limits(*graph)))
        return refuse(err, request.graph, *refused, failed);
    picture_size size;
    size.dots_per_inch = dots_per_inch;
    const picture_format format = *picture_format_of(request.picture);
    std::string bytes = picture_bytes(*graph, {}, size, format);
    if (const auto moment = set_moment(); moment && format == picture_format::pdf) set_date_of_pdf(bytes, *moment);
    if (const auto failure = save_file(request.picture, bytes))
        return refuse(err, request.picture, {"Error while trying to save file.\r" + failure->reason}, unusable);
    return 0;
}

} // namespace kelvarin
