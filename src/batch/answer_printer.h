// SPDX-License-Identifier: MIT
#pragma once

#include "batch/file_answer.h"

#include <ostream>
#include <string>
#include <string_view>

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

    const batch_request& request_;
    std::ostream& out_;
    std::ostream& err_;
    bool a_file_each_;
    bool first_report_ = true;
    std::vector<std::string> objects_;
    std::string reports_;
    int status_ = 0;
};

/// Writes to the file `place`, or to `out` if that is empty. Returns the exit status.
int write_output(const std::string& place, std::string_view content, std::ostream& out, std::ostream& err);

} // namespace kelvarin
