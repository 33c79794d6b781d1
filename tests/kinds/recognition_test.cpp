// SPDX-License-Identifier: MIT
#include "shell/document/recognition.h"

#include "kinds/kinds.h"

#include <gtest/gtest.h>

#include <string>

namespace kelvarin
{

TEST(Recognition, DecidesByExtensionAndSecondLine)
{
    struct row
    {
        const char* path;
        const char* text;
        const char* expected;
    };
    for (const row& each : {row{"a.kvg", "KVRGRF/V500//\r\nx\r\ny\r\n", "graph"},
                            {"a.KVG", "96KVRGRF/V500//\r\n", "graph"},
                            {"a.kvg", "1aFKVRGRF/V500//", "graph"},
                            {"a.kvg", "KVRGRF/V400//\r\nx\r\ny\r\n", "unknown"},
                            {"a.kvg", "KVRGRF/V500// \r\nx\r\ny\r\n", "unknown"},
                            {"a.kvg", "zKVRGRF/V500//\r\nx\r\ny\r\n", "unknown"},
                            {"a.kvg", "", "unknown"},
                            {"a.kvr", "KVRGRF/V500//\r\nx\r\ny\r\n", "unknown"},
                            {"a.RTF", "", "report"},
                            {"a.txt", "t\nf(x) = x\nx(0)=1\n", "text"},
                            {"dir.txt/a", "t\nf(x) = x\nx(0)=1\n", "nle"},
                            {"a.kvr", "t |KVRVER05_0\r\nf(x) = x-1 #\r\nx(0)=1\r\n", "nle"},
                            {"a", "t\nf(x)\nx\n", "nle"},
                            {"a.kvr", "t\na = 1 #\nb = 2 #\n", "nle"},
                            {"a.kvr", "t\n = \nx\n", "nle"},
                            {"a.kvr", "t\nd(y)/d(x) = y #\nx\n", "deq"},
                            {"a.kvr", "t\nd(y)\nx\n", "deq"},
                            {"a.kvr", "t\n 2 \nx\n", "leq"},
                            {"a.kvr", "t\n1d1\nx\n", "leq"},
                            {"a.kvr", "t\r\r\n2\r\r\n1\t2\t\r\r\n", "leq"},
                            {"a.kvr", "t\n10 9 \nA\tB\n", "reg"},
                            {"a.kvr", "t\n10 9\nA\n", "reg"},
                            {"a.kvr", "t\n0 9\nA\n", "unknown"},
                            {"a.kvr", "t\n10 x\nA\n", "unknown"},
                            {"a.kvr", "t\n10x 9y\nA\n", "reg"},
                            {"a.kvr", "t\n1e999 5\nA\n", "unknown"},
                            {"a.kvr", "t\nx^2+y^2\nA\n", "unknown"},
                            // A saved problem of one explicit equation has two lines.
                            {"a.kvr", "t |KVRVER05_0\r\na = 2*3 #\r\n", "nle"},
                            {"a.kvr", "t\nf(x) = x", "nle"},
                            {"a.kvr", "t\n2a = 1\n", "unknown"},
                            {"a.kvr", "t\nf(x)\n", "unknown"},
                            {"a.kvr", "t\nd(y)/d(x) = y\n", "unknown"},
                            {"a.kvr", "t\n2\n", "unknown"},
                            {"a.kvr", "t\n3 4\n", "unknown"},
                            {"a.kvr", "f(x) = 1\n", "unknown"},
                            {"a.kvr", "", "unknown"},
                            {"", "", "unknown"}}) {
        SCOPED_TRACE(std::string(each.path) + ": " + each.text);
        EXPECT_EQ(recognise_document(each.path, each.text, problem_kinds()).key(), each.expected);
    }
}

TEST(Recognition, NamesTheFileItDoesNotKnow)
{
    EXPECT_EQ(unknown_format_text("/home/me/a.kvr"),
              "The file format of /home/me/a.kvr does not match any of the Kelvarin input files format.");
}

} // namespace kelvarin
