// SPDX-License-Identifier: MIT
#include "batch/command_line.h"

#include "batch/exit_status.h"
#include "batch/kinds/kind_answerer.h"
#include "platform/run_time_text.h"
#include "shell/report/rich_text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <thread>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr int most_jobs = 1024;

/// The options as typed.
struct typed_options
{
    std::string format, output, kind, clock;
    /// The options of kinds; empty if not given.
    std::map<std::string, std::vector<std::string>, std::less<>> kind_options;
    std::vector<std::string> assignments, files;
    int jobs = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    bool check = false, eval = false, convert = false, units = false, constants = false, show_settings = false;
    std::vector<std::string> lines;
};

/// Thrown for wrong usage and caught by read_command_line.
struct usage_error
{
    std::string text;
};

/// Removes `--eval` and the following arguments: all of them are lines, whatever they begin with.
void take_lines(std::vector<std::string>& arguments, typed_options& typed)
{
    const auto options_end = std::find(arguments.begin(), arguments.end(), "--");
    const auto eval = std::find(arguments.begin(), options_end, "--eval");
    if (eval == options_end) return;
    typed.eval = true;
    typed.lines.assign(eval + 1, arguments.end());
    arguments.erase(eval, arguments.end());
}

/// Removes `--convert` and its arguments, since the number may begin with "-": number, two units and, unless an option
/// follows, the type of the units.
void take_conversion(std::vector<std::string>& arguments, typed_options& typed)
{
    constexpr std::ptrdiff_t least = 3;
    const auto options_end = std::find(arguments.begin(), arguments.end(), "--");
    const auto convert = std::find(arguments.begin(), options_end, "--convert");
    if (convert == options_end) return;
    typed.convert = true;
    auto end = convert + 1 + std::min(least, options_end - (convert + 1));
    if (end != options_end && !end->starts_with('-')) ++end;
    typed.lines.assign(convert + 1, end);
    arguments.erase(convert, end);
}

/// "nle, leq or deq".
std::string keys_of_kinds()
{
    std::string keys;
    const auto answerers = kind_answerers();
    for (std::size_t i = 0; i < answerers.size(); ++i) {
        if (i > 0) keys += i + 1 < answerers.size() ? ", " : " or ";
        keys += answerers[i].kind->key;
    }
    return keys;
}

/// The help text of an option; if kinds have different ones, those of all, each with its kind.
std::string help_of(std::string_view name)
{
    std::vector<std::pair<std::string, std::string>> parts;
    for (const kind_answerer& answerer : kind_answerers())
        for (const kind_option& option : answerer.options) {
            if (name != option.name) continue;
            const auto same = std::ranges::find(parts, option.help, &std::pair<std::string, std::string>::first);
            if (same == parts.end())
                parts.emplace_back(option.help, answerer.kind->key);
            else
                same->second += std::string(", ") + answerer.kind->key;
        }
    if (parts.size() == 1) return parts.front().first;
    std::string help;
    for (const auto& [text, kinds] : parts)
        help += (help.empty() ? "" : "; ") + text + " (" + kinds + ")";
    return help;
}

/// Declares each option once.
void describe_kind_options(CLI::App& app, typed_options& typed)
{
    for (const kind_answerer& answerer : kind_answerers())
        for (const kind_option& option : answerer.options) {
            const auto [value, is_new] = typed.kind_options.try_emplace(option.name);
            if (!is_new) continue;
            std::vector<std::string>& texts = value->second;
            if (std::string_view(option.value_name).empty())
                app.add_flag_callback(
                    option.name, [&texts, name = option.name] { texts = {name}; }, help_of(option.name));
            else
                app.add_option(option.name, texts, help_of(option.name))
                    ->type_name(option.value_name)
                    ->expected(1, option.repeats ? CLI::detail::expected_max_vector_size : 1)
                    ->allow_extra_args(false);
        }
}

