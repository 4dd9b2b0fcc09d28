#include "app/main_window/first_page.h"

#include "platform/runtime/file_names.h"
#include "platform/runtime/paths.h"
#include "platform/ui/error_boundary.h"
#include "resources/help_texts.h"
#include "resources/texts.h"
#include "view/controls/themed_icon.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QPainter>

#include <algorithm>

namespace quillon::app {

namespace texts = resources::help_texts;
using controls::themedIcon;
using ui::guarded;

namespace {

constexpr int PageMargin = 24;
constexpr int ColumnGap = 36;
constexpr int GroupGap = 12;
constexpr int LinePadding = 4;
/// In a narrower page the columns stand below one another.
constexpr int TwoColumnsWidth = 500;
constexpr int LinkPadding = 4;
constexpr QSize LinkIconSize(20, 20);
constexpr int TitleIconSize = 40;
constexpr double TitleScale = 1.6;
constexpr double HeadingScale = 1.1;
constexpr int DropHeight = 44;

/// The commands offered, and their pictures.
constexpr std::pair<QStringView, QStringView> Offered[] = {
    {u"mnuFileNew", u"toolbar/new"},
    {u"mnuFileOpen", u"toolbar/open"},
    {u"mnuHelpManual", u"panel/manual"},
    {u"mnuHelpFindCommand", u"toolbar/find"},
};

struct Sample {
    QStringView file;
    resources::Text title;
};
constexpr Sample Samples[] = {
    {u"orders.xml", texts::OrdersSample},
    {u"dictionary-sjis.xml", texts::DictionarySample},
    {u"letter-utf16.xml", texts::LetterSample},
    {u"entities.xml", texts::EntitiesSample},
};

/// Keys that are of use here.
constexpr QStringView HintedCommands[] = {u"mnuHelpManual", u"mnuHelpFindCommand",
                                          u"mnuViewNextPart"};

QLabel *label(const QString &text, double scale, bool isBold) {
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    // A narrow page does without the end of a line rather than being scrolled sideways.
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(isBold);
    label->setFont(font);
    return label;
}

/// A frame that says that files can be dropped: anywhere on the page, in truth.
class DropSign : public QLabel {
public:
    DropSign() : QLabel(texts::DropHere.toString()) {
        setAlignment(Qt::AlignCenter);
        setForegroundRole(QPalette::PlaceholderText);
        setMinimumHeight(DropHeight);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }

protected:
    void paintEvent(QPaintEvent *event) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Mid), 1, Qt::DashLine));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
        QLabel::paintEvent(event);
    }
};

/// As on the tree below its items: there are none.
items::DragPoint pointOf(const QDropEvent &event) {
    return {{}, event.modifiers(), event.proposedAction(), event.possibleActions()};
}

} // namespace

PageLink::PageLink(const QIcon &icon, const QString &title, const QString &remark, Remark place)
    : title_(title), remark_(remark), place_(place) {
    setIcon(icon);
    setIconSize(LinkIconSize);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    setAutoDefault(false);
    setAccessibleName(remark.isEmpty() ? title : texts::WithRemark.toString().arg(title, remark));
}

int PageLink::lineHeight() const {
    return fontMetrics().height();
}

QSize PageLink::sizeHint() const {
    const int lines = place_ == Remark::Below && !remark_.isEmpty() ? 2 : 1;
    return {LinkIconSize.width() + 20 * lineHeight(),
            std::max(lines * lineHeight(), LinkIconSize.height()) + 2 * LinkPadding};
}

QSize PageLink::minimumSizeHint() const {
    return {LinkIconSize.width() + 4 * lineHeight(), sizeHint().height()};
}

