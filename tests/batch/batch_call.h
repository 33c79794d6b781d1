// SPDX-License-Identifier: MIT
#pragma once

#include "batch/run_batch.h"
#include "platform/registry_store.h"

#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <vector>

namespace kelvarin
{
using json = nlohmann::ordered_json;
}

namespace kelvarin::test
{

struct batch_result
{
    int status = 0;
    std::string out, err;

    json as_json() const { return json::parse(out); }
};

/// Calls of the batch program in this process: 2 January 2026, runs that take no time, no saved settings unless a test
/// puts some there, nobody watching.
struct batch_call
{
    fixed_clock clock;
    memory_registry saved;
    recording_listener listener;

    batch_result operator()(const std::vector<std::string>& arguments)
    {
        std::ostringstream out, err;
        const int status = run_batch(arguments, out, err, {clock, saved, listener, false, [] { return 0.0; }});
        return {status, out.str(), err.str()};
    }
};

/// Small problems in files' text; all but their names is plain arithmetic, so that results are exact.
inline const std::string square_root_of_two = "Square root\nf(x) = x^2-2\nx(min)=1, x(max)=2\n";
inline const std::string plane_lines = "Two lines |KVRVER05_0\nf(x) = x+y-3\nf(y) = x-y-1\nx(0)=1\ny(0)=1\n";
inline const std::string explicit_only = "Sum\na = 1\nb = a+1\n";
inline const std::string undefined_name = "Red\nf(x) = x-q\nx(min)=1, x(max)=2\n";
inline const std::string failing_run = "Root of a negative\na = sqrt(b)\nb = 0-1\n";
inline const std::string linear_lines = "Two lines\r\n1\r\nvarsnames==x,y\r\n1\t1\t\r\n1\t-1\t\r\n3\t1\t\r\r\n";
inline const std::string differential = "Decay\nd(y)/d(t) = -y\nt(0)=0\ny(0)=1\nt(f)=1\n";

} // namespace kelvarin::test
