// SPDX-License-Identifier: MIT
#pragma once

#include "reg/fit_request.h"
#include "reg/regression_lists.h"

#include <QWidget>

class QComboBox;
class QListWidget;

namespace kelvarin
{

/// The controls of one regression, a page of sstReg.
class regression_panel : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Fills the controls with what a table offers. What was chosen stays chosen if it is still offered.
    virtual void show_lists(const table_content& content, const regression_lists& lists) = 0;
    /// Adds what the controls say to a request.
    virtual void fill(fit_request& request) const = 0;

protected:
    /// Fills a list of names; `preset` is selected if the former choice is no longer offered, -1 for none.
    static void show_names(QComboBox& box, const std::vector<std::string>& names, int preset);
    /// The same for a list of which several may be selected; `preset` may be beyond its end.
    static void show_names(QListWidget& list, const std::vector<std::string>& names, int preset);
    static QComboBox* make_names_box(const char* name, const QString& tip);
    static QListWidget* make_names_list(const char* name, const QString& tip);
};

} // namespace kelvarin
