// SPDX-License-Identifier: MIT
#pragma once

#include "tools/constants.h"

#include <QListWidget>

#include <vector>

namespace kelvarin
{

/// A list of constants in aligned columns, of one group or of several with their names as headings.
class constant_view : public QListWidget
{
    Q_OBJECT

public:
    explicit constant_view(QWidget* parent);

    void show_group(const constant_group& group);
    /// The columns are aligned across all groups. `empty_text` is shown if there are no constants.
    void show_groups(const std::vector<constant_group>& groups, const QString& empty_text);

    /// The selected constant; null if there is none.
    const physical_constant* selected() const;
    /// The line of the selected constant as displayed.
    QString selected_line() const;

signals:
    void copy_requested();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void add_remark(const QString& text, bool is_heading);
    void add_line(const std::string& line, int number);
    void tint_remark(QListWidgetItem& item) const;
    void select_first();

    /// In the order of their lines.
    std::vector<physical_constant> constants_;
};

} // namespace kelvarin
