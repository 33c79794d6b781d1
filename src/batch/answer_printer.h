// SPDX-License-Identifier: MIT
#pragma once

#include "batch/file_answer.h"

#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// Takes the answers in the order of the files and writes them to their destination: standard output, one file, or a
/// file each. Combined output is written as a whole by `finish`.
class answer_printer
{
public:
    answer_printer(const batch_request& request, std::ostream& out, std::ostream& err);

    void take(const std::string& file, file_answer answer);
    /// Writes the pending output. Returns the exit status of all answers.
    int finish();

private:
    void write(const std::string& place, std::string_view content);
    /// Writes the files of an answer, or none of them if one would replace a problem or another output.
    void write_outputs(const std::string& file, const std::vector<output_file>& outputs);
    std::optional<std::string> refusal_of(const output_file& output);

    const batch_request& request_;
    std::ostream& out_;
    std::ostream& err_;
    bool a_file_each_;
    /// The names of the files written, and of those that the answers themselves will take.
    std::set<std::string> names_;
    bool first_report_ = true;
    std::vector<std::string> objects_;
    std::string reports_;
    int status_ = 0;
};

/// Writes to the file `place`, or to `out` if that is empty. Returns the exit status.
int write_output(const std::string& place, std::string_view content, std::ostream& out, std::ostream& err);

} // namespace kelvarin
