#include "view/controls/desktop_dialogs.h"

#include "resources/language.h"
#include "resources/texts.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QLibraryInfo>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
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
    QDialog box(QApplication::activeWindow());
    box.setWindowTitle(resources::texts::ApplicationTitle.toString());
    auto *label = new QLabel(prompt);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    auto *list = new QListWidget;
    list->addItems(choices);
    list->setCurrentRow(0);
    list->setAccessibleName(prompt);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(resources::texts::ButtonOk.toString());
    buttons->button(QDialogButtonBox::Cancel)->setText(resources::texts::ButtonCancel.toString());
    auto *column = new QVBoxLayout(&box);
    for (QWidget *widget : std::initializer_list<QWidget *>{label, list, buttons})
        column->addWidget(widget);
    QObject::connect(list, &QListWidget::itemDoubleClicked, &box, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &box, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &box, &QDialog::reject);
    list->setFocus();
    box.resize(box.fontMetrics().averageCharWidth() * 60, box.sizeHint().height());
    const int row = box.exec() == QDialog::Accepted ? list->currentRow() : -1;
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
    QLocale::setDefault(resources::localeOf(resources::language()));
    auto *translator = new QTranslator(qApp);
    return translator->load(QStringLiteral("qtbase_%1").arg(resources::language().code),
                            QLibraryInfo::path(QLibraryInfo::TranslationsPath)) &&
           QCoreApplication::installTranslator(translator);
}

} // namespace quillon::controls
