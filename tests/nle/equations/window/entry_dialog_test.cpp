// SPDX-License-Identifier: MIT
#include "nle/equations/window/entry_dialog.h"

#include "support/robot.h"
#include "support/table.h"
#include "support/test_desk.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QPointer>

#include <functional>
#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

using test::robot;
using testing::ElementsAre;

/// A dialog with a field of its own, whose rules a test gives.
class guess_dialog final : public entry_dialog
{
public:
    using rule = std::function<std::optional<message_box>(const std::string& name, const std::string& expression)>;

    guess_dialog(desktop_context& desk, rule given)
        : entry_dialog(desk, nullptr, {.dialog = "frmTest"}, QStringLiteral("Test"), QStringLiteral("Hint")),
          rule_(std::move(given))
    {
        txtGuess = new QLineEdit(this);
        txtGuess->setObjectName(QStringLiteral("txtGuess"));
        insert_value(QStringLiteral("Guess"), txtGuess);
    }

    QLineEdit* txtGuess = nullptr;
    int taken = 0;

protected:
    std::optional<message_box> take_over() override
    {
        auto refused = check();
        if (!refused) ++taken;
        return refused;
    }
    std::optional<message_box> check() const override
    {
        return rule_(txtVar()->text().toStdString(), txtEquation()->expression());
    }
    void clear_fields() override { txtGuess->clear(); }

private:
    rule rule_;
};

/// An open dialog and the person before it.
class desk
{
public:
    explicit desk(guess_dialog::rule rule)
    {
        dialog = new guess_dialog(user_desk.context, std::move(rule));
        QObject::connect(dialog, &QDialog::finished, dialog, [this] { result = dialog->dialog_result(); });
        dialog->open();
        dialog->activateWindow();
        test::settle();
    }
    ~desk()
    {
        if (dialog) dialog->close();
        test::settle();
    }

    test::test_desk user_desk;
    QPointer<guess_dialog> dialog;
    QString result;
};

std::optional<message_box> accept_all(const std::string&, const std::string&)
{
    return std::nullopt;
}

TEST(EntryDialog, ShowsARefusalInTheFieldItIsAbout)
{
    struct refusal
    {
        message_box box;
        const char* field;
        const char* marked;
    };
    using field = entry_field;
    const refusal refusals[] = {
        {{.text = "words", .place = text_place{0, 0, 3}, .field = field::expression}, "txtEquation", "x y"},
        {{.text = "nothing", .field = field::expression}, "txtEquation", ""},
        {{.text = "circle", .place = text_place{0, 2, 1}, .field = field::expression}, "txtEquation", "y"},
        {{.text = "name", .field = field::name}, "txtVar", ""},
        {{.text = "guess", .field = field::value}, "txtGuess", ""},
    };
    for (const refusal& made : refusals) {
        SCOPED_TRACE(made.box.text);
        desk at([&](const std::string&, const std::string&) { return std::optional(made.box); });
        const robot person(*at.dialog);
        person.type("txtEquation", "x y");
        at.user_desk.user.expect_box(made.box.text);
        person.click("cmdDone");
        ASSERT_TRUE(at.dialog && at.dialog->isVisible());
        EXPECT_EQ(at.dialog->taken, 0);
        EXPECT_EQ(QApplication::focusWidget(), &person.find(made.field));
        std::string marked;
        for (const QTextEdit::ExtraSelection& mark : at.dialog->txtEquation()->extraSelections())
            marked += mark.cursor.selectedText().toStdString();
        EXPECT_EQ(marked, made.marked);
        if (made.box.place) {
            robot::keys("z");
            EXPECT_EQ(at.dialog->txtEquation()->expression(),
                      std::string("x y").replace(made.box.place->offset, made.box.place->length, "z"));
        }
    }
}

TEST(EntryDialog, IsDoneOrCancelledByButtonsAndKeys)
{
    const auto key = [](Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        return [=](const robot&) { robot::press(code, modifiers); };
    };
    const auto click = [](const char* name) { return [=](const robot& person) { person.click(name); }; };
    const test::table<const char*, std::function<void(const robot&)>, const char*> ways = {
        {"txtVar", key(Qt::Key_Return), "done"},
        {"txtGuess", key(Qt::Key_Enter, Qt::KeypadModifier), "done"},
        {"txtComment", key(Qt::Key_Return), "done"},
        {"txtEquation", key(Qt::Key_Return, Qt::ControlModifier), "done"},
        {"txtEquation", key(Qt::Key_Return), "done"},
        {"txtEquation", key(Qt::Key_Return, Qt::ShiftModifier), ""},
        {"txtEquation", key(Qt::Key_Escape), "cancel"},
        {"txtVar", click("cmdDone"), "done"},
        {"txtVar", click("cmdCancel"), "cancel"},
    };
    for (const auto& [field, act, result] : ways) {
        SCOPED_TRACE(std::string(field) + " " + result);
        desk at(accept_all);
        const robot person(*at.dialog);
        person.type(field, "x");
        act(person);
        EXPECT_EQ(at.result.toStdString(), result);
        EXPECT_EQ(at.dialog.isNull(), result[0] != '\0') << "the dialog deletes itself";
    }
}

