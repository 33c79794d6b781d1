// SPDX-License-Identifier: MIT
#include "support/scripted_user.h"

#include "desktop/page_printing.h"
#include "desktop/qt_text.h"

#include <QPrinter>

#include <gtest/gtest.h>

namespace kelvarin::test
{

namespace
{

/// Takes the next of what was expected; fails the test where nothing was.
template <class T> std::optional<T> next(std::deque<T>& expected, const std::string& what)
{
    if (expected.empty()) {
        ADD_FAILURE() << "nobody expected " << what;
        return std::nullopt;
    }
    T taken = std::move(expected.front());
    expected.pop_front();
    return taken;
}

} // namespace

scripted_user::~scripted_user()
{
    for (const auto& box : expected_boxes_)
        ADD_FAILURE() << "this box did not come: " << box.text;
    for (const auto& asked : expected_questions_)
        ADD_FAILURE() << "this question did not come: " << asked.text;
    for (const auto& asked : expected_choices_)
        ADD_FAILURE() << "this choice did not come: " << asked.text;
    for (const auto& asked : expected_inputs_)
        ADD_FAILURE() << "this input box did not come: " << asked.prompt;
    EXPECT_TRUE(expected_files_.empty()) << "a file dialog did not come";
    EXPECT_TRUE(expected_fonts_.empty()) << "a font dialog did not come";
    EXPECT_TRUE(expected_colours_.empty()) << "a colour dialog did not come";
    EXPECT_TRUE(expected_prints_.empty()) << "nothing was printed";
}

void scripted_user::expect_box(std::string text, std::string title)
{
    expected_boxes_.push_back({.text = std::move(text), .title = std::move(title)});
}

void scripted_user::expect_question(std::string text, user_answer given)
{
    expected_questions_.push_back({std::move(text), given});
}

void scripted_user::expect_choice(std::string text, std::optional<QString> given)
{
    expected_choices_.push_back({std::move(text), std::move(given)});
}

void scripted_user::expect_input(std::string prompt, std::optional<std::string> given)
{
    expected_inputs_.push_back({std::move(prompt), std::move(given)});
}

void scripted_user::expect_file(std::optional<chosen_file> given)
{
    expected_files_.push_back(std::move(given));
}

void scripted_user::expect_colour(std::optional<QColor> given)
{
    expected_colours_.push_back(std::move(given));
}

void scripted_user::expect_font(std::optional<QFont> given)
{
    expected_fonts_.push_back(std::move(given));
}

void scripted_user::expect_print(std::filesystem::path pdf)
{
    expected_prints_.push_back(std::move(pdf));
}

bool scripted_user::is_done() const
{
    return expected_boxes_.empty() && expected_questions_.empty() && expected_choices_.empty() &&
           expected_inputs_.empty() && expected_files_.empty() && expected_fonts_.empty() &&
           expected_colours_.empty() && expected_prints_.empty();
}

void scripted_user::show(QWidget*, const message_box& box)
{
    boxes_.push_back(box);
    const auto expected = next(expected_boxes_, "the box: " + box.text);
    if (!expected) return;
    EXPECT_EQ(box.text, expected->text);
    EXPECT_EQ(box.title, expected->title);
}

user_answer scripted_user::ask(QWidget*, const user_question& asked)
{
    questions_.push_back(asked);
    const auto expected = next(expected_questions_, "the question: " + asked.text);
    if (!expected) return user_answer::cancel;
    EXPECT_EQ(asked.text, expected->text);
    return expected->given;
}

std::optional<std::size_t> scripted_user::choose(QWidget*, const user_choice& asked)
{
    const auto expected = next(expected_choices_, "the choice: " + asked.text);
    if (!expected) return std::nullopt;
    EXPECT_NE(asked.text.find(expected->text), asked.text.npos) << asked.text;
    if (!expected->given) return std::nullopt;
    for (std::size_t answer = 0; answer < asked.captions.size(); ++answer)
        if (QString(asked.captions[answer]).remove(QLatin1Char('&')) == *expected->given) return answer;
    ADD_FAILURE() << "there is no such answer: " << to_text(*expected->given);
    return std::nullopt;
}

std::optional<QString> scripted_user::input(QWidget*, const QString&, const QString& prompt, const QString& proposed)
{
    proposed_input_ = proposed;
    const auto expected = next(expected_inputs_, "the input box: " + to_text(prompt));
    if (!expected) return std::nullopt;
    EXPECT_TRUE(prompt.contains(to_qstring(expected->prompt))) << to_text(prompt);
    if (!expected->given) return std::nullopt;
    return to_qstring(*expected->given);
}

std::optional<chosen_file> scripted_user::choose_file(const file_question& asked)
{
    file_questions_.push_back(asked);
    const auto expected = next(expected_files_, "a file dialog");
    return expected ? *expected : std::nullopt;
}

std::optional<chosen_file> scripted_user::choose_file_to_open(QWidget*, const file_question& asked)
{
    return choose_file(asked);
}

std::optional<chosen_file> scripted_user::choose_file_to_save(QWidget*, const file_question& asked)
{
    return choose_file(asked);
}

std::optional<QFont> scripted_user::choose_font(QWidget*, const QFont&)
{
    const auto expected = next(expected_fonts_, "a font dialog");
    return expected ? *expected : std::nullopt;
}

std::optional<QColor> scripted_user::choose_colour(QWidget*, const QColor&)
{
    const auto expected = next(expected_colours_, "a colour dialog");
    return expected ? *expected : std::nullopt;
}

print_outcome scripted_user::print(QWidget*, const QString& document_name, const page_painter& paint)
{
    const auto pdf = next(expected_prints_, "printing " + to_text(document_name));
    if (!pdf) return print_outcome::cancelled;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(document_name);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path_text(*pdf));
    return print_pages(printer, paint);
}

print_outcome scripted_user::print_preview(QWidget* parent, const QString& document_name, const page_painter& paint)
{
    return print(parent, document_name, paint);
}

} // namespace kelvarin::test
