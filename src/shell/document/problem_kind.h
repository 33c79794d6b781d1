// SPDX-License-Identifier: MIT
#pragma once

#include "platform/file_bounds.h"
#include "shell/document/problem_document.h"
#include "shell/report/report_text.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// A method of solution, for lists, command line and reports.
struct problem_method
{
    /// The item of the method list.
    const char* name = "";
    /// A short description of the method.
    const char* tip = "";
    /// The settings that the method uses, with their labels in reports.
    std::span<const setting_line> settings = {};
};

// What kinds of problems in files of the same form have in common: their filters and questions.
inline constexpr const char* problem_open_filter = "Kelvarin (*.kvr)|*.kvr|Text (*.txt)|*.txt|All file (*.*)|*.*";
inline constexpr const char* problem_save_filter =
    "Kelvarin (*.kvr)|*.kvr|Kelvarin 4.x (*.kvr)|*.kvr|Text (*.txt)|*.txt|All file (*.*)|*.*";
/// The place, from 1, of the older format in problem_save_filter.
inline constexpr int problem_older_format_filter = 2;
inline constexpr const char* problem_older_format_question =
    "Saving as older Kelvarin format may result in loosing some formating data. Do you want to continue ?";
inline constexpr const char* problem_unsaved_on_open = "Problem not saved. Do you wish to save it now ?";

/// The properties of a kind of problem. Windows, command line, recovery and recognition use these rows, so a new kind
/// is a new row.
struct problem_kind
{
    /// "nle": in JSON, on the command line, in recovery files; also the name of the icon and of the toolbar's button.
    const char* key = "";
    /// "Nonlinear Equations", on the start page and in the list of recovered problems.
    const char* name = "";
    /// The object name of its windows, "frmNLE", and the caption of one without a title.
    const char* window_name = "";
    const char* caption = "";
    /// The suffix of the registry key of its recent files, "\\files_nle".
    const char* recent_suffix = "";

    /// The captions and filters of the file dialogs.
    const char* open_caption = "Open";
    const char* save_caption = "Save As";
    const char* open_filter = "";
    const char* save_filter = "";
    /// The index, from 1, of the older format in the save filter; 0 if there is none.
    int older_format_filter = 0;
    /// The question before the older format is written.
    const char* older_format_question = "";
    /// The questions about an unsaved problem: on closing, and before another file is opened over it.
    const char* unsaved_on_close = "";
    const char* unsaved_on_open = "";
    /// Whether File, Open of its window passes files of other kinds to the main window.
    bool passes_on_other_files = false;
    /// Whether files of this kind are opened by its own windows alone, and not by the main window: by their lines they
    /// could be of another kind as well.
    bool opened_by_own_windows = false;

    /// Whether a file with these lines is of this kind, provided it is of no kind before in the list. Null if files of
    /// this kind can not be recognised.
    bool (*recognises)(std::span<const std::string_view> lines) = nullptr;
    /// Whether a file with these lines is of this kind although `recognises` of another kind may hold as well; asked of
    /// all kinds before. Null if there are no such files.
    bool (*claims)(std::span<const std::string_view> lines) = nullptr;
    /// What a file of this kind may hold.
    file_bounds bounds = {};
    /// In the order of the method list; empty if there is only one.
    std::span<const problem_method> methods = {};
    /// The titles of the examples in the order of their menu; null if there is no such menu.
    std::vector<std::string> (*example_titles)() = nullptr;
    /// Makes an empty document of this kind.
    std::unique_ptr<problem_document> (*make_document)() = nullptr;
};

} // namespace kelvarin
