// SPDX-License-Identifier: MIT
#include "nle/equations/window/equation_grid.h"

#include "nle/equations/window/equation_grid_model.h"
#include "support/equation_rows.h"
#include "support/robot.h"
#include "support/table.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include <string>
#include <vector>

namespace kelvarin::test
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

/// A grid between two fields, and a protocol of its gestures: "edit 2".
class desk
{
public:
    desk()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(new QLineEdit);
        grid = new equation_grid({{"Equations", "Initial guess", "Comments"}, test::f_rows, "Add &NLE", "&Add EE"});
        layout->addWidget(grid);
        layout->addWidget(new QLineEdit);
        const auto note = [this](const char* gesture) {
            return [this, gesture](int row) { log.push_back(gesture + (" " + std::to_string(row))); };
        };
        QObject::connect(grid, &equation_grid::edit_asked, grid, [note](int row, entry_field start) {
            note(start == entry_field::value ? "edit the value of" : "edit")(row);
        });
        const auto note_rows = [this](std::string gesture) {
            for (const int row : grid->selected_rows())
                gesture += ' ' + std::to_string(row);
            log.push_back(gesture);
        };
        QObject::connect(grid, &equation_grid::remove_asked, grid, [note_rows] { note_rows("remove"); });
        QObject::connect(grid, &equation_grid::move_asked, grid,
                         [note_rows](bool up) { note_rows(up ? "up" : "down"); });
        QObject::connect(grid, &equation_grid::new_implicit_asked, grid, [note] { note("implicit")(0); });
        QObject::connect(grid, &equation_grid::new_explicit_asked, grid, [note] { note("explicit")(0); });
        QObject::connect(grid, &equation_grid::comment_edited, grid, [note](int row, const QString& comment) {
            note(("comment '" + comment.toStdString() + "'").c_str())(row);
        });
        QObject::connect(grid, &equation_grid::current_row_changed, grid, [this] { ++current_changes; });
        window.resize(700, 400);
        window.show();
        window.activateWindow();
        grid->setFocus();
        settle();
    }

    void show(const std::vector<equation_row>& rows, int empty_rows = 0)
    {
        grid->show_rows(rows, analyse_rows(rows, f_rows), empty_rows);
        settle();
    }
    void double_click(int row, int column)
    {
        const QPoint place = grid->visualRect(grid->model()->index(row - 1, column)).center();
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, place);
        settle();
    }
    const equation_grid_model& model() const { return dynamic_cast<equation_grid_model&>(*grid->model()); }
    /// The parts of a row's text that are marked as faults or by a message.
    std::vector<std::string> marks(int row) const
    {
        const QString text = model().index(row - 1, 0).data().toString();
        std::vector<std::string> found;
        for (const text_span& span : model().spans(row - 1)) {
            if (span.meaning == text_meaning::function || span.meaning == text_meaning::keyword) continue;
            const char* kind = span.meaning == text_meaning::undefined   ? "undefined "
                               : span.meaning == text_meaning::duplicate ? "duplicate "
                                                                         : "marked ";
            found.push_back(kind + text.mid(span.start, span.length).toStdString());
        }
        return found;
    }

    QWidget window;
    equation_grid* grid = nullptr;
    std::vector<std::string> log;
    int current_changes = 0;
};

const std::vector<equation_row> three_rows = {implicit_row("x", "x^2 - a"), explicit_row("a", "b"),
                                              explicit_row("b", "2")};

