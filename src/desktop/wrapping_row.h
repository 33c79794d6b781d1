// SPDX-License-Identifier: MIT
#pragma once

#include <QLayout>

#include <initializer_list>
#include <memory>
#include <vector>

namespace kelvarin
{

/// A row of controls that continues on the next line if the window is too narrow, so that none of them is cut. Controls
/// of one line have one height. If a line has room left, its expanding controls share it.
class wrapping_row final : public QLayout
{
public:
    /// `spacing`: between controls and between lines, in pixels.
    explicit wrapping_row(int spacing);
    ~wrapping_row() override;

    /// Adds controls that stay on one line.
    void add_together(std::initializer_list<QWidget*> controls);

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect& place) override;

private:
    struct line;

    std::vector<line> lines_for(int width) const;

    std::vector<std::unique_ptr<QLayoutItem>> items_;
};

} // namespace kelvarin
