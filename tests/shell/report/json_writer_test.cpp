// SPDX-License-Identifier: MIT
#include "shell/report/json_writer.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

using json = nlohmann::ordered_json;

/// The library's own text of a value.
std::string printed(const json& value)
{
    return value.dump(2, ' ', false, json::error_handler_t::replace);
}

TEST(JsonWriter, NumbersHaveTheLibrarysForm)
{
    std::vector<double> numbers = {0.0,   -0.0,   6.0,    -6.5,     1e15,   1e16,    123456789012345.0,
                                   1e-4,  1e-5,   1e100,  1.0 / 3,  9e-324, 1.7e308, std::numeric_limits<double>::min(),
                                   1e-07, 0.3e-9, -2e-12, INFINITY, NAN};
    std::mt19937_64 generator(1);
    for (int i = 0; i < 20000; ++i)
        numbers.push_back(std::bit_cast<double>(static_cast<std::uint64_t>(generator())));
    for (const double number : numbers) {
        json_writer writer;
        writer.value(number);
        EXPECT_EQ(writer.take(), printed(number));
    }
}

TEST(JsonWriter, StringsAreEscapedAsTheLibraryDoes)
{
    std::vector<std::string> texts = {"",
                                      "a b/c",
                                      "\"quoted\" \\ \r\n\t\b\f",
                                      std::string("nul\0inside", 10),
                                      "\x01\x1f\x7f",
                                      "Grad \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80",
                                      "no\xE9 UTF-8\xFF\n",
                                      "\xC3",
                                      "cut \xE2\x82",
                                      "overlong \xC0\xAF, surrogate \xED\xA0\x80"};
    for (int c = 0; c < 128; ++c)
        texts.push_back(std::string(1, static_cast<char>(c)) + "x");
    for (const std::string& text : texts) {
        json_writer writer;
        writer.value(text);
        EXPECT_EQ(writer.take(), printed(text));
    }
}

TEST(JsonWriter, NestingAndMarginsAreThoseOfTheLibrary)
{
    const auto write = [](int depth) {
        json_writer writer(depth);
        writer.begin_object();
        writer.member("none", "");
        writer.key("empty");
        writer.begin_array();
        writer.end_array();
        writer.key("list");
        writer.begin_array();
        writer.value(1);
        writer.begin_object();
        writer.end_object();
        writer.begin_object();
        writer.member("yes", true);
        writer.member("no", false);
        writer.end_object();
        writer.end_array();
        writer.member("numbers", std::vector<double>{0.5, 2});
        writer.member("texts", std::vector<std::string>{"a", "b"});
        writer.key("missing");
        writer.null();
        writer.member("last", -7);
        writer.end_object();
        return writer.take();
    };
    const json same =
        json::parse(R"({"none": "", "empty": [], "list": [1, {}, {"yes": true, "no": false}], "numbers": [0.5, 2.0],
                        "texts": ["a", "b"], "missing": null, "last": -7})");
    EXPECT_EQ(write(0), printed(same));
    json_writer twice;
    twice.begin_array();
    twice.raw(write(1));
    twice.raw(write(1));
    twice.end_array();
    EXPECT_EQ(twice.take(), printed(json::array({same, same})));
}

} // namespace
} // namespace kelvarin
