// SPDX-License-Identifier: MIT
#pragma once

#include "help/help_library.h"

#include <QTextBrowser>

#include <string>
#include <vector>

namespace kelvarin
{

/// Shows one page of the help, in the colours of the palette and at a zoom. It keeps the way back.
class help_view : public QTextBrowser
{
    Q_OBJECT

public:
    explicit help_view(const help_library& library, QWidget* parent = nullptr);

    /// Shows a page, from the heading behind "#" on. An unknown target does nothing.
    void show_target(const std::string& target);
    /// Such as "graphs"; empty before the first page.
    std::string page_name() const;
    /// Marks these words (in small letters) on every page from now on.
    void mark_words(std::vector<std::string> words);
    /// Larger or smaller by steps; 0 is the size of the desktop's font.
    void set_zoom(int steps);
    int zoom() const { return zoom_; }

    QVariant loadResource(int type, const QUrl& name) override;

signals:
    /// A link to a file of the examples, such as "cable-sag.kvr", was followed.
    void example_asked(const QString& file);
    void zoom_changed();

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void fill();
    void style_page();
    void style_tables();
    void show_marks();
    void follow(const QUrl& link);
    bool go_to_heading(const QString& anchor);

    const help_library& library_;
    std::vector<std::string> marked_;
    int zoom_ = 0;
    /// While the page is filled anew, its links stay what they were.
    bool filling_ = false;
};

} // namespace kelvarin
