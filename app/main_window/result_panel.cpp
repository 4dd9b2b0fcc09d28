#include "app/main_window/result_panel.h"

#include "platform/ui/error_boundary.h"
#include "resources/hit_texts.h"

#include <QApplication>
#include <QLocale>
#include <QMainWindow>
#include <QPushButton>
#include <QTimer>

namespace quillon::app {

namespace texts = resources::hit_texts;
using search::HitList;
using ui::guarded;

ResultPanel::ResultPanel(Editor &editor, const QList<QIcon> &images, ui::LongWork &longWork,
                         QMainWindow *window)
    : QDockWidget(window), editor_(editor),
      hits_(new HitTable(editor.hits, images, longWork, this)),
      lists_(new controls::ListPanel(this)),
      table_(&lists_->addList(*hits_, texts::HitsName.toString(), texts::NoHitsYet.toString())),
      button_(new QPushButton) {
    setObjectName(QStringLiteral("resultPanel"));
    setWindowTitle(texts::PanelName.toString());
    setAccessibleName(windowTitle());
    setAllowedAreas(Qt::BottomDockWidgetArea);
    setFeatures(NoDockWidgetFeatures);
    // The tabs say what is in it.
    setTitleBarWidget(new QWidget);
    setWidget(lists_);
    table_->setObjectName(QStringLiteral("hitTable"));
    button_->setObjectName(QStringLiteral("hitsButton"));
    button_->setToolTip(texts::HitsButtonTip.toString());
    connect(button_, &QPushButton::clicked, this, &ResultPanel::open);
    connectTable();
    showTitle();
    hide();
}

void ResultPanel::connectTable() {
    const HitList &hits = editor_.hits;
    connect(&hits, &HitList::shown, this, [this] {
        table_->showOrder(-1, Qt::AscendingOrder);
        table_->scrollToTop();
        showTitle();
    });
    connect(&hits, &HitList::rowsChanged, this, [this] {
        table_->showOrder(hits_->sortedColumn(), editor_.hits.direction());
        showTitle();
        showCurrentRow();
    });
    connect(&hits, &HitList::currentRowChanged, this, &ResultPanel::showCurrentRow);
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex &current) {
                if (current.isValid() && current.row() != editor_.hits.currentRow())
                    editor_.hits.setCurrentRow(current.row());
            });
    connect(table_, &controls::RowTable::clickedRow, this, &ResultPanel::goTo);
    connect(table_, &controls::RowTable::enteredRow, this,
            [this](int row) { Q_EMIT entered(goTo(row)); });
    connect(lists_, &controls::ListPanel::closeRequested, this, &ResultPanel::shut);
    connect(lists_, &controls::ListPanel::copyRequested, this,
            [this] { guarded([this] { editor_.hitExport.copy(chosenRows()); }); });
    connect(lists_, &controls::ListPanel::saveRequested, this,
            [this] { guarded([this] { editor_.hitExport.save(chosenRows()); }); });
}

void ResultPanel::open() {
    if (!isVisible())
        focusBefore_ = QApplication::focusWidget();
    show();
    takeFocus();
    showCurrentRow();
}

void ResultPanel::shut() {
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    hide();
    if (!hadFocus)
        return;
    if (QWidget *const before = focusBefore_; before && before->isVisible())
        before->setFocus();
    else
        Q_EMIT focusGivenUp();
}

void ResultPanel::showTitle() {
    const HitList &hits = editor_.hits;
    const bool hasTitle = !hits.title().isEmpty() || !hits.isEmpty();
    const QString count = QLocale(QLocale::Japanese).toString(hits.rowCount());
    const QString title =
        hasTitle ? texts::HitsTitle.toString().arg(count) : texts::HitsName.toString();
    lists_->setTitle(*table_, title,
                     hasTitle ? texts::HitsToolTip.toString().arg(count).arg(hits.title())
                              : QString());
    button_->setText(texts::HitsButton.toString().arg(count));
    button_->setVisible(!hits.isEmpty() && isHidden());
}

void ResultPanel::showCurrentRow() {
    if (table_->currentIndex().row() != editor_.hits.currentRow())
        table_->setCurrentRow(editor_.hits.currentRow());
}

bool ResultPanel::goTo(int row) {
    bool inPane = false;
    guarded([&] { inPane = editor_.hitNavigation.goTo(row); });
    return inPane;
}

std::vector<int> ResultPanel::chosenRows() const {
    std::vector<int> rows = table_->selectedRows();
    return rows.size() > 1 ? rows : std::vector<int>();
}

void ResultPanel::showEvent(QShowEvent *event) {
    QDockWidget::showEvent(event);
    // Only then the window has room to divide.
    QTimer::singleShot(0, this, [this, usual = usualHeight_] {
        qobject_cast<QMainWindow *>(parentWidget())->resizeDocks({this}, {usual}, Qt::Vertical);
    });
    showTitle();
}

void ResultPanel::hideEvent(QHideEvent *event) {
    QDockWidget::hideEvent(event);
    usualHeight_ = height();
    showTitle();
}

} // namespace quillon::app
