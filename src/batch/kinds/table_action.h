// SPDX-License-Identifier: MIT
#pragma once

#include "batch/kinds/kind_answerer.h"
#include "reg/table/table_content.h"
#include "shell/document/run_outcome.h"
#include "shell/report/json_writer.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kelvarin
{

/// What an action on a table came to: its report, and the members that it adds to the JSON answer.
struct table_answer : run_outcome
{
    /// Rich text; empty if there is none.
    std::string report;
    /// What is printed as plain text where there is no report.
    std::string text;
    std::function<void(json_writer&)> write_members = [](json_writer&) {};
    /// The table, if the action changed it.
    std::optional<table_content> changed;
    /// Files that the action writes.
    std::vector<output_file> outputs;
    /// The table has not what the command line names; the box says what.
    bool is_wrong_usage = false;
};

table_answer wrong_usage(std::string text);

/// What an action works on.
struct table_call
{
    const std::string& file;
    const table_content& content;
    const batch_request& request;
    const batch_surroundings& surroundings;
    run_listener& listener;
};

/// An action on a table, of which a command line has one at most.
struct table_action
{
    /// The option that asks for it.
    const char* option = "";
    /// Further options that belong to it. Options that belong to some action are refused beside another.
    std::span<const char* const> details = {};
    table_answer (*answer)(const table_call& call) = nullptr;
};

/// The action that the command line asks for, else `otherwise`, which may be null. `refused` becomes what is wrong if
/// there are several, or options without their action.
const table_action* action_asked_for(std::span<const table_action> actions, const batch_request& request,
                                     const table_action* otherwise, std::string& refused);

} // namespace kelvarin
