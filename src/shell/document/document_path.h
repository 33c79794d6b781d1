// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <utility>

namespace kelvarin
{

/// The path of a document's file. An example that replaces the content has no file, so that Save doesn't overwrite the
/// file that was open; when undo restores the saved content, it restores the path as well.
class document_path
{
public:
    /// Empty if the document has no file.
    const std::filesystem::path& path() const { return path_; }

    /// The document was opened, saved, restored, or (with an empty path) newly created.
    void set(std::filesystem::path path)
    {
        path_ = std::move(path);
        left_.clear();
    }

    /// An example replaced the content.
    void leave()
    {
        if (!path_.empty()) left_ = std::exchange(path_, {});
    }

    /// The saved content was restored.
    void come_back()
    {
        if (path_.empty()) path_ = left_;
    }

private:
    std::filesystem::path path_;
    /// The file of the content that an example replaced.
    std::filesystem::path left_;
};

} // namespace kelvarin
