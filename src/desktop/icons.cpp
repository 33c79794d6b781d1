// SPDX-License-Identifier: MIT
#include "desktop/icons.h"

#include "desktop/look.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cassert>

// Q_INIT_RESOURCE must be used outside any namespace.
static void load_icon_files()
{
    Q_INIT_RESOURCE(icons);
}

namespace kelvarin
{

namespace
{

// The two colours in the icon files that the palette replaces.
constexpr const char* ink_tone = "currentColor";
constexpr const char* accent_tone = "#0f7c80";

constexpr double disabled_strength = 0.4;

QString file_of(const QString& name)
{
    return QStringLiteral(":/icons/%1.svg").arg(name);
}

QColor ink_of(const QPalette& palette, QIcon::Mode mode)
{
    return palette.color(mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText);
}

QColor accent_of(const QPalette& palette, QIcon::Mode mode)
{
    return mode == QIcon::Selected ? palette.color(QPalette::HighlightedText) : accent(palette);
}

/// Draws one icon file in the current colours of the palette.
class palette_icon final : public QIconEngine
{
public:
    explicit palette_icon(QString name) : name_(std::move(name)) {}

    QIconEngine* clone() const override { return new palette_icon(name_); }
    QString key() const override { return QStringLiteral("kelvarin"); }

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override
    {
        const double scale = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
        painter->drawPixmap(place, pixmap(place.size() * scale, mode, state));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        const QPalette palette = QGuiApplication::palette();
        const QString key = QStringLiteral("kelvarin/%1/%2x%3/%4/%5")
                                .arg(name_)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(static_cast<int>(mode))
                                .arg(palette.cacheKey());
        QPixmap drawn;
        if (QPixmapCache::find(key, &drawn)) return drawn;
        drawn = QPixmap(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        if (mode == QIcon::Disabled) painter.setOpacity(disabled_strength);
        QSvgRenderer renderer(drawing(palette, mode));
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        renderer.render(&painter, QRectF(QPointF(), QSizeF(size)));
        painter.end();
        QPixmapCache::insert(key, drawn);
        return drawn;
    }

private:
    QByteArray drawing(const QPalette& palette, QIcon::Mode mode) const
    {
        QFile file(file_of(name_));
        if (!file.open(QIODevice::ReadOnly)) return {};
        QByteArray text = file.readAll();
        text.replace(ink_tone, ink_of(palette, mode).name().toLatin1());
        text.replace(accent_tone, accent_of(palette, mode).name().toLatin1());
        return text;
    }

    QString name_;
};

} // namespace

QIcon program_icon(std::string_view name)
{
    load_icon_files();
    const QString wanted = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
    assert(QFile::exists(file_of(wanted)));
    return QIcon(new palette_icon(wanted));
}

} // namespace kelvarin
