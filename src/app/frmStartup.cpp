// SPDX-License-Identifier: MIT
#include "app/frmStartup.h"

#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "shell/report/rich_text.h"

#include <QEvent>
#include <QVBoxLayout>

namespace kelvarin
{

namespace
{

constexpr int shown_for_ms = 1500;

} // namespace

frmStartup::frmStartup(QWidget* main_window) : QWidget(main_window, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("frmStartup"));
    setWindowTitle(tr("Kelvarin"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    build_ui();
    adjustSize();
    if (main_window) move(main_window->frameGeometry().center() - rect().center());

    tmrStartup_ = new QTimer(this);
    tmrStartup_->setObjectName(QStringLiteral("tmrStartup"));
    tmrStartup_->setSingleShot(true);
    connect(tmrStartup_, &QTimer::timeout, this, &QWidget::close);
    tmrStartup_->start(shown_for_ms);
}

void frmStartup::build_ui()
{
    const int unit = line_unit(*this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4 * unit, 2 * unit, 4 * unit, 2 * unit);
    layout->setSpacing(unit / 2);

    Picture1_ = new QLabel(this);
    Picture1_->setObjectName(QStringLiteral("Picture1"));
    Picture1_->setPixmap(program_icon("app").pixmap(6 * unit, 6 * unit));
    Picture1_->setAccessibleName(tr("Kelvarin"));
    Picture1_->setAlignment(Qt::AlignCenter);
    Picture1_->installEventFilter(this);
    layout->addWidget(Picture1_);

    auto* name = new QLabel(tr("Kelvarin"), this);
    QFont font = name->font();
    font.setPointSizeF(font.pointSizeF() * 2.0);
    font.setBold(true);
    name->setFont(font);
    name->setAlignment(Qt::AlignCenter);
    layout->addWidget(name);
    auto* version = new QLabel(tr("Version %1").arg(to_qstring(program_version())), this);
    version->setAlignment(Qt::AlignCenter);
    layout->addWidget(version);
}

bool frmStartup::eventFilter(QObject* watched, QEvent* event)
{
    const bool clicked = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (watched == Picture1_ && clicked) {
        close();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace kelvarin
