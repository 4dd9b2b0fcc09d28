#include "tools/tree_printing.h"

#include "platform/runtime/error.h"
#include "platform/runtime/file_names.h"
#include "platform/runtime/paths.h"
#include "resources/print_texts.h"
#include "view/controls/print_preview.h"
#include "view/controls/printer_dialog.h"

#include <QDateTime>
#include <QFile>
#include <QLocale>
#include <QPainter>
#include <QPrinter>

namespace quillon::tools {

namespace texts = resources::print_texts;

namespace {

/// Without its margins, in twips.
QSizeF printableSize(const QPageLayout &paper) {
    return paper.paintRect(QPageLayout::Inch).size() * TwipsPerInch;
}

/// The pages of a tree for the preview.
class TreePreview final : public controls::PreviewPages {
public:
    TreePreview(TreePages pages, ui::LongWork &longWork)
        : pages_(std::move(pages)), longWork_(longWork) {}

    void layOut(const QPageLayout &paper) override {
        paper_ = paper;
        bool isDone = false;
        longWork_.run(texts::LayingOut.toString(), ui::LongWork::Stop::Offered,
                      [&](const runtime::Progress &progress) {
                          isDone = pages_.layOut(printableSize(paper), progress);
                      });
        if (isDone)
            Q_EMIT laidOut(pages_.count());
        else
            Q_EMIT failed(texts::Stopped.toString());
    }

    void paint(int page, double dotsPerInch) override {
        const QSizeF sheet = paper_.fullRect(QPageLayout::Inch).size() * dotsPerInch;
        QImage image(sheet.toSize().expandedTo(QSize(1, 1)), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(paper_.paintRect(QPageLayout::Inch).topLeft() * dotsPerInch);
        painter.scale(dotsPerInch / TwipsPerInch, dotsPerInch / TwipsPerInch);
        pages_.paint(painter, page);
        painter.end();
        Q_EMIT painted(page, image);
    }

private:
    TreePages pages_;
    ui::LongWork &longWork_;
    QPageLayout paper_;
};

} // namespace

TreePages TreePrinting::makePages() const {
    PrintLook drawn = look();
    drawn.title = runtime::shownPath(runtime::fileName(state_.m_FileName));
    drawn.date = QLocale().toString(QDateTime::currentDateTime(), QLocale::ShortFormat);
    return TreePages(tree_.nodes(), drawn);
}

void TreePrinting::mnuFilePrintTree_Click() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(paper());
    printer.setDocName(runtime::shownPath(runtime::fileName(state_.m_FileName)));
    if (controls::choosePrinter(printer))
        print(printer);
}

void TreePrinting::mnuFilePrintTreePreview_Click(QWidget *window) {
    if (!tree_.nodes().Item(1))
        return;
    TreePreview pages(makePages(), longWork_);
    controls::PrintPreview preview(pages, paper(),
                                   texts::TreePreviewTitle.toString().arg(
                                       runtime::shownPath(runtime::fileName(state_.m_FileName))),
                                   window);
    const bool isWanted = preview.exec() == QDialog::Accepted;
    keepPaper(preview.paper());
    if (isWanted)
        mnuFilePrintTree_Click();
}

void TreePrinting::print(QPrinter &printer) {
    if (!tree_.nodes().Item(1))
        return;
    TreePages pages = makePages();
    longWork_.run(texts::Printing.toString(), ui::LongWork::Stop::Offered,
                  [&](const runtime::Progress &progress) {
                      if (!printPages(printer, pages, progress) &&
                          !printer.outputFileName().isEmpty())
                          QFile::remove(printer.outputFileName());
                  });
}

bool TreePrinting::printPages(QPrinter &printer, TreePages &pages,
                              const runtime::Progress &progress) const {
    const auto firstHalf = [&](double done) { return progress(done / 2); };
    if (!pages.layOut(printableSize(printer.pageLayout()),
                      progress ? runtime::Progress(firstHalf) : progress))
        return false;
    QPainter painter(&printer);
    if (!painter.isActive())
        throw runtime::Error(runtime::error_number::DeviceIo, texts::CannotPrint.toString());
    painter.scale(printer.resolution() / TwipsPerInch, printer.resolution() / TwipsPerInch);
    for (int page = 0; page < pages.count(); ++page) {
        if (page > 0)
            printer.newPage();
        pages.paint(painter, page);
        if (progress && !progress(0.5 + (page + 1.0) / pages.count() / 2)) {
            printer.abort();
            return false;
        }
    }
    return true;
}

} // namespace quillon::tools
