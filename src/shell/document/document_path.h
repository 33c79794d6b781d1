// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <utility>

namespace kelvarin
{

/// Where a document is kept. An example that takes the content's place has no file, so that Save never writes it
/// over the one that was open; when the saved content comes back by undo, its file does as well.
class document_path
{
public:
    /// Empty where the document has no file.
    const std::filesystem::path& path() const { return path_; }

    /// The document was opened, saved, restored, or (with an empty path) begun anew.
    void set(std::filesystem::path path)
    {
        path_ = std::move(path);
        left_.clear();
    }

    /// An example took the place of the content.
    void leave()
    {
        if (!path_.empty()) left_ = std::exchange(path_, {});
    }

    /// The saved content is back.
    void come_back()
    {
        if (path_.empty()) path_ = left_;
    }

private:
    std::filesystem::path path_;
    /// The file of the content that an example took the place of.
    std::filesystem::path left_;
};

} // namespace kelvarin
