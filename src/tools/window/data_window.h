// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"
#include "tools/data_lines.h"

#include <QWidget>

#include <filesystem>
#include <string_view>
#include <vector>

class QLabel;

namespace kelvarin
{

/// A top-level window that shows the content of a data file. The file is read when the window is first shown; if it is
/// missing, a box says so and the window closes.
class data_window : public QWidget
{
    Q_OBJECT

public:
    /// The file is taken from the first of `folders` that has it.
    data_window(desktop_context& context, QWidget* parent, std::string_view file_name,
                std::vector<std::filesystem::path> folders);

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

    /// Shows the content of the file. Returns the lines that were skipped.
    virtual std::vector<data_fault> show_data(std::string_view content) = 0;
    /// Sets the colours that are mixed from the palette.
    virtual void tint_controls() = 0;

    desktop_context& context() const { return context_; }
    const std::vector<std::filesystem::path>& folders() const { return folders_; }
    /// Lists the skipped lines; hidden if there are none.
    QLabel* faults_label() const { return lblFaults_; }

private:
    /// Returns false if there is no readable file.
    bool read_data();
    void refuse();
    void show_faults(const std::vector<data_fault>& faults);

    desktop_context& context_;
    std::string_view file_name_;
    std::vector<std::filesystem::path> folders_;
    bool has_data_ = false;
    QLabel* lblFaults_ = nullptr;
};

} // namespace kelvarin
