// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

namespace kelvarin
{

/// A graph file to be drawn into a picture file, without a window.
struct export_request
{
    std::string picture;
    std::string graph;

    friend bool operator==(const export_request&, const export_request&) = default;
};

/// The request of "--export PICTURE FILE", or what is wrong with it. Returns nullopt if the option is not there; behind
/// "--" it is a file.
std::optional<std::variant<export_request, std::string>> read_export(const std::vector<std::string>& arguments);

/// Draws the picture in the form of its name's end; for all but SVG the toolkit must be there. Returns the status of
/// the program: 0; 1 for a graph that can't be drawn; 2 for files that can't be read or written. Messages go to `err`.
int export_picture(const export_request& request, std::ostream& err);

/// Whether the picture is drawn without the toolkit.
bool needs_no_toolkit(const export_request& request);

} // namespace kelvarin
