// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/cell_grid.h"
#include "leq/window/frmLEQ.h"
#include "support/problem_desk.h"

#include <QHeaderView>
#include <QTest>

#include <string>

namespace kelvarin::test
{

/// A window of linear equations, and what a person does in it.
struct leq_desk : problem_desk<frmLEQ>
{
    cell_grid& grid() const { return person.find<cell_grid>("grdMatrix"); }
    /// The shown cells, row by row, separated by blanks; an empty one is "_".
    std::string cells() const
    {
        const QAbstractItemModel& model = *grid().model();
        std::string all;
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < model.columnCount(); ++column) {
                const std::string cell = model.index(row, column).data().toString().toStdString();
                all += (column > 0 ? " " : "") + (cell.empty() ? "_" : cell);
            }
            all += '\n';
        }
        return all;
    }
    std::string heads() const
    {
        std::string all;
        for (int column = 0; column < grid().model()->columnCount(); ++column)
            all += grid().model()->headerData(column, Qt::Horizontal).toString().toStdString() + ' ';
        return all;
    }
    /// Letter by letter: the first opens the field that gets the others. "\t" is Tab, "\n" is Enter.
    static void keys(const std::string& text)
    {
        for (const char letter : text) {
            if (letter == '\t')
                robot::press(Qt::Key_Tab);
            else
                robot::keys(std::string(1, letter));
        }
    }
    void click_cell(int row, int column, Qt::KeyboardModifiers modifiers = {}) const
    {
        const QRect cell = grid().visualRect(grid().model()->index(row - 1, column - 1));
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, modifiers, cell.center());
        settle();
    }
    void double_click_head(int column) const
    {
        const QHeaderView& head = *grid().horizontalHeader();
        const QPoint middle(head.sectionViewportPosition(column - 1) + head.sectionSize(column - 1) / 2,
                            head.height() / 2);
        QTest::mouseClick(head.viewport(), Qt::LeftButton, {}, middle);
        QTest::mouseDClick(head.viewport(), Qt::LeftButton, {}, middle);
        settle();
    }
    void paste_at(int row, int column, const std::string& text)
    {
        put_on_clipboard(text);
        click_cell(row, column);
        robot::press(Qt::Key_V, Qt::ControlModifier);
    }
};

inline const char* const three_equations_block = "2\t1\t-1\t8\r\n-3\t-1\t2\t-11\r\n-2\t1\t2\t-3\r\n";

} // namespace kelvarin::test
