// SPDX-License-Identifier: MIT
#include "platform/user_folders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace kelvarin
{

namespace
{

namespace fs = std::filesystem;

fs::path home_folder()
{
    if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') return home;
    if (const passwd* user = ::getpwuid(::geteuid()); user != nullptr && user->pw_dir != nullptr) return user->pw_dir;
    return "/";
}

fs::path own_folder(const char* variable, const char* below_home)
{
    const char* configured = std::getenv(variable);
    const fs::path base =
        configured != nullptr && *configured == '/' ? fs::path(configured) : home_folder() / below_home;
    return base / "kelvarin";
}

} // namespace

fs::path user_config_folder()
{
    return own_folder("XDG_CONFIG_HOME", ".config");
}

fs::path user_state_folder()
{
    return own_folder("XDG_STATE_HOME", ".local/state");
}

fs::path user_data_folder()
{
    return own_folder("XDG_DATA_HOME", ".local/share");
}

} // namespace kelvarin
