// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/table_document.h"

#include <QWidget>

class QMenu;

namespace kelvarin
{

/// A page of the window of data tables above its grid: what is asked of a run on the table. The window tells a page
/// when it comes to the front and whenever the table has changed while it is there, so that its lists can be filled
/// anew, and runs it by the button "Solve it ...".
class table_page : public QWidget
{
    Q_OBJECT

public:
    /// The document belongs to the window and outlives the page.
    explicit table_page(table_document& table, QWidget* parent = nullptr);

    /// Fills the lists from the table.
    virtual void show_table() {}
    /// Takes over what is being typed on the page.
    virtual void take_over_typing() {}
    virtual bool can_solve() const { return false; }
    virtual void solve() {}
    /// The menu that the window shows while the page is in front; null if it has none.
    virtual QMenu* menu() const { return nullptr; }

protected:
    table_document& table() const { return table_; }

private:
    table_document& table_;
};

} // namespace kelvarin