void describe_options(CLI::App& app, typed_options& typed)
{
    app.add_option("FILE", typed.files, "Problem files; their answers come in this order; - is standard input")
        ->type_name("");
    describe_kind_options(app, typed);
    app.add_option("--set", typed.assignments, "Set a value of --settings for this call; may be repeated")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false);
    app.add_option("--format", typed.format, "text (the default), rtf or json")->type_name("NAME");
    app.add_option("-o,--output", typed.output,
                   "Write to this file; {} in it stands for the stem of each FILE; - is standard output")
        ->type_name("NAME");
    app.add_option("--kind", typed.kind,
                   keys_of_kinds() + ": takes every FILE for a problem of that kind, whatever its name")
        ->type_name("NAME");
    app.add_option("--jobs", typed.jobs, "Solve so many files at a time; by default one per processor")->type_name("N");
    app.add_option("--clock", typed.clock,
                   "The date of reports, as 2026-01-02; elapsed times are 0 then, so that the same\n"
                   "input gives the same bytes. SOURCE_DATE_EPOCH, in seconds since 1970, does the same")
        ->type_name("DATE");
    app.add_flag("--check", typed.check, "Analyse only, as JSON: what is defined, what is missing");
    app.add_flag("--settings", typed.show_settings, "List all settings with value, default and bounds");
    app.add_flag("--eval", typed.eval,
                 "Evaluate all arguments behind as calculator lines in order, as JSON; with --format text in front "
                 "only the values");
    app.add_flag("--convert", typed.convert, "Convert a number: --convert 100 \"deg C\" \"deg F\" [TYPE]");
    app.add_flag("--units", typed.units, "List the units, or those that hold all words given in place of FILE");
    app.add_flag("--constants", typed.constants, "List the physical constants, or those that hold all words given");
    app.set_version_flag("--version", std::string(batch_program_name) + " " + std::string(program_version()));
    app.footer("Examples:\n"
               "  kelvarin-solve pipe.kvr                        the report of a problem\n"
               "  kelvarin-solve --format json *.kvr | jq '.[].ok'\n"
               "  kelvarin-solve -o 'reports/{}.txt' a.kvr b.kvr a file for each report\n"
               "  sed 's/^k = .*/k = 2/' reactor.kvr | kelvarin-solve -\n"
               "  kelvarin-solve --check homework.kvr            what is still missing\n"
               "  kelvarin-solve --format text --eval 'r = 2.5' 'pi*r^2'\n"
               "\n"
               "Exit status: 0 every file gave a report; 1 a run ended with a message instead, or a line\n"
               "failed; 2 wrong usage, a file that cannot be read or is not solved; 130 interrupted.");
}

batch_action action_of(const typed_options& typed)
{
    if (typed.check + typed.eval + typed.convert + typed.units + typed.constants + typed.show_settings > 1)
        throw usage_error{
            "Only one of --check, --eval, --convert, --units, --constants and --settings can be asked for."};
    if (typed.check) return batch_action::check;
    if (typed.eval) return batch_action::eval;
    if (typed.convert) return batch_action::convert;
    if (typed.units) return batch_action::show_units;
    if (typed.constants) return batch_action::show_constants;
    return typed.show_settings ? batch_action::show_settings : batch_action::solve;
}

output_format format_of(const typed_options& typed, batch_action action)
{
    const bool json_by_itself = action == batch_action::check || action == batch_action::eval;
    const std::string name = typed.format.empty() ? (json_by_itself ? "json" : "text") : typed.format;
    const std::map<std::string, output_format> names = {
        {"text", output_format::plain}, {"rtf", output_format::rtf}, {"json", output_format::object}};
    const auto found = names.find(name);
    if (found == names.end()) throw usage_error{"--format: text, rtf or json is expected, not '" + name + "'."};
    if (action == batch_action::check && found->second != output_format::object)
        throw usage_error{"--check gives JSON only."};
    if (action != batch_action::solve && found->second == output_format::rtf)
        throw usage_error{"--eval, --convert, --units, --constants and --settings give text or JSON only."};
    return found->second;
}

