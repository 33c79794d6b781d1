// SPDX-License-Identifier: MIT
#include "platform/posix_file.h"

#include <system_error>

#include <unistd.h>

namespace kelvarin
{

posix_file::~posix_file()
{
    if (is_open()) ::close(file_);
}

std::string system_reason(int error_number)
{
    return std::generic_category().message(error_number);
}

} // namespace kelvarin
