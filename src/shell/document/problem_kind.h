// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/problem_document.h"
#include "shell/report/report_text.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// A method of solution, as lists, command line and reports have it.
struct problem_method
{
    /// The item of the method list.
    const char* name = "";
    /// What the method is, in a few words.
    const char* tip = "";
    /// The settings that it reads, with their labels in reports.
    std::span<const setting_line> settings = {};
};

/// A kind of problem: everything that the program asks of it by its key. Windows, command line, recovery and
/// recognition go by these rows, so a new kind is a new row.
struct problem_kind
{
    /// "nle": in JSON, on the command line, in recovery files; the name of the icon and of the toolbar's button.
    const char* key = "";
    /// "Nonlinear Equations", on the start page and among recovered problems.
    const char* name = "";
    /// The name of its windows as objects, "frmNLE", and the caption of one without a title.
    const char* window_name = "";
    const char* caption = "";
    /// The folder of its recent files in the registry, "\\files_nle".
    const char* recent_suffix = "";
    /// Why problems of this kind can not be opened; empty where they can.
    const char* missing_text = "";

    /// The filters of the file dialogs.
    const char* open_filter = "";
    const char* save_filter = "";
    /// The place, from 1, of the older format in the save filter; 0 where there is none.
    int older_format_filter = 0;
    /// The question before the older format is written.
    const char* older_format_question = "";
    /// The questions about an unsaved problem: on closing, and before another file is opened over it.
    const char* unsaved_on_close = "";
    const char* unsaved_on_open = "";
    /// File, Open of its window passes files of other kinds on to the main window.
    bool passes_on_other_files = false;

    /// Whether a file with these lines is of this kind, if it is of none before in the list. Null where its files can
    /// not be recognised.
    bool (*recognises)(std::span<const std::string_view> lines) = nullptr;
    /// In the order of the method list; empty where there is nothing to choose.
    std::span<const problem_method> methods = {};
    /// The titles of the examples in the order of their menu; null where there is no such menu.
    std::vector<std::string> (*example_titles)() = nullptr;
    /// An empty problem; null where the kind has a missing text.
    std::unique_ptr<problem_document> (*make_document)() = nullptr;
};

} // namespace kelvarin
