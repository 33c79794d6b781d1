// SPDX-License-Identifier: MIT
// Whole ways through the window of nonlinear problems, as a person takes them.

#include "batch/run_batch.h"
#include "nle_desk.h"
#include "support/german_locale.h"
#include "support/window_walk.h"

#include <gmock/gmock.h>

#include <QLocale>

#include <clocale>
#include <sstream>

namespace
{

using namespace kelvarin;
using kelvarin::test::nle_desk;
using kelvarin::test::robot;
using kelvarin::test::settle;
using testing::HasSubstr;

// x + y = 3 and x y = 2 have the solutions (1, 2) and (2, 1); from (0.5, 2.5) Newton's method goes to the first.
// The sum of squares at it is 5, and half a half of it 1.25.
const std::vector<test::typed_equation> sum_and_product = {
    {"x", "x+y-3", "0.5", "sum"}, {"y", "x*y-2", "2.5"}, {"s", "x^2+y^2", "", "of squares"}, {"q", "s/4", ""}};

const std::string sum_and_product_file = "Sum and product |KVRVER05_1\r\n"
                                         "f(x) = x+y-3 #sum\r\n"
                                         "f(y) = x*y-2 #\r\n"
                                         "s = x^2+y^2 #of squares\r\n"
                                         "q = s/4 #\r\n"
                                         "x(0)=0.5\r\n"
                                         "y(0)=2.5\r\n";

void expect_sum_and_product(const std::string& report)
{
    EXPECT_THAT(report, HasSubstr("Sum and product"));
    EXPECT_THAT(report, HasSubstr("NLES Report (safenewt)"));
    for (const char* row : {"\n x           1        ", "\n y           2        ", "\n s           5        ",
                            "\n q           1.25     "})
        EXPECT_THAT(report, HasSubstr(row));
    EXPECT_THAT(report, HasSubstr("of squares"));
}

void type_by_mouse(nle_desk& desk)
{
    for (const auto& equation : sum_and_product)
        desk.add_by_mouse(equation);
    desk.set_title("Sum and product");
    desk.person.choose("cmbMethod", "safenewt");
    expect_sum_and_product(desk.solve_by_mouse().plain_text());
    desk.to_front();
    desk.user.expect_file(chosen_file{desk.folder / "made.kvr", 1});
    desk.choose("File", "save");
    EXPECT_TRUE(desk.window.close_with_frame());
}

void type_by_keys(nle_desk& desk)
{
    for (const auto& equation : sum_and_product)
        desk.add_by_keys(equation, Qt::Key_N);
    desk.set_title("Sum and product");
    robot::press(Qt::Key_M, Qt::AltModifier);
    robot::press(Qt::Key_Down);
    expect_sum_and_product(desk.solve_by_key().plain_text());
    desk.to_front();
    desk.user.expect_file(chosen_file{desk.folder / "made.kvr", 1});
    robot::press(Qt::Key_S, Qt::ControlModifier);
    robot::press(Qt::Key_W, Qt::ControlModifier);
}

TEST(NonlinearWindow, MakesAndSolvesAProblemFromNothingWithMouseAndKeysAndInAnyLocale)
{
    struct way
    {
        const char* name;
        const char* locale;
        void (*type)(nle_desk&);
    };
    const QLocale locale_before;
    for (const way& taken : {way{"mouse", "C", type_by_mouse}, way{"keys", "C", type_by_keys},
                             way{"keys, German", "de_DE.UTF-8", type_by_keys}}) {
        SCOPED_TRACE(taken.name);
        std::optional<test::german_locale> german;
        if (std::string(taken.locale) != "C") german.emplace();
        QLocale::setDefault(QLocale(QString::fromLatin1(taken.locale)));
        nle_desk desk;
        taken.type(desk);
        EXPECT_TRUE(test::wait_until([&] { return desk.frame.children().size() == 1; })) << "the window stays open";
        EXPECT_EQ(desk.folder.read("made.kvr"), sum_and_product_file);

        frmNLE& reopened = desk.open_again("made.kvr");
        EXPECT_TRUE(reopened.document().problem_saved());
        expect_sum_and_product(desk.report_of([&] { robot(reopened).click("cmdRun"); }).plain_text());
    }
    QLocale::setDefault(locale_before);
}

TEST(NonlinearWindow, GivesTheReportOfTheBatchProgramByteForByte)
{
    nle_desk desk;
    const std::string file = (desk.folder / "problem.kvr").string();
    // One road through each kind of run.
    for (const char* text : {"Sum\na = 1\nb = a+1 #one more {as \\ typed}\n",
                             "Square root |KVRVER05_1\nf(x) = x^2-2 #\nx(min)=-3, x(max)=3\n",
                             "Signs |KVRVER05_3\nf(x) = x+y-3 #\nf(y) = x-y-1 #\nx(0)=1 p\ny(0)=1 ap\n"}) {
        SCOPED_TRACE(text);
        ASSERT_NO_FATAL_FAILURE(desk.open_text(text));
        frmSolution& solution = desk.solve_by_mouse();
        const std::string shown = solution.rich_text();
        EXPECT_TRUE(solution.windowTitle().startsWith(QStringLiteral("Nonlinear Equations Solution #")));

        recording_listener listener;
        std::ostringstream out, err;
        const std::vector<std::string> arguments = {"--format", "rtf", "-o", "batch.rtf", file};
        EXPECT_EQ(run_batch(arguments, out, err, {desk.clock, desk.registry, listener}), 0) << err.str();
        EXPECT_EQ(shown, desk.folder.read("batch.rtf"));
    }
}

TEST(NonlinearWindow, NumbersTheSolutionsOfAllWindowsThroughRefusalsAndFailures)
{
    nle_desk desk;
    desk.add_by_mouse({"a", "1+1"});
    const int first = test::number_of(desk.solve_by_mouse());
    EXPECT_GT(first, 0);

    // Refused before it starts: not counted.
    desk.person.choose("cmbMethod", "constrained");
    desk.user.expect_box("Constrained NLE method may only be chosen for a system of nonlinear equations. Single NLE "
                         "not allowed for this.");
    desk.run_by_mouse();
    // Started and failed: counted.
    desk.person.choose("cmbMethod", "fastnewt");
    desk.add_by_mouse({"b", "1/(a-2)"});
    desk.user.expect_box("Error: Zero denominator not allowed.\r1 / (a - 2)", "Expression evaluation error.");
    desk.run_by_mouse();
    desk.to_front();
    robot::press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(test::number_of(desk.solve_by_mouse()), first + 2);
}

TEST(NonlinearWindow, ShowsItsStateInWordsAndHasNoFaultOfLayout)
{
    nle_desk desk;
    const auto faults = [&] { return test::faults_of(desk.window, desk.window.menus()); };
    EXPECT_THAT(faults(), testing::IsEmpty());
    EXPECT_FALSE(desk.person.is_shown("cmdRun"));
    EXPECT_EQ(desk.person.text("lblTraffic"), "not ready");
    EXPECT_FALSE(desk.person.is_shown("lblLower"));

    desk.add_by_mouse({"x", "x^2-2", "1"});
    EXPECT_TRUE(desk.person.is_shown("lblUpper"));
    EXPECT_EQ(desk.third_panel(), "Warning: Lower/upper boundary guess is not a valid number");
    EXPECT_FALSE(desk.window.can(window_command::solve));
    EXPECT_THAT(faults(), testing::IsEmpty());
    desk.bounds_by_mouse("1", "1.0");
    EXPECT_EQ(desk.third_panel(), "Warning: Lower/upper boundary guess are equall or not ascending");
    desk.bounds_by_mouse("2", "1");
    EXPECT_EQ(desk.third_panel(), "");
    EXPECT_TRUE(desk.person.is_shown("cmdRun"));
    EXPECT_FALSE(desk.person.is_shown("lblMissing"));
    EXPECT_EQ(desk.person.text("lblTraffic"), "ready");
    EXPECT_TRUE(desk.window.can(window_command::solve));
    EXPECT_TRUE(desk.person.is_enabled("chkGraph"));
    EXPECT_THAT(faults(), testing::IsEmpty());

    // A second unknown hides the bounds and empties them.
    desk.add_by_mouse({"y", "x-y", "1"});
    EXPECT_FALSE(desk.person.is_shown("lblLower"));
    EXPECT_EQ(desk.person.text("txtnle_min_ini_guess"), "");

    robot::press(Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(test::wait_until([&] { return desk.grid().isColumnHidden(2); }));
}

} // namespace