TEST(EntryDialog, TellsFaultsBelowTheirFieldsWithoutABox)
{
    using field = entry_field;
    desk at([](const std::string& name, const std::string& expression) -> std::optional<message_box> {
        if (expression == "x+")
            return message_box{.text = "syntax", .place = text_place{0, 1, 1}, .field = field::expression};
        if (expression == "x**2") return message_box{.text = "operators", .field = field::expression};
        if (name.empty()) return message_box{.text = "no name", .field = field::name};
        if (name == "g") return message_box{.text = "guess", .field = field::value};
        return name == "2x" ? std::optional(message_box{.text = "not\rvalid", .field = field::name}) : std::nullopt;
    });
    const robot person(*at.dialog);
    const auto lines_become = [&](const std::string& name, const std::string& expression, const std::string& guess) {
        return test::wait_until([&] {
            return person.text("lblCheckVar") == name && person.text("lblCheck") == expression &&
                   person.text("lblCheckValue") == guess;
        });
    };
    person.type("txtEquation", "1+x");
    person.type("txtVar", "2x");
    EXPECT_EQ(person.text("lblCheckVar"), "");
    EXPECT_TRUE(lines_become("not valid", "", ""));
    person.type("txtVar", "g");
    EXPECT_TRUE(lines_become("", "", "guess"));
    // While the name is still to come only the expression can be at fault.
    person.type("txtVar", "");
    person.type("txtEquation", "x+");
    EXPECT_TRUE(lines_become("", "syntax", ""));
    const auto marks = at.dialog->txtEquation()->extraSelections();
    ASSERT_EQ(marks.size(), 1);
    EXPECT_EQ(marks.front().cursor.selectedText(), "+");
    EXPECT_FALSE(at.dialog->txtEquation()->textCursor().hasSelection()) << "typing goes on";
    person.type("txtEquation", "x+1");
    EXPECT_TRUE(lines_become("", "", ""));
    // The likely cause stands behind what is wrong.
    person.type("txtEquation", "x**2");
    EXPECT_TRUE(lines_become("", "operators Powers are written with ^: x^2", ""));
    person.type("txtEquation", "x^2");
    EXPECT_TRUE(lines_become("", "", ""));
}

TEST(EntryDialog, ClearsEveryField)
{
    desk at(accept_all);
    const robot person(*at.dialog);
    const char* fields[] = {"txtVar", "txtEquation", "txtGuess", "txtComment"};
    for (const char* field : fields)
        person.type(field, "x");
    person.click("cmdClear");
    for (const char* field : fields)
        EXPECT_EQ(person.text(field), "") << field;
    EXPECT_EQ(QApplication::focusWidget(), at.dialog->txtVar());
}

TEST(EntryDialog, TabGoesDownTheForm)
{
    desk at(accept_all);
    std::vector<std::string> order;
    for (int stop = 0; stop < 8; ++stop) {
        order.push_back(QApplication::focusWidget()->objectName().toStdString());
        robot::press(Qt::Key_Tab);
    }
    EXPECT_THAT(order, ElementsAre("txtVar", "txtEquation", "txtGuess", "txtComment", "cmdShowallvars", "cmdClear",
                                   "cmdDone", "cmdCancel"));
    EXPECT_EQ(QApplication::focusWidget(), at.dialog->txtVar());
}

TEST(EntryDialog, KeepsItsSizeWithinTheScreen)
{
    test::test_desk user_desk;
    const auto size_of_next = [&] {
        auto* dialog = new guess_dialog(user_desk.context, accept_all);
        dialog->open();
        test::settle();
        const QSize size = dialog->size();
        dialog->resize(size.width() + 60, size.height() + 40);
        dialog->close();
        test::settle();
        return size;
    };
    const QSize first = size_of_next();
    EXPECT_EQ(size_of_next(), first + QSize(60, 40));

    user_desk.registry.write("Software\\WinKlvn\\windows\\frmTest", "width", "1e9");
    user_desk.registry.write("Software\\WinKlvn\\windows\\frmTest", "height", "-3");
    const QSize kept = size_of_next();
    EXPECT_LE(kept.width(), QApplication::primaryScreen()->availableSize().width());
    EXPECT_GT(kept.height(), 0);
}

} // namespace
} // namespace kelvarin
