#include "view/controls/print_preview.h"

#include "platform/ui/error_boundary.h"
#include "resources/print_texts.h"
#include "view/controls/printer_dialog.h"
#include "view/controls/sheet_view.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace quillon::controls {

namespace texts = resources::print_texts;

namespace {

constexpr QSize UsualSize(760, 720);
/// Of the combo box: so much that the whole page, or its whole width, is to be seen; else percent.
constexpr int WholePage = 0;
constexpr int PageWidth = -1;
constexpr int Percents[] = {25, 50, 75, 100, 125, 150, 200, 300};
constexpr double LeastScale = 0.05;
/// A picture of more pixels is not made: it is shown less sharp.
constexpr double MostPixels = 16e6;
constexpr int ResizingMs = 80;

} // namespace

PrintPreview::PrintPreview(PreviewPages &pages, const QPageLayout &paper, const QString &title,
                           QWidget *parent)
    : QDialog(parent), pages_(pages), paper_(paper), view_(new SheetView), number_(new QSpinBox),
      total_(new QLabel), zoom_(new QComboBox) {
    setWindowTitle(title);
    view_->setAccessibleName(texts::SheetName.toString());
    view_->turn = [this](int step) { goTo(page() + step); };
    view_->turnToEnd = [this](bool last) { goTo(last ? count_ - 1 : 0); };
    view_->zoom = [this](int step) { zoom(step); };
    auto *controls = new QHBoxLayout;
    controls->addWidget(pageControls());
    controls->addStretch();
    controls->addWidget(zoomControls());
    auto *column = new QVBoxLayout(this);
    column->addLayout(controls);
    column->addWidget(view_, 1);
    column->addWidget(buttons());
    const auto onKey = [this](const QKeySequence &key, std::function<void()> press) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, std::move(press));
    };
    for (const char *key : {"Ctrl++", "Ctrl+=", "Ctrl+;"})
        onKey(QKeySequence(QLatin1String(key)), [this] { zoom(1); });
    onKey(QKeySequence(QStringLiteral("Ctrl+-")), [this] { zoom(-1); });
    onKey(QKeySequence(QStringLiteral("Ctrl+0")), [this] { zoom_->setCurrentIndex(0); });
    connect(&pages_, &PreviewPages::laidOut, this, &PrintPreview::takeCount);
    connect(&pages_, &PreviewPages::painted, this, &PrintPreview::showSheet);
    connect(&pages_, &PreviewPages::failed, this, &PrintPreview::tell);
    resizing_.setSingleShot(true);
    resizing_.setInterval(ResizingMs);
    connect(&resizing_, &QTimer::timeout, this, &PrintPreview::askForSheet);
    resize(UsualSize);
    takeCount(0);
    view_->setFocus();
}

QToolButton *PrintPreview::addStep(QLayout &row, QStringView sign, QStringView name,
                                   std::function<void()> press) {
    auto *button = new QToolButton;
    button->setText(sign.toString());
    button->setAccessibleName(name.toString());
    button->setToolTip(name.toString());
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, &QToolButton::clicked, this, std::move(press));
    row.addWidget(button);
    return button;
}

QWidget *PrintPreview::pageControls() {
    auto *group = new QWidget;
    auto *row = new QHBoxLayout(group);
    row->setContentsMargins({});
    previous_ = addStep(*row, u"◀", texts::PreviousPage, [this] { goTo(page() - 1); });
    auto *label = new QLabel(texts::PageLabel.toString());
    label->setBuddy(number_);
    number_->setAccessibleName(texts::PageName.toString());
    // While a number is typed its first figures are no page to go to.
    number_->setKeyboardTracking(false);
    connect(number_, &QSpinBox::valueChanged, this, &PrintPreview::askForSheet);
    row->addWidget(label);
    row->addWidget(number_);
    row->addWidget(total_);
    next_ = addStep(*row, u"▶", texts::NextPage, [this] { goTo(page() + 1); });
    return group;
}

