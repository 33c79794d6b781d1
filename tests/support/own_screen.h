// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

namespace kelvarin::test
{

/// An X server without a screen and a window manager in it, which end with this object, and with the process however
/// that ends.
class own_screen
{
public:
    /// Throws where one of the two does not start.
    explicit own_screen(QSize size);
    ~own_screen();
    own_screen(const own_screen&) = delete;
    own_screen& operator=(const own_screen&) = delete;

    /// What DISPLAY has to be: ":1".
    const std::string& name() const { return name_; }

private:
    void start_server(QSize size);
    void start_window_manager();

    std::filesystem::path folder_;
    std::string name_;
    std::vector<pid_t> started_;
};

} // namespace kelvarin::test