TEST(EquationGrid, ReportsGesturesWithTheirRowsAndNoneOfEmptyOrLockedRows)
{
    const auto key = [](Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        return [=](desk&, int) { robot::press(code, modifiers); };
    };
    const auto twice = [](int column) { return [column](desk& at, int row) { at.double_click(row, column); }; };
    const table<const char*, std::function<void(desk&, int)>, int, const char*> gestures = {
        {"Enter", key(Qt::Key_Return), 2, "edit 2"},
        {"Enter of the number pad", key(Qt::Key_Enter, Qt::KeypadModifier), 1, "edit 1"},
        {"double click on the equation", twice(0), 3, "edit 3"},
        {"double click on the guess", twice(1), 1, "edit the value of 1"},
        {"Delete", key(Qt::Key_Delete), 3, "remove 3"},
        {"Alt+Up", key(Qt::Key_Up, Qt::AltModifier), 2, "up 2"},
        {"Alt+Down", key(Qt::Key_Down, Qt::AltModifier), 1, "down 1"},
        {"Enter on an empty row", key(Qt::Key_Return), 4, ""},
        {"Delete on an empty row", key(Qt::Key_Delete), 5, ""},
        {"double click on an empty row", twice(0), 4, ""},
        {"Down alone", key(Qt::Key_Down), 1, ""},
        {"Ctrl+C", key(Qt::Key_C, Qt::ControlModifier), 1, ""},
    };
    for (const auto& [name, act, row, reported] : gestures) {
        SCOPED_TRACE(name);
        desk at;
        at.show(three_rows, 2);
        for (const bool editable : {true, false}) {
            at.log.clear();
            at.grid->set_editable(editable);
            at.grid->set_current_row(row);
            act(at, row);
            const std::string expected = editable ? reported : "";
            EXPECT_EQ(at.log.empty() ? "" : at.log.front(), expected);
            EXPECT_LE(at.log.size(), 1U);
        }
    }
}

TEST(EquationGrid, EditsCommentsInPlaceAndReportsOnlyChanges)
{
    using act = std::function<void(desk&)>;
    const auto keys = [](std::vector<Qt::Key> codes) -> act {
        return [=](desk&) {
            for (const Qt::Key code : codes)
                robot::press(code);
        };
    };
    const act lock = [](desk& at) { at.grid->set_editable(false); };
    const act f2 = keys({Qt::Key_Right, Qt::Key_Right, Qt::Key_F2});
    const act enter = keys({Qt::Key_Return});
    const std::vector<std::string> changed = {"comment 'K' 2"};
    const table<const char*, act, std::string, act, std::vector<std::string>> edits = {
        {"F2", f2, "K", enter, changed},
        {"Enter on the comment", keys({Qt::Key_Right, Qt::Key_Right, Qt::Key_Return}), "K", enter, changed},
        {"double click", [](desk& at) { at.double_click(2, 2); }, "K", enter, changed},
        {"Tab keeps what was typed", f2, "K", keys({Qt::Key_Tab}), changed},
        {"locking keeps it", f2, "K", lock, changed},
        {"Esc does not", f2, "K", keys({Qt::Key_Escape}), {}},
        {"the same again", f2, "kelvin", enter, {}},
        {"locked", lock, "", f2, {}},
    };
    for (const auto& [name, begin, typed, end, reported] : edits) {
        SCOPED_TRACE(name);
        desk at;
        std::vector<equation_row> rows = three_rows;
        rows[1].comment = "kelvin";
        at.show(rows);
        at.grid->set_current_row(2);
        begin(at);
        if (!typed.empty()) robot(*at.grid).type("txtCellComment", typed);
        end(at);
        settle();
        EXPECT_EQ(at.log, reported);
        EXPECT_EQ(at.grid->current_row(), 2);
        EXPECT_EQ(at.grid->findChild<QLineEdit*>("txtCellComment"), nullptr);
    }
}

TEST(EquationGrid, ContextMenuOffersWhatTheRowAllows)
{
    desk at;
    at.show(three_rows, 1);
    const table<int, std::vector<std::string>> offers = {
        {1, {"Add NLE", "Add EE", "Edit", "Edit in place", "Edit comment", "Remove", "Move down"}},
        {3, {"Add NLE", "Add EE", "Edit", "Edit in place", "Edit comment", "Remove", "Move up"}},
        {4, {"Add NLE", "Add EE"}},
    };
    for (const auto& [row, expected_enabled] : offers) {
        SCOPED_TRACE(row);
        at.grid->set_current_row(row);
        const QPoint place = at.grid->visualRect(at.grid->currentIndex()).center();
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, place, at.grid->viewport()->mapToGlobal(place));
        QApplication::sendEvent(at.grid->viewport(), &asked);
        auto& menu = top_window_of<QMenu>("mnuGrid");
        std::vector<std::string> enabled;
        for (const QAction* item : menu.actions())
            if (item->isEnabled() && !item->isSeparator()) enabled.push_back(item->text().remove('&').toStdString());
        EXPECT_EQ(enabled, expected_enabled);
        if (row == 1) robot(menu).trigger(menu, "Add EE");
        if (row == 3) robot(menu).trigger(menu, "Move up");
        menu.close();
        settle();
    }
    EXPECT_THAT(at.log, ElementsAre("explicit 0", "up 3"));
}

