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

/// A top-level window that shows what stands in a data file. The file is read when the window is first shown; where
/// it is missing, a box says so and the window closes.
class data_window : public QWidget
{
    Q_OBJECT

public:
    /// The first of `folders` that holds the file is taken.
    data_window(desktop_context& context, QWidget* parent, std::string_view file_name,
                std::vector<std::filesystem::path> folders);

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

    /// Shows the content of the file; answers the lines that it passed over.
    virtual std::vector<data_fault> show_data(std::string_view content) = 0;
    /// Gives the controls the colours that are mixed from the palette.
    virtual void tint_controls() = 0;

    desktop_context& context() const { return context_; }
    const std::vector<std::filesystem::path>& folders() const { return folders_; }
    /// Names the lines that were passed over; hidden where there are none.
    QLabel* faults_label() const { return lblFaults_; }

private:
    /// False where there is no such file, or none that can be read.
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
