#include "app/main_window/manual_window.h"

#include "resources/help_texts.h"
#include "view/controls/themed_icon.h"

#include <QBoxLayout>
#include <QDialog>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolButton>
#include <QTreeWidget>

namespace quillon::app {

namespace texts = resources::help_texts;

namespace {

constexpr QSize UsualSize(960, 700);
constexpr int ContentsWidth = 240;
constexpr int Margin = 8;
constexpr QSize IconSize(16, 16);
constexpr int PageMargin = 24;
/// No picture is drawn smaller.
constexpr int LeastPictureWidth = 160;
constexpr int RenewMs = 150;
constexpr int PlaceRole = Qt::UserRole;

const QString PageScheme = QStringLiteral("manual:/");

} // namespace

ManualBrowser::ManualBrowser(const help::Manual &manual) : manual_(manual) {
    setObjectName(QStringLiteral("manualPage"));
    setAccessibleName(texts::PageName.toString());
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(PageMargin);
    // A bar that comes and goes would change the room for pictures.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    // Nothing in it leads out of the manual.
    setOpenExternalLinks(false);
    renewing_.setSingleShot(true);
    renewing_.setInterval(RenewMs);
    renewing_.callOnTimeout(this, &ManualBrowser::renew);
}

void ManualBrowser::showPlace(const QString &place) {
    setExtraSelections({});
    setSource(QUrl(PageScheme + place));
}

QString ManualBrowser::page() const {
    return source().path().mid(1);
}

QVariant ManualBrowser::loadResource(int type, const QUrl &name) {
    const QString path = name.path().mid(1);
    if (type == QTextDocument::ImageResource) {
        const QImage picture(help::Manual::picturesFolder() + u'/' + path.section(u'/', -1));
        const int width = pictureWidth();
        return picture.width() <= width ? picture
                                        : picture.scaledToWidth(width, Qt::SmoothTransformation);
    }
    const help::ManualPage *const page = manual_.page(path);
    if (type != QTextDocument::HtmlResource || !page)
        return {};
    shownPictureWidth_ = pictureWidth();
    document()->setDefaultStyleSheet(styleSheetOfPages());
    return page->html;
}

QString ManualBrowser::styleSheetOfPages() const {
    const auto colour = [this](QPalette::ColorRole role) {
        return palette().color(QPalette::Active, role).name();
    };
    return QStringLiteral("h1 { margin-bottom: 12px; }"
                          "h2 { margin-top: 24px; margin-bottom: 6px; }"
                          "p, ul, ol, table, pre { margin-top: 6px; margin-bottom: 10px; }"
                          "li { margin-bottom: 4px; }"
                          "a { color: %1; }"
                          "kbd { background-color: %2; font-family: sans-serif; }"
                          "code, pre { background-color: %2; font-family: monospace; }"
                          "th { background-color: %2; text-align: left; }"
                          "th, td { padding: 4px 10px 4px 6px; }"
                          ".note { background-color: %2; }")
        .arg(colour(QPalette::Link), colour(QPalette::AlternateBase));
}

int ManualBrowser::pictureWidth() const {
    return std::max(LeastPictureWidth, viewport()->width() - 2 * PageMargin);
}

void ManualBrowser::renew() {
    const int place = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(place);
}

void ManualBrowser::changeEvent(QEvent *event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !page().isEmpty())
        renewing_.start();
}

void ManualBrowser::resizeEvent(QResizeEvent *event) {
    QTextBrowser::resizeEvent(event);
    if (!page().isEmpty() && pictureWidth() != shownPictureWidth_)
        renewing_.start();
}

void ManualBrowser::mark(const QString &text) {
    QList<QTextEdit::ExtraSelection> marks;
    const QTextCursor start = cursorForPosition(QPoint(0, 0));
    QTextCursor first;
    for (QTextCursor at = document()->find(text); !at.isNull(); at = document()->find(text, at)) {
        QTextEdit::ExtraSelection mark;
        mark.cursor = at;
        mark.format.setBackground(palette().brush(QPalette::Highlight));
        mark.format.setForeground(palette().brush(QPalette::HighlightedText));
        marks.append(mark);
        if (first.isNull() && at.selectionStart() >= start.position())
            first = at;
    }
    setExtraSelections(marks);
    if (first.isNull())
        return;
    first.clearSelection();
    setTextCursor(first);
    ensureCursorVisible();
}

