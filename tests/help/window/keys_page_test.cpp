// SPDX-License-Identifier: MIT
#include "desktop/commands.h"
#include "support/golden.h"

#include <QAction>
#include <QKeySequence>
#include <QStringList>

namespace kelvarin::test
{
namespace
{

std::string keys_table()
{
    QString table = QStringLiteral("| key | command |\n|---|---|\n");
    const command_actions actions(nullptr);
    for (const window_command which : all_commands()) {
        const QAction& action = *actions.action(which);
        QStringList keys;
        for (const QKeySequence& key : action.shortcuts())
            if (const QString text = key.toString(QKeySequence::PortableText); !text.startsWith(QLatin1String("Home")))
                keys.append(QLatin1Char('`') + text + QLatin1Char('`'));
        QString caption = action.text().remove(QLatin1Char('&'));
        if (caption.endsWith(QLatin1String("..."))) caption.chop(3);
        if (!keys.isEmpty())
            table += QStringLiteral("| %1 | %2 |\n").arg(keys.join(QStringLiteral(", ")), caption.trimmed());
    }
    return table.toStdString();
}

std::string file_text(const char* name)
{
    std::ifstream file(std::filesystem::path(KELVARIN_HELP) / name);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(KeysPage, HasTheTableOfCommands)
{
    EXPECT_NE(file_text("keys.md").find("<!-- keys -->\n" + keys_table() + "<!-- end -->"), std::string::npos)
        << "keys.md should have:\n"
        << keys_table();
}

} // namespace
} // namespace kelvarin::test
