#include "view/controls/printer_dialog.h"

#include <QApplication>
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

PrinterChoice setPrinterChoice(PrinterChoice replacement) {
    return std::exchange(inPlaceOfUser, std::move(replacement));
}

} // namespace quillon::controls
