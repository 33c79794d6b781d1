// SPDX-License-Identifier: MIT
#include "platform/text_file.h"
#include "promise.h"
#include "tools/calculator.h"

#include <string>

/// Any lines typed into the calculator, one after the other, have a value or a reason; a line at fault is never
/// evaluated.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size)
{
    using namespace kelvarin;
    using fuzz::promise;
    calculator used;
    const std::string text = to_utf8(std::string_view(reinterpret_cast<const char*>(bytes), size));
    for (const std::string_view line : split_lines(text)) {
        const auto fault = used.fault_of(line);
        const calculator_answer answer = used.solve_line(line);
        promise(answer.value.has_value() != answer.refusal.has_value(), "a line has a value or a reason");
        promise(!fault || answer.refusal, "a line at fault is refused");
    }
    return 0;
}
