// SPDX-License-Identifier: MIT
#include "tools/window/data_window.h"

#include "desktop/controls.h"
#include "desktop/qt_text.h"
#include "platform/data_files.h"
#include "platform/text_file.h"

#include <QEvent>
#include <QLabel>
#include <QShowEvent>

#include <utility>

namespace kelvarin
{

data_window::data_window(desktop_context& context, QWidget* parent, std::string_view file_name,
                         std::vector<std::filesystem::path> folders)
    : QWidget(parent, Qt::Window), context_(context), file_name_(file_name), folders_(std::move(folders)),
      lblFaults_(named(new QLabel(this), "lblFaults"))
{
    lblFaults_->setTextFormat(Qt::PlainText);
    lblFaults_->setWordWrap(true);
    lblFaults_->hide();
}

void data_window::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (has_data_ || event->spontaneous()) return;
    has_data_ = read_data();
    // Queued, so that the window is visible behind the box and can be closed.
    if (!has_data_) QMetaObject::invokeMethod(this, &data_window::refuse, Qt::QueuedConnection);
}

bool data_window::read_data()
{
    const std::optional<std::filesystem::path> path = find_data_file(file_name_, folders_);
    if (!path) return false;
    const text_file file = read_text_file(*path, bounds_of_configuration);
    if (!file.ok()) return false;
    show_faults(show_data(file.text));
    return true;
}

void data_window::refuse()
{
    // If it was hidden meanwhile there is no box; the next time it is shown it looks for the file again.
    if (!isVisible()) return;
    context_.user.show(this, missing_data_box(file_name_));
    close();
}

void data_window::show_faults(const std::vector<data_fault>& faults)
{
    lblFaults_->setVisible(!faults.empty());
    if (faults.empty()) return;
    QStringList lines;
    for (const data_fault& fault : faults)
        lines.append(tr("Passed over: line %1, %2").arg(fault.line).arg(to_qstring(fault.reason)));
    const QString others = faults.size() == 1 ? QString() : tr(", and %1 more").arg(faults.size() - 1);
    lblFaults_->setText(to_qstring(file_name_) + QStringLiteral(": ") + lines.front() + others);
    lblFaults_->setToolTip(tip_text(lines.join(QLatin1Char('\n'))));
}

void data_window::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) tint_controls();
}

} // namespace kelvarin
