// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTextDocument>

#include <filesystem>
#include <string>
#include <string_view>

/// Conversion of texts between the core (UTF-8) and the toolkit.
namespace kelvarin
{

inline QString to_qstring(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string to_text(const QString& text)
{
    return text.toStdString();
}

/// A text as a tool tip that shows it literally, although tool tips interpret markup.
inline QString tip_text(const QString& text)
{
    return Qt::mightBeRichText(text) ? QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()) : text;
}

inline QString path_text(const std::filesystem::path& path)
{
    return to_qstring(std::string_view(path.native()));
}

inline std::filesystem::path to_path(const QString& text)
{
    return std::filesystem::path(text.toStdString());
}

} // namespace kelvarin
