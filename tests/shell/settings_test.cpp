// SPDX-License-Identifier: MIT
#include "shell/settings.h"

#include "platform/run_time_text.h"
#include "support/table.h"

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

TEST(SetValue, ChecksAsTheSettingsWindowDoes)
{
    const std::string boolean_only = "Only Boolean input is allowed. Please enter 'True' or 'False' only.";
    const std::string integer_only = "Only integer input is allowed.";
    const std::string columns = "Value must be between 2 & 120";
    const std::string tolerance = "Value must be between 0 & 0.1";
    using texts = std::vector<const char*>;
    using stored_texts = std::vector<std::pair<const char*, const char*>>;
    const test::table<const char*, stored_texts, texts, std::string> cases = {
        {"table_cols",
         {{"120", "120"}, {"2", "2"}, {"1d2", "100"}, {"5.0", "5"}},
         {"121", "1", "abc", "", "-3", "1e999"},
         columns},
        {"TABLE_COLS", {{" 12abc", "12"}}, {"1.5", "1000.5"}, integer_only},
        {"mnewt_tolx",
         {{"0", "0"}, {"0.1", "0.1"}, {".00001", "1E-05"}, {"1d-3 x", "0.001"}},
         {"0.2", "-1e-9", "1e999"},
         tolerance},
        {"Graph_ver_gridline", {{"true", "true"}, {" TRUE", " TRUE"}, {"False", "False"}}, {"yes", ""}, boolean_only},
        {"Graph_default_title", {{"", ""}, {" {x} 1.5", " {x} 1.5"}}, {}, ""},
    };
    for (const auto& [key, stored, refused, refusal] : cases) {
        settings store;
        const std::string before = store.value(key);
        for (const char* text : refused) {
            const std::optional<message_box> box = store.set_value(key, text);
            ASSERT_TRUE(box.has_value()) << key << " = " << text;
            EXPECT_EQ(box->text, refusal);
            EXPECT_EQ(box->title, "Kelvarin Guide");
            EXPECT_EQ(store.value(key), before);
        }
        for (const auto& [text, expected] : stored) {
            EXPECT_FALSE(store.set_value(key, text)) << key << " = " << text;
            EXPECT_EQ(store.value(key), expected);
        }
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
