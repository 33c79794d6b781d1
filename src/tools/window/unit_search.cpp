// SPDX-License-Identifier: MIT
#include "tools/window/unit_search.h"

#include "desktop/qt_text.h"
#include "platform/text_file.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QStringListModel>

#include <algorithm>

namespace kelvarin
{

namespace
{

QString offered_line(const measurement_unit& each)
{
    const std::string line = each.unit_type + ": " + each.unit_name;
    return to_qstring(each.unit_note.empty() ? line : line + " (" + each.unit_note + ")");
}

} // namespace

unit_search::unit_search(QWidget* parent)
    : QLineEdit(parent), completer_(new QCompleter(this)), offered_(new QStringListModel(completer_))
{
    setClearButtonEnabled(true);
    completer_->setModel(offered_);
    // The hits are computed here: the words of a unit may be typed in any order.
    completer_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    // With setWidget instead of setCompleter the completer doesn't change this field's text.
    completer_->setWidget(this);
    list_ = completer_->popup();
    list_->setObjectName(QStringLiteral("lstHits"));
    list_->setAccessibleName(tr("Units found"));
    connect(this, &QLineEdit::textEdited, this, &unit_search::offer_units);
    connect(this, &QLineEdit::returnPressed, this, &unit_search::take_unit);
    connect(completer_, qOverload<const QModelIndex&>(&QCompleter::activated), this,
            [this](const QModelIndex& index) { take_row(index.row()); });
}

void unit_search::offer_units()
{
    const std::string words = to_text(text());
    hits_ = trimmed(words).empty() ? std::vector<measurement_unit>() : search_units(units_, words);
    QStringList lines;
    std::ranges::transform(hits_, std::back_inserter(lines), offered_line);
    if (trimmed(words).empty()) {
        list_->hide();
        return;
    }
    if (lines.isEmpty()) lines.append(tr("No unit has these words."));
    offered_->setStringList(lines);
    completer_->complete();
    list_->setCurrentIndex({});
}

void unit_search::take_unit()
{
    // The popup shows the completer's own model; its rows correspond to hits_.
    const QModelIndex chosen = list_->isVisible() ? list_->currentIndex() : QModelIndex();
    list_->hide();
    take_row(chosen.isValid() ? chosen.row() : 0);
}

void unit_search::take_row(int row)
{
    if (row < 0 || row >= static_cast<int>(hits_.size())) return;
    const measurement_unit chosen = hits_[static_cast<std::size_t>(row)];
    hits_.clear();
    clear();
    emit unit_chosen(chosen);
}

} // namespace kelvarin
