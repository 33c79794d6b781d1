// SPDX-License-Identifier: MIT
#include "support/own_screen.h"

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kelvarin::test
{

namespace
{

constexpr std::chrono::milliseconds longest_wait(20000);

/// Starts a program that says nothing and ends with this process. Only `kept` stays open for it.
pid_t start(std::vector<std::string> words, int kept = -1)
{
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const pid_t child = ::fork();
    if (child < 0) throw std::runtime_error("no process for " + words.front());
    if (child > 0) return child;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int nothing = ::open("/dev/null", O_RDWR);
    for (int stream = 0; stream <= 2; ++stream)
        ::dup2(nothing, stream);
    if (kept >= 0) ::fcntl(kept, F_SETFD, 0);
    ::execvp(arguments.front(), arguments.data());
    ::_exit(127);
}

/// The line that the server writes when it is ready: the number of its display.
std::string line_from(int descriptor)
{
    std::string line;
    char letter = 0;
    pollfd waiting = {descriptor, POLLIN, 0};
    while (::poll(&waiting, 1, static_cast<int>(longest_wait.count())) > 0 && ::read(descriptor, &letter, 1) == 1) {
        if (letter == '\n') return line;
        line += letter;
    }
    throw std::runtime_error("Xvfb did not start");
}

} // namespace

own_screen::own_screen(QSize size)
{
    std::string folder = (std::filesystem::temp_directory_path() / "kelvarin-screen-XXXXXX").string();
    if (::mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no folder for the screen");
    folder_ = folder;
    start_server(size);
    start_window_manager();
}

own_screen::~own_screen()
{
    for (auto process = started_.rbegin(); process != started_.rend(); ++process) {
        ::kill(*process, SIGTERM);
        ::waitpid(*process, nullptr, 0);
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

void own_screen::start_server(QSize size)
{
    std::array<int, 2> ends = {};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe to the server");
    const std::string screen = std::to_string(size.width()) + "x" + std::to_string(size.height()) + "x24";
    // The server looks for a free display by itself, so that several tests run at a time.
    started_.push_back(
        start({"Xvfb", "-displayfd", std::to_string(ends[1]), "-nolisten", "tcp", "-screen", "0", screen}, ends[1]));
    ::close(ends[1]);
    name_ = ":" + line_from(ends[0]);
    ::setenv("DISPLAY", name_.c_str(), 1);
    ::close(ends[0]);
}

void own_screen::start_window_manager()
{
    const std::filesystem::path ready = folder_ / "ready";
    if (const char* other = std::getenv("KELVARIN_WINDOW_MANAGER")) {
        started_.push_back(start({other}));
        // It does not tell when it is there.
        std::this_thread::sleep_for(std::chrono::seconds(2));
        return;
    }
    started_.push_back(start({"openbox", "--sm-disable", "--startup", "touch " + ready.string()}));
    const auto end = std::chrono::steady_clock::now() + longest_wait;
    while (!std::filesystem::exists(ready)) {
        if (std::chrono::steady_clock::now() > end || ::waitpid(started_.back(), nullptr, WNOHANG) != 0)
            throw std::runtime_error("openbox did not start");
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

} // namespace kelvarin::test
