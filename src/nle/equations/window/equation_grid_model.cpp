// SPDX-License-Identifier: MIT
#include "nle/equations/window/equation_grid_model.h"

#include "desktop/qt_text.h"
#include "expr/basParse.h"

#include <algorithm>
#include <utility>

namespace kelvarin
{

equation_grid_model::equation_grid_model(const QStringList& heads, const row_form& form, QObject* parent)
    : QAbstractTableModel(parent), heads_(heads), form_(form)
{
}

std::vector<equation_grid_model::shown_row> equation_grid_model::read_rows(std::span<const equation_row> rows,
                                                                           const equation_set& marks) const
{
    std::vector<shown_row> read;
    read.reserve(rows.size());
    for (const equation_row& row : rows) {
        const std::size_t number = read.size();
        const bool known = number < rows_.size() && rows_[number].row.equation == row.equation;
        read.push_back({row,
                        known ? rows_[number].words
                              : expression_spans(row.equation, parts_of(row.equation, form_).right_side_offset),
                        {},
                        false});
    }
    const auto mark = [&read](const std::vector<text_place>& places, text_meaning meaning) {
        for (const text_place& place : places) {
            if (place.row < 1 || place.row > static_cast<int>(read.size())) continue;
            shown_row& shown = read[static_cast<std::size_t>(place.row - 1)];
            shown.faults.push_back(span_of(shown.row.equation, place.offset, place.length, meaning));
        }
    };
    mark(marks.duplicate_places, text_meaning::duplicate);
    mark(marks.undefined_places, text_meaning::undefined);
    for (const int row : marks.rows_without_value)
        if (row >= 1 && row <= static_cast<int>(read.size())) read[static_cast<std::size_t>(row - 1)].no_value = true;
    return read;
}

void equation_grid_model::set_row_count(int count)
{
    if (count < row_count_) {
        beginRemoveRows({}, count, row_count_ - 1);
        row_count_ = count;
        if (count < filled_rows()) rows_.resize(static_cast<std::size_t>(count));
        endRemoveRows();
    } else if (count > row_count_) {
        beginInsertRows({}, row_count_, count - 1);
        row_count_ = count;
        endInsertRows();
    }
}

bool equation_grid_model::report_changes(const std::vector<shown_row>& before)
{
    const auto same = [&](std::size_t row) {
        return row < before.size() && row < rows_.size() && before[row] == rows_[row];
    };
    const std::size_t end = std::max(before.size(), rows_.size());
    bool changed = false;
    for (std::size_t row = 0; row < end; ++row) {
        if (same(row)) continue;
        const std::size_t first = row;
        while (row + 1 < end && !same(row + 1))
            ++row;
        emit dataChanged(index(static_cast<int>(first), 0), index(static_cast<int>(row), column_count - 1));
        changed = true;
    }
    return changed;
}

bool equation_grid_model::show_rows(std::span<const equation_row> rows, const equation_set& marks, int empty_rows)
{
    std::vector<shown_row> next = read_rows(rows, marks);
    const int count_before = row_count_;
    set_row_count(static_cast<int>(next.size()) + empty_rows);
    const std::vector<shown_row> before = std::exchange(rows_, std::move(next));
    return report_changes(before) || row_count_ != count_before;
}

std::vector<text_span> equation_grid_model::spans(int row) const
{
    if (!is_filled(row)) return {};
    const shown_row& shown = rows_[static_cast<std::size_t>(row)];
    std::vector<text_span> all = shown.words;
    all.insert(all.end(), shown.faults.begin(), shown.faults.end());
    for (const text_place& mark : marks_) {
        if (mark.row == row + 1)
            all.push_back(span_of(shown.row.equation, mark.offset, mark.length, text_meaning::marked));
    }
    return all;
}

void equation_grid_model::set_marks(std::vector<text_place> places)
{
    if (places == marks_) return;
    const auto repaint = [this](const text_place& place) {
        if (!is_filled(place.row - 1)) return;
        const QModelIndex cell = index(place.row - 1, equation_column);
        emit dataChanged(cell, cell);
    };
    std::ranges::for_each(std::exchange(marks_, std::move(places)), repaint);
    std::ranges::for_each(marks_, repaint);
}

std::vector<text_place> equation_grid_model::name_places(std::span<const int> rows) const
{
    std::vector<text_place> places;
    for (const int row : rows) {
        if (!is_filled(row - 1)) continue;
        const equation_parts parts = parts_of(rows_[static_cast<std::size_t>(row - 1)].row.equation, form_);
        places.push_back({row, parts.name_offset, parts.name.size()});
    }
    return places;
}

int equation_grid_model::row_defining(std::string_view name) const
{
    const auto found = std::ranges::find_if(
        rows_, [&](const shown_row& row) { return parts_of(row.row.equation, form_).name == name; });
    return name.empty() || found == rows_.end() ? 0 : static_cast<int>(found - rows_.begin()) + 1;
}

std::string_view equation_grid_model::name_at(int row, int letter) const
{
    const std::string_view equation = rows_[static_cast<std::size_t>(row)].row.equation;
    const auto at = static_cast<std::size_t>(to_qstring(equation).left(letter).toUtf8().size());
    const equation_parts parts = parts_of(equation, form_);
    if (at >= parts.name_offset && at < parts.name_offset + parts.name.size()) return parts.name;
    for (const token& word : scan_tokens(parts.right_side)) {
        const std::size_t start = parts.right_side_offset + word.offset;
        if (word.kind == token_kind::tokName && at >= start && at < start + word.length) return word.text;
    }
    return {};
}

QString equation_grid_model::rows_defining(std::string_view name) const
{
    // A longer tool tip would cover the rows it is about.
    constexpr int lines_at_most = 5;
    QStringList lines;
    for (std::size_t row = 0; row < rows_.size() && lines.size() < lines_at_most; ++row) {
        const std::string& equation = rows_[row].row.equation;
        if (parts_of(equation, form_).name == name)
            lines.append(tr("row %1: %2").arg(QString::number(row + 1), to_qstring(equation)));
    }
    return lines.join(QLatin1Char('\n'));
}

QString equation_grid_model::explanation(int row, int letter) const
{
    if (!is_filled(row)) return {};
    const std::string_view name = name_at(row, letter);
    if (name.empty()) return {};
    if (const QString rows = rows_defining(name); !rows.isEmpty()) return rows;
    const operation_code function = function_of(name);
    if (is_equation_word(name) && function != operation_code::none)
        return tr("%1: %2").arg(to_qstring(name), to_qstring(row_of(function).meaning));
    return tr("%1 is not defined").arg(to_qstring(name));
}

int equation_grid_model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : row_count_;
}

