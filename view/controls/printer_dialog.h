#pragma once

#include <functional>

class QPageLayout;
class QPrinter;
class QWidget;

namespace quillon::controls {

/// Has the printer chosen and set up, all pages at once; false when the user cancelled. Modal.
bool choosePrinter(QPrinter &printer);

/// Has paper, orientation and margins chosen; false when the user cancelled. Modal.
bool choosePaper(QPageLayout &paper, QWidget *parent);

/// Something that chooses a printer in the user's place.
using PrinterChoice = std::function<bool(QPrinter &)>;
/// Has choosePrinter() ask this one and returns the one it has asked; an empty one stands for the
/// user.
PrinterChoice setPrinterChoice(PrinterChoice replacement);

} // namespace quillon::controls
