// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_content.h"

#include <QAbstractTableModel>
#include <QString>

namespace kelvarin
{

/// The cells of a problem of linear equations as they are shown. A cell that was typed in is reported and not
/// kept: cells change by show_content alone.
class leq_grid_model : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit leq_grid_model(QObject* parent);

    /// Takes the content over and reports what changed; true where the number of rows and columns did.
    bool show_content(const leq_content& content);
    const leq_content& content() const { return content_; }
    int beta_column() const { return content_.count(); }

    /// Neither empty nor a number.
    bool is_faulty(leq_cell cell) const;
    /// What is wrong with a faulty cell, in a sentence; empty for every other.
    QString fault_of(leq_cell cell) const;
    /// "row 2, column x3".
    QString place_name(leq_cell cell) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    void cell_edited(kelvarin::leq_cell cell, const QString& text);

private:
    void report_changes(const leq_content& before);
    QString spoken_text(leq_cell cell) const;

    leq_content content_;
};

} // namespace kelvarin
