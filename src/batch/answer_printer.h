// SPDX-License-Identifier: MIT
#pragma once

#include "batch/file_answer.h"

#include <ostream>
#include <string>
#include <string_view>

namespace kelvarin
{

/// Takes the answers in the order of the files and brings them to where they belong: standard output, one
/// file, or a file each. Nothing is written in halves: what goes together waits for `finish`.
class answer_printer
{
public:
    answer_printer(const batch_request& request, std::ostream& out, std::ostream& err);

    void take(const std::string& file, file_answer answer);
    /// Writes what waited; the exit status of the whole.
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

/// Writes to the file `place`, or where that is empty to `out`; the exit status.
int write_output(const std::string& place, std::string_view content, std::ostream& out, std::ostream& err);

} // namespace kelvarin