void assign_settings(settings& store, const std::vector<std::string>& assignments)
{
    for (const std::string& assignment : assignments) {
        const auto equal_sign = assignment.find('=');
        if (equal_sign == std::string::npos)
            throw usage_error{"--set: KEY=VALUE is expected, not '" + assignment + "'."};
        const std::string key = assignment.substr(0, equal_sign);
        if (!settings::find(key)) throw usage_error{"--set: there is no setting '" + key + "'; --settings lists them."};
        const std::string value = assignment.substr(equal_sign + 1);
        // Stored values are lenient and read as 0 what is no number; a typing error in a script should not pass.
        if (settings_table()[*settings::find(key)].type == setting_type::floating && !is_numeric(value))
            throw usage_error{"--set: a number is expected, not '" + value + "' (" + key + ")."};
        if (const auto refused = store.set_value(key, value))
            throw usage_error{refused->title + " (--set " + assignment + ")\n" + refused->text};
    }
}

void check_files(const batch_request& request)
{
    const bool takes_files = request.action == batch_action::solve || request.action == batch_action::check;
    if (!takes_files && !request.files.empty()) throw usage_error{"--eval, --convert and --settings take no FILE."};
    if (takes_files && request.files.empty()) throw usage_error{"No FILE is given."};
    if (request.action == batch_action::eval && request.lines.empty()) throw usage_error{"--eval: no line is given."};
    if (request.action == batch_action::convert && request.lines.size() < 3)
        throw usage_error{"--convert: a number and two units are expected; --units lists them."};

    if (std::ranges::count(request.files, standard_stream) > 1)
        throw usage_error{"Standard input (-) can be read only once."};

    const bool one_output = request.output.find("{}") == std::string::npos;
    if (request.format == output_format::rtf && request.files.size() > 1 && one_output)
        throw usage_error{"Several reports as rtf need an output name with {} in it, such as -o '{}.rtf'."};
}

/// The names of the files that options of kinds write for each problem, with `{}` in them.
std::vector<std::string> kind_outputs(const batch_request& request)
{
    std::vector<std::string> outputs;
    for (const auto& [name, values] : request.kind_options)
        for (const kind_answerer& answerer : kind_answerers()) {
            const auto option = std::ranges::find(answerer.options, name, &kind_option::name);
            if (option == answerer.options.end() || !option->names_output) continue;
            const std::string& value = values.front();
            if (request.files.size() > 1 && value.find("{}") == std::string::npos)
                throw usage_error{name + ": of several FILEs the name needs {} in it, such as '{}" +
                                  std::filesystem::path(value).extension().string() + "'."};
            outputs.push_back(value);
            break;
        }
    return outputs;
}

/// An output must not overwrite another one, or a problem to be solved.
void check_outputs(const batch_request& request)
{
    std::set<std::string> names;
    const auto check = [&](const std::string& name) {
        if (!names.insert(name).second) throw usage_error{"Two outputs would be written to '" + name + "'."};
        if (std::optional<std::string> refused = replacement_refusal(name, request)) throw usage_error{*refused};
    };
    if (!request.output.empty() && !request.answers_in_a_file_each()) check(request.output);
    const std::vector<std::string> outputs = kind_outputs(request);
    for (const std::string& file : request.files) {
        if (request.answers_in_a_file_each()) check(output_name(request.output, file));
        for (const std::string& output : outputs)
            check(output_name(output, file));
    }
}

const problem_kind* kind_of(std::string_view key)
{
    if (key.empty()) return nullptr;
    for (const kind_answerer& answerer : kind_answerers())
        if (key == answerer.kind->key) return answerer.kind;
    throw usage_error{"--kind: " + keys_of_kinds() + " is expected, not '" + std::string(key) + "'."};
}

