// SPDX-License-Identifier: MIT
#pragma once

#include "tools/units.h"

#include <QLineEdit>

#include <vector>

class QAbstractItemView;
class QCompleter;
class QStringListModel;

namespace kelvarin
{

/// A field for words of a unit's type, name or note; matching units are listed below it.
class unit_search : public QLineEdit
{
    Q_OBJECT

public:
    explicit unit_search(QWidget* parent);

    void set_units(std::vector<measurement_unit> units) { units_ = std::move(units); }

signals:
    /// A unit was clicked, or Return pressed on it; Return without a selected unit chooses the first one found.
    void unit_chosen(const kelvarin::measurement_unit& chosen);

private:
    void offer_units();
    void take_unit();
    void take_row(int row);

    std::vector<measurement_unit> units_;
    std::vector<measurement_unit> hits_;
    QCompleter* completer_ = nullptr;
    QStringListModel* offered_ = nullptr;
    QAbstractItemView* list_ = nullptr;
};

} // namespace kelvarin