QWidget *PrintPreview::zoomControls() {
    auto *group = new QWidget;
    auto *row = new QHBoxLayout(group);
    row->setContentsMargins({});
    auto *label = new QLabel(texts::ZoomLabel.toString());
    label->setBuddy(zoom_);
    row->addWidget(label);
    addStep(*row, u"−", texts::ZoomOut, [this] { zoom(-1); });
    zoom_->setAccessibleName(texts::ZoomName.toString());
    zoom_->addItem(texts::WholePage.toString(), WholePage);
    zoom_->addItem(texts::PageWidth.toString(), PageWidth);
    for (const int percent : Percents)
        zoom_->addItem(QStringLiteral("%1 %").arg(percent), percent);
    connect(zoom_, &QComboBox::currentIndexChanged, this, &PrintPreview::askForSheet);
    row->addWidget(zoom_);
    addStep(*row, u"＋", texts::ZoomIn, [this] { zoom(1); });
    return group;
}

QWidget *PrintPreview::buttons() {
    auto *group = new QWidget;
    auto *row = new QHBoxLayout(group);
    row->setContentsMargins({});
    const auto add = [&](QStringView caption, void (PrintPreview::*press)()) {
        auto *button = new QPushButton(caption.toString());
        // Enter confirms the number of a page.
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, press);
        row->addWidget(button);
        return button;
    };
    add(texts::PageSetup, &PrintPreview::changePaper);
    row->addStretch();
    print_ = add(texts::Print, &PrintPreview::accept);
    add(texts::Close, &PrintPreview::reject);
    return group;
}

int PrintPreview::page() const {
    return number_->value() - 1;
}

void PrintPreview::showEvent(QShowEvent *event) {
    QDialog::showEvent(event);
    // Once the window is there, for what takes its time is shown in a box over it.
    if (count_ == 0)
        QMetaObject::invokeMethod(this, &PrintPreview::layOut, Qt::QueuedConnection);
}

void PrintPreview::resizeEvent(QResizeEvent *event) {
    QDialog::resizeEvent(event);
    resizing_.start();
}

void PrintPreview::layOut() {
    takeCount(0);
    view_->showText(texts::PreparingPages.toString());
    ui::guarded([this] { pages_.layOut(paper_); });
}

void PrintPreview::takeCount(int count) {
    const int shown = page();
    count_ = count;
    number_->setRange(std::min(1, count), count);
    number_->setEnabled(count > 0);
    total_->setText(QStringLiteral(" / %1").arg(count));
    print_->setEnabled(count > 0);
    goTo(std::max(0, shown));
}

void PrintPreview::goTo(int page) {
    const int before = number_->value();
    number_->setValue(page + 1);
    if (number_->value() == before)
        askForSheet();
}

double PrintPreview::scale() const {
    const int chosen = zoom_->currentData().toInt();
    if (chosen > 0)
        return chosen / 100.0;
    const QSizeF sheet = paper_.fullRect(QPageLayout::Inch).size() * logicalDpiX();
    const QSizeF room = view_->room();
    const double fitting = room.width() / sheet.width();
    return std::max(LeastScale, chosen == PageWidth
                                    ? fitting
                                    : std::min(fitting, room.height() / sheet.height()));
}

void PrintPreview::askForSheet() {
    previous_->setEnabled(page() > 0);
    next_->setEnabled(page() + 1 < count_);
    const QString place = texts::SheetDescription.toString().arg(page() + 1).arg(count_);
    view_->setAccessibleDescription(place);
    if (count_ == 0)
        return;
    const QSizeF inches = paper_.fullRect(QPageLayout::Inch).size();
    const double dots = logicalDpiX() * scale();
    view_->showBlank((inches * dots).toSize());
    const double most = std::sqrt(MostPixels / (inches.width() * inches.height()));
    pages_.paint(page(), std::min(dots * devicePixelRatioF(), most));
}

void PrintPreview::showSheet(int page, const QImage &sheet) {
    if (page == this->page())
        view_->showPicture(sheet);
}

void PrintPreview::tell(const QString &text) {
    takeCount(0);
    view_->showText(text);
    view_->setAccessibleDescription(text);
}

void PrintPreview::zoom(int step) {
    // From what is to be seen now to the next of the fixed ones.
    const double percent = scale() * 100;
    for (std::size_t i = 0; i < std::size(Percents); ++i) {
        const std::size_t at = step > 0 ? i : std::size(Percents) - 1 - i;
        if (step > 0 ? Percents[at] > percent + 0.5 : Percents[at] < percent - 0.5)
            return zoom_->setCurrentIndex(zoom_->findData(Percents[at]));
    }
}

void PrintPreview::changePaper() {
    ui::guarded([this] {
        if (choosePaper(paper_, this))
            layOut();
    });
}

} // namespace quillon::controls
