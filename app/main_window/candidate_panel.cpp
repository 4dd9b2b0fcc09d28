#include "app/main_window/candidate_panel.h"

#include "platform/ui/error_boundary.h"
#include "resources/candidate_texts.h"
#include "view/controls/themed_icon.h"

#include <QApplication>
#include <QBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeView>

namespace quillon::app {

namespace texts = resources::candidate_texts;
using candidates::Entry;
using candidates::EntryList;
using candidates::Position;
using ui::guarded;

namespace {

constexpr int Margin = 6;
constexpr int LeastHeight = 40;
constexpr QSize IconSize(16, 16);
/// After a change the lists wait until nothing more is typed.
constexpr int TypingPause = 150;
constexpr int ElementImage = 1;
constexpr int AttributeImage = 2;

struct WayTexts {
    resources::Text name;
    resources::Text toolTip;
};
constexpr std::array<WayTexts, CandidatePanel::Ways> TextsOfWays{{
    {texts::ChildTab, texts::ChildTabTip},
    {texts::AheadTab, texts::AheadTabTip},
    {texts::BehindTab, texts::BehindTabTip},
    {texts::AttributeTab, texts::AttributeTabTip},
}};

QLabel *wrappedLabel(const char *name) {
    auto *label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMargin(Margin);
    return label;
}

QString paragraph(const QString &text) {
    return QStringLiteral("<p style='margin:0 0 6px 0'>%1</p>")
        .arg(text.toHtmlEscaped().replace(u'\n', QLatin1String("<br>")));
}

} // namespace

CandidatePanel::CandidatePanel(Editor &editor, const QList<QIcon> &images, QMainWindow *window)
    : QDockWidget(window), editor_(editor), elementIcon_(images.value(ElementImage)),
      attributeIcon_(images.value(AttributeImage)), schema_(wrappedLabel("candidateSchema")),
      close_(new QToolButton), tabs_(new QTabBar), filter_(new QLineEdit),
      pages_(new QStackedWidget), list_(new QTreeView), empty_(wrappedLabel("candidatesEmpty")),
      remark_(wrappedLabel("candidateRemark")), details_(new QTextEdit) {
    setObjectName(QStringLiteral("candidatePanel"));
    setWindowTitle(texts::PanelName.toString());
    setAccessibleName(windowTitle());
    setAllowedAreas(Qt::RightDockWidgetArea);
    setFeatures(NoDockWidgetFeatures);
    setTitleBarWidget(new QWidget);
    layOut();
    connectParts();
    connectNews();
    hide();
}

void CandidatePanel::layOut() {
    close_->setIcon(controls::themedIcon(u"panel/close"));
    close_->setIconSize(IconSize);
    close_->setAutoRaise(true);
    close_->setAccessibleName(texts::ClosePanelName.toString());
    close_->setToolTip(texts::ClosePanelName.toString());
    auto *title = new QLabel(texts::PanelName.toString());
    title->setMargin(Margin);
    auto *head = new QHBoxLayout;
    head->setContentsMargins(0, 0, Margin, 0);
    head->addWidget(title, 1);
    head->addWidget(close_);

    tabs_->setObjectName(QStringLiteral("candidateTabs"));
    tabs_->setAccessibleName(texts::TabsName.toString());
    tabs_->setDrawBase(false);
    tabs_->setDocumentMode(true);
    tabs_->setUsesScrollButtons(false);
    for (const WayTexts &way : TextsOfWays)
        tabs_->setTabToolTip(tabs_->addTab(way.name.toString()), way.toolTip.toString());
    filter_->setObjectName(QStringLiteral("candidateFilter"));
    filter_->setAccessibleName(texts::FilterName.toString());
    filter_->setPlaceholderText(texts::FilterHint.toString());
    filter_->setClearButtonEnabled(true);

    list_->setObjectName(QStringLiteral("candidateList"));
    list_->setModel(&rows_);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setHeaderHidden(true);
    list_->setFrameShape(QFrame::NoFrame);
    list_->setAllColumnsShowFocus(true);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->header()->setStretchLastSection(true);
    list_->header()->setSectionResizeMode(CandidateRows::Name, QHeaderView::ResizeToContents);
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setForegroundRole(QPalette::PlaceholderText);
    empty_->setBackgroundRole(QPalette::Base);
    empty_->setAutoFillBackground(true);
    pages_->addWidget(list_);
    pages_->addWidget(empty_);
    details_->setObjectName(QStringLiteral("candidateDetails"));
    details_->setAccessibleName(texts::DetailsName.toString());
    details_->setReadOnly(true);
    details_->setTabChangesFocus(true);
    details_->setFrameShape(QFrame::NoFrame);
    schema_->setMargin(0);
    schema_->setContentsMargins(Margin, 0, Margin, Margin);
    for (QLabel *label : {schema_, remark_}) {
        label->setForegroundRole(QPalette::PlaceholderText);
        label->hide();
    }

    auto *top = new QWidget;
    auto *column = new QVBoxLayout(top);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(head);
    column->addWidget(schema_);
    column->addWidget(tabs_);
    auto *line = new QHBoxLayout;
    line->setContentsMargins(Margin, Margin, Margin, Margin);
    line->addWidget(filter_);
    column->addLayout(line);
    column->addWidget(pages_, 1);
    column->addWidget(remark_);
    auto *split = new QSplitter(Qt::Vertical);
    split->setAccessibleName(texts::PanelName.toString());
    split->addWidget(top);
    split->addWidget(details_);
    split->setStretchFactor(0, 3);
    split->setStretchFactor(1, 1);
    split->setChildrenCollapsible(false);
    // On a small screen the panel stands beside all the others.
    for (QWidget *part : std::initializer_list<QWidget *>{pages_, list_, empty_, details_})
        part->setMinimumHeight(LeastHeight);
    setWidget(split);
}

void CandidatePanel::connectParts() {
    connect(close_, &QToolButton::clicked, this, &CandidatePanel::shut);
    connect(tabs_, &QTabBar::currentChanged, this, [this] {
        list_->setCurrentIndex({});
        showList();
    });
    connect(filter_, &QLineEdit::textChanged, this, [this](const QString &text) {
        rows_.setFilter(text);
        showList();
    });
    connect(list_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &CandidatePanel::showCurrentEntry);
    connect(list_, &QAbstractItemView::doubleClicked, this, &CandidatePanel::enterCurrentRow);
    for (QWidget *widget : std::initializer_list<QWidget *>{filter_, list_, tabs_, details_})
        widget->installEventFilter(this);
}

void CandidatePanel::connectNews() {
    soon_.setSingleShot(true);
    connect(&soon_, &QTimer::timeout, this, [this] { guarded([this] { refresh(); }); });
    const auto showOther = [this] {
        list_->setCurrentIndex({});
        refreshSoon(0);
    };
    connect(&editor_.selection, &tree::Selection::nodeShown, this, showOther);
    connect(&editor_.history, &edit::UndoHistory::selectionRestored, this, showOther);
    connect(&editor_.schemas, &schemas::DocumentSchemas::changed, this,
            &CandidatePanel::showSchema);
    showSchema();
    connect(&editor_.candidateFinder, &candidates::CandidateFinder::changed, this,
            [this] { refreshSoon(TypingPause); });
}

CandidatePanel::Way CandidatePanel::way() const {
    return Way(tabs_->currentIndex());
}

void CandidatePanel::open() {
    if (!isAncestorOf(QApplication::focusWidget()))
        focusBefore_ = QApplication::focusWidget();
    show();
    takeFocus();
}

void CandidatePanel::open(Way way) {
    tabs_->setCurrentIndex(int(way));
    open();
}

void CandidatePanel::shut() {
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    hide();
    if (hadFocus)
        giveKeyboardBack();
}

void CandidatePanel::giveKeyboardBack() {
    if (QWidget *const before = focusBefore_; before && before->isVisible())
        before->setFocus();
    else
        Q_EMIT focusGivenUp();
}

void CandidatePanel::takeFocus() {
    filter_->setFocus();
    filter_->selectAll();
}

void CandidatePanel::setTextFont(const QFont &font) {
    list_->setFont(font);
    details_->setFont(font);
}

void CandidatePanel::showSchema() {
    const QString text = editor_.schemas.summary();
    schema_->setText(text);
    schema_->setToolTip(text);
    schema_->setVisible(!text.isEmpty());
}

EntryList CandidatePanel::entries(Way way) const {
    const candidates::CandidateInsertion &insertion = editor_.candidateInsertion;
    switch (way) {
    case Way::Child:
        return insertion.elements(Position::LastChild);
    case Way::Ahead:
        return insertion.elements(Position::Ahead);
    case Way::Behind:
        return insertion.elements(Position::Behind);
    case Way::Attribute:
        return insertion.attributes();
    }
    return {};
}

void CandidatePanel::insert(const Entry &entry, Way way) {
    candidates::CandidateInsertion &insertion = editor_.candidateInsertion;
    guarded([&] {
        editor_.tree.endLabelEdit();
        if (way == Way::Attribute)
            insertion.addAttribute(entry);
        else
            insertion.insertElement(entry, way == Way::Child   ? Position::LastChild
                                           : way == Way::Ahead ? Position::Ahead
                                                               : Position::Behind);
    });
}

void CandidatePanel::refreshSoon(int milliseconds) {
    isStale_ = true;
    if (isVisible())
        soon_.start(milliseconds);
}

void CandidatePanel::refresh() {
    soon_.stop();
    isStale_ = false;
    for (int i = 0; i < Ways; ++i) {
        EntryList &list = lists_[std::size_t(i)];
        list = entries(Way(i));
        const auto allowed = std::ranges::count_if(list.entries, &Entry::isAllowed);
        const bool isNeeded = std::ranges::any_of(list.entries, &Entry::isMandatory);
        const QStringView text = isNeeded ? texts::TabWithNeeded : texts::TabWithCount;
        tabs_->setTabText(
            i, text.toString().arg(TextsOfWays[std::size_t(i)].name.toString()).arg(allowed));
    }
    showList();
}

void CandidatePanel::showList() {
    const EntryList &list = lists_[std::size_t(way())];
    const bool isAttribute = way() == Way::Attribute;
    const QString before =
        list_->currentIndex().isValid() ? rows_.entry(list_->currentIndex().row()).name : QString();
    rows_.setEntries(list.entries, isAttribute ? attributeIcon_ : elementIcon_);
    list_->setAccessibleName(TextsOfWays[std::size_t(way())].toolTip.toString());
    const bool hasRows = rows_.rowCount() > 0;
    pages_->setCurrentWidget(hasRows ? static_cast<QWidget *>(list_) : empty_);
    empty_->setText(list.entries.empty() ? list.remark : texts::NothingFound.toString());
    remark_->setText(list.remark);
    remark_->setVisible(hasRows && !list.remark.isEmpty());
    int row = 0;
    for (int i = 0; filter_->text().isEmpty() && i < rows_.rowCount(); ++i) {
        if (rows_.entry(i).name == before)
            row = i;
    }
    selectRow(row);
    showCurrentEntry();
}

void CandidatePanel::selectRow(int row) {
    const QModelIndex index = rows_.index(row, 0);
    if (!index.isValid())
        return;
    list_->setCurrentIndex(index);
    list_->scrollTo(index);
}

void CandidatePanel::showCurrentEntry() {
    const QModelIndex current = list_->currentIndex();
    if (!current.isValid() || current.row() >= rows_.rowCount()) {
        details_->clear();
        return;
    }
    const Entry &entry = rows_.entry(current.row());
    QString text =
        QStringLiteral("<p style='margin:0 0 6px 0'><b>%1</b></p>").arg(entry.name.toHtmlEscaped());
    for (const QString &part : {entry.remark, entry.type, entry.documentation}) {
        if (!part.isEmpty())
            text += paragraph(part);
    }
    details_->setHtml(text);
}

void CandidatePanel::enterCurrentRow() {
    const QModelIndex current = list_->currentIndex();
    if (!current.isValid())
        return;
    Entry entry = rows_.entry(current.row());
    if (isStale_) {
        // What the list was made from has changed.
        refresh();
        const std::vector<Entry> &now = lists_[std::size_t(way())].entries;
        const auto same = std::ranges::find(now, entry.name, &Entry::name);
        if (same == now.end())
            return;
        entry = *same;
    }
    if (!entry.isAllowed) {
        Q_EMIT editor_.statusText(entry.remark);
        return;
    }
    filter_->clear();
    insert(entry, way());
}

bool CandidatePanel::takesKey(const QKeyEvent &event) {
    const int tab = tabs_->currentIndex();
    const bool isControl = event.modifiers() == Qt::ControlModifier;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        enterCurrentRow();
        return true;
    case Qt::Key_Escape:
        if (filter_->text().isEmpty())
            giveKeyboardBack();
        else
            filter_->clear();
        return true;
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
        if (!isControl)
            return false;
        tabs_->setCurrentIndex((tab + (event.key() == Qt::Key_PageDown ? 1 : Ways - 1)) % Ways);
        return true;
    default:
        return false;
    }
}

bool CandidatePanel::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::KeyPress)
        return QDockWidget::eventFilter(watched, event);
    const auto &key = static_cast<const QKeyEvent &>(*event);
    if (takesKey(key))
        return true;
    const bool moves = key.key() == Qt::Key_Up || key.key() == Qt::Key_Down ||
                       key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown;
    if (watched == filter_ && moves) {
        // The list moves while the line keeps the keyboard.
        QApplication::sendEvent(list_, event);
        return true;
    }
    return QDockWidget::eventFilter(watched, event);
}

void CandidatePanel::showEvent(QShowEvent *event) {
    QDockWidget::showEvent(event);
    // Only then the window has room to divide.
    QTimer::singleShot(0, this, [this, usual = usualWidth_] {
        qobject_cast<QMainWindow *>(parentWidget())->resizeDocks({this}, {usual}, Qt::Horizontal);
    });
    if (isStale_)
        refreshSoon(0);
}

void CandidatePanel::hideEvent(QHideEvent *event) {
    QDockWidget::hideEvent(event);
    usualWidth_ = width();
}

} // namespace quillon::app
