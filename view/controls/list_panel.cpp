#include "view/controls/list_panel.h"

#include "resources/hit_texts.h"
#include "view/controls/themed_icon.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>

namespace quillon::controls {

namespace texts = resources::hit_texts;

namespace {

constexpr QSize IconSize(16, 16);
constexpr int Margin = 4;
/// Where a page of the list has its table, and where the text in its place.
constexpr int TablePage = 0;
constexpr int TextPage = 1;

} // namespace

ListPanel::ListPanel(QWidget *parent)
    : QWidget(parent), tabs_(new QTabBar), pages_(new QStackedWidget),
      copy_(addButton(u"toolbar/copy", texts::CopyRows, texts::CopyRowsName, texts::CopyRowsTip)),
      save_(addButton(u"toolbar/save", texts::SaveRows, texts::SaveRowsName, texts::SaveRowsTip)),
      close_(addButton(u"panel/close", {}, texts::ClosePanelName, texts::ClosePanelTip)) {
    setAccessibleName(texts::PanelName.toString());
    tabs_->setAccessibleName(texts::PanelTabsName.toString());
    tabs_->setDrawBase(false);
    tabs_->setDocumentMode(true);
    tabs_->setExpanding(false);
    auto *head = new QHBoxLayout;
    head->setContentsMargins(0, 0, Margin, 0);
    head->addWidget(tabs_);
    head->addStretch();
    for (QToolButton *button : {copy_, save_, close_})
        head->addWidget(button);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(head);
    column->addWidget(pages_);
    connect(tabs_, &QTabBar::currentChanged, this, [this](int list) {
        pages_->setCurrentIndex(list);
        showRowsOrText();
    });
    connect(copy_, &QToolButton::clicked, this, &ListPanel::copyRequested);
    connect(save_, &QToolButton::clicked, this, &ListPanel::saveRequested);
    connect(close_, &QToolButton::clicked, this, &ListPanel::closeRequested);
}

QToolButton *ListPanel::addButton(QStringView icon, QStringView text, QStringView name,
                                  QStringView toolTip) {
    auto *button = new QToolButton(this);
    button->setIcon(themedIcon(icon));
    button->setIconSize(IconSize);
    button->setText(text.toString());
    button->setToolButtonStyle(text.isEmpty() ? Qt::ToolButtonIconOnly
                                              : Qt::ToolButtonTextBesideIcon);
    button->setAutoRaise(true);
    button->setAccessibleName(name.toString());
    button->setToolTip(toolTip.toString());
    return button;
}

RowTable &ListPanel::addList(QAbstractItemModel &model, const QString &name,
                             const QString &emptyText) {
    auto *table = new RowTable(model);
    table->setAccessibleName(name);
    auto *text = new QLabel(emptyText);
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);
    text->setForegroundRole(QPalette::PlaceholderText);
    text->setBackgroundRole(QPalette::Base);
    text->setAutoFillBackground(true);
    text->setFocusPolicy(Qt::TabFocus);
    auto *page = new QStackedWidget;
    page->insertWidget(TablePage, table);
    page->insertWidget(TextPage, text);
    tables_.push_back(table);
    pages_->addWidget(page);
    tabs_->addTab(name);
    connect(&model, &QAbstractItemModel::modelReset, this, &ListPanel::showRowsOrText);
    connect(table, &RowTable::copyRequested, this, &ListPanel::copyRequested);
    showRowsOrText();
    return *table;
}

void ListPanel::setTitle(const RowTable &list, const QString &title, const QString &toolTip) {
    const auto at = int(std::ranges::find(tables_, &list) - tables_.begin());
    tabs_->setTabText(at, QString(title).replace(u'&', QStringLiteral("&&")));
    tabs_->setTabToolTip(at, toolTip);
}

void ListPanel::setEmptyText(const RowTable &list, const QString &text) {
    const auto at = int(std::ranges::find(tables_, &list) - tables_.begin());
    auto *page = qobject_cast<QStackedWidget *>(pages_->widget(at));
    qobject_cast<QLabel *>(page->widget(TextPage))->setText(text);
}

RowTable &ListPanel::shownList() const {
    return *tables_[std::size_t(pages_->currentIndex())];
}

void ListPanel::show(const RowTable &list) {
    tabs_->setCurrentIndex(int(std::ranges::find(tables_, &list) - tables_.begin()));
}

void ListPanel::showRowsOrText() {
    for (std::size_t list = 0; list < tables_.size(); ++list) {
        const bool hasRows = tables_[list]->model()->rowCount() > 0;
        auto *page = qobject_cast<QStackedWidget *>(pages_->widget(int(list)));
        const bool hadFocus = page->currentWidget()->hasFocus();
        page->setCurrentIndex(hasRows ? TablePage : TextPage);
        if (hadFocus)
            page->currentWidget()->setFocus();
        if (int(list) == pages_->currentIndex()) {
            copy_->setEnabled(hasRows);
            save_->setEnabled(hasRows);
        }
    }
}

void ListPanel::takeFocus() {
    auto *page = qobject_cast<QStackedWidget *>(pages_->currentWidget());
    page->currentWidget()->setFocus();
}

void ListPanel::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape)
        Q_EMIT closeRequested();
    else
        QWidget::keyPressEvent(event);
}

} // namespace quillon::controls
