// SPDX-License-Identifier: MIT
#include "app/frmAbout.h"

#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "shell/report/rich_text.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>

namespace kelvarin
{

frmAbout::frmAbout(QWidget* parent) : QDialog(parent)
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
    layout->addWidget(picture, 0, 0, 3, 1, Qt::AlignTop);

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

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons, 3, 0, 1, 2);
}

} // namespace kelvarin