int equation_grid_model::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : column_count;
}

void equation_grid_model::set_draft(const std::optional<std::pair<int, std::string>>& draft)
{
    const auto before = std::exchange(draft_, draft);
    for (const auto& changed : {before, draft_})
        if (changed) emit dataChanged(index(changed->first, 0), index(changed->first, column_count - 1));
}

QString equation_grid_model::cell_text(const QModelIndex& index) const
{
    if (draft_ && draft_->first == index.row() && index.column() == equation_column) return to_qstring(draft_->second);
    if (!is_filled(index.row())) return {};
    const equation_row& row = rows_[static_cast<std::size_t>(index.row())].row;
    switch (index.column()) {
    case equation_column:
        return to_qstring(row.equation);
    case value_column:
        return to_qstring(row.guess);
    default:
        return to_qstring(row.comment);
    }
}

QString equation_grid_model::shown_text(const QModelIndex& index) const
{
    const QString text = cell_text(index);
    const bool missing = index.column() == value_column && is_value_missing(index.row());
    return missing && text.trimmed().isEmpty() ? QStringLiteral("?") : text;
}

QString equation_grid_model::spoken_text(const QModelIndex& index) const
{
    const QString number = QString::number(index.row() + 1);
    if (!is_filled(index.row())) return tr("row %1: empty").arg(number);
    switch (index.column()) {
    case equation_column:
        return tr("equation %1: %2").arg(number, cell_text(index));
    case value_column:
        return tr("%1 %2: %3").arg(heads_.value(value_column).toLower(), number, cell_text(index));
    default:
        return tr("comment %1: %2").arg(number, cell_text(index));
    }
}

QString equation_grid_model::spoken_faults(const QModelIndex& index) const
{
    if (!is_filled(index.row())) return {};
    if (index.column() == value_column && is_value_missing(index.row()))
        return tr("not a number: a run begins with the number in front, or with 0");
    if (index.column() != equation_column) return {};
    const shown_row& shown = rows_[static_cast<std::size_t>(index.row())];
    const QString equation = to_qstring(shown.row.equation);
    QStringList sentences;
    for (const text_span& fault : shown.faults) {
        const QString name = equation.mid(fault.start, fault.length);
        const QString sentence = fault.meaning == text_meaning::duplicate ? tr("%1 is defined more than once").arg(name)
                                                                          : tr("%1 is not defined").arg(name);
        if (!sentences.contains(sentence)) sentences.append(sentence);
    }
    return sentences.join(QStringLiteral(", "));
}

QVariant equation_grid_model::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    switch (role) {
    case Qt::DisplayRole:
        return shown_text(index);
    case Qt::EditRole:
        return cell_text(index);
    case Qt::AccessibleTextRole:
        return spoken_text(index);
    case Qt::AccessibleDescriptionRole:
        return spoken_faults(index);
    default:
        return {};
    }
}

QVariant equation_grid_model::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole) return {};
    if (orientation == Qt::Vertical) return QString::number(section + 1);
    return heads_.value(section);
}

Qt::ItemFlags equation_grid_model::flags(const QModelIndex& index) const
{
    Qt::ItemFlags cell = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (editable_ && may_edit(index)) cell |= Qt::ItemIsEditable;
    return cell;
}

bool equation_grid_model::may_edit(const QModelIndex& index) const
{
    switch (index.column()) {
    case equation_column:
        return index.row() <= filled_rows();
    case value_column:
        if (draft_ && draft_->first == index.row()) return true;
        return is_filled(index.row()) && is_implicit(rows_[static_cast<std::size_t>(index.row())].row.equation, form_);
    default:
        return is_filled(index.row());
    }
}

bool equation_grid_model::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || index.column() != comment_column || !(flags(index) & Qt::ItemIsEditable)) return false;
    const QString comment = value.toString();
    if (comment != cell_text(index)) emit comment_edited(index.row() + 1, comment);
    return true;
}

} // namespace kelvarin
