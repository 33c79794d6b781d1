// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/set_analysis.h"
#include "numeric/nonlinear/NR_vbCNLE.h"
#include "platform/message_box.h"
#include "platform/saver.h"
#include "shell/document/document_path.h"
#include "shell/document/history.h"
#include "shell/document/problem_document.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

enum class nle_method
{
    fastnewt = 0,
    safenewt = 1,
    safebroydn = 2,
    constrained = 3
};

/// The items of the method list, in its order.
inline constexpr std::array<std::string_view, 4> nle_method_items = {"fastnewt", "safenewt", "safebroydn",
                                                                     "constrained"};

std::string_view method_text(nle_method method);
/// By item text or list index.
std::optional<nle_method> method_named(std::string_view text);

/// What a nonlinear problem holds: a plain value.
struct nle_content
{
    /// Without blanks around it.
    std::string title;
    nle_method method = nle_method::fastnewt;
    std::vector<equation_row> rows;
    /// The texts of the two bound fields, used with exactly one implicit row.
    std::string lower_bound;
    std::string upper_bound;

    friend bool operator==(const nle_content&, const nle_content&) = default;
};

/// The sign condition that a guess cell's suffix asks for: "ap" or " p" at its very end.
sign_constraint constraint_of(std::string_view guess);
/// A guess cell without its suffix.
std::string guess_without_suffix(std::string_view guess);

/// What the window says of a problem after every edit.
struct nle_analysis
{
    equation_set set;
    bool bounds_ok = true;
    /// The light: the problem may run.
    bool green = false;
    std::array<std::string, 3> panels;
    bool single_controls_visible = false;
};

nle_analysis analyse_nle(const nle_content& content);

/// The listing of variables with its warnings, as rich text without prolog.
std::string show_all_vars(const nle_content& content);
/// The listing's warnings as plain text, from "Warning: " on.
std::vector<std::string> listing_warnings(const nle_content& content);

/// Why a problem whose light is red does not run, as one box.
message_box red_light_box(const nle_content& content);

/// A nonlinear problem as a document: content, path, saved flag, undo. Every operation that is refused
/// answers with the box to show and changes nothing. Undo names its steps "Add equation", "Edit equation",
/// "Remove equation", "Move equation", "Edit comment", "Change title", "Change bounds", "Choose method",
/// "Rename variable", "Load example".
class nle_problem final : public problem_document
{
public:
    std::string_view kind() const override { return "nle"; }
    const nle_content& content() const { return content_; }
    const std::string& title() const override { return content_.title; }
    const std::filesystem::path& path() const override { return place_.path(); }
    bool problem_saved() const override { return history_.is_clean(); }
    /// No row, no title, no file; the method alone is nothing to lose.
    bool is_blank() const override;
    int equation_count() const { return static_cast<int>(content_.rows.size()); }

    /// Whether another equation may be added.
    refusal may_add() const;
    /// The checks of the entry dialogs for a new row (row 0) or the replacement of row `row` (from 1); the
    /// texts are those of the fields. A box that is about the expression has a place in that field's text.
    refusal check_implicit(std::string_view name, std::string_view expression, std::string_view guess, int row) const;
    refusal check_explicit(std::string_view name, std::string_view expression, int row) const;

    /// Adds (row 0) or replaces a row after the checks. `constraint` is 0, 1 (" p") or 2 (" ap").
    refusal put_implicit(std::string_view name, std::string_view expression, std::string_view guess, int constraint,
                         std::string_view comment, int row = 0);
    refusal put_explicit(std::string_view name, std::string_view expression, std::string_view comment, int row = 0);

    /// Removing the last equation is refused.
    refusal remove(int row);
    /// Exchange with the neighbour above (up) or below; false at the ends.
    bool move(int row, bool up);
    void set_comment(int row, std::string comment);
    void set_title(std::string title) override;
    /// One step of undo for any number of changes in a row, as they come with every key typed.
    void set_bounds(std::string lower, std::string upper);
    /// A choice by the user: any method but `constrained` strips the suffixes of the guesses.
    void choose_method(nle_method method);
    /// Renames a variable where it is defined and wherever right sides use it, in one step. Refused as in the
    /// entry dialogs where the new name is no valid one, is defined already, or would define itself.
    refusal rename_variable(std::string_view old_name, std::string_view new_name);
    /// Puts an example in place of the problem, in one step. The path goes, so that no save writes the example
    /// over the file that was open.
    void load_example(nle_content example);

    bool undo() override;
    bool redo() override;
    std::string undo_step() const override { return history_.undo_step(); }
    std::string redo_step() const override { return history_.redo_step(); }

    nle_analysis analyse() const { return analyse_nle(content_); }

    refusal open(const std::filesystem::path& path) override { return nles_open(path); }
    /// Reads a file into this document; on failure the document stays as it was.
    refusal nles_open(const std::filesystem::path& path);
    /// Writes the document (in the older format on demand); on success path and clean mark move.
    refusal save(const std::filesystem::path& path, bool older_format = false,
                 const save_calls& calls = system_save_calls()) override;
    void clear() override;

    std::string recovery_text() const override;
    bool restore(std::string_view recovery_text, const std::filesystem::path& path) override;

    /// Heading, file name, then each row with its number, guess and comment, and the bounds of a single
    /// equation; lines end in LF.
    std::string printed_listing() const override;

private:
    refusal put_row(equation_row next_row, int row);
    void change(std::string step, nle_content next);

    nle_content content_;
    document_path place_;
    history<nle_content> history_;
};

} // namespace kelvarin