ManualWindow::ManualWindow(const help::Manual &manual)
    : manual_(manual), back_(addButton("manualBack", u"panel/left", texts::Back, texts::BackTip)),
      forward_(addButton("manualForward", u"panel/right", texts::Forward, texts::ForwardTip)),
      zoomOut_(addButton("manualZoomOut", u"panel/minus", texts::ZoomOut, texts::ZoomOutTip)),
      zoomIn_(addButton("manualZoomIn", u"panel/plus", texts::ZoomIn, texts::ZoomInTip)),
      field_(new QLineEdit), contents_(new QTreeWidget), findings_(new QListWidget),
      count_(new QLabel), left_(new QStackedWidget), browser_(new ManualBrowser(manual)) {
    setObjectName(QStringLiteral("manual"));
    setWindowTitle(texts::ManualTitle.toString());
    setAttribute(Qt::WA_QuitOnClose, false);
    layOut();
    fillContents();
    connectParts();
    resize(UsualSize.boundedTo(screen()->availableSize() - QSize(40, 60)));
}

QToolButton *ManualWindow::addButton(const char *name, QStringView icon, QStringView text,
                                     QStringView toolTip) {
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setIcon(controls::themedIcon(icon));
    button->setIconSize(IconSize);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(text.toString());
    button->setToolTip(toolTip.toString());
    return button;
}

void ManualWindow::layOut() {
    field_->setObjectName(QStringLiteral("manualField"));
    field_->setAccessibleName(texts::FindInManual.toString());
    field_->setPlaceholderText(texts::FindInManual.toString());
    field_->setClearButtonEnabled(true);
    contents_->setObjectName(QStringLiteral("manualContents"));
    contents_->setAccessibleName(texts::ContentsName.toString());
    contents_->setHeaderHidden(true);
    contents_->setFrameShape(QFrame::NoFrame);
    findings_->setObjectName(QStringLiteral("manualFindings"));
    findings_->setAccessibleName(texts::FindingsName.toString());
    findings_->setFrameShape(QFrame::NoFrame);
    findings_->setWordWrap(true);
    findings_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    count_->setObjectName(QStringLiteral("manualCount"));
    count_->hide();
    left_->addWidget(contents_);
    left_->addWidget(findings_);

    auto *column = new QWidget;
    auto *rows = new QVBoxLayout(column);
    rows->setContentsMargins(Margin, Margin, Margin, Margin);
    auto *bar = new QHBoxLayout;
    for (QToolButton *button : {back_, forward_})
        bar->addWidget(button);
    bar->addStretch();
    for (QToolButton *button : {zoomOut_, zoomIn_})
        bar->addWidget(button);
    rows->addLayout(bar);
    rows->addWidget(field_);
    rows->addWidget(count_);
    rows->addWidget(left_, 1);
    auto *parts = new QSplitter(Qt::Horizontal);
    parts->addWidget(column);
    parts->addWidget(browser_);
    parts->setStretchFactor(0, 0);
    parts->setStretchFactor(1, 1);
    parts->setSizes({ContentsWidth, UsualSize.width() - ContentsWidth});
    parts->setChildrenCollapsible(false);
    auto *all = new QHBoxLayout(this);
    all->setContentsMargins({});
    all->addWidget(parts);
}

void ManualWindow::fillContents() {
    for (const help::ManualPage &page : manual_.pages()) {
        auto *item = new QTreeWidgetItem(contents_, {page.title});
        item->setData(0, PlaceRole, page.name);
        for (const help::ManualSection &section : page.sections) {
            if (&section == &page.sections.front())
                continue;
            auto *below = new QTreeWidgetItem(item, {section.title});
            below->setData(0, PlaceRole, section.place);
        }
    }
}

