#include "tools/options_dialog.h"

#include "platform/ui/dialogs.h"
#include "platform/ui/error_boundary.h"
#include "resources/language.h"
#include "resources/texts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFontComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>

namespace quillon::tools {

using settings::ExternalEditor;
namespace texts = resources::texts;

namespace {

/// The paths of most programs can be read whole.
constexpr int UsualWidth = 520;
/// For the frame of the dialog, and for what else is on a screen.
constexpr QSize SpaceAround(16, 60);
/// The sample shows sizes up to this one without being cut off.
constexpr int SampleHeight = 56;

/// A button that Enter does not press: it stands for OK wherever the focus is.
QPushButton *plainButton(QStringView caption) {
    auto *button = new QPushButton(caption.toString());
    button->setAutoDefault(false);
    return button;
}

QLabel *faultLabel() {
    auto *label = new QLabel;
    label->setForegroundRole(controls::FaultRole);
    label->hide();
    return label;
}

/// Names a control for tests and for screen readers, which are not to read access keys.
void nameControl(QWidget *control, const char *objectName, QStringView accessibleName) {
    control->setObjectName(QLatin1String(objectName));
    control->setAccessibleName(accessibleName.toString());
}

/// Tells a fault beside a field, and to who cannot see the place beside it.
bool tellFault(QWidget *field, QLabel *label, const QString &fault) {
    label->setText(fault);
    label->setVisible(!fault.isEmpty());
    field->setAccessibleDescription(fault);
    return !fault.isEmpty();
}

QString required(const QString &text, QStringView fault) {
    return text.trimmed().isEmpty() ? fault.toString() : QString();
}

QString listed(const ExternalEditor &editor) {
    return editor.name.trimmed().isEmpty() ? texts::UnnamedEditor.toString() : editor.name;
}

} // namespace

OptionsDialog::OptionsDialog(const Options &present, qsizetype recentFiles, QWidget *parent)
    : QDialog(parent), editors_(present.editors) {
    setWindowTitle(texts::OptionsTitle.toString());
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(texts::ButtonOk.toString());
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setText(texts::ButtonCancel.toString());
    connect(buttons, &QDialogButtonBox::accepted, this, &OptionsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &OptionsDialog::reject);

    auto *column = new QVBoxLayout(this);
    column->addWidget(editorsGroup());
    column->addWidget(fontGroup(present));
    column->addWidget(appearanceGroup(present));
    column->addWidget(recentFilesGroup(recentFiles));
    column->addWidget(buttons);

    QWidget *before = list_;
    for (QWidget *control : std::initializer_list<QWidget *>{
             add_, remove_, up_, down_, name_, program_, browse_, font_, size_, theme_, language_,
             firstPage_, clear_, buttons->button(QDialogButtonBox::Ok),
             buttons->button(QDialogButtonBox::Cancel)}) {
        setTabOrder(before, control);
        before = control;
    }
    const QSize most = screen()->availableSize() - SpaceAround;
    resize(sizeHint().expandedTo(QSize(UsualWidth, 0)).boundedTo(most));
    showEditors(0);
    list_->setFocus();
}

QWidget *OptionsDialog::editorsGroup() {
    auto *group = new QGroupBox(texts::EditorsGroup.toString());
    list_ = new QListWidget;
    add_ = plainButton(texts::AddEditor);
    remove_ = plainButton(texts::RemoveEditor);
    up_ = plainButton(texts::MoveEditorUp);
    down_ = plainButton(texts::MoveEditorDown);
    nameControl(list_, "editors", texts::EditorListName);
    nameControl(add_, "add", texts::AddEditorName);
    nameControl(remove_, "remove", texts::RemoveEditorName);
    nameControl(up_, "up", texts::MoveEditorUpName);
    nameControl(down_, "down", texts::MoveEditorDownName);
    connect(list_, &QListWidget::currentRowChanged, this, &OptionsDialog::showCurrentEditor);
    connect(add_, &QPushButton::clicked, this, &OptionsDialog::addEditor);
    connect(remove_, &QPushButton::clicked, this, &OptionsDialog::removeEditor);
    connect(up_, &QPushButton::clicked, this, [this] { moveEditor(-1); });
    connect(down_, &QPushButton::clicked, this, [this] { moveEditor(1); });

    auto *label = new QLabel(texts::EditorListLabel.toString());
    label->setBuddy(list_);
    auto *grid = new QGridLayout(group);
    grid->addWidget(label, 0, 0);
    grid->addWidget(list_, 1, 0, 5, 1);
    int row = 1;
    for (QPushButton *button : {add_, remove_, up_, down_})
        grid->addWidget(button, row++, 1);
    grid->setRowStretch(row, 1);
    grid->addWidget(editorFields(), row + 1, 0, 1, 2);
    return group;
}

QWidget *OptionsDialog::editorFields() {
    auto *fields = new QWidget;
    name_ = new QLineEdit;
    nameFault_ = faultLabel();
    program_ = new QLineEdit;
    programFault_ = faultLabel();
    browse_ = plainButton(texts::BrowseProgram);
    nameControl(name_, "name", texts::EditorNameName);
    nameControl(program_, "program", texts::EditorProgramName);
    nameControl(browse_, "browse", texts::BrowseProgramName);
    nameFault_->setObjectName(QStringLiteral("nameFault"));
    programFault_->setObjectName(QStringLiteral("programFault"));
    connect(name_, &QLineEdit::textEdited, this, &OptionsDialog::takeFields);
    connect(program_, &QLineEdit::textEdited, this, &OptionsDialog::takeFields);
    connect(browse_, &QPushButton::clicked, this, &OptionsDialog::chooseProgram);

    auto *nameLabel = new QLabel(texts::EditorNameLabel.toString());
    nameLabel->setBuddy(name_);
    auto *programLabel = new QLabel(texts::EditorProgramLabel.toString());
    programLabel->setBuddy(program_);
    auto *grid = new QGridLayout(fields);
    grid->setContentsMargins({});
    grid->addWidget(nameLabel, 0, 0);
    grid->addWidget(name_, 0, 1, 1, 2);
    grid->addWidget(nameFault_, 1, 1, 1, 2);
    grid->addWidget(programLabel, 2, 0);
    grid->addWidget(program_, 2, 1);
    grid->addWidget(browse_, 2, 2);
    grid->addWidget(programFault_, 3, 1, 1, 2);
    return fields;
}

QWidget *OptionsDialog::fontGroup(const Options &present) {
    auto *group = new QGroupBox(texts::FontGroup.toString());
    font_ = new QFontComboBox;
    fontFault_ = faultLabel();
    size_ = new QSpinBox;
    sample_ = new QLabel(texts::FontSample.toString());
    nameControl(font_, "font", texts::FontNameName);
    nameControl(size_, "size", texts::FontSizeName);
    nameControl(sample_, "sample", texts::FontSampleName);
    fontFault_->setObjectName(QStringLiteral("fontFault"));
    // The font may be one that is not installed: the name stays all the same.
    font_->setCurrentFont(QFont(present.fontName));
    font_->setEditText(present.fontName);
    const settings::SettingRow row = settings::settingRow(&settings::Values::fontSize);
    size_->setRange(row.least, std::max(row.mostOffered, present.fontSize));
    size_->setValue(present.fontSize);
    size_->setSuffix(texts::FontSizeUnit.toString());
    sample_->setFrameStyle(int(QFrame::StyledPanel) | int(QFrame::Sunken));
    sample_->setAlignment(Qt::AlignCenter);
    // A large font must not widen the dialog.
    sample_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    sample_->setFixedHeight(SampleHeight);
    connect(font_, &QComboBox::editTextChanged, this, &OptionsDialog::showSample);
    connect(size_, &QSpinBox::valueChanged, this, &OptionsDialog::showSample);

    auto *form = new QFormLayout(group);
    form->addRow(texts::FontNameLabel.toString(), font_);
    form->addRow(QString(), fontFault_);
    form->addRow(texts::FontSizeLabel.toString(), size_);
    form->addRow(sample_);
    showSample();
    return group;
}

QWidget *OptionsDialog::appearanceGroup(const Options &present) {
    auto *group = new QGroupBox(texts::AppearanceGroup.toString());
    theme_ = new QComboBox;
    nameControl(theme_, "theme", texts::ThemeName);
    // In the order of the modes.
    for (const QStringView name : {texts::ThemeAutomatic, texts::ThemeLight, texts::ThemeDark})
        theme_->addItem(name.toString());
    theme_->setCurrentIndex(int(present.theme));
    auto *form = new QFormLayout(group);
    form->addRow(texts::ThemeLabel.toString(), theme_);

    language_ = new QComboBox;
    nameControl(language_, "language", texts::LanguageName);
    for (const resources::Language &language : resources::languages())
        language_->addItem(language.name.toString(), language.code.toString());
    language_->addItem(texts::LanguageOfDesktop.toString(), resources::SystemLanguage.toString());
    // What the store has besides is read as Japanese, which is the first one.
    language_->setCurrentIndex(std::max(0, language_->findData(present.language)));
    language_->setAccessibleDescription(texts::LanguageHint.toString());
    auto *hint = new QLabel(texts::LanguageHint.toString());
    form->addRow(texts::LanguageLabel.toString(), language_);
    form->addRow(QString(), hint);
    firstPage_ = new QCheckBox(texts::FirstPageOption.toString());
    firstPage_->setObjectName(QStringLiteral("firstPage"));
    firstPage_->setChecked(present.firstPage);
    form->addRow(firstPage_);
    return group;
}

QWidget *OptionsDialog::recentFilesGroup(qsizetype recentFiles) {
    auto *group = new QGroupBox(texts::RecentFilesGroup.toString());
    auto *count = new QLabel(texts::RecentFilesCount.toString().arg(recentFiles));
    count->setObjectName(QStringLiteral("recentFiles"));
    clear_ = plainButton(texts::ClearRecentFiles);
    nameControl(clear_, "clear", texts::ClearRecentFilesName);
    clear_->setEnabled(recentFiles > 0);
    connect(clear_, &QPushButton::clicked, this, [this, count] {
        clearRecentFiles_ = true;
        count->setText(texts::RecentFilesToBeCleared.toString());
        clear_->setEnabled(false);
    });
    auto *row = new QHBoxLayout(group);
    row->addWidget(count, 1);
    row->addWidget(clear_);
    return group;
}

Options OptionsDialog::options() const {
    Options chosen{editors_,
                   font_->currentText().trimmed(),
                   size_->value(),
                   controls::ThemeMode(theme_->currentIndex()),
                   language_->currentData().toString(),
                   firstPage_->isChecked(),
                   clearRecentFiles_};
    for (ExternalEditor &editor : chosen.editors)
        editor = {editor.name.trimmed(), editor.path.trimmed()};
    return chosen;
}

void OptionsDialog::accept() {
    for (int row = 0; row < list_->count(); ++row) {
        if (nameFault(row).isEmpty() && programFault(row).isEmpty())
            continue;
        list_->setCurrentRow(row);
        showFaults(row);
        (nameFault_->text().isEmpty() ? program_ : name_)->setFocus();
        return;
    }
    if (tellFault(font_, fontFault_, required(font_->currentText(), texts::FontNameMissing))) {
        font_->setFocus();
        return;
    }
    QDialog::accept();
}

void OptionsDialog::showEditors(int current) {
    {
        const QSignalBlocker blocker(list_);
        list_->clear();
        for (const ExternalEditor &editor : editors_)
            list_->addItem(listed(editor));
        list_->setCurrentRow(std::min(current, list_->count() - 1));
    }
    showCurrentEditor();
}

void OptionsDialog::showCurrentEditor() {
    const int row = list_->currentRow();
    const ExternalEditor shown = row < 0 ? ExternalEditor() : editors_[std::size_t(row)];
    name_->setText(shown.name);
    program_->setText(shown.path);
    tellFault(name_, nameFault_, QString());
    tellFault(program_, programFault_, QString());
    enableButtons();
}

void OptionsDialog::enableButtons() {
    const int row = list_->currentRow();
    const int count = list_->count();
    for (QWidget *control : std::initializer_list<QWidget *>{remove_, name_, program_, browse_})
        control->setEnabled(row >= 0);
    add_->setEnabled(count < settings::EditorNames.most);
    up_->setEnabled(row > 0);
    down_->setEnabled(row >= 0 && row < count - 1);
}

void OptionsDialog::addEditor() {
    editors_.emplace_back();
    showEditors(int(editors_.size()) - 1);
    name_->setFocus();
}

void OptionsDialog::removeEditor() {
    const int row = list_->currentRow();
    editors_.erase(editors_.begin() + row);
    showEditors(row);
    list_->setFocus();
}

void OptionsDialog::moveEditor(int by) {
    const int row = list_->currentRow();
    std::swap(editors_[std::size_t(row)], editors_[std::size_t(row + by)]);
    showEditors(row + by);
}

void OptionsDialog::chooseProgram() {
    ui::guarded([this] {
        namespace flag = ui::file_dialog_flag;
        const QString present = program_->text();
        const ui::FileDialogResult chosen =
            ui::dialogs().showOpen({texts::BrowseProgramTitle.toString(), QString(),
                                    flag::FileMustExist + flag::HideReadOnly,
                                    QDir::isAbsolutePath(present) ? present : QString()});
        if (chosen.path.isEmpty())
            return;
        program_->setText(chosen.path);
        takeFields();
    });
}

void OptionsDialog::takeFields() {
    const int row = list_->currentRow();
    ExternalEditor &editor = editors_[std::size_t(row)];
    editor = {name_->text(), program_->text()};
    list_->item(row)->setText(listed(editor));
    // What has been told is followed up; what is still being typed is not found fault with.
    if (!nameFault_->text().isEmpty() || !programFault_->text().isEmpty())
        showFaults(row);
}

QString OptionsDialog::nameFault(int row) const {
    const QString name = editors_[std::size_t(row)].name.trimmed();
    const auto named = [&](const ExternalEditor &editor) { return editor.name.trimmed() == name; };
    if (!name.isEmpty() && std::ranges::count_if(editors_, named) > 1)
        return texts::EditorNameTaken.toString();
    return required(name, texts::EditorNameMissing);
}

QString OptionsDialog::programFault(int row) const {
    return required(editors_[std::size_t(row)].path, texts::EditorProgramMissing);
}

void OptionsDialog::showFaults(int row) {
    tellFault(name_, nameFault_, nameFault(row));
    tellFault(program_, programFault_, programFault(row));
}

void OptionsDialog::showSample() {
    sample_->setFont(QFont(font_->currentText(), size_->value()));
    // Told when OK was pressed; it is over as soon as there is a name again.
    if (!font_->currentText().trimmed().isEmpty())
        tellFault(font_, fontFault_, QString());
}

} // namespace quillon::tools
