// SPDX-License-Identifier: MIT
#include "platform/runtime_failure.h"

#include <new>
#include <utility>

namespace kelvarin
{

std::string_view runtime_failure_text(int number)
{
    switch (number) {
    case failure_number::invalid_argument:
        return "Invalid procedure call or argument";
    case failure_number::overflow:
        return "Overflow";
    case failure_number::out_of_memory:
        return "Out of memory";
    case failure_number::subscript:
        return "Subscript out of range";
    case failure_number::division_by_zero:
        return "Division by zero";
    case failure_number::type_mismatch:
        return "Type mismatch";
    case failure_number::numeric:
        return "Numeric failure";
    default:
        return "Unknown failure";
    }
}

runtime_failure::runtime_failure(int number, std::string detail) : number_(number), detail_(std::move(detail))
{
    what_ = std::to_string(number_) + ": " + std::string(description());
    if (!detail_.empty()) what_ += " (" + detail_ + ")";
}

std::string failure_reason(const std::exception_ptr& failure)
{
    try {
        std::rethrow_exception(failure);
    } catch (const std::bad_alloc&) {
        return std::string(runtime_failure_text(failure_number::out_of_memory));
    } catch (const std::exception& known) {
        return known.what();
    } catch (...) {
        return std::string(runtime_failure_text(0));
    }
}

void nrerror(std::string_view text)
{
    throw runtime_failure(failure_number::numeric, std::string(text));
}

} // namespace kelvarin
