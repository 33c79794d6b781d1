// SPDX-License-Identifier: MIT
#include "app/frmAbout.h"

#include "app/fault_report.h"
#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "desktop/user_interface.h"
#include "shell/report/rich_text.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace kelvarin
{

frmAbout::frmAbout(user_interface& user, QWidget* parent) : QDialog(parent), user_(user)
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(tr("About Kelvarin"));
    setAttribute(Qt::WA_DeleteOnClose);
    build_ui();
}

void frmAbout::build_ui()
{
    const int unit = line_unit(*this);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(unit, unit, unit, unit);
    layout->setHorizontalSpacing(unit);
    layout->setVerticalSpacing(unit / 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    auto* picture = new QLabel(this);
    picture->setPixmap(program_icon("app").pixmap(4 * unit, 4 * unit));
    picture->setAccessibleName(tr("Kelvarin"));
    layout->addWidget(picture, 0, 0, 4, 1, Qt::AlignTop);

    auto* version = new QLabel(tr("Kelvarin %1").arg(to_qstring(program_version())), this);
    version->setObjectName(QStringLiteral("lblVersion"));
    QFont font = version->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    font.setBold(true);
    version->setFont(font);
    layout->addWidget(version, 0, 1);
    layout->addWidget(new QLabel(tr("A workbench for numerical analysis."), this), 1, 1);
    auto* notices = new QLabel(tr("Free software under the MIT licence, without any warranty.\n"
                                  "Its windows are made with Qt %1, which is free software\n"
                                  "under the GNU Lesser General Public License.")
                                   .arg(QString::fromLatin1(qVersion())),
                               this);
    notices->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(notices, 2, 1);

    auto* details = new QLabel(fault_report().trimmed(), this);
    details->setObjectName(QStringLiteral("lblDetails"));
    details->setPalette(quiet_palette(palette()));
    details->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(details, 3, 1);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* copy = buttons->addButton(tr("&Copy for a report of a fault"), QDialogButtonBox::ActionRole);
    copy->setObjectName(QStringLiteral("cmdCopyReport"));
    copy->setAutoDefault(false);
    copy->setToolTip(tr("Copy the lines above: versions, system, screens; no names of files or people"));
    connect(copy, &QPushButton::clicked, this, [this] { user_.copy_text(fault_report()); });
    layout->addWidget(buttons, 4, 0, 1, 2);
}

} // namespace kelvarin
