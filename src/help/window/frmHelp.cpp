// SPDX-License-Identifier: MIT
#include "help/window/frmHelp.h"

#include "desktop/controls.h"
#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "desktop/search_keys.h"
#include "help/window/help_view.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QUrl>
#include <QVBoxLayout>

#include <functional>

namespace kelvarin
{

namespace
{

constexpr int target_role = Qt::UserRole;

std::string target_of(const QTreeWidgetItem* item)
{
    return item ? to_text(item->data(0, target_role).toString()) : std::string();
}

} // namespace

frmHelp::frmHelp(const help_library& library, QWidget* parent) : QWidget(parent, Qt::Window), library_(library)
{
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(tr("Kelvarin Help"));
    setWindowIcon(program_icon("app"));
    build_ui();
    build_contents();
    build_keys();
    show_target(help_contents_page);
}

void frmHelp::build_ui()
{
    const int unit = line_unit(*this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(unit / 2, unit / 2, unit / 2, unit / 2);
    layout->setSpacing(unit / 2);
    layout->addWidget(build_head());

    auto* parts = new QSplitter(this);
    parts->setChildrenCollapsible(false);
    parts->addWidget(build_side());
    txtPage_ = named(new help_view(library_, parts), "txtPage");
    txtPage_->setAccessibleName(tr("Page of the help"));
    parts->addWidget(txtPage_);
    parts->setStretchFactor(1, 1);
    parts->setSizes({14 * unit, 40 * unit});
    layout->addWidget(parts, 1);
    resize(56 * unit, 36 * unit);

    connect(txtPage_, &QTextBrowser::sourceChanged, this, &frmHelp::page_changed);
    connect(txtPage_, &QTextBrowser::backwardAvailable, cmdBack_, &QWidget::setEnabled);
    connect(txtPage_, &QTextBrowser::forwardAvailable, cmdForward_, &QWidget::setEnabled);
    connect(txtPage_, &help_view::example_asked, this, &frmHelp::example_asked);
    connect(cmdBack_, &QPushButton::clicked, txtPage_, &QTextBrowser::backward);
    connect(cmdForward_, &QPushButton::clicked, txtPage_, &QTextBrowser::forward);
    setTabOrder(txtFind_, tvwContents_);
}

QWidget* frmHelp::build_head()
{
    auto* head = new QWidget(this);
    auto* row = new QHBoxLayout(head);
    row->setContentsMargins(0, 0, 0, 0);
    cmdBack_ = add_head_button(QT_TR_NOOP("&Back"), "cmdBack", QT_TR_NOOP("The page before (Alt+Left)"));
    cmdForward_ = add_head_button(QT_TR_NOOP("&Forward"), "cmdForward", QT_TR_NOOP("Forward again (Alt+Right)"));
    cmdBack_->setEnabled(false);
    cmdForward_->setEnabled(false);
    txtFind_ = named(new QLineEdit(head), "txtFind");
    txtFind_->setPlaceholderText(tr("Search all pages (Ctrl+F)"));
    txtFind_->setAccessibleName(tr("Search all pages"));
    txtFind_->setClearButtonEnabled(true);
    row->addWidget(cmdBack_);
    row->addWidget(cmdForward_);
    row->addWidget(txtFind_, 1);
    connect(txtFind_, &QLineEdit::textChanged, this, &frmHelp::search);
    return head;
}

QPushButton* frmHelp::add_head_button(const char* caption, const char* name, const char* tip)
{
    return make_button(tr(caption), name, tr(tip));
}

QWidget* frmHelp::build_side()
{
    side_ = new QStackedWidget(this);
    tvwContents_ = named(new QTreeWidget(side_), "tvwContents");
    tvwContents_->setHeaderHidden(true);
    tvwContents_->setAccessibleName(tr("Contents"));
    lstFound_ = named(new QListWidget(side_), "lstFound");
    lstFound_->setAccessibleName(tr("Found places"));
    lstFound_->setWordWrap(true);
    side_->addWidget(tvwContents_);
    side_->addWidget(lstFound_);
    connect(tvwContents_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        if (const std::string target = target_of(item); !target.empty()) txtPage_->show_target(target);
    });
    connect(lstFound_, &QListWidget::currentRowChanged, this, &frmHelp::open_found);
    new search_keys(*txtFind_, *lstFound_, [this] {
        if (lstFound_->count() > 0) lstFound_->setCurrentRow(0);
        txtPage_->setFocus(Qt::OtherFocusReason);
    });
    return side_;
}

void frmHelp::build_contents()
{
    std::vector<QTreeWidgetItem*> open{tvwContents_->invisibleRootItem()};
    for (const help_entry& entry : library_.contents()) {
        open.resize(std::min(open.size(), static_cast<std::size_t>(entry.depth) + 1));
        auto* item = new QTreeWidgetItem(open.back(), {to_qstring(entry.caption)});
        item->setData(0, target_role, to_qstring(entry.target));
        open.push_back(item);
    }
    tvwContents_->expandAll();
}

void frmHelp::build_keys()
{
    add_key({QKeySequence(QStringLiteral("Alt+Left"))}, [this] { txtPage_->backward(); });
    add_key({QKeySequence(QStringLiteral("Alt+Right"))}, [this] { txtPage_->forward(); });
    add_key({QKeySequence(QStringLiteral("Alt+Home"))}, [this] { show_target(help_contents_page); });
    add_key({QKeySequence(QStringLiteral("Ctrl+F"))}, [this] {
        txtFind_->setFocus(Qt::ShortcutFocusReason);
        txtFind_->selectAll();
    });
    add_key({QKeySequence(QStringLiteral("Ctrl++")), QKeySequence(QStringLiteral("Ctrl+="))},
            [this] { txtPage_->set_zoom(txtPage_->zoom() + 1); });
    add_key({QKeySequence(QStringLiteral("Ctrl+-"))}, [this] { txtPage_->set_zoom(txtPage_->zoom() - 1); });
    add_key({QKeySequence(QStringLiteral("Ctrl+0"))}, [this] { txtPage_->set_zoom(0); });
    // Esc leaves the search first, then the window.
    add_key({QKeySequence(Qt::Key_Escape)}, [this] {
        if (txtFind_->text().isEmpty()) return void(close());
        txtFind_->clear();
        txtPage_->setFocus(Qt::OtherFocusReason);
    });
}

void frmHelp::add_key(const QList<QKeySequence>& keys, const std::function<void()>& act)
{
    auto* action = new QAction(this);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, act);
    addAction(action);
}