void PageLink::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isActive = isEnabled() && (underMouse() || isDown());
    if (isActive) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().brush(QPalette::AlternateBase));
        painter.drawRoundedRect(rect(), 4, 4);
    }
    const QRect inside = rect().adjusted(LinkPadding, LinkPadding, -LinkPadding, -LinkPadding);
    const QRect place(inside.left(), inside.center().y() - LinkIconSize.height() / 2,
                      LinkIconSize.width(), LinkIconSize.height());
    icon().paint(&painter, place, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    const QRect text = inside.adjusted(LinkIconSize.width() + 2 * LinkPadding, 0, 0, 0);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor titleColour =
        palette().color(group, isEnabled() ? QPalette::Link : QPalette::Text);
    const QColor remarkColour =
        palette().color(group, isEnabled() ? QPalette::PlaceholderText : QPalette::Text);
    QRect titleRow = text;
    QRect remarkRow = text;
    if (place_ == Remark::Below && !remark_.isEmpty()) {
        titleRow.setHeight(text.height() / 2);
        remarkRow.setTop(titleRow.bottom() + 1);
    } else {
        titleRow.setRight(text.right() - fontMetrics().horizontalAdvance(remark_) - LinkPadding);
        remarkRow.setLeft(titleRow.right() + 1);
    }
    const auto draw = [&](const QRect &row, const QString &what, const QColor &colour, int align) {
        painter.setPen(colour);
        painter.drawText(row, align | Qt::AlignVCenter,
                         fontMetrics().elidedText(what, Qt::ElideMiddle, row.width()));
    };
    draw(titleRow, title_, titleColour, Qt::AlignLeft);
    draw(remarkRow, remark_, remarkColour,
         place_ == Remark::Below ? Qt::AlignLeft : Qt::AlignRight);
    if (!hasFocus())
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
}

FirstPage::FirstPage(const help::Commands &commands, const QString &samples,
                     const items::DragHandlers &dragHandlers)
    : dragHandlers_(dragHandlers), columns_(new QHBoxLayout),
      again_(new QCheckBox(texts::ShowFirstPage.toString())) {
    setObjectName(QStringLiteral("firstPage"));
    setAccessibleName(texts::FirstPageName.toString());
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setAcceptDrops(true);
    setFocusPolicy(Qt::NoFocus);
    again_->setObjectName(QStringLiteral("firstPageAgain"));
    // Nothing makes the page wider than the window leaves it.
    again_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    connect(again_, &QCheckBox::clicked, this, &FirstPage::shownAgainChanged);

    auto *content = new QWidget;
    content->setBackgroundRole(QPalette::Base);
    content->setAutoFillBackground(true);
    auto *picture = new QLabel;
    picture->setPixmap(
        QIcon(QStringLiteral(":/icons/quillon.svg")).pixmap(TitleIconSize, TitleIconSize));
    auto *title = new QVBoxLayout;
    title->setSpacing(LinePadding);
    title->addWidget(label(resources::texts::ApplicationTitle.toString(), TitleScale, false));
    title->addWidget(label(texts::FirstPageLead.toString(), 1, false));
    auto *head = new QHBoxLayout;
    head->setSpacing(GroupGap);
    head->addWidget(picture, 0, Qt::AlignTop);
    head->addLayout(title, 1);

    columns_->setSpacing(ColumnGap);
    auto *left = new QVBoxLayout;
    auto *right = new QVBoxLayout;
    left->setSpacing(0);
    right->setSpacing(0);
    addCommands(commands, *addGroup(texts::BeginHeading, *left));
    addSamples(samples, *addGroup(texts::SamplesHeading, *left));
    recentFiles_ = addGroup(texts::RecentHeading, *right);
    for (QVBoxLayout *column : {left, right}) {
        column->addStretch();
        columns_->addLayout(column, 1);
    }
    auto *page = new QVBoxLayout(content);
    page->setContentsMargins(PageMargin, PageMargin, PageMargin, PageMargin);
    page->setSpacing(GroupGap);
    page->addLayout(head);
    page->addLayout(columns_);
    page->addWidget(new DropSign);
    page->addStretch();
    page->addWidget(keyHints(commands));
    page->addWidget(again_);
    setWidget(content);
}

QVBoxLayout *FirstPage::addGroup(QStringView heading, QVBoxLayout &column) {
    column.addSpacing(GroupGap);
    column.addWidget(label(heading.toString(), HeadingScale, true));
    column.addSpacing(LinePadding);
    auto *group = new QVBoxLayout;
    group->setSpacing(0);
    column.addLayout(group);
    return group;
}