void ManualWindow::connectParts() {
    connect(back_, &QToolButton::clicked, browser_, &QTextBrowser::backward);
    connect(forward_, &QToolButton::clicked, browser_, &QTextBrowser::forward);
    connect(browser_, &QTextBrowser::backwardAvailable, back_, &QWidget::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward_, &QWidget::setEnabled);
    connect(browser_, &QTextBrowser::sourceChanged, this, &ManualWindow::followPage);
    connect(zoomIn_, &QToolButton::clicked, browser_, [this] { browser_->zoomIn(); });
    connect(zoomOut_, &QToolButton::clicked, browser_, [this] { browser_->zoomOut(); });
    connect(contents_, &QTreeWidget::itemClicked, this, &ManualWindow::showContentsItem);
    connect(contents_, &QTreeWidget::itemActivated, this, &ManualWindow::showContentsItem);
    connect(field_, &QLineEdit::textChanged, this, &ManualWindow::find);
    connect(field_, &QLineEdit::returnPressed, this, [this] { showFinding(0); });
    connect(findings_, &QListWidget::itemClicked, this,
            [this] { showFinding(findings_->currentRow()); });
    connect(findings_, &QListWidget::itemActivated, this,
            [this] { showFinding(findings_->currentRow()); });
    back_->setEnabled(false);
    forward_->setEnabled(false);
}

void ManualWindow::open(const QString &place) {
    field_->clear();
    browser_->showPlace(place);
    browser_->setFocus();
    show();
    raise();
    activateWindow();
}

void ManualWindow::openAbove(QWidget *modal, const QString &place) {
    setParent(modal, Qt::Window);
    // The dialog may be on the stack, and takes its children with it.
    if (auto *dialog = qobject_cast<QDialog *>(modal))
        connect(
            dialog, &QDialog::finished, this,
            [this] {
                const bool wasShown = isVisible();
                setParent(nullptr, Qt::Window);
                setVisible(wasShown);
            },
            Qt::SingleShotConnection);
    open(place);
}

void ManualWindow::followPage() {
    const QString place = browser_->source().fragment().isEmpty()
                              ? browser_->page()
                              : browser_->page() + u'#' + browser_->source().fragment();
    for (int i = 0; i < contents_->topLevelItemCount(); ++i) {
        QTreeWidgetItem *const item = contents_->topLevelItem(i);
        const bool isShown = item->data(0, PlaceRole) == browser_->page();
        item->setExpanded(isShown);
        if (!isShown)
            continue;
        QTreeWidgetItem *current = item;
        for (int below = 0; below < item->childCount(); ++below) {
            if (item->child(below)->data(0, PlaceRole) == place)
                current = item->child(below);
        }
        contents_->setCurrentItem(current);
    }
}

void ManualWindow::showContentsItem(QTreeWidgetItem *item) {
    browser_->showPlace(item->data(0, PlaceRole).toString());
}

void ManualWindow::find(const QString &text) {
    const bool isEmpty = text.simplified().isEmpty();
    findings_->clear();
    left_->setCurrentWidget(isEmpty ? static_cast<QWidget *>(contents_) : findings_);
    count_->setVisible(!isEmpty);
    if (isEmpty)
        return;
    for (const help::ManualFinding &finding : manual_.find(text)) {
        auto *item = new QListWidgetItem(finding.title + u'\n' + finding.excerpt, findings_);
        item->setData(PlaceRole, finding.place);
    }
    const QString count = findings_->count() == 0
                              ? texts::NoFindings.toString()
                              : texts::FindingsCount.toString().arg(findings_->count());
    count_->setText(count);
    field_->setAccessibleDescription(count);
}

void ManualWindow::showFinding(int row) {
    const QListWidgetItem *const item = findings_->item(row);
    if (!item)
        return;
    browser_->showPlace(item->data(PlaceRole).toString());
    browser_->mark(field_->text().simplified());
}

void ManualWindow::keyPressEvent(QKeyEvent *event) {
    const bool withControl = event->modifiers().testFlag(Qt::ControlModifier);
    if (event->matches(QKeySequence::Find)) {
        field_->setFocus();
        field_->selectAll();
    } else if (event->key() == Qt::Key_Escape) {
        field_->text().isEmpty() ? static_cast<void>(close()) : field_->clear();
    } else if (withControl && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Semicolon)) {
        browser_->zoomIn();
    } else if (withControl && event->key() == Qt::Key_Minus) {
        browser_->zoomOut();
    } else if (event->matches(QKeySequence::Back) || event->matches(QKeySequence::Forward)) {
        event->matches(QKeySequence::Back) ? browser_->backward() : browser_->forward();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace quillon::app
