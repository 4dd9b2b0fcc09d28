#include "tools/format_dialog.h"

#include "resources/layout_texts.h"
#include "resources/texts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontMetricsF>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTextBlock>
#include <QVBoxLayout>

#include <algorithm>

namespace quillon::tools {

namespace texts = resources::layout_texts;
using edit::LayoutPreview;
using edit::PrettyPrinting;
using settings::Values;
using xml::LayoutStyle;

namespace {

constexpr int LeastWidth = 20;
constexpr int MostWidth = 1000;
constexpr int MostBlanks = 8;

/// In pixels; together with the frame no more than the smallest screen has.
constexpr QSize DialogSize(900, 540);

/// Ahead of every line of the preview, as wide as a tab, so that tabs lead where they do in the
/// file.
constexpr QStringView ChangedMark = u"*   ";
constexpr QStringView UnchangedMark = u"    ";

QComboBox *choice(const char *name, std::initializer_list<resources::Text> entries, int current) {
    auto *box = new QComboBox;
    box->setObjectName(QLatin1String(name));
    for (const resources::Text &entry : entries)
        box->addItem(entry.toString());
    box->setCurrentIndex(std::clamp(current, 0, box->count() - 1));
    return box;
}

QSpinBox *numberField(const char *name, int least, int most, int value) {
    auto *box = new QSpinBox;
    box->setObjectName(QLatin1String(name));
    box->setRange(least, most);
    box->setValue(value);
    return box;
}

} // namespace

LayoutStyle layoutStyle(const Values &values) {
    LayoutStyle style;
    style.step =
        values.formatTabs
            ? std::string("\t")
            : std::string(std::size_t(std::clamp<int>(values.formatIndent, 1, MostBlanks)), ' ');
    const auto choiceOf = [](int value) { return std::clamp(value, 0, 2); };
    style.attributes = LayoutStyle::Attributes(choiceOf(values.formatAttributes));
    style.width = std::clamp<int>(values.formatWidth, LeastWidth, MostWidth);
    style.alignsAttributes = values.formatAligns;
    style.empty = LayoutStyle::Empty(choiceOf(values.formatEmpty));
    style.keepsBlankLines = values.formatBlankLines;
    return style;
}

FormatDialog::FormatDialog(const PrettyPrinting &printing, const Values &values,
                           const QFont &textFont, QWidget *parent)
    : QDialog(parent), printing_(printing) {
    setWindowTitle(texts::Title.toString());
    setObjectName(QStringLiteral("formatDialog"));
    auto *options = new QVBoxLayout;
    options->addWidget(scopeGroup(printing.hasSelectedElements()));
    options->addWidget(indentGroup(values));
    options->addWidget(tagFields(values));
    options->addStretch(1);
    auto *columns = new QHBoxLayout;
    columns->addLayout(options);
    columns->addWidget(previewSide(textFont), 1);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(texts::FormatButton.toString());
    buttons->button(QDialogButtonBox::Cancel)->setText(resources::texts::ButtonCancel.toString());
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *hint = new QLabel(texts::Hint.toString());
    hint->setWordWrap(true);
    auto *column = new QVBoxLayout(this);
    column->addLayout(columns, 1);
    column->addWidget(hint);
    column->addWidget(buttons);
    resize(DialogSize);
    enableFields();
    showPreview();
}

QWidget *FormatDialog::scopeGroup(bool hasElements) {
    auto *group = new QGroupBox(texts::ScopeGroup.toString());
    document_ = new QRadioButton(texts::ScopeDocument.toString());
    elements_ = new QRadioButton(texts::ScopeElements.toString());
    elements_->setObjectName(QStringLiteral("elements"));
    elements_->setEnabled(hasElements);
    document_->setChecked(true);
    auto *row = new QHBoxLayout(group);
    row->addWidget(document_);
    row->addWidget(elements_);
    connect(elements_, &QRadioButton::toggled, this, &FormatDialog::showPreview);
    return group;
}

QWidget *FormatDialog::indentGroup(const Values &values) {
    auto *group = new QGroupBox(texts::IndentGroup.toString());
    blanks_ = new QRadioButton(texts::IndentBlanks.toString());
    tab_ = new QRadioButton(texts::IndentTab.toString());
    tab_->setObjectName(QStringLiteral("tab"));
    (values.formatTabs ? tab_ : blanks_)->setChecked(true);
    indent_ = numberField("indent", 1, MostBlanks, values.formatIndent);
    indent_->setAccessibleName(texts::IndentWidthName.toString());
    blankLines_ = new QCheckBox(texts::KeepBlankLines.toString());
    blankLines_->setObjectName(QStringLiteral("blankLines"));
    blankLines_->setChecked(values.formatBlankLines);
    auto *grid = new QGridLayout(group);
    grid->addWidget(blanks_, 0, 0);
    grid->addWidget(indent_, 0, 1);
    grid->addWidget(tab_, 0, 2);
    grid->addWidget(blankLines_, 1, 0, 1, 3);
    for (QAbstractButton *button : std::initializer_list<QAbstractButton *>{tab_, blankLines_})
        connect(button, &QAbstractButton::toggled, this, &FormatDialog::showPreview);
    connect(indent_, &QSpinBox::valueChanged, this, &FormatDialog::showPreview);
    return group;
}

QWidget *FormatDialog::tagFields(const Values &values) {
    auto *fields = new QWidget;
    attributes_ = choice(
        "attributes", {texts::AttributesKeep, texts::AttributesWrap, texts::AttributesOnePerLine},
        values.formatAttributes);
    width_ = numberField("width", LeastWidth, MostWidth, values.formatWidth);
    width_->setSuffix(texts::WidthSuffix.toString());
    aligns_ = new QCheckBox(texts::AlignAttributes.toString());
    aligns_->setObjectName(QStringLiteral("aligns"));
    aligns_->setChecked(values.formatAligns);
    empty_ = choice("empty", {texts::EmptyKeep, texts::EmptyClosed, texts::EmptyWithEndTag},
                    values.formatEmpty);
    auto *form = new QFormLayout(fields);
    form->setContentsMargins({});
    form->addRow(texts::AttributesLabel.toString(), attributes_);
    form->addRow(texts::WidthLabel.toString(), width_);
    form->addRow(QString(), aligns_);
    form->addRow(texts::EmptyLabel.toString(), empty_);
    for (QComboBox *box : {attributes_, empty_})
        connect(box, &QComboBox::currentIndexChanged, this, &FormatDialog::showPreview);
    connect(width_, &QSpinBox::valueChanged, this, &FormatDialog::showPreview);
    connect(aligns_, &QCheckBox::toggled, this, &FormatDialog::showPreview);
    return fields;
}

QWidget *FormatDialog::previewSide(const QFont &textFont) {
    auto *side = new QWidget;
    after_ = new QRadioButton(texts::ShowAfter.toString());
    before_ = new QRadioButton(texts::ShowBefore.toString());
    before_->setObjectName(QStringLiteral("before"));
    after_->setChecked(true);
    connect(before_, &QRadioButton::toggled, this, &FormatDialog::showLines);
    text_ = new QPlainTextEdit;
    text_->setObjectName(QStringLiteral("preview"));
    text_->setAccessibleName(texts::PreviewName.toString());
    text_->setReadOnly(true);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    text_->setTabChangesFocus(true);
    text_->setFont(textFont);
    text_->setTabStopDistance(QFontMetricsF(textFont).horizontalAdvance(UnchangedMark.toString()));
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    count_ = new QLabel;
    count_->setObjectName(QStringLiteral("count"));
    count_->setWordWrap(true);
    auto *row = new QHBoxLayout;
    row->addWidget(after_);
    row->addWidget(before_);
    row->addStretch(1);
    auto *column = new QVBoxLayout(side);
    column->setContentsMargins({});
    column->addLayout(row);
    column->addWidget(text_, 1);
    column->addWidget(count_);
    return side;
}

void FormatDialog::enableFields() {
    indent_->setEnabled(blanks_->isChecked());
    const auto attributes = LayoutStyle::Attributes(attributes_->currentIndex());
    width_->setEnabled(attributes == LayoutStyle::Attributes::Wrap);
    aligns_->setEnabled(attributes != LayoutStyle::Attributes::Keep);
}

void FormatDialog::showPreview() {
    // While the fields are made there is nothing to ask them.
    if (!text_)
        return;
    enableFields();
    Values chosen;
    keep(chosen);
    preview_ = printing_.preview(layoutStyle(chosen), scope());
    const auto changed = std::ranges::count(preview_.after, true, &LayoutPreview::Line::isChanged) +
                         std::ranges::count(preview_.before, true, &LayoutPreview::Line::isChanged);
    const auto changedBefore =
        std::ranges::count(preview_.before, true, &LayoutPreview::Line::isChanged);
    QString count = texts::NoChangedLines.toString();
    if (changed > 0)
        count = texts::ChangedLines.toString()
                    .arg(changedBefore)
                    .arg(preview_.before.size())
                    .arg(preview_.after.size());
    if (!preview_.isWhole)
        count = texts::BeginningOnly.toString().arg(preview_.after.size());
    count_->setText(count);
    showLines();
}

void FormatDialog::showLines() {
    const auto &lines = before_->isChecked() ? preview_.before : preview_.after;
    QString all;
    for (const LayoutPreview::Line &line : lines) {
        if (!all.isEmpty())
            all += u'\n';
        all += line.isChanged ? ChangedMark : UnchangedMark;
        all += line.text;
    }
    text_->setPlainText(all);
    QList<QTextEdit::ExtraSelection> marks;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!lines[i].isChanged)
            continue;
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(text_->document()->findBlockByNumber(int(i)));
        mark.format.setBackground(palette().alternateBase());
        mark.format.setProperty(QTextFormat::FullWidthSelection, true);
        marks.append(mark);
    }
    text_->setExtraSelections(marks);
}

void FormatDialog::keep(Values &values) const {
    values.formatTabs = tab_->isChecked();
    values.formatIndent = qint16(indent_->value());
    values.formatAttributes = qint16(attributes_->currentIndex());
    values.formatWidth = qint16(width_->value());
    values.formatAligns = aligns_->isChecked();
    values.formatEmpty = qint16(empty_->currentIndex());
    values.formatBlankLines = blankLines_->isChecked();
}

PrettyPrinting::Scope FormatDialog::scope() const {
    return elements_->isChecked() ? PrettyPrinting::Scope::SelectedElements
                                  : PrettyPrinting::Scope::Document;
}

} // namespace quillon::tools
