// SPDX-License-Identifier: MIT
// Prints what a person would feel: how long the program takes to show its window, and how long each key takes in the
// largest problem.
#include "app/frmMDIKelvarin.h"
#include "child_process.h"
#include "nle/nle_file.h"
#include "platform/saver.h"
#include "table.h"

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace
{

using namespace kelvarin;
using namespace kelvarin::bench;

/// One picture of a screen with 60 a second.
constexpr double frame_seconds = 1.0 / 60.0;
constexpr int rounds = 21;

/// 200 rows, one of them implicit, so that the fields of the bounds are shown; each explicit row uses the one above
/// and a name that nothing defines, so that there is something to underline and to link.
nle_content largest_problem()
{
    nle_content content{.title = "200 equations", .rows = {}, .lower_bound = "1", .upper_bound = "5"};
    content.rows.push_back({"f(x) = x*x + y199 - exp(-x/3)*sqrt(x + 2)", "2", "the one unknown"});
    content.rows.push_back({"y1 = x/2 + 1", std::string(no_guess), ""});
    for (int i = 2; i < equation_limit; ++i)
        content.rows.push_back({"y" + std::to_string(i) + " = y" + std::to_string(i - 1) + "*0.99 + ln(x + " +
                                    std::to_string(i) + ")/missing_" + std::to_string(i % 7),
                                std::string(no_guess), "a comment"});
    return content;
}

/// `seconds` of each round as parts of a frame.
spread frames_of(const std::function<void()>& work)
{
    std::vector<double> seen;
    work();
    for (int round = 0; round < rounds; ++round)
        seen.push_back(seconds_of(work, 1) / frame_seconds);
    return spread_of(seen);
}

void measure_start()
{
    print_section("start");
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const std::string program = program_beside("first-paint");
    const contender ours{"kelvarin", [&] { run_process({program, "kelvarin"}); }};
    const contender bare{"bare", [&] { run_process({program, "bare"}); }};
    print_line("start to first paint: kelvarin / an empty window", ratios({ours}, bare, rounds, 0.05).front());
}

void measure_typing()
{
    print_section("typing");
    const nle_content content = largest_problem();
    print_line("analysis of 200 rows / one frame", frames_of([&] { keep(analyse_nle(content).panels.size()); }),
               at_most(1.0));

    QTemporaryDir folder;
    settings store;
    memory_registry registry;
    const fixed_clock clock;
    const auto user = make_desktop_interface();
    recovery_store recovery(std::filesystem::path(folder.path().toStdString()));
    frmMDIKelvarin window({store, registry, clock, *user, recovery});
    window.show();
    const std::filesystem::path file = folder.filePath(QStringLiteral("largest.kvr")).toStdString();
    if (save_file(file, write_nle(content))) throw std::runtime_error("the problem can not be written");
    window.open_document(file);
    QApplication::processEvents();
    auto* field = window.findChild<QLineEdit*>(QStringLiteral("txtnle_min_ini_guess"));
    int key = 0;
    print_line("a key in a bound of 200 rows, painted / one frame", frames_of([&] {
                   field->insert(QString::number(++key % 10));
                   QApplication::processEvents();
               }),
               at_most(1.0));
}

} // namespace

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QTemporaryDir home;
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
        setenv(variable, home.path().toStdString().c_str(), 1);
    QApplication application(argc, argv);
    print_head();
    measure_start();
    measure_typing();
    return 0;
}
