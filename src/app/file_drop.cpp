// SPDX-License-Identifier: MIT
#include "app/file_drop.h"

#include "desktop/qt_text.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace kelvarin
{

namespace
{

std::vector<std::filesystem::path> files_of(const QMimeData* content)
{
    std::vector<std::filesystem::path> files;
    if (!content) return files;
    const auto places = content->urls();
    for (const QUrl& place : places)
        if (place.isLocalFile()) files.push_back(to_path(place.toLocalFile()));
    return files;
}

} // namespace

file_drop::file_drop(QWidget& window) : QObject(&window), window_(window)
{
    window.setAcceptDrops(true);
    qApp->installEventFilter(this);
}

bool file_drop::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (!widget || widget->window() != &window_) return false;
    return takes(static_cast<QDropEvent&>(*event));
}

bool file_drop::takes(QDropEvent& event)
{
    const std::vector<std::filesystem::path> files = files_of(event.mimeData());
    if (files.empty()) return false;
    event.setDropAction(Qt::CopyAction);
    event.accept();
    if (event.type() == QEvent::Drop) {
        // Queued: the program that the files were dragged from waits until the drop returns.
        QMetaObject::invokeMethod(
            this, [this, files] { emit dropped(files); }, Qt::QueuedConnection);
    }
    return true;
}

} // namespace kelvarin
