// SPDX-License-Identifier: MIT
#include "help/window/help_view.h"

#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "help/help_page.h"

#include <QFileInfo>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextList>
#include <QTextTable>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace kelvarin
{

namespace
{

constexpr int smallest_zoom = -5;
constexpr int largest_zoom = 12;
constexpr double zoom_factor = 1.1;
/// Lines longer than this many units are hard to read; pictures are no wider.
constexpr int readable_width = 46;

QUrl url_of(const std::string& target)
{
    const auto mark = std::min(target.find('#'), target.size());
    QUrl url(QStringLiteral("qrc:/help/%1.md").arg(to_qstring(target.substr(0, mark))));
    if (mark < target.size()) url.setFragment(to_qstring(target.substr(mark + 1)));
    return url;
}

} // namespace

help_view::help_view(const help_library& library, QWidget* parent) : QTextBrowser(parent), library_(library)
{
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(line_unit(*this));
    connect(this, &QTextBrowser::anchorClicked, this, &help_view::follow);
}

std::string help_view::page_name() const
{
    return to_text(QFileInfo(source().path()).completeBaseName());
}

void help_view::show_target(const std::string& target)
{
    if (library_.page_of(target)) setSource(url_of(target), QTextDocument::MarkdownResource);
}

void help_view::follow(const QUrl& link)
{
    if (link.path().contains(QLatin1String("examples/"))) return emit example_asked(link.fileName());
    const QUrl whole = source().resolved(link);
    show_target(to_text(QFileInfo(whole.path()).completeBaseName()) +
                (whole.hasFragment() ? "#" + to_text(whole.fragment()) : std::string()));
}

QVariant help_view::loadResource(int type, const QUrl& name)
{
    if (type == QTextDocument::MarkdownResource) {
        const help_page* page = library_.page_of(to_text(QFileInfo(name.path()).completeBaseName()));
        return page ? QByteArray::fromStdString(page->markdown) : QByteArray();
    }
    if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
    QImage picture(QLatin1Char(':') + url_of(help_contents_page).resolved(name).path());
    const int widest = readable_width * line_unit(*this);
    if (picture.width() > widest) picture = picture.scaledToWidth(widest, Qt::SmoothTransformation);
    return picture;
}

void help_view::doSetSource(const QUrl& name, QTextDocument::ResourceType type)
{
    filling_ = true;
    QTextBrowser::doSetSource(name, type);
    filling_ = false;
    style_page();
    if (name.hasFragment()) go_to_heading(name.fragment());
}

/// The page anew, at the same place: colours and sizes stand in its text.
void help_view::fill()
{
    if (source().isEmpty() || filling_) return;
    const int place = verticalScrollBar()->value();
    reload();
    style_page();
    verticalScrollBar()->setValue(place);
}

void help_view::style_page()
{
    const double points = font().pointSizeF() * std::pow(zoom_factor, zoom_);
    const int unit = line_unit(*this);
    const QFont fixed = fixed_font(*this);
    const QColor code_ground = mixed(palette().color(QPalette::Base), palette().color(QPalette::Text), 0.06);
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const int heading = block.blockFormat().headingLevel();
        const bool code = block.blockFormat().hasProperty(QTextFormat::BlockCodeFence);
        QTextBlockFormat spaced;
        if (code) {
            spaced.setBackground(code_ground);
        } else if (!block.textList()) {
            spaced.setTopMargin(heading > 1 ? unit : 0);
            spaced.setBottomMargin(unit / 2.0);
        }
        // Blocks in tables have the distances of their cells.
        if (!QTextCursor(block).currentTable()) QTextCursor(block).mergeBlockFormat(spaced);
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            QTextCharFormat format;
            const bool is_fixed = code || fragment.charFormat().fontFixedPitch();
            if (is_fixed) format.setFontFamilies({fixed.family()});
            const double enlarged = heading == 1 ? 1.6 : heading == 2 ? 1.25 : heading > 2 ? 1.1 : 1.0;
            format.setProperty(QTextFormat::FontSizeAdjustment, QVariant());
            format.setFontPointSize(points * enlarged);
            if (fragment.charFormat().isAnchor()) format.setForeground(accent(palette()));
            QTextCursor cursor(document());
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.mergeCharFormat(format);
        }
    }
    style_tables();
    show_marks();
}

void help_view::style_tables()
{
    const QColor line = mixed(palette().color(QPalette::Base), palette().color(QPalette::Text), 0.25);
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table) continue;
        QTextTableFormat format = table->format();
        format.setBorder(1);
        format.setBorderCollapse(true);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(line);
        format.setCellPadding(line_unit(*this) / 4.0);
        format.setCellSpacing(0);
        table->setFormat(format);
    }
}

void help_view::mark_words(std::vector<std::string> words)
{
    marked_ = std::move(words);
    show_marks();
}

void help_view::show_marks()
{
    QList<ExtraSelection> marks;
    QTextCharFormat format;
    format.setBackground(mixed(palette().color(QPalette::Base), accent(palette()), 0.3));
    for (const std::string& word : marked_)
        for (QTextCursor found = document()->find(to_qstring(word)); !found.isNull();
             found = document()->find(to_qstring(word), found))
            marks.append({found, format});
    setExtraSelections(marks);
}

bool help_view::go_to_heading(const QString& anchor)
{
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0) continue;
        if (to_qstring(anchor_of_heading(to_text(block.text()))) != anchor) continue;
        // First to the end, so that the heading comes to the top.
        moveCursor(QTextCursor::End);
        setTextCursor(QTextCursor(block));
        verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect().top() - line_unit(*this) / 2);
        return true;
    }
    return false;
}

void help_view::set_zoom(int steps)
{
    steps = std::clamp(steps, smallest_zoom, largest_zoom);
    if (steps == zoom_) return;
    zoom_ = steps;
    fill();
    emit zoom_changed();
}

void help_view::wheelEvent(QWheelEvent* event)
{
    if ((event->modifiers() & Qt::ControlModifier) == 0) return QTextBrowser::wheelEvent(event);
    if (const int turned = event->angleDelta().y(); turned != 0) set_zoom(zoom_ + (turned > 0 ? 1 : -1));
    event->accept();
}

void help_view::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) fill();
}

} // namespace kelvarin
