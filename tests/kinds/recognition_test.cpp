// SPDX-License-Identifier: MIT
#include "shell/document/recognition.h"

#include "kinds/kinds.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelvarin
{

TEST(Recognition, DecidesByExtensionAndSecondLine)
{
    const test::table<const char*, const char*, std::vector<std::string>> files = {
        {"graph", "a.kvg", {"KVRGRF/V500//\r\nx\r\ny\r\n", "1aFKVRGRF/V500//"}},
        {"graph", "a.KVG", {"96KVRGRF/V500//\r\n"}},
        {"unknown", "a.kvg", {"KVRGRF/V400//\r\nx\r\n", "KVRGRF/V500// \r\nx\r\n", "zKVRGRF/V500//\r\nx\r\n", ""}},
        {"report", "a.RTF", {""}},
        {"text", "a.txt", {"t\nf(x) = x\nx(0)=1\n"}},
        {"nle", "dir.txt/a", {"t\nf(x) = x\nx(0)=1\n", "t\nf(x)\nx\n"}},
        {"nle", "a.kvr", {"t |KVRVER05_0\r\nf(x) = x-1 #\r\nx(0)=1\r\n", "t\na = 1 #\nb = 2 #\n", "t\n = \nx\n"}},
        // A saved problem of one explicit equation has two lines.
        {"nle", "a.kvr", {"t |KVRVER05_0\r\na = 2*3 #\r\n", "t\nf(x) = x"}},
        {"deq", "a.kvr", {"t\nd(y)/d(x) = y #\nx\n", "t\nd(y)\nx\n"}},
        // Of the older form, or with explicit rows first and a final value.
        {"deq", "a.kvr", {"d(y)/d(x) = -y\nx(0)=0\ny(0)=1\n", "d(y)/d(x) = k\n2\n", "t\nk = 2\nx(0)=0\nx(f)=1\n"}},
        {"nle", "a.kvr", {"t\nf(x) = x-f\nf = 2\nx(0)=1\n"}},
        {"leq", "a.kvr", {"d(y) |KVRVER05_0\n2\n1\t2\n"}},
        {"leq", "a.kvr", {"t\n 2 \nx\n", "t\n1d1\nx\n", "t\r\r\n2\r\r\n1\t2\t\r\r\n"}},
        {"reg", "a.kvr", {"t\n10 9 \nA\tB\n", "t\n10 9\nA\n", "t\n10x 9y\nA\n"}},
        // A target, which may hold a comparison, and a start value; the second line of no other kind.
        {"opt",
         "a.kvr",
         {"t\nx^2\nx(0)=1", "t\n(x >= 1)*x\na = 1\nx ( 0 ) = 2 # start\n", "\n2x = 1\nx(0) = 1\n",
          "d(y) |KVRVER05_0\n\nx(0)=1\n"}},
        {"nle", "a.kvr", {"t\na = 1\nx(0)=1\n", "t\n(x >= 1)*x\na = 1 # x(0)=1\n", "t\nx(0)=1\ny(0)=1\n"}},
        {"leq", "a.kvr", {"t\n2\nx(0)=1\n"}},
        {"reg", "a.kvr", {"t\n3 4\nx(0)=1\n"}},
        {"unknown", "a.kvr", {"t\n0 9\nA\n", "t\n10 x\nA\n", "t\n1e999 5\nA\n", "t\nx^2+y^2\nA\n", "t\n2a = 1\n"}},
        {"unknown", "a.kvr", {"t\nf(x)\n", "t\nd(y)/d(x) = y\n", "t\n2\n", "t\n3 4\n", "f(x) = 1\n", ""}},
        {"unknown", "a.kvr", {"KVRGRF/V500//\r\nx\r\ny\r\n"}},
        {"unknown", "", {""}},
    };
    for (const auto& [kind, path, texts] : files)
        for (const std::string& text : texts)
            EXPECT_EQ(recognise_document(path, text, problem_kinds()).key(), kind) << path << ": " << text;
}

TEST(Recognition, TheMainWindowKnowsNoOptimizations)
{
    for (const std::string text : {"t\nx^2\nx(0)=1\n", "t\n(x >= 1)*x\nx(0)=1\n"}) {
        EXPECT_EQ(recognise_document("a.kvr", text, problem_kinds()).key(), "opt");
        EXPECT_NE(recognise_document("a.kvr", text, kinds_of_main_window()).key(), "opt");
    }
}

} // namespace kelvarin
