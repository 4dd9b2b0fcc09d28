#include "app/main_window/result_panel.h"

#include "platform/ui/error_boundary.h"
#include "resources/hit_texts.h"
#include "resources/language.h"
#include "resources/live_texts.h"
#include "view/controls/fault_mark.h"

#include <QApplication>
#include <QLocale>
#include <QMainWindow>
#include <QPushButton>
#include <QTimer>

namespace quillon::app {

namespace texts = resources::hit_texts;
namespace live_texts = resources::live_texts;
using search::HitList;
using ui::guarded;

namespace {

QString inJapanese(qsizetype number) {
    return resources::localeOf(resources::language()).toString(number);
}

} // namespace

ResultPanel::ResultPanel(Editor &editor, const QList<QIcon> &images, ui::LongWork &longWork,
                         QMainWindow *window)
    : QDockWidget(window), editor_(editor),
      lists_(new controls::ListPanel(this)), hits_{&editor.hits, &editor.hitNavigation,
                                                   &editor.hitExport,
                                                   new HitTable(editor.hits, images, longWork,
                                                                this),
                                                   nullptr},
      faults_{&editor.faults, &editor.faultNavigation, &editor.faultExport,
              new HitTable(editor.faults, images, longWork, this), nullptr},
      button_(new QPushButton), faultsButton_(new QPushButton) {
    setObjectName(QStringLiteral("resultPanel"));
    setWindowTitle(texts::PanelName.toString());
    setAccessibleName(windowTitle());
    setAllowedAreas(Qt::BottomDockWidgetArea);
    setFeatures(NoDockWidgetFeatures);
    // The tabs say what is in it.
    setTitleBarWidget(new QWidget);
    setWidget(lists_);
    hits_.table =
        &lists_->addList(*hits_.model, texts::HitsName.toString(), texts::NoHitsYet.toString());
    hits_.table->setObjectName(QStringLiteral("hitTable"));
    faults_.table = &lists_->addList(*faults_.model, live_texts::FaultsName.toString(),
                                     live_texts::NoSchema.toString());
    faults_.table->setObjectName(QStringLiteral("faultTable"));
    button_->setObjectName(QStringLiteral("hitsButton"));
    button_->setToolTip(texts::HitsButtonTip.toString());
    connect(button_, &QPushButton::clicked, this, &ResultPanel::showHitsShown);
    connectTab(hits_);
    connectTab(faults_);
    connectFaults();
    connect(&editor.hits, &HitList::shown, this, [this] { lists_->show(*hits_.table); });
    connect(lists_, &controls::ListPanel::closeRequested, this, &ResultPanel::shut);
    connect(lists_, &controls::ListPanel::copyRequested, this,
            [this] { guarded([this] { shownTab().out->copy(chosenRows(shownTab())); }); });
    connect(lists_, &controls::ListPanel::saveRequested, this,
            [this] { guarded([this] { shownTab().out->save(chosenRows(shownTab())); }); });
    showTitle();
    showFaultsTitle();
    hide();
}

void ResultPanel::connectTab(const Tab &tab) {
    connect(tab.hits, &HitList::shown, this, [this, &tab] {
        tab.table->showOrder(-1, Qt::AscendingOrder);
        tab.table->scrollToTop();
        showTitle();
    });
    connect(tab.hits, &HitList::rowsChanged, this, [this, &tab] {
        tab.table->showOrder(tab.model->sortedColumn(), tab.hits->direction());
        showTitle();
        showCurrentRow(tab);
    });
    connect(tab.hits, &HitList::currentRowChanged, this, [&tab] { showCurrentRow(tab); });
    connect(tab.table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [&tab](const QModelIndex &current) {
                if (current.isValid() && current.row() != tab.hits->currentRow())
                    tab.hits->setCurrentRow(current.row());
            });
    connect(tab.table, &controls::RowTable::clickedRow, this,
            [this, &tab](int row) { goTo(tab, row); });
    connect(tab.table, &controls::RowTable::enteredRow, this,
            [this, &tab](int row) { Q_EMIT entered(goTo(tab, row)); });
}

void ResultPanel::connectFaults() {
    faults_.model->image = [this, invalid = controls::faultIcon(items::Mark::Invalid),
                            broken = controls::faultIcon(items::Mark::Broken)](int row) {
        return isOfSyntax(row) ? broken : invalid;
    };
    faultsButton_->setObjectName(QStringLiteral("faultsButton"));
    faultsButton_->setFlat(true);
    faultsButton_->setFocusPolicy(Qt::TabFocus);
    faultsButton_->setToolTip(live_texts::FaultsButtonTip.toString());
    connect(faultsButton_, &QPushButton::clicked, this, &ResultPanel::openFaults);
    connect(&editor_.live, &validation::LiveValidation::faultsChanged, this,
            &ResultPanel::showFaultsTitle);
    connect(&editor_.live, &validation::LiveValidation::followed, this,
            &ResultPanel::showFaultsTitle);
    faults_.table->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(faults_.table, &QWidget::customContextMenuRequested, this, &ResultPanel::askForMends);
}

void ResultPanel::setTextFont(const QFont &font) {
    hits_.table->setTextFont(font);
    faults_.table->setTextFont(font);
}

const ResultPanel::Tab &ResultPanel::walkedTab() const {
    const Tab &shown = shownTab();
    const Tab &other = &shown == &hits_ ? faults_ : hits_;
    return shown.hits->isEmpty() && !other.hits->isEmpty() ? other : shown;
}

void ResultPanel::open() {
    if (!isVisible())
        focusBefore_ = QApplication::focusWidget();
    show();
    takeFocus();
    showCurrentRow(shownTab());
}

void ResultPanel::openFaults() {
    lists_->show(*faults_.table);
    open();
}

void ResultPanel::showHitsShown() {
    lists_->show(*hits_.table);
    open();
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
    const QString count = inJapanese(hits.rowCount());
    const QString title =
        hasTitle ? texts::HitsTitle.toString().arg(count) : texts::HitsName.toString();
    lists_->setTitle(*hits_.table, title,
                     hasTitle ? texts::HitsToolTip.toString().arg(count).arg(hits.title())
                              : QString());
    button_->setText(texts::HitsButton.toString().arg(count));
    button_->setVisible(!hits.isEmpty() && isHidden());
}

void ResultPanel::showFaultsTitle() {
    const validation::LiveValidation &live = editor_.live;
    const QString count = inJapanese(qsizetype(live.faults().size()));
    const bool isEmpty = live.faults().empty();
    lists_->setTitle(*faults_.table,
                     isEmpty ? live_texts::FaultsName.toString()
                             : live_texts::FaultsTitle.toString().arg(count),
                     isEmpty ? QString() : live_texts::FaultsToolTip.toString().arg(count));
    const QStringView nothing = !live.isOn()        ? live_texts::SwitchedOff
                                : live.hasSchemas() ? live_texts::NoFaults
                                                    : live_texts::NoSchema;
    lists_->setEmptyText(*faults_.table, nothing.toString());
    const QStringView text = isEmpty          ? live_texts::FaultsButtonNone
                             : live.hasMore() ? live_texts::FaultsButtonMore
                                              : live_texts::FaultsButton;
    const QString words = isEmpty ? text.toString() : text.toString().arg(count);
    faultsButton_->setText(words);
    faultsButton_->setAccessibleName(words);
    const bool isBroken = !isEmpty && live.faults().front().kind == validation::FaultKind::Syntax;
    faultsButton_->setIcon(
        isEmpty ? QIcon()
                : controls::faultIcon(isBroken ? items::Mark::Broken : items::Mark::Invalid));
    faultsButton_->setVisible(!isEmpty || live.isKnown());
}

void ResultPanel::showCurrentRow(const Tab &tab) {
    if (tab.table->currentIndex().row() != tab.hits->currentRow())
        tab.table->setCurrentRow(tab.hits->currentRow());
}

bool ResultPanel::isOfSyntax(int row) const {
    const std::vector<validation::Fault> &faults = editor_.live.faults();
    const std::size_t place = editor_.faults.place(row);
    return place < faults.size() && faults[place].kind == validation::FaultKind::Syntax;
}

bool ResultPanel::goTo(const Tab &tab, int row) {
    bool inPane = false;
    guarded([&] {
        inPane = &tab == &faults_ && isOfSyntax(row) ? editor_.paneSyntax.goTo()
                                                     : tab.navigation->goTo(row);
    });
    return inPane;
}

std::vector<int> ResultPanel::chosenRows(const Tab &tab) {
    std::vector<int> rows = tab.table->selectedRows();
    return rows.size() > 1 ? rows : std::vector<int>();
}

bool ResultPanel::hasFocusInFaults() const {
    return faults_.table->hasFocus();
}

void ResultPanel::askForMendsOfCurrentRow() {
    const QModelIndex current = faults_.table->currentIndex();
    if (current.isValid())
        Q_EMIT mendsRequested(current.row(), faults_.table->viewport()->mapToGlobal(
                                                 faults_.table->visualRect(current).bottomLeft()));
}

void ResultPanel::askForMends(const QPoint &position) {
    const QModelIndex index = faults_.table->indexAt(position);
    if (index.isValid())
        Q_EMIT mendsRequested(index.row(), faults_.table->viewport()->mapToGlobal(position));
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
