// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/text_spans.h"
#include "nle/equations/equation_rows.h"
#include "nle/equations/set_analysis.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kelvarin
{

/// The rows of an equation grid, with the parts of their texts that are tinted or marked. Rows count from 0 here. What
/// is edited is reported but not stored: only show_rows changes the rows.
class equation_grid_model : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum column
    {
        equation_column,
        value_column,
        comment_column,
        column_count
    };

    equation_grid_model(const QStringList& heads, const row_form& form, QObject* parent);

    /// Replaces the rows and signals only what differs. Returns false if nothing did.
    bool show_rows(std::span<const equation_row> rows, const equation_set& marks, int empty_rows);
    int filled_rows() const { return static_cast<int>(rows_.size()); }
    bool is_filled(int row) const { return row >= 0 && row < filled_rows(); }

    /// All tinted or marked spans of a row's equation; later spans override earlier ones.
    std::vector<text_span> spans(int row) const;
    /// Whether the value of a row should be a number and is none.
    bool is_value_missing(int row) const { return is_filled(row) && rows_[static_cast<std::size_t>(row)].no_value; }
    /// Marks parts of the rows' texts, in place of those marked before.
    void set_marks(std::vector<text_place> places);
    /// The places of the names that these rows (from 1) define.
    std::vector<text_place> name_places(std::span<const int> rows) const;
    void set_editable(bool editable) { editable_ = editable; }
    /// Shows an equation in a row (from 0) that waits for its value; nullopt ends that.
    void set_draft(const std::optional<std::pair<int, std::string>>& draft);
    const std::optional<std::pair<int, std::string>>& draft() const { return draft_; }

    /// The row (from 1) that defines a name; 0 if there is none.
    int row_defining(std::string_view name) const;
    /// An explanation of the name at a character of a row's equation: the rows that define it, that it is undefined, or
    /// what the function computes. Empty if there is no name.
    QString explanation(int row, int letter) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    void comment_edited(int row, const QString& comment);

private:
    struct shown_row
    {
        equation_row row;
        std::vector<text_span> words;
        std::vector<text_span> faults;
        bool no_value = false;

        friend bool operator==(const shown_row&, const shown_row&) = default;
    };

    std::vector<shown_row> read_rows(std::span<const equation_row> rows, const equation_set& marks) const;
    void set_row_count(int count);
    bool report_changes(const std::vector<shown_row>& before);
    QString cell_text(const QModelIndex& index) const;
    QString shown_text(const QModelIndex& index) const;
    bool may_edit(const QModelIndex& index) const;
    QString spoken_text(const QModelIndex& index) const;
    QString spoken_faults(const QModelIndex& index) const;
    std::string_view name_at(int row, int letter) const;
    QString rows_defining(std::string_view name) const;

    QStringList heads_;
    row_form form_;
    std::vector<shown_row> rows_;
    int row_count_ = 0;
    std::vector<text_place> marks_;
    std::optional<std::pair<int, std::string>> draft_;
    bool editable_ = true;
};

} // namespace kelvarin