void frmHelp::show_target(const std::string& target)
{
    if (!txtFind_->text().isEmpty()) txtFind_->clear();
    txtPage_->show_target(target);
    txtPage_->setFocus(Qt::OtherFocusReason);
}

std::string frmHelp::page_name() const
{
    return txtPage_->page_name();
}

void frmHelp::search()
{
    const std::string text = to_text(txtFind_->text());
    const QSignalBlocker quiet(lstFound_);
    lstFound_->clear();
    found_.clear();
    for (const help_hit& hit : library_.search(text)) {
        const bool whole_page = hit.section->heading.text == hit.page->title;
        const std::string place = whole_page ? hit.page->title : hit.page->title + ": " + hit.section->heading.text;
        lstFound_->addItem(to_qstring(place + "\n" + hit.excerpt));
        found_.push_back(hit.target());
    }
    const std::vector<std::string> words = words_of_search(text);
    if (found_.empty() && !words.empty()) lstFound_->addItem(tr("Nothing found"));
    side_->setCurrentWidget(words.empty() ? static_cast<QWidget*>(tvwContents_) : lstFound_);
    txtPage_->mark_words(words);
}

void frmHelp::open_found(int row)
{
    if (row >= 0 && static_cast<std::size_t>(row) < found_.size())
        txtPage_->show_target(found_[static_cast<std::size_t>(row)]);
}

void frmHelp::page_changed(const QUrl& address)
{
    // The view itself still names the page before.
    const std::string name = to_text(QFileInfo(address.path()).completeBaseName());
    const help_page* page = library_.page_of(name);
    setWindowTitle(page ? tr("%1 - Kelvarin Help").arg(to_qstring(page->title)) : tr("Kelvarin Help"));
    const QSignalBlocker quiet(tvwContents_);
    for (QTreeWidgetItemIterator item(tvwContents_); *item; ++item)
        if (target_of(*item) == name) return tvwContents_->setCurrentItem(*item);
    tvwContents_->setCurrentItem(nullptr);
}

} // namespace kelvarin
