// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/user_interface.h"

#include <deque>
#include <string>
#include <vector>

namespace kelvarin::test
{

/// A person who knows beforehand what will be asked. What nobody expected fails the test, and so does what
/// was expected and did not come.
class scripted_user final : public user_interface
{
public:
    ~scripted_user() override;

    /// The next box has this text (lines separated by CR).
    void expect_box(std::string text, std::string title = guide_title);
    /// The next question has this text, and gets this answer.
    void expect_question(std::string text, user_answer given);
    /// The next choice contains this text, and gets the answer with this caption (nothing: Cancel).
    void expect_choice(std::string text, std::optional<QString> given);
    /// The next input box contains this text in its prompt, and gets this answer (nothing: Cancel).
    void expect_input(std::string prompt, std::optional<std::string> given);
    /// The next file dialog gets this answer (nothing: Cancel).
    void expect_file(std::optional<chosen_file> given);
    void expect_font(std::optional<QFont> given);
    void expect_colour(std::optional<QColor> given);
    /// The next print command goes to this PDF file.
    void expect_print(std::filesystem::path pdf);
    /// Everything expected until now has come.
    bool is_done() const;

    /// What came, in order.
    const std::vector<message_box>& boxes() const { return boxes_; }
    const std::vector<user_question>& questions() const { return questions_; }
    const std::vector<file_question>& file_questions() const { return file_questions_; }
    /// What the last input box proposed.
    const QString& proposed_input() const { return proposed_input_; }
    int beeps() const { return beeps_; }
    QString copied_text() const { return clipboard_->text(); }

    void show(QWidget* parent, const message_box& box) override;
    user_answer ask(QWidget* parent, const user_question& asked) override;
    std::optional<std::size_t> choose(QWidget* parent, const user_choice& asked) override;
    std::optional<QString> input(QWidget* parent, const QString& title, const QString& prompt,
                                 const QString& proposed) override;
    std::optional<chosen_file> choose_file_to_open(QWidget* parent, const file_question& asked) override;
    std::optional<chosen_file> choose_file_to_save(QWidget* parent, const file_question& asked) override;
    std::optional<QFont> choose_font(QWidget* parent, const QFont& present) override;
    std::optional<QColor> choose_colour(QWidget* parent, const QColor& present) override;
    /// From now on there is no memory for what is copied.
    void let_clipboard_fail() { clipboard_fails_ = true; }
    void copy(std::unique_ptr<QMimeData> content) override
    {
        if (clipboard_fails_) throw std::bad_alloc();
        clipboard_ = std::move(content);
    }
    const QMimeData* clipboard() const override { return clipboard_.get(); }
    print_outcome print(QWidget* parent, const QString& document_name, const page_painter& paint) override;
    print_outcome print_preview(QWidget* parent, const QString& document_name, const page_painter& paint) override;
    void beep() override { ++beeps_; }

private:
    std::optional<chosen_file> choose_file(const file_question& asked);

    struct expected_question
    {
        std::string text;
        user_answer given;
    };
    struct expected_choice
    {
        std::string text;
        std::optional<QString> given;
    };
    struct expected_input
    {
        std::string prompt;
        std::optional<std::string> given;
    };

    std::deque<message_box> expected_boxes_;
    std::deque<expected_question> expected_questions_;
    std::deque<expected_choice> expected_choices_;
    std::deque<expected_input> expected_inputs_;
    std::deque<std::optional<chosen_file>> expected_files_;
    std::deque<std::optional<QFont>> expected_fonts_;
    std::deque<std::optional<QColor>> expected_colours_;
    std::deque<std::filesystem::path> expected_prints_;

    std::vector<message_box> boxes_;
    std::vector<user_question> questions_;
    std::vector<file_question> file_questions_;
    QString proposed_input_;
    bool clipboard_fails_ = false;
    std::unique_ptr<QMimeData> clipboard_ = std::make_unique<QMimeData>();
    int beeps_ = 0;
};

} // namespace kelvarin::test
