#include "view/controls/desktop_dialogs.h"

#include "resources/texts.h"

#include <QApplication>
#include <QCheckBox>
#include <QFontDialog>
#include <QGroupBox>
#include <QInputDialog>
#include <QLibraryInfo>
#include <QListView>
#include <QLocale>
#include <QTranslator>

namespace quillon::controls {

QString DesktopDialogs::inputText(const QString &prompt) {
    QInputDialog box(QApplication::activeWindow());
    box.setWindowTitle(resources::texts::ApplicationTitle.toString());
    box.setLabelText(prompt);
    box.setOkButtonText(resources::texts::ButtonOk.toString());
    box.setCancelButtonText(resources::texts::ButtonCancel.toString());
    // Room for an address or a longer expression.
    box.resize(box.fontMetrics().averageCharWidth() * 70, box.sizeHint().height());
    return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}

std::optional<int> DesktopDialogs::chooseOne(const QString &prompt, const QStringList &choices) {
    QInputDialog box(QApplication::activeWindow());
    box.setWindowTitle(resources::texts::ApplicationTitle.toString());
    box.setOption(QInputDialog::UseListViewForComboBoxItems);
    box.setComboBoxItems(choices);
    box.setLabelText(prompt);
    box.setOkButtonText(resources::texts::ButtonOk.toString());
    box.setCancelButtonText(resources::texts::ButtonCancel.toString());
    if (box.exec() != QDialog::Accepted)
        return {};
    // The list gives the text alone, and two may read the same.
    const auto *const list = box.findChild<QListView *>();
    const int row = list ? list->currentIndex().row() : -1;
    return row < 0 ? std::nullopt : std::optional(row);
}

std::optional<ui::FontChoice> DesktopDialogs::chooseFont(const ui::FontChoice &present) {
    QFont font(present.family);
    font.setPointSizeF(present.points);
    QFontDialog dialog(font, QApplication::activeWindow());
    dialog.setOption(QFontDialog::DontUseNativeDialog);
    dialog.setWindowTitle(resources::texts::FontDialogTitle.toString());
    // Lines through and below the text are nothing that is chosen here. Their box has kept the one
    // beside it, with the sample, from getting too low.
    for (QGroupBox *box : dialog.findChildren<QGroupBox *>()) {
        if (box->findChild<QCheckBox *>())
            box->hide();
        else
            box->setMinimumHeight(dialog.fontMetrics().height() * 6);
    }
    if (dialog.exec() != QDialog::Accepted)
        return {};
    font = dialog.selectedFont();
    return ui::FontChoice{font.family(), font.pointSizeF()};
}

bool installDialogTexts() {
    // Dates and numbers in them, too.
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    auto *translator = new QTranslator(qApp);
    return translator->load(QLocale(QLocale::Japanese), QStringLiteral("qtbase"),
                            QStringLiteral("_"),
                            QLibraryInfo::path(QLibraryInfo::TranslationsPath)) &&
           QCoreApplication::installTranslator(translator);
}

} // namespace quillon::controls
