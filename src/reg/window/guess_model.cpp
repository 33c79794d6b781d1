// SPDX-License-Identifier: MIT
#include "reg/window/guess_model.h"

#include "desktop/qt_text.h"

#include <utility>

namespace kelvarin
{

namespace
{

constexpr int names_column = 0;

} // namespace

void guess_model::show_guesses(std::vector<table_guess> guesses)
{
    if (guesses == guesses_) return;
    beginResetModel();
    guesses_ = std::move(guesses);
    endResetModel();
}

int guess_model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(guesses_.size());
}

int guess_model::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant guess_model::data(const QModelIndex& index, int role) const
{
    const table_guess& guess = guesses_[static_cast<std::size_t>(index.row())];
    if (role == Qt::AccessibleTextRole)
        return index.column() == names_column
                   ? tr("parameter %1").arg(to_qstring(guess.name))
                   : tr("initial guess of %1: %2").arg(to_qstring(guess.name), to_qstring(guess.value));
    if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
    return to_qstring(index.column() == names_column ? guess.name : guess.value);
}

QVariant guess_model::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return section == names_column ? tr("Model parm") : tr("Initial guess");
}

Qt::ItemFlags guess_model::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return index.column() == names_column ? shown : shown | Qt::ItemIsEditable;
}

bool guess_model::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || index.column() == names_column) return false;
    std::string& guess = guesses_[static_cast<std::size_t>(index.row())].value;
    const std::string typed = to_text(value.toString());
    if (typed == guess) return true;
    guess = typed;
    emit dataChanged(index, index);
    emit guess_typed();
    return true;
}

} // namespace kelvarin
