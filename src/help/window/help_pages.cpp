// SPDX-License-Identifier: MIT
#include "help/window/help_pages.h"

#include "desktop/qt_text.h"
#include "help/help_context.h"

#include <QDir>
#include <QFile>
#include <QWidget>

#include <string>
#include <vector>

namespace kelvarin
{

const help_library& program_help()
{
    static const help_library library = [] {
        std::vector<help_page> pages;
        for (const QFileInfo& file : QDir(QStringLiteral(":/help")).entryInfoList({QStringLiteral("*.md")})) {
            QFile page(file.filePath());
            if (page.open(QIODevice::ReadOnly))
                pages.push_back(read_help_page(to_text(file.completeBaseName()), page.readAll().toStdString()));
        }
        return help_library(std::move(pages));
    }();
    return library;
}

std::string help_target_in_front(const QWidget* front)
{
    std::vector<std::string> names;
    for (; front; front = front->parentWidget())
        if (!front->objectName().isEmpty()) names.push_back(to_text(front->objectName()));
    return std::string(help_target_of(names));
}

} // namespace kelvarin
