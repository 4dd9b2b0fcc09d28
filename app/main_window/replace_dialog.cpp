#include "app/main_window/replace_dialog.h"

#include "app/editor.h"
#include "platform/ui/error_boundary.h"
#include "platform/xml/dom/part_walk.h"
#include "resources/search_texts.h"
#include "view/controls/theme.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace quillon::app {

namespace texts = resources::search_texts;
namespace part_kind = xml::part_kind;
using search::PatternKind;
using search::SearchScope;

namespace {

/// For texts of some length.
constexpr int FieldWidth = 320;

void nameControl(QWidget *control, const char *objectName, QStringView accessibleName) {
    control->setObjectName(QLatin1String(objectName));
    control->setAccessibleName(accessibleName.toString());
}

QComboBox *textField(const char *objectName, QStringView accessibleName) {
    auto *field = new QComboBox;
    field->setEditable(true);
    field->setInsertPolicy(QComboBox::NoInsert);
    field->setMinimumWidth(FieldWidth);
    field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // Completing would change the case of what is typed.
    field->setCompleter(nullptr);
    nameControl(field, objectName, accessibleName);
    return field;
}

QLabel *textLine(const char *objectName) {
    auto *label = new QLabel;
    label->setObjectName(QLatin1String(objectName));
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

ReplaceDialog::ReplaceDialog(Editor &editor, QWidget *parent)
    : QDialog(parent), editor_(editor), commands_(editor.findAndReplace) {
    setWindowTitle(texts::DialogTitle.toString());
    setObjectName(QStringLiteral("replaceDialog"));
    message_ = textLine("message");
    message_->setMinimumHeight(2 * message_->fontMetrics().lineSpacing());
    message_->setAccessibleName(texts::MessageName.toString());

    auto *left = new QVBoxLayout;
    left->addWidget(fields());
    left->addWidget(kindGroup());
    auto *groups = new QHBoxLayout;
    groups->addWidget(partsGroup(), 1);
    groups->addWidget(scopeGroup(), 1);
    left->addLayout(groups);
    left->addWidget(message_);
    left->addStretch(1);
    auto *row = new QHBoxLayout(this);
    row->addLayout(left, 1);
    row->addWidget(buttons());

    connect(&commands_, &search::FindAndReplace::statusText, message_, &QLabel::setText);
    connect(&editor_.hits, &search::HitList::shown, this, &ReplaceDialog::showState);
    showState();
}

QWidget *ReplaceDialog::fields() {
    auto *box = new QWidget;
    what_ = textField("what", texts::WhatName);
    with_ = textField("with", texts::WithName);
    fault_ = textLine("fault");
    fault_->setForegroundRole(controls::FaultRole);
    auto *form = new QFormLayout(box);
    form->setContentsMargins({});
    form->addRow(texts::WhatLabel.toString(), what_);
    form->addRow(texts::WithLabel.toString(), with_);
    form->addRow(QString(), fault_);
    for (QComboBox *field : {what_, with_})
        connect(field, &QComboBox::editTextChanged, this, &ReplaceDialog::showState);
    return box;
}

QWidget *ReplaceDialog::kindGroup() {
    auto *box = new QGroupBox(texts::KindGroup.toString());
    auto *grid = new QGridLayout(box);
    kinds_ = new QButtonGroup(this);
    int column = 0;
    for (const auto &[kind, caption] :
         {std::pair(PatternKind::Plain, texts::KindPlain),
          std::pair(PatternKind::Wildcards, texts::KindWildcards),
          std::pair(PatternKind::RegularExpression, texts::KindExpression)}) {
        auto *button = new QRadioButton(caption.toString());
        kinds_->addButton(button, int(kind));
        grid->addWidget(button, 0, column++);
    }
    kinds_->button(int(PatternKind::Plain))->setChecked(true);
    hint_ = textLine("hint");
    grid->addWidget(hint_, 1, 0, 1, column);
    matchCase_ = new QCheckBox(texts::MatchCase.toString());
    wholeWord_ = new QCheckBox(texts::WholeWord.toString());
    matchWidth_ = new QCheckBox(texts::MatchWidth.toString());
    matchCase_->setChecked(true);
    matchWidth_->setChecked(true);
    int line = 2;
    for (QCheckBox *option : {matchCase_, wholeWord_, matchWidth_})
        grid->addWidget(option, line++, 0, 1, column);
    connect(kinds_, &QButtonGroup::idToggled, this, &ReplaceDialog::showState);
    return box;
}

QWidget *ReplaceDialog::partsGroup() {
    auto *box = new QGroupBox(texts::PartsGroup.toString());
    auto *grid = new QGridLayout(box);
    const std::pair<resources::Text, unsigned> parts[] = {
        {texts::ElementNames, part_kind::ElementName},
        {texts::AttributeNames, part_kind::AttributeName},
        {texts::AttributeValues, part_kind::AttributeValue},
        {texts::TextNodes, part_kind::Text},
        {texts::CDataNodes, part_kind::CData},
        {texts::Comments, part_kind::Comment},
        {texts::Instructions, part_kind::InstructionName | part_kind::InstructionValue},
    };
    int place = 0;
    for (const auto &[caption, kinds] : parts) {
        auto *part = new QCheckBox(caption.toString());
        part->setChecked(true);
        connect(part, &QCheckBox::toggled, this, &ReplaceDialog::showState);
        grid->addWidget(part, place % 4, place / 4);
        parts_.emplace_back(part, kinds);
        ++place;
    }
    return box;
}

QWidget *ReplaceDialog::scopeGroup() {
    auto *box = new QGroupBox(texts::ScopeGroup.toString());
    auto *column = new QVBoxLayout(box);
    scopes_ = new QButtonGroup(this);
    for (const auto &[scope, caption] :
         {std::pair(SearchScope::Document, texts::ScopeDocument),
          std::pair(SearchScope::Selection, texts::ScopeSelection),
          std::pair(SearchScope::QueryHits, texts::ScopeQueryHits)}) {
        auto *button = new QRadioButton(caption.toString());
        scopes_->addButton(button, int(scope));
        column->addWidget(button);
    }
    column->addStretch(1);
    scopes_->button(int(SearchScope::Document))->setChecked(true);
    return box;
}

QPushButton *ReplaceDialog::addButton(QStringView caption, const char *name,
                                      std::function<void()> press) {
    auto *button = new QPushButton(caption.toString());
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, press = std::move(press)] { run(press); });
    buttonColumn_->layout()->addWidget(button);
    return button;
}

