// SPDX-License-Identifier: MIT
#include "shell/settings.h"

#include "platform/run_time_text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <set>
#include <stdexcept>
#include <string>

namespace kelvarin
{

TEST(SettingsTable, HasRowsThatAcceptTheirOwnDefaults)
{
    EXPECT_EQ(settings_table().size(), 48u);
    std::set<std::size_t> found;
    settings store;
    for (const setting_row& row : settings_table()) {
        SCOPED_TRACE(row.key);
        const std::optional<std::size_t> at = settings::find(row.key);
        ASSERT_TRUE(at.has_value());
        EXPECT_TRUE(found.insert(*at).second) << "two rows have this key";
        EXPECT_EQ(store.value(row.key), row.default_value);
        EXPECT_FALSE(store.set_value(row.key, row.default_value).has_value());
        EXPECT_EQ(store.value(row.key), row.default_value) << "a default is kept in the form that it has";
        EXPECT_EQ(row.folder.empty(), row.caption.empty());
        const bool is_number = row.type == setting_type::integer || row.type == setting_type::floating;
        EXPECT_EQ(row.maximum_value > row.minimum_value, is_number);
    }
}

TEST(SettingsTable, HasTheDefaultsThatTheSolversRelyOn)
{
    const settings store;
    EXPECT_EQ(store.whole_number("newt_MAXITS"), 150);
    EXPECT_EQ(store.number("newt_TOLX"), 1e-7);
    EXPECT_EQ(store.number("BS_hmin"), 1e-15);
    EXPECT_EQ(store.number("rk5_hmin"), 0.0);
    EXPECT_EQ(store.number("opt_qn_eps"), 1e-9);
    EXPECT_EQ(store.whole_number("nonlinearreg_lm_maxiter"), 64);
    EXPECT_EQ(store.value("Graph_default_sub_title"), " ");
    EXPECT_TRUE(store.is_true("general_show_status_bar"));
    EXPECT_FALSE(store.is_true("Graph_query_unload_save"));
    EXPECT_EQ(store.value("RKF45_H"), store.value("rkf45_h")) << "keys compare without case";
}

TEST(SetValue, ChecksAsTheSettingsWindowDoes)
{
    const std::string boolean_only = "Only Boolean input is allowed. Please enter 'True' or 'False' only.";
    const std::string integer_only = "Only integer input is allowed.";
    const std::string columns = "Value must be between 2 & 120";
    const std::string tolerance = "Value must be between 0 & 0.1";
    struct row
    {
        const char* key;
        const char* text;
        /// What is stored, or the refusal.
        std::string expected;
        bool refused = false;
    };
    for (const row& each : {row{"table_cols", "121", columns, true},
                            {"table_cols", "1", columns, true},
                            {"table_cols", "120", "120"},
                            {"table_cols", "2", "2"},
                            {"TABLE_COLS", " 12abc", "12"},
                            {"table_cols", "1d2", "100"},
                            {"table_cols", "5.0", "5"},
                            {"table_cols", "1.5", integer_only, true},
                            {"table_cols", "1000.5", integer_only, true},
                            {"table_cols", "abc", columns, true},
                            {"table_cols", "", columns, true},
                            {"table_cols", "-3", columns, true},
                            {"table_cols", "1e999", columns, true},
                            {"mnewt_tolx", "0", "0"},
                            {"mnewt_tolx", "0.1", "0.1"},
                            {"mnewt_tolx", "0.2", tolerance, true},
                            {"mnewt_tolx", ".00001", "1E-05"},
                            {"mnewt_tolx", "-1e-9", tolerance, true},
                            {"mnewt_tolx", "1e999", tolerance, true},
                            {"mnewt_tolx", "1d-3 x", "0.001"},
                            {"Graph_ver_gridline", "true", "true"},
                            {"Graph_ver_gridline", " TRUE", " TRUE"},
                            {"Graph_ver_gridline", "False", "False"},
                            {"Graph_ver_gridline", "yes", boolean_only, true},
                            {"Graph_ver_gridline", "", boolean_only, true},
                            {"Graph_default_title", "", ""},
                            {"Graph_default_title", " {x} 1.5", " {x} 1.5"}}) {
        SCOPED_TRACE(std::string(each.key) + " = " + each.text);
        settings store;
        const std::string before = store.value(each.key);
        const std::optional<message_box> refusal = store.set_value(each.key, each.text);
        ASSERT_EQ(refusal.has_value(), each.refused);
        EXPECT_EQ(store.value(each.key), each.refused ? before : each.expected);
        if (!refusal) continue;
        EXPECT_EQ(refusal->text, each.expected);
        EXPECT_EQ(refusal->title, "Kelvarin Guide");
    }
}

TEST(SetValue, NamesAKeyThatDoesNotExist)
{
    settings store;
    const std::optional<message_box> refusal = store.set_value("newt_TOLY", "1");
    ASSERT_TRUE(refusal.has_value());
    EXPECT_NE(refusal->text.find("newt_TOLY"), std::string::npos);
}

TEST(Settings, ReadBooleansWithoutCaseAndNumbersByPrefix)
{
    memory_registry registry;
    const auto saved = [&registry](const char* key, const char* value) {
        registry.write("Software\\WinKlvn\\settings\\" + std::string(key), "value", value);
    };
    saved("Graph_ver_gridline", " tRUE ");
    saved("table_cols", "2.5x");
    saved("table_rows", "1e999");
    saved("mnewt_n", "40000");
    saved("newt_MAXITS", "-1e300");
    saved("newt_TOLF", "nothing");
    const settings store(registry);
    EXPECT_TRUE(store.is_true("Graph_ver_gridline"));
    EXPECT_EQ(store.value("table_cols"), "2.5x") << "saved values are taken unchecked";
    EXPECT_EQ(store.number("table_cols"), 2.5);
    EXPECT_EQ(store.whole_number("table_cols"), 2);
    EXPECT_EQ(store.number("table_rows"), 0.0);
    EXPECT_EQ(store.whole_number("mnewt_n"), 32767);
    EXPECT_EQ(store.whole_number("newt_MAXITS"), -32768);
    EXPECT_EQ(store.number("newt_TOLF"), 0.0);
}

TEST(Settings, ComeBackFromTheRegistryAndFromTheirDefaults)
{
    settings store;
    EXPECT_FALSE(store.set_value("newt_TOLF", "1e-9").has_value());
    EXPECT_FALSE(store.set_value("Graph_default_title", "").has_value());
    EXPECT_FALSE(store.set_value("table_rows", "17").has_value());
    memory_registry registry;
    store.save_settings(registry);
    EXPECT_EQ(registry.read("software\\winklvn\\settings\\newt_tolf", "VALUE"), "1E-09");
    EXPECT_EQ(registry.read("Software\\WinKlvn\\settings\\Graph_default_title", "value"), " ");

    settings again(registry);
    EXPECT_EQ(again.value("newt_TOLF"), "1E-09");
    EXPECT_EQ(again.whole_number("table_rows"), 17);
    again.restore("NEWT_tolf");
    EXPECT_EQ(again.value("newt_TOLF"), "1E-07");
    EXPECT_EQ(again.whole_number("table_rows"), 17);
    again.restore_all();
    for (const setting_row& row : settings_table())
        EXPECT_EQ(again.value(row.key), row.default_value);
    EXPECT_EQ(registry.read("Software\\WinKlvn\\settings\\table_rows", "value"), "17")
        << "the registry changes when saved";
}

RC_GTEST_PROP(SetValue, StoresNumbersThatReadBackAsTheyWereChecked, ())
{
    const double tolerance = *rc::gen::inRange(0, 1000000) * 1e-7;
    settings store;
    RC_ASSERT(!store.set_value("cnle_tol", plain_text(tolerance)).has_value());
    RC_ASSERT(plain_text(store.number("cnle_tol")) == plain_text(tolerance));
}

TEST(SettingsDeathTest, EndTheProgramOnAKeyThatNoRowHas)
{
    ::testing::GTEST_FLAG(death_test_style) = "threadsafe";
    const auto ask = [] {
        try {
            static_cast<void>(settings().value("no_such_key"));
        } catch (const std::logic_error& error) {
            std::fputs(error.what(), stderr);
            std::abort();
        }
    };
    EXPECT_DEATH(ask(), "No item found in get_item_from_settings");
}

} // namespace kelvarin
