// SPDX-License-Identifier: MIT
// The page of keys against the menus and windows themselves.
#include "main_desk.h"

#include "app/problem_kinds.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QRegularExpression>

#include <fstream>
#include <iterator>

namespace kelvarin::test
{
namespace
{

const std::string page_path = KELVARIN_HELP "/keys.md";

QString without_mnemonic(QString caption)
{
    caption.replace(QRegularExpression(QStringLiteral("&(.)")), QStringLiteral("\\1"));
    if (caption.endsWith(QLatin1String("..."))) caption.chop(3);
    return caption.trimmed().replace(QLatin1Char('|'), QLatin1String("\\|"));
}

QString keys_of(const QAction& action)
{
    QStringList keys;
    for (const QKeySequence& key : action.shortcuts())
        if (const QString text = key.toString(QKeySequence::PortableText); !text.startsWith(QLatin1String("Home")))
            keys.append(QLatin1Char('`') + text + QLatin1Char('`'));
    return keys.join(QStringLiteral(" "));
}

QString table_of_commands()
{
    QString table = QStringLiteral("| key | command |\n|---|---|\n");
    const command_actions actions(nullptr);
    for (const window_command which : all_commands())
        if (const QString keys = keys_of(*actions.action(which)); !keys.isEmpty())
            table += QStringLiteral("| %1 | %2 |\n").arg(keys, without_mnemonic(actions.action(which)->text()));
    return table;
}

/// What a menu holds: "Save `Ctrl+S`, New (NLE, DEQ)".
QString items_of(const QMenu& menu)
{
    QStringList items;
    for (QAction* action : menu.actions()) {
        if (action->isSeparator() || action->objectName().startsWith(QLatin1String("mnuWindowList"))) continue;
        // Keys that only a menu shows stand behind a tab.
        const QStringList parts = action->text().split(QLatin1Char('\t'));
        QString item = without_mnemonic(parts.front());
        if (parts.size() > 1) item += QStringLiteral(" `%1`").arg(parts.back());
        if (const QMenu* inner = action->menu(); inner && !inner->isEmpty())
            item += QStringLiteral(" (%1)").arg(items_of(*inner));
        else if (const QString keys = keys_of(*action); !keys.isEmpty())
            item += QLatin1Char(' ') + keys;
        if (!item.isEmpty()) items.append(item);
    }
    return items.join(QStringLiteral(", "));
}

QString key_of_letter(const QString& caption)
{
    const QKeySequence key = QKeySequence::mnemonic(caption);
    return key.isEmpty() ? QString() : QLatin1Char('`') + key.toString(QKeySequence::PortableText) + QLatin1Char('`');
}

QString table_of_menus(const QMenuBar& bar)
{
    QString table = QStringLiteral("| menu | key | commands |\n|---|---|---|\n");
    for (const QAction* title : bar.actions())
        if (title->menu())
            table += QStringLiteral("| %1 | %2 | %3 |\n")
                         .arg(without_mnemonic(title->text()), key_of_letter(title->text()), items_of(*title->menu()));
    return table;
}

/// The underlined letters of shown controls: "`Alt+D` Add DE".
QString letters_of(const QWidget& window)
{
    QStringList letters;
    const auto add = [&](const QString& caption) {
        if (const QString key = key_of_letter(caption); !key.isEmpty())
            letters.append(key + QLatin1Char(' ') + without_mnemonic(caption));
    };
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        if (const auto* button = qobject_cast<const QAbstractButton*>(control)) add(button->text());
        if (const auto* label = qobject_cast<const QLabel*>(control); label && label->buddy()) add(label->text());
    }
    letters.sort();
    letters.removeDuplicates();
    return letters.join(QStringLiteral(", "));
}

QString chapter_of(main_desk& desk, const QString& title, const QWidget& window)
{
    QString text = QStringLiteral("### %1\n\n%2\n").arg(title, table_of_menus(*desk.window->menuBar()));
    if (const QString letters = letters_of(window); !letters.isEmpty())
        text += QStringLiteral("Letters: %1.\n\n").arg(letters);
    return text;
}

QString menus_of_windows()
{
    main_desk desk;
    QString text = chapter_of(desk, QStringLiteral("While nothing is open"), *desk.window->centralWidget());
    for (const problem_window_kind& kind : problem_window_kinds()) {
        desk.run(kind.fresh);
        text += chapter_of(desk, QString::fromUtf8(kind.row->name), *desk.window->active_child());
    }
    desk.window->close_all();
    desk.window->open_document(std::filesystem::path(KELVARIN_EXAMPLES) / "satellite.kvr");
    robot person(*desk.window->active_child());
    person.find<QCheckBox>("chkGraph").setChecked(true);
    desk.run(window_command::solve);
    for (const auto& [name, title] : {std::pair{"frmSolution", "Reports"}, std::pair{"frmGraph", "Graphs"}}) {
        child_window* shown = nullptr;
        wait_until([&] { return (shown = desk.window->findChild<child_window*>(QLatin1String(name))) != nullptr; });
        desk.window->bring_to_front(*shown);
        settle();
        text += chapter_of(desk, QString::fromLatin1(title), *shown);
    }
    return text;
}

QString letters_of_tools()
{
    main_desk desk;
    QString table = QStringLiteral("| window | letters |\n|---|---|\n");
    for (const auto& [which, name] :
         {std::pair{window_command::calculator, "frmCal"}, std::pair{window_command::units, "frmUni"},
          std::pair{window_command::constants, "frmConstant"}, std::pair{window_command::antoine, "frmAnt"},
          std::pair{window_command::setup, "frmInitials"}, std::pair{window_command::contents, "frmHelp"}}) {
        desk.window->show_tool(which);
        const QWidget& window = top_window(name);
        table += QStringLiteral("| %1 | %2 |\n")
                     .arg(without_mnemonic(desk.window->action(which)->text()), letters_of(window));
    }
    return table;
}

/// The page with one of its parts, which stands between `<!-- windows: NAME -->` and `<!-- end -->`, written anew.
std::string with_part(const std::string& page, const std::string& name, const QString& text)
{
    const std::string begin = "<!-- windows: " + name + " -->\n";
    const std::size_t from = page.find(begin);
    if (from == std::string::npos) throw std::runtime_error("the page of keys has no part " + name);
    const std::size_t end = page.find("<!-- end -->", from);
    return page.substr(0, from) + begin + text.toStdString() + page.substr(end);
}

// KELVARIN_UPDATE_GOLDEN=1 in the environment writes the page anew.
TEST(KeysPage, TellsTheKeysOfAllMenusAndWindows)
{
    std::ifstream file(page_path, std::ios::binary);
    const std::string page{std::istreambuf_iterator<char>(file), {}};
    std::string made = with_part(page, "commands", table_of_commands());
    made = with_part(made, "menus", menus_of_windows());
    made = with_part(made, "tools", letters_of_tools());
    if (std::getenv("KELVARIN_UPDATE_GOLDEN") != nullptr)
        std::ofstream(page_path, std::ios::binary) << made;
    else
        EXPECT_EQ(page, made);
}

} // namespace
} // namespace kelvarin::test
