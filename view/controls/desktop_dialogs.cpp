#include "view/controls/desktop_dialogs.h"

#include "resources/language.h"
#include "resources/texts.h"
#include "view/controls/library_texts.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
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

#include <algorithm>

namespace quillon::controls {

namespace {

/// In pixels; what the smallest screen has room for.
constexpr int InputWidth = 600;

/// Asks for a line of text, offers some, and says what comes of it.
QString inputWithHelp(const QString &prompt, const ui::InputHelp &help) {
    QDialog box(QApplication::activeWindow());
    box.setWindowTitle(resources::texts::ApplicationTitle.toString());
    auto *label = new QLabel(prompt);
    label->setTextFormat(Qt::PlainText);
    auto *field = new QComboBox;
    field->setEditable(true);
    field->setInsertPolicy(QComboBox::NoInsert);
    field->setCompleter(nullptr);
    field->addItems(help.offered);
    field->setCurrentIndex(-1);
    field->setAccessibleName(prompt);
    label->setBuddy(field);
    auto *line = new QLabel;
    line->setObjectName(QStringLiteral("explanation"));
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    line->setMinimumHeight(3 * line->fontMetrics().lineSpacing());
    line->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    const auto explain = [&] {
        line->setText(help.explain ? help.explain(field->currentText()) : QString());
        field->setAccessibleDescription(line->text());
    };
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(resources::texts::ButtonOk.toString());
    buttons->button(QDialogButtonBox::Cancel)->setText(resources::texts::ButtonCancel.toString());
    auto *column = new QVBoxLayout(&box);
    for (QWidget *widget : std::initializer_list<QWidget *>{label, field, line, buttons})
        column->addWidget(widget);
    QObject::connect(field, &QComboBox::editTextChanged, &box, explain);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &box, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &box, &QDialog::reject);
    explain();
    field->setFocus();
    box.resize(std::min(InputWidth, box.fontMetrics().averageCharWidth() * 70),
               box.sizeHint().height());
    return box.exec() == QDialog::Accepted ? field->currentText() : QString();
}

} // namespace

QString DesktopDialogs::inputText(const QString &prompt, const ui::InputHelp &help) {
    if (help.explain || !help.offered.isEmpty())
        return inputWithHelp(prompt, help);
    QInputDialog box(QApplication::activeWindow());
    box.setWindowTitle(resources::texts::ApplicationTitle.toString());
    box.setLabelText(prompt);
    box.setTextValue(help.present);
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
    // Installed first, it is asked last.
    if (resources::language().code == u"ja")
        QCoreApplication::installTranslator(new LibraryTexts(qApp));
    auto *translator = new QTranslator(qApp);
    return translator->load(QStringLiteral("qtbase_%1").arg(resources::language().code),
                            QLibraryInfo::path(QLibraryInfo::TranslationsPath)) &&
           QCoreApplication::installTranslator(translator);
}

} // namespace quillon::controls
