// SPDX-License-Identifier: MIT
#include "nle/window/frmNLE.h"

#include "desktop/link_label.h"
#include "desktop/qt_text.h"
#include "nle/equations/window/equation_grid.h"
#include "nle/equations/window/problem_status.h"
#include "nle/nle_samples.h"

#include <QAction>
#include <QKeyEvent>

namespace kelvarin
{

namespace
{

problem_kind nle_kind()
{
    return {.window_name = "frmNLE",
            .caption = "Nonlinear Equations Solver",
            .recent_suffix = "\\files_nle",
            .open_filter = "Kelvarin (*.kvr)|*.kvr|Text (*.txt)|*.txt|All file (*.*)|*.*",
            .save_filter = "Kelvarin (*.kvr)|*.kvr|Kelvarin 4.x (*.kvr)|*.kvr|Text (*.txt)|*.txt|All file (*.*)|*.*",
            .older_format_filter = 2,
            .older_format_question =
                "Saving as older Kelvarin format may result in loosing some formating data. Do you want to continue ?",
            .unsaved_on_close = "NLE Problem not saved. Do you want to save it before closing ?",
            .unsaved_on_open = "Problem not saved. Do you wish to save it now ?"};
}

/// Shows a text without moving the caret of somebody who types it.
void show_text(QLineEdit& field, const std::string& text)
{
    const QString shown = to_qstring(text);
    if (field.text() != shown) field.setText(shown);
}

} // namespace

frmNLE::frmNLE(desktop_context& context) : problem_window(context, nle_kind())
{
    build_ui();
    connect_controls();
    document_changed();
    setFocusProxy(grdRoots_);
}

frmNLE::~frmNLE()
{
    // A field in which one is typing tells that this has ended when it goes, and then there is no window any more.
    const auto children = findChildren<QObject*>();
    for (QObject* child : children)
        child->disconnect(this);
}

void frmNLE::connect_controls()
{
    connect(cmdNewRoot_, &QPushButton::clicked, this, &frmNLE::cmdNewRoot_Click);
    connect(cmdNewEquation_, &QPushButton::clicked, this, &frmNLE::cmdNewEquation_Click);
    connect(cmdEdit_, &QPushButton::clicked, this, &frmNLE::cmdEdit_Click);
    connect(cmdRemove_, &QPushButton::clicked, this, &frmNLE::cmdRemove_Click);
    connect(cmdUpDwn_[0], &QToolButton::clicked, this, [this] { cmdUpDwn_Click(true); });
    connect(cmdUpDwn_[1], &QToolButton::clicked, this, [this] { cmdUpDwn_Click(false); });
    connect(cmdRun_, &QPushButton::clicked, this, [this] { solve(); });
    connect(cmdShowallvars_, &QPushButton::clicked, this, &frmNLE::cmdShowallvars_Click);
    // Only what a person chooses strips the guesses of their suffixes, not what a file brings.
    connect(cmbMethod_, &QComboBox::activated, this, &frmNLE::cmbMethod_Click);
    connect(chkComments_, &QCheckBox::toggled, this, [this](bool shown) { grdRoots_->show_comments(shown); });
    for (QLineEdit* bound : {txtnle_min_ini_guess_, txtnle_max_ini_guess_}) {
        connect(bound, &QLineEdit::textEdited, this, &frmNLE::bound_Change);
        connect(bound, &QLineEdit::editingFinished, this, &frmNLE::update_num_vars);
    }

    connect(grdRoots_, &equation_grid::current_row_changed, this, &frmNLE::enable_controls);
    connect(grdRoots_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &frmNLE::state_changed);
    connect(grdRoots_, &equation_grid::edit_asked, this, &frmNLE::edit_row);
    connect(grdRoots_, &equation_grid::remove_asked, this, &frmNLE::cmdRemove_Click);
    connect(grdRoots_, &equation_grid::move_asked, this, [this](int, bool up) { cmdUpDwn_Click(up); });
    connect(grdRoots_, &equation_grid::new_implicit_asked, this, &frmNLE::cmdNewRoot_Click);
    connect(grdRoots_, &equation_grid::new_explicit_asked, this, &frmNLE::cmdNewEquation_Click);
    connect(grdRoots_, &equation_grid::comment_edited, this, &frmNLE::comment_edited);
    connect(stbNLE_, &problem_status::name_clicked, this, &frmNLE::name_clicked);
}

void frmNLE::show_document()
{
    if (shown_path_ != problem_.path()) {
        shown_path_ = problem_.path();
        empty_rows_ = 0;
    }
    lblTitle_->show_text(problem_.title().empty() ? tr("Untitled problem") : to_qstring(problem_.title()), {});
    cmbMethod_->setCurrentIndex(static_cast<int>(problem_.content().method));
    show_text(*txtnle_min_ini_guess_, problem_.content().lower_bound);
    show_text(*txtnle_max_ini_guess_, problem_.content().upper_bound);
    apply_colours();
    update_num_vars();
}

void frmNLE::update_num_vars()
{
    analysis_ = problem_.analyse();
    const equation_set& set = analysis_.set;
    grdRoots_->show_rows(problem_.content().rows, set, empty_rows_);
    stbNLE_->show_panels(analysis_.panels, set.undefined.empty() ? set.duplicates : set.undefined);
    bounds_->setVisible(analysis_.single_controls_visible);
    if (!analysis_.single_controls_visible) chkGraph_->setChecked(false);

    const QString missing = what_is_missing();
    light_->set_green(analysis_.green, analysis_.green ? tr("The problem may be solved.") : missing);
    lblMissing_->show_text(missing, {});
    lblMissing_->setVisible(!analysis_.green);
    cmdRun_->setVisible(analysis_.green);
    enable_controls();
}

QString frmNLE::what_is_missing() const
{
    if (analysis_.green) return {};
    if (problem_.equation_count() == 0) return tr("Add an equation to begin.");
    return to_qstring(red_light_box(problem_.content()).text).replace(QLatin1Char('\r'), QLatin1Char(' '));
}

void frmNLE::enable_controls()
{
    const int count = problem_.equation_count();
    const int row = grdRoots_->current_row();
    const bool idle = !is_running();
    const bool on_row = idle && row >= 1 && row <= count;
    for (QPushButton* button : {cmdEdit_, cmdRemove_})
        button->setEnabled(on_row);
    for (QAction* item : row_items_)
        item->setEnabled(on_row);
    cmdUpDwn_[0]->setEnabled(on_row && row > 1);
    cmdUpDwn_[1]->setEnabled(on_row && row < count);
    item_up_->setEnabled(cmdUpDwn_[0]->isEnabled());
    item_down_->setEnabled(cmdUpDwn_[1]->isEnabled());
    emit state_changed();
}

void frmNLE::enable_controls_for_run(bool running)
{
    for (QWidget* control : std::initializer_list<QWidget*>{cmbMethod_, cmdNewRoot_, cmdNewEquation_, cmdRun_,
                                                            txtnle_min_ini_guess_, txtnle_max_ini_guess_})
        control->setEnabled(!running);
    for (QAction* item : changing_items_)
        item->setEnabled(!running);
    grdRoots_->set_editable(!running);
    enable_controls();
}

bool frmNLE::can(window_command which) const
{
    switch (which) {
    case window_command::copy:
        return !grdRoots_->selected_rows().empty();
    case window_command::select_all:
        return problem_.equation_count() > 0;
    default:
        return problem_window::can(which);
    }
}

void frmNLE::perform(window_command which)
{
    switch (which) {
    case window_command::copy:
        copy_rows();
        break;
    case window_command::select_all:
        grdRoots_->selectAll();
        break;
    default:
        problem_window::perform(which);
    }
}

bool frmNLE::eventFilter(QObject* watched, QEvent* event)
{
    // The keys for undo and redo mean the problem also in the fields of the bounds.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
            event->ignore();
            return true;
        }
    }
    return problem_window::eventFilter(watched, event);
}

void frmNLE::load_sample(int number)
{
    if (is_running() || !may_replace("Previous problem was not saved. Do you wish to save it now ?")) return;
    problem_.load_example(nle_samples().at(static_cast<std::size_t>(number - 1)));
    empty_rows_ = 0;
    document_changed();
    grdRoots_->set_current_row(1);
}

} // namespace kelvarin