QWidget *ReplaceDialog::buttons() {
    buttonColumn_ = new QWidget;
    auto *column = new QVBoxLayout(buttonColumn_);
    column->setContentsMargins({});
    QPushButton *next =
        addButton(texts::FindNextButton, "findNext", [this] { commands_.findNext(request()); });
    next->setDefault(true);
    searching_ = {
        next,
        addButton(texts::FindAllButton, "findAll", [this] { commands_.findAll(request()); }),
        addButton(texts::ReplaceButton, "replace", [this] { commands_.replaceNext(request()); }),
        addButton(texts::ReplaceAllButton, "replaceAll", [this] { commands_.planAll(request()); }),
    };
    column->addSpacing(12);
    planned_ = {addButton(texts::ExecuteButton, "execute", [this] { commands_.execute(); }),
                addButton(texts::DiscardButton, "discard", [this] { commands_.discard(); })};
    column->addStretch(1);
    auto *leave = new QPushButton(texts::CloseButton.toString());
    leave->setAutoDefault(false);
    connect(leave, &QPushButton::clicked, this, &QDialog::close);
    column->addWidget(leave);
    return buttonColumn_;
}

void ReplaceDialog::run(const std::function<void()> &command) {
    message_->clear();
    ui::guarded([&] {
        // What is being typed into a caption is part of the document.
        editor_.tree.endLabelEdit();
        command();
    });
    showHistories();
    showState();
}

search::SearchRequest ReplaceDialog::request() const {
    search::SearchRequest request;
    request.what = what_->currentText();
    request.with = with_->currentText();
    request.pattern.kind = PatternKind(kinds_->checkedId());
    request.pattern.matchCase = matchCase_->isChecked();
    request.pattern.wholeWord = wholeWord_->isChecked();
    request.pattern.matchWidth = matchWidth_->isChecked();
    for (const auto &[part, kinds] : parts_)
        request.parts |= part->isChecked() ? kinds : 0;
    request.scope = SearchScope(scopes_->checkedId());
    return request;
}

void ReplaceDialog::showForInput() {
    show();
    raise();
    activateWindow();
    what_->setFocus();
    what_->lineEdit()->selectAll();
    showState();
}

void ReplaceDialog::showHistories() {
    const auto fill = [](QComboBox *field, const QStringList &texts) {
        const QSignalBlocker blocker(field);
        const QString present = field->currentText();
        field->clear();
        field->addItems(texts);
        field->setEditText(present);
    };
    fill(what_, commands_.whats());
    fill(with_, commands_.withs());
}

QString ReplaceDialog::fault() const {
    const search::SearchRequest present = request();
    return present.parts == 0 ? texts::NoParts.toString() : commands_.fault(present);
}

void ReplaceDialog::showState() {
    const PatternKind kind = PatternKind(kinds_->checkedId());
    hint_->setText((kind == PatternKind::Plain       ? texts::PlainHint
                    : kind == PatternKind::Wildcards ? texts::WildcardsHint
                                                     : texts::ExpressionHint)
                       .toString());
    matchWidth_->setEnabled(kind != PatternKind::RegularExpression);
    const QString wrong = fault();
    fault_->setText(wrong);
    what_->setAccessibleDescription(wrong);
    for (QPushButton *button : searching_)
        button->setEnabled(wrong.isEmpty() && !what_->currentText().isEmpty());
    for (QPushButton *button : planned_)
        button->setEnabled(commands_.hasPlan());
}

} // namespace quillon::app
