// SPDX-License-Identifier: MIT
#include "shell/document/json_value.h"
#include "shell/document/recovery_file.h"
#include "shell/report/json_writer.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cstdint>

namespace kelvarin::test
{

TEST(JsonValue, AReaderThatAsksForWhatIsNotThereGetsNothing)
{
    const auto first_item = [](const json_value& value) {
        const json_value& item = value.at("a").items().at(0);
        return item.is_text() ? item.text() : std::to_string(item.whole_number());
    };
    // What is read of the text, or "-".
    const table<std::string, std::string> cases = {
        {R"({"a": ["x\u00e9\n", 2]})", "x\xC3\xA9\n"},
        {R"({"b": 1, "a": [-7]})", "-7"},
        {R"({"a": [1], "a": [2]})", "2"},
        {R"({"a": [9223372036854775807]})", "9223372036854775807"},
        {R"({"a": [9223372036854775808]})", "-"},
        {R"({"a": [1.0]})", "-"},
        {R"({"a": [null]})", "-"},
        {R"({"a": {"0": 1}})", "-"},
        {R"({"b": [1]})", "-"},
        {R"(["a"])", "-"},
        {R"({"a": [1]} x)", "-"},
        {R"({"a": [1])", "-"},
        {"{\"a\": [\"\xE9\"]}", "-"},
        {"", "-"},
        {"{\"a\": " + std::string(99, '[') + "1" + std::string(99, ']') + "}", "-"},
        {std::string(1000000, '['), "-"}};
    for (const auto& [text, read] : cases)
        EXPECT_EQ(read_json(text, first_item).value_or("-"), read) << text.substr(0, 100);
    EXPECT_TRUE(parse_json(std::string(100, '[') + std::string(100, ']')));
    EXPECT_FALSE(parse_json(std::string(101, '[') + std::string(101, ']')));
}

TEST(JsonValue, ReadsWhatTheWriterWrote)
{
    EXPECT_TRUE(rc::check("texts of any bytes below 128, and any whole number", [](std::int64_t number) {
        const auto texts = *rc::gen::container<std::vector<std::string>>(
            rc::gen::container<std::string>(rc::gen::inRange<char>(0, 127)));
        json_writer writer;
        writer.begin_object();
        writer.member("texts", texts);
        writer.member("number", number);
        writer.end_object();
        const std::optional<json_value> value = parse_json(writer.take());
        RC_ASSERT(value.has_value());
        RC_ASSERT(value->at("texts").texts() == texts);
        RC_ASSERT(value->at("number").whole_number() == number);
    }));
}

TEST(JsonValue, AFileOfAnEarlierVersionIsStillRead)
{
    const recovery_entry entry = {"nle", "t", "/tmp/\xE9", -5, "{}"};
    EXPECT_EQ(
        read_recovery_file("{\n \"content\": \"{}\",\n \"format\": 1,\n \"kept_at\": -5,\n \"kind\": \"nle\",\n "
                           "\"path\": [\n  47,\n  116,\n  109,\n  112,\n  47,\n  233\n ],\n \"title\": \"t\"\n}\n"),
        entry);
}

} // namespace kelvarin::test
