// SPDX-License-Identifier: MIT
#include "platform/registry_store.h"
#include "promise.h"
#include "shell/settings.h"

#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

/// Any file of settings is read: settings have their defaults or legal values, and what is stored comes back.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size)
{
    using namespace kelvarin;
    using fuzz::promise;
    static const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("kelvarin-registry-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
    const std::filesystem::path file = folder / "registry.txt";
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(size));

    const std::string value(reinterpret_cast<const char*>(bytes), size);
    file_registry registry(file);
    static_cast<void>(settings(registry));
    registry.write("fuzz\\key", "name", value);
    promise(!registry.flush(), "settings are stored");
    const file_registry again(file);
    promise(again.read("fuzz\\key", "name") == value, "what was stored comes back the same");
    return 0;
}
