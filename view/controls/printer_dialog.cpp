#include "view/controls/printer_dialog.h"

#include "resources/print_texts.h"

#include <QApplication>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>

#include <utility>

namespace quillon::controls {

namespace {

PrinterChoice inPlaceOfUser;

} // namespace

bool choosePrinter(QPrinter &printer) {
    if (inPlaceOfUser)
        return inPlaceOfUser(printer);
    QPrintDialog dialog(&printer, QApplication::activeWindow());
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    return dialog.exec() == QDialog::Accepted;
}

bool choosePaper(QPageLayout &paper, QWidget *parent) {
    QPrinter printer;
    // One with papers of its own would offer no others.
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setPageLayout(paper);
    QPageSetupDialog dialog(&printer, parent);
    dialog.setWindowTitle(resources::print_texts::PageSetupTitle.toString());
    if (dialog.exec() != QDialog::Accepted)
        return false;
    paper = printer.pageLayout();
    return true;
}

PrinterChoice setPrinterChoice(PrinterChoice replacement) {
    return std::exchange(inPlaceOfUser, std::move(replacement));
}

} // namespace quillon::controls
