// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/table_content.h"

#include <QAbstractTableModel>

#include <vector>

namespace kelvarin
{

/// The rows of grdNlrGuess: the parameters of a model and their initial guesses, which can be edited.
class guess_model : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void show_guesses(std::vector<table_guess> guesses);
    const std::vector<table_guess>& guesses() const { return guesses_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    void guess_typed();

private:
    std::vector<table_guess> guesses_;
};

} // namespace kelvarin
