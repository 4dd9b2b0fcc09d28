#pragma once

#include "view/controls/printer_dialog.h"

#include <QPrinter>

#include <gtest/gtest.h>
#include <optional>
#include <utility>

namespace quillon::test {

/// Chooses a printer in the user's place during its life: a file to print to. Choosing without an
/// answer fails the running test and cancels, and so does an answer that nothing asked for.
class ScriptedPrinter {
public:
    ScriptedPrinter()
        : before_(controls::setPrinterChoice([this](QPrinter &printer) {
              EXPECT_TRUE(answer_) << "unexpected choice of a printer";
              const QString file = std::exchange(answer_, {}).value_or(QString());
              printer.setOutputFormat(QPrinter::PdfFormat);
              printer.setOutputFileName(file);
              return !file.isEmpty();
          })) {}
    ~ScriptedPrinter() {
        controls::setPrinterChoice(before_);
        EXPECT_FALSE(answer_) << "an answer that nothing asked for";
    }
    ScriptedPrinter(const ScriptedPrinter &) = delete;
    ScriptedPrinter &operator=(const ScriptedPrinter &) = delete;

    /// The file of the next choice; empty cancels.
    void answer(const QString &file) { answer_ = file; }

private:
    std::optional<QString> answer_;
    controls::PrinterChoice before_;
};

} // namespace quillon::test
