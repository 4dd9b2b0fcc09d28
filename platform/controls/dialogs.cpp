#include "platform/controls/dialogs.h"

#include "resources/texts.h"

#include <QApplication>
#include <QInputDialog>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <utility>

namespace quillon::controls {

namespace {

Dialogs *replaced = nullptr;

} // namespace

Dialogs &dialogs() {
    static DesktopDialogs desktop;
    return replaced ? *replaced : desktop;
}

Dialogs *setDialogs(Dialogs *replacement) {
    return std::exchange(replaced, replacement);
}

QString DesktopDialogs::inputText(const QString &prompt) {
    QInputDialog box(QApplication::activeWindow());
    box.setWindowTitle(resources::texts::ApplicationTitle.toString());
    box.setLabelText(prompt);
    box.setOkButtonText(resources::texts::ButtonOk.toString());
    box.setCancelButtonText(resources::texts::ButtonCancel.toString());
    return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}

bool installDialogTexts() {
    auto *translator = new QTranslator(qApp);
    return translator->load(QLocale(QLocale::Japanese), QStringLiteral("qtbase"),
                            QStringLiteral("_"),
                            QLibraryInfo::path(QLibraryInfo::TranslationsPath)) &&
           QCoreApplication::installTranslator(translator);
}

} // namespace quillon::controls
