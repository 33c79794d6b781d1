// SPDX-License-Identifier: MIT
#include "shell/window_placement.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace kelvarin
{

/// So that a failed comparison tells the numbers.
void PrintTo(const rectangle& place, std::ostream* stream)
{
    *stream << place.left << ", " << place.top << ", " << place.width << " x " << place.height;
}

namespace
{

const rectangle screen = {0, 0, 1000, 800};

/// Keeps every write in its order.
class recording_registry final : public memory_registry
{
public:
    void write(std::string_view key, std::string_view value_name, std::string_view value) override
    {
        EXPECT_EQ(key, "Software\\WinKlvn");
        written.emplace_back(value_name, value);
        memory_registry::write(key, value_name, value);
    }
    std::vector<std::pair<std::string, std::string>> written;
};

recording_registry registry_of(const char* width, const char* height, const char* top, const char* left,
                               const char* state)
{
    recording_registry registry;
    registry.write(registry_root, "Window Width", width);
    registry.write(registry_root, "Window Height", height);
    registry.write(registry_root, "Window Top", top);
    registry.write(registry_root, "Window Left", left);
    registry.write(registry_root, "Window State", state);
    registry.written.clear();
    return registry;
}

TEST(WindowPlacement, AFirstStartTakes85PercentInTheMiddle)
{
    // By hand: 0.85 * 1366 = 1161.1, (1366 - 1161) / 2 = 102.5; 0.85 * 768 = 652.8, (768 - 652) / 2 = 58.
    for (const auto& [whole, expected] :
         test::table<rectangle, rectangle>{{{0, 0, 1366, 768}, {102, 58, 1161, 652}},
                                           {{0, 0, 800, 800}, {60, 60, 680, 680}},
                                           {{-1920, 100, 1920, 1080}, {-1776, 181, 1632, 918}}}) {
        EXPECT_EQ(first_placement(whole).normal, expected);
        EXPECT_EQ(first_placement(whole).state, window_state::normal);
    }
}

TEST(WindowPlacement, AFirstStartWritesWhatIsNotKeptInTheOrderOfTheKeys)
{
    recording_registry registry;
    const placement current = {{10, 20, 300, 400}, window_state::normal};
    EXPECT_EQ(restore_placement(registry, current, std::vector{screen}), current);
    using pairs = std::vector<std::pair<std::string, std::string>>;
    EXPECT_EQ(registry.written, (pairs{{"Window Width", "300"},
                                       {"Window Height", "400"},
                                       {"Window Top", "20"},
                                       {"Window Left", "10"},
                                       {"Window State", "0"}}));

    registry.written.clear();
    EXPECT_EQ(restore_placement(registry, {{1, 2, 3, 4}, window_state::maximised}, std::vector{screen}), current);
    EXPECT_TRUE(registry.written.empty()) << "what is kept is not written again";

    recording_registry partly;
    partly.write(registry_root, "Window Top", "77");
    partly.written.clear();
    EXPECT_EQ(restore_placement(partly, current, std::vector{screen}).normal, (rectangle{10, 77, 300, 400}));
    EXPECT_EQ(partly.written.size(), 4u);
}

TEST(WindowPlacement, AMaximisedWindowKeepsItsLastNormalPlace)
{
    recording_registry registry = registry_of("300", "400", "20", "10", "0");
    save_placement(registry, {{0, 0, 1000, 800}, window_state::maximised});
    using pairs = std::vector<std::pair<std::string, std::string>>;
    EXPECT_EQ(registry.written, (pairs{{"Window State", "2"}}));
    const placement restored = restore_placement(registry, {}, std::vector{screen});
    EXPECT_EQ(restored, (placement{{10, 20, 300, 400}, window_state::maximised}));

    registry.written.clear();
    save_placement(registry, {{1, 2, 300, 400}, window_state::normal});
    EXPECT_EQ(registry.written, (pairs{{"Window State", "0"},
                                       {"Window Width", "300"},
                                       {"Window Height", "400"},
                                       {"Window Top", "2"},
                                       {"Window Left", "1"}}));
}

TEST(WindowPlacement, WhateverIsKeptTheWindowIsOnAScreen)
{
    const std::vector<rectangle> one = {screen};
    const std::vector<rectangle> two = {screen, {1000, 0, 2000, 1200}};
    struct row
    {
        const char *name, *width, *height, *top, *left, *state;
        std::vector<rectangle> screens;
        placement expected;
    };
    for (const row& each : {
             row{"as kept", "300", "400", "20", "10", "0", one, {{10, 20, 300, 400}}},
             {"partly outside stays", "300", "400", "20", "-200", "0", one, {{-200, 20, 300, 400}}},
             {"second screen", "300", "400", "700", "2500", "0", two, {{2500, 700, 300, 400}}},
             {"on both screens", "300", "400", "20", "900", "0", two, {{900, 20, 300, 400}}},
             {"the second screen is gone", "300", "400", "20", "2500", "0", one, {{700, 20, 300, 400}}},
             {"too large", "5000", "5000", "0", "0", "2", one, {{0, 0, 1000, 800}, window_state::maximised}},
             {"title bar above the screen", "300", "400", "-30", "10", "0", one, {{10, 0, 300, 400}}},
             {"a corner alone", "300", "400", "20", "990", "0", one, {{700, 20, 300, 400}}},
             {"minimised", "300", "400", "20", "10", "1", one, {{10, 20, 300, 400}}},
             {"unknown state", "300", "400", "20", "10", "7", one, {{10, 20, 300, 400}}},
             {"prefixes", "300px", " 400", "20.4", "1e1", "2nd", one, {{10, 20, 300, 400}, window_state::maximised}},
             {"no numbers", "", "x", "-", "nan", "?", one, {{0, 0, 200, 150}}},
             {"beyond numbers", "1e999", "-1e999", "1e300", "-1e300", "0", one, {{0, 0, 1000, 800}}},
             {"no screens", "300", "400", "20", "9999", "0", {}, {{9999, 20, 300, 400}}},
         }) {
        SCOPED_TRACE(each.name);
        recording_registry registry = registry_of(each.width, each.height, each.top, each.left, each.state);
        const placement restored = restore_placement(registry, {}, each.screens);
        EXPECT_EQ(restored.normal, each.expected.normal);
        EXPECT_EQ(restored.state, each.expected.state);
    }
}

TEST(WindowPlacement, TheFrameIsOnTheScreenToo)
{
    const std::vector<rectangle> one = {screen};
    const frame_margins frame = {2, 20, 3, 5};
    struct row
    {
        const char* name;
        rectangle place;
        bool as_a_whole;
        rectangle expected;
    };
    // By hand: inside the frame 1000 - 5 by 800 - 25 are left.
    for (const row& each : {row{"fits", {10, 20, 300, 400}, false, {10, 20, 300, 400}},
                            {"as large as the screen", {0, 0, 1000, 800}, false, {0, 0, 995, 775}},
                            {"moved up where it had to shrink", {0, 40, 1000, 800}, false, {0, 0, 995, 775}},
                            {"partly outside stays", {10, 600, 300, 400}, false, {10, 600, 300, 400}},
                            {"all of it is asked for", {10, 600, 300, 400}, true, {10, 375, 300, 400}},
                            {"right edge", {800, 0, 300, 400}, true, {695, 0, 300, 400}}}) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(on_a_screen(each.place, frame, one, each.as_a_whole), each.expected);
    }
}

} // namespace
} // namespace kelvarin
