// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

class QApplication;
class QMimeData;
class QWidget;

namespace kelvarin
{

/// The longest text of a field for expressions: far more than anybody types, and little enough for the field to follow
/// each key.
inline constexpr qsizetype longest_field_text = 100'000;

/// The part of a pasted text that a field takes which has `present` letters. What is left out is said beside the field.
QString pasted_text(QWidget& field, const QMimeData& pasted, qsizetype present);

/// Says beside every field of one line of the program that it took only a part of a text, or nothing more.
class length_guard : public QObject
{
    Q_OBJECT

public:
    explicit length_guard(QApplication& application);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace kelvarin
