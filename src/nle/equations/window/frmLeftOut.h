// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"
#include "nle/equations/typed_rows.h"

#include <QDialog>
#include <QStringList>

#include <functional>
#include <string_view>
#include <vector>

class QLabel;

namespace kelvarin
{

class expression_edit;

/// Of a text, the lines that are no equations of the problem, with their numbers from 1.
using line_reader = std::function<std::vector<left_out_line>(std::string_view text)>;

/// The lines of a pasted text that were left out, to be mended: what is wrong with each is marked and told while
/// typing, and "Put in" takes over those that are right. The dialog ends when none is left; it deletes itself.
class frmLeftOut : public QDialog
{
    Q_OBJECT

public:
    /// `check` reads the lines; `put_in` takes them over as well.
    frmLeftOut(desktop_context& context, QWidget* parent, const std::vector<left_out_line>& lines,
               const QStringList& names, line_reader check, line_reader put_in);

private:
    void build_ui(const QStringList& names);
    void show_lines(const std::vector<left_out_line>& lines);
    void check_lines();
    void mark_faults();
    /// Tells what is wrong with the line that has the caret.
    void tell_reason();
    void cmdPutIn_Click();

    line_reader check_;
    line_reader put_in_;
    std::vector<left_out_line> faults_;
    expression_edit* txtLines_ = nullptr;
    QLabel* lblReason_ = nullptr;
};

} // namespace kelvarin
