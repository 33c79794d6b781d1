// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QStackedWidget>

class QLineEdit;

namespace kelvarin
{

class link_label;

/// The title of a problem, which a click turns into a field. Enter, or leaving the field, takes over what was typed;
/// Esc doesn't.
class editable_title : public QStackedWidget
{
    Q_OBJECT

public:
    explicit editable_title(QWidget* parent = nullptr);

    /// `placeholder` is shown, in the quiet colours given to the label, if there is no title.
    void show_title(const QString& title, const QString& placeholder);
    link_label* label() const { return label_; }
    /// False while the title can not be changed.
    void set_editable(bool editable) { editable_ = editable; }
    void begin_edit();
    /// Takes over what is being typed.
    void end_edit();

signals:
    void title_edited(const QString& title);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show_label();

    link_label* label_;
    QLineEdit* field_;
    QString title_;
    bool editable_ = true;
    QPointer<QWidget> focus_before_;
};

} // namespace kelvarin
