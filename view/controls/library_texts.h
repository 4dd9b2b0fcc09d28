#pragma once

#include <QTranslator>

namespace quillon::controls {

/// The Japanese of the ready-made dialogs, as far as the program has it itself.
class LibraryTexts : public QTranslator {
    Q_OBJECT

public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *sourceText, const char *disambiguation,
                      int n) const override;
};

} // namespace quillon::controls