TEST(EquationGrid, MarksUnknownAndDoubleNamesUntilTheRowsAreMended)
{
    desk at;
    at.show({implicit_row("x", "x - sin(a1) + a"), explicit_row("b", "1"), explicit_row("b", "a")});
    EXPECT_THAT(at.marks(1), ElementsAre("undefined a1", "undefined a"));
    EXPECT_THAT(at.marks(2), ElementsAre("duplicate b"));
    EXPECT_THAT(at.marks(3), ElementsAre("duplicate b", "undefined a"));

    at.show({implicit_row("x", "x - sin(a1) + a"), explicit_row("a1", "1"), explicit_row("a", "a1")});
    for (const int row : {1, 2, 3})
        EXPECT_THAT(at.marks(row), IsEmpty()) << row;
}

TEST(EquationGrid, TintsWordsOfTheLanguageBehindLettersOfSeveralBytes)
{
    desk at;
    at.show({{"f(x) = \xC3\xA9 + sin(x)*if x > 1 then 2 else fact(3)", "1", ""}});
    const QString text = at.model().index(0, 0).data().toString();
    std::vector<std::string> tinted;
    for (const text_span& span : at.model().spans(0))
        if (span.meaning == text_meaning::function || span.meaning == text_meaning::keyword)
            tinted.push_back(text.mid(span.start, span.length).toStdString());
    // fact is a variable in equations.
    EXPECT_THAT(tinted, ElementsAre("sin", "if", "then", "else"));
}

TEST(EquationGrid, DropsAMessagesMarkWhenRowsOrTheCurrentRowChange)
{
    const text_place place{2, 4, 1};
    desk at;
    at.show(three_rows);
    at.grid->mark_place(place);
    EXPECT_EQ(at.grid->current_row(), 2);
    EXPECT_THAT(at.marks(2), ElementsAre("marked b"));
    at.show(three_rows);
    EXPECT_THAT(at.marks(2), ElementsAre("marked b")) << "nothing has changed";

    at.grid->set_current_row(3);
    EXPECT_THAT(at.marks(2), IsEmpty());

    at.grid->mark_place(place);
    std::vector<equation_row> changed = three_rows;
    changed[2] = explicit_row("b", "3");
    at.show(changed);
    EXPECT_THAT(at.marks(2), IsEmpty());

    at.grid->mark_place({9, 0, 1});
    EXPECT_EQ(at.grid->current_row(), 2);
}

std::vector<equation_row> many_rows(int count)
{
    std::vector<equation_row> rows;
    for (int i = 1; i <= count; ++i)
        rows.push_back(explicit_row("v" + std::to_string(i), "v" + std::to_string(i > 1 ? i - 1 : 1) + "*exp(2) + 1"));
    return rows;
}

TEST(EquationGrid, KeepsPlaceAndRepaintsOnlyWhatChanged)
{
    desk at;
    std::vector<equation_row> rows = many_rows(200);
    at.show(rows);
    EXPECT_EQ(at.grid->current_row(), 1);
    at.grid->set_current_row(150);
    at.grid->verticalScrollBar()->setValue(140);
    at.current_changes = 0;
    std::vector<std::pair<int, int>> changed;
    QObject::connect(at.grid->model(), &QAbstractItemModel::dataChanged, at.grid,
                     [&](const QModelIndex& first, const QModelIndex& last) {
                         changed.emplace_back(first.row() + 1, last.row() + 1);
                     });

    rows[119].comment = "changed";
    rows[7].comment = rows[8].comment = "changed";
    at.show(rows);
    EXPECT_THAT(changed, ElementsAre(std::pair(8, 9), std::pair(120, 120)));
    EXPECT_EQ(at.grid->current_row(), 150);
    EXPECT_EQ(at.grid->verticalScrollBar()->value(), 140);
    EXPECT_EQ(at.current_changes, 0);

    rows.resize(100);
    at.show(rows);
    EXPECT_EQ(at.grid->current_row(), 100);
    EXPECT_THAT(at.grid->selected_rows(), ElementsAre(100));
    EXPECT_EQ(at.current_changes, 1);
    at.show({});
    EXPECT_EQ(at.grid->current_row(), 0);
}