void FirstPage::addCommands(const help::Commands &commands, QVBoxLayout &group) {
    for (const auto &[name, picture] : Offered) {
        const auto command = std::ranges::find(commands, name, &help::Command::name);
        auto *link = new PageLink(themedIcon(picture), command->title, command->key,
                                  PageLink::Remark::AtTheRight);
        link->setObjectName(command->name);
        connect(link, &QPushButton::clicked, this,
                [this, chosen = command->name] { Q_EMIT commandChosen(chosen); });
        group.addWidget(link);
        if (!first_)
            first_ = link;
    }
}

void FirstPage::addSamples(const QString &folder, QVBoxLayout &group) {
    for (const Sample &sample : Samples) {
        const QString path = folder + u'/' + sample.file.toString();
        PageLink *const link = fileLink(path, sample.title.toString(), sample.file.toString());
        link->setEnabled(QFileInfo::exists(path));
        group.addWidget(link);
    }
}

PageLink *FirstPage::fileLink(const QString &path, const QString &title, const QString &remark) {
    auto *link =
        new PageLink(themedIcon(u"tree/DOMDocument"), title, remark, PageLink::Remark::Below);
    link->setObjectName(QStringLiteral("firstPageFile"));
    link->setToolTip(runtime::shownPath(path));
    connect(link, &QPushButton::clicked, this, [this, path] { Q_EMIT fileChosen(path); });
    return link;
}

QLabel *FirstPage::keyHints(const help::Commands &commands) {
    QStringList hints;
    for (const QStringView name : HintedCommands) {
        const auto command = std::ranges::find(commands, name, &help::Command::name);
        hints.append(texts::KeyHint.toString().arg(command->key, command->title));
    }
    QLabel *const all = label(hints.join(texts::BetweenHints.toString()), 1, false);
    all->setForegroundRole(QPalette::PlaceholderText);
    return all;
}

void FirstPage::setRecentFiles(const QStringList &files, const QStringList &gone) {
    while (QLayoutItem *const old = recentFiles_->takeAt(0)) {
        // It may be the one whose press has led here.
        old->widget()->hide();
        old->widget()->deleteLater();
        delete old;
    }
    const auto folderOf = [](const QString &path) {
        return runtime::shownPath(QFileInfo(path).absolutePath());
    };
    for (const QString &path : files)
        recentFiles_->addWidget(
            fileLink(path, runtime::shownPath(runtime::fileName(path)), folderOf(path)));
    for (const QString &path : gone) {
        PageLink *const link = fileLink(path, runtime::shownPath(runtime::fileName(path)),
                                        texts::FileIsGone.toString().arg(folderOf(path)));
        link->setEnabled(false);
        recentFiles_->addWidget(link);
    }
    if (files.isEmpty() && gone.isEmpty())
        recentFiles_->addWidget(label(texts::NoRecentFiles.toString(), 1, false));
}

void FirstPage::setShownAgain(bool again) {
    again_->setChecked(again);
}

void FirstPage::takeFocus() {
    first_->setFocus(Qt::TabFocusReason);
}

void FirstPage::resizeEvent(QResizeEvent *event) {
    QScrollArea::resizeEvent(event);
    columns_->setDirection(viewport()->width() < TwoColumnsWidth ? QBoxLayout::TopToBottom
                                                                 : QBoxLayout::LeftToRight);
}

void FirstPage::dragEnterEvent(QDragEnterEvent *event) {
    guarded([&] { dragHandlers_.enter(*event->mimeData()); });
    event->acceptProposedAction();
}

void FirstPage::dragMoveEvent(QDragMoveEvent *event) {
    Qt::DropAction action = Qt::IgnoreAction;
    guarded([&] { action = dragHandlers_.over(pointOf(*event)); });
    event->setDropAction(action);
    event->setAccepted(action != Qt::IgnoreAction);
}

void FirstPage::dragLeaveEvent(QDragLeaveEvent *) {
    guarded([&] { dragHandlers_.leave(); });
}

void FirstPage::dropEvent(QDropEvent *event) {
    Qt::DropAction done = Qt::IgnoreAction;
    guarded([&] { done = dragHandlers_.drop(pointOf(*event), *event->mimeData()); });
    event->setDropAction(done);
    event->setAccepted(done != Qt::IgnoreAction);
}

} // namespace quillon::app