/// A value is valid if one of the kinds that have the option accepts it; otherwise the error of the last one is
/// reported.
void check_kind_option(const std::string& name, const std::string& value)
{
    std::optional<std::string> complaint;
    for (const kind_answerer& answerer : kind_answerers())
        for (const kind_option& option : answerer.options) {
            if (name != option.name) continue;
            complaint = option.refusal ? option.refusal(value) : std::nullopt;
            if (!complaint) return;
        }
    if (complaint) throw usage_error{*complaint};
}

/// The date that the command line or the environment sets for all reports.
std::optional<calendar_date> date_of(const std::string& typed)
{
    const char* epoch = std::getenv("SOURCE_DATE_EPOCH");
    if (typed.empty() && (epoch == nullptr || *epoch == '\0')) return std::nullopt;
    const std::string text = typed.empty() ? epoch : typed;
    if (const std::optional<calendar_date> date = date_of_text(text)) return date;
    throw usage_error{(typed.empty() ? "SOURCE_DATE_EPOCH" : "--clock") +
                      std::string(": a date such as 2026-01-02 is expected, not '") + text + "'."};
}

batch_request request_of(typed_options typed, const registry_store& saved)
{
    batch_request request;
    request.action = action_of(typed);
    request.format = format_of(typed, request.action);
    request.store = settings(saved);
    assign_settings(request.store, typed.assignments);
    for (const auto& [name, values] : typed.kind_options)
        for (const std::string& value : values) {
            if (value.empty()) continue;
            check_kind_option(name, value);
            request.kind_options[name].push_back(value);
        }
    request.kind = kind_of(typed.kind);
    request.output = std::move(typed.output);
    const bool lists = request.action == batch_action::show_units || request.action == batch_action::show_constants;
    // With --units and --constants these arguments are search words, not files.
    (lists ? typed.lines : request.files) = std::move(typed.files);
    if (typed.jobs < 1 || typed.jobs > most_jobs)
        throw usage_error{"--jobs: a number from 1 to " + std::to_string(most_jobs) + " is expected."};
    request.jobs = typed.jobs;
    request.date = date_of(typed.clock);
    request.lines = std::move(typed.lines);
    check_files(request);
    check_outputs(request);
    return request;
}

} // namespace

std::optional<std::string> replacement_refusal(const std::string& name, const batch_request& request)
{
    std::error_code unknown;
    if (name == standard_stream || !std::filesystem::exists(name, unknown)) return std::nullopt;
    for (const std::string& problem : request.files)
        if (std::filesystem::equivalent(name, problem, unknown))
            return "The output would replace the problem '" + problem + "'.";
    return std::nullopt;
}

std::string output_name(const std::string& output, const std::string& file)
{
    const std::string stem = file == standard_stream ? "stdin" : std::filesystem::path(file).stem().string();
    std::string name = output;
    for (auto place = name.find("{}"); place != std::string::npos; place = name.find("{}", place + stem.size()))
        name.replace(place, 2, stem);
    return name;
}

std::variant<batch_request, command_line_end> read_command_line(std::span<const std::string> arguments,
                                                                const registry_store& saved)
{
    typed_options typed;
    std::vector<std::string> options(arguments.begin(), arguments.end());
    take_lines(options, typed);
    take_conversion(options, typed);

    CLI::App app("Solves problem files and prints their reports.", std::string(batch_program_name));
    describe_options(app, typed);
    try {
        std::reverse(options.begin(), options.end());
        app.parse(std::move(options));
        return request_of(std::move(typed), saved);
    } catch (const CLI::CallForHelp&) {
        return command_line_end{exit_status::every_file_reported, app.help()};
    } catch (const CLI::CallForVersion& version) {
        return command_line_end{exit_status::every_file_reported, std::string(version.what()) + "\n"};
    } catch (const CLI::ParseError& error) {
        return command_line_end{exit_status::unusable, error.what()};
    } catch (const usage_error& wrong) {
        return command_line_end{exit_status::unusable, wrong.text};
    }
}

} // namespace kelvarin