TEST(EquationGrid, KeepsTheColumnsAPersonChose)
{
    desk at;
    at.show(three_rows);
    const auto width = [&](int column) { return at.grid->columnWidth(column); };
    const auto room = [&] { return at.grid->viewport()->width() - width(1); };
    EXPECT_GT(width(0), width(2));
    const int guess = width(1);
    at.grid->horizontalHeader()->resizeSection(0, room() / 4);
    at.window.resize(1000, 400);
    settle();
    EXPECT_NEAR(width(0), room() / 4, 2);
    EXPECT_EQ(width(0) + width(1) + width(2), at.grid->viewport()->width());

    at.grid->show_comments(false);
    EXPECT_EQ(width(0) + width(1), at.grid->viewport()->width());
    EXPECT_EQ(width(1), guess);
    at.grid->show_comments(true);
    EXPECT_EQ(width(1), guess);
    EXPECT_NEAR(width(0), room() / 4, 2);
}

TEST(EquationGrid, SelectsRowsTogether)
{
    desk at;
    at.show(three_rows, 2);
    at.grid->select_rows({1, 3, 4, 99});
    EXPECT_THAT(at.grid->selected_rows(), ElementsAre(1, 3));
    EXPECT_EQ(at.grid->current_row(), 1);

    // A shortcut that moves the current row has its keys still down.
    QTest::keyPress(&at.window, Qt::Key_Z, Qt::ControlModifier);
    at.grid->set_current_row(2);
    QTest::keyRelease(&at.window, Qt::Key_Z, Qt::NoModifier);
    EXPECT_THAT(at.grid->selected_rows(), ElementsAre(2));
}

TEST(EquationGrid, TellsWhatANameIs)
{
    desk at;
    at.show({implicit_row("x", "x*sin(a) - zz"), explicit_row("a", "3"), explicit_row("d", "1"),
             explicit_row("d", "fact(2)")});
    struct place
    {
        int row;
        const char* word;
        QString shown;
    };
    const place places[] = {
        {1, "a) -", "row 2: a = 3"},
        {1, "x*", "row 1: f(x) = x*sin(a) - zz"},
        {1, "zz", "zz is not defined"},
        {3, "d =", "row 3: d = 1\nrow 4: d = fact(2)"},
        {1, "- zz", ""},
        {1, "f(", ""},
        {2, "3", ""},
        // A function to the engine, a name like any other to the analysis.
        {4, "fact", "fact is not defined"},
    };
    for (const place& hovered : places) {
        SCOPED_TRACE(hovered.word);
        const QString text = at.model().index(hovered.row - 1, 0).data().toString();
        const auto letter = static_cast<int>(text.indexOf(QString::fromLatin1(hovered.word)));
        EXPECT_EQ(at.model().explanation(hovered.row - 1, letter).toStdString(), hovered.shown.toStdString());
    }
    EXPECT_TRUE(at.model().explanation(0, 9).startsWith("sin: "));
    EXPECT_EQ(at.grid->row_defining("d"), 3);
    EXPECT_EQ(at.grid->row_defining("zz"), 0);

    const QRect cell = at.grid->visualRect(at.model().index(2, 0));
    const QPoint place(cell.left() + at.grid->fontMetrics().horizontalAdvance('d'), cell.center().y());
    QHelpEvent hover(QEvent::ToolTip, place, at.grid->viewport()->mapToGlobal(place));
    QApplication::sendEvent(at.grid->viewport(), &hover);
    EXPECT_EQ(QToolTip::text().toStdString(), "row 3: d = 1\nrow 4: d = fact(2)");
    QToolTip::hideText();
}

TEST(EquationGrid, IsOneStopOfTheTabKey)
{
    desk at;
    at.show(three_rows);
    at.grid->setFocus();
    robot::press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), at.window.findChildren<QLineEdit*>().last());
    robot::press(Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget(), at.grid);
}

TEST(EquationGrid, SpeaksItsCells)
{
    desk at;
    at.show({implicit_row("x", "x - a - a", "0.5 p")}, 1);
    const auto spoken = [&](int row, int column, int role = Qt::AccessibleTextRole) {
        return at.model().index(row, column).data(role).toString().toStdString();
    };
    EXPECT_EQ(spoken(0, 0), "equation 1: f(x) = x - a - a");
    EXPECT_EQ(spoken(0, 1), "initial guess 1: 0.5 p");
    EXPECT_EQ(spoken(1, 0), "row 2: empty");
    EXPECT_EQ(spoken(0, 0, Qt::AccessibleDescriptionRole), "a is not defined");
}

} // namespace
} // namespace kelvarin::test
