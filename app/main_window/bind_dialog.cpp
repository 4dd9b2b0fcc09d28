#include "app/main_window/bind_dialog.h"

#include "app/editor.h"
#include "platform/ui/error_boundary.h"
#include "resources/schema_box_texts.h"
#include "resources/texts.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quillon::app {

namespace texts = resources::schema_box_texts;
using schemas::BindingForm;

namespace {

constexpr int Width = 720;
/// What is written with a path of usual length.
constexpr int MarkupLines = 2;
/// The preview of a form stands under its name.
constexpr int Indent = 24;

QStringView captionOf(BindingForm form) {
    switch (form) {
    case BindingForm::DocumentType:
        return texts::DocumentTypeForm;
    case BindingForm::SchemaLocation:
        return texts::SchemaLocationForm;
    case BindingForm::NoNamespaceSchemaLocation:
        return texts::NoNamespaceForm;
    case BindingForm::ModelInstruction:
        return texts::ModelForm;
    case BindingForm::XdrNamespace:
        return texts::XdrForm;
    }
    return {};
}

/// A schema that the document does not name, but that is in force for it; empty for none.
QString schemaBesideDocument(const schemas::DocumentSchemas &schemas) {
    using schemas::FoundBy;
    for (const schemas::SchemaLink &link : schemas.links()) {
        if (link.isInForce && (link.foundBy == FoundBy::Choice || link.foundBy == FoundBy::Rule ||
                               link.foundBy == FoundBy::Catalog))
            return link.path;
    }
    return {};
}

} // namespace

BindDialog::BindDialog(Editor &editor, QWidget *parent)
    : QDialog(parent), editor_(editor), path_(new QLineEdit), formColumn_(new QVBoxLayout),
      forms_(new QButtonGroup(this)) {
    setWindowTitle(texts::BindTitle.toString());
    setObjectName(QStringLiteral("bindDialog"));
    auto *column = new QVBoxLayout(this);
    column->addWidget(schemaField());
    auto *group = new QGroupBox(texts::FormGroup.toString());
    group->setLayout(formColumn_);
    column->addWidget(group, 1);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    ok_->setText(resources::texts::ButtonOk.toString());
    buttons->button(QDialogButtonBox::Cancel)->setText(resources::texts::ButtonCancel.toString());
    connect(buttons, &QDialogButtonBox::accepted, this, &BindDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &BindDialog::reject);
    column->addWidget(buttons);
    resize(Width, 0);
    examine(schemaBesideDocument(editor_.schemas));
    schema_ ? ok_->setFocus() : browse_->setFocus();
}

QWidget *BindDialog::schemaField() {
    auto *field = new QWidget;
    auto *label = new QLabel(texts::SchemaLabel.toString());
    label->setBuddy(path_);
    path_->setObjectName(QStringLiteral("schemaPath"));
    path_->setAccessibleName(texts::SchemaName.toString());
    browse_ = new QPushButton(texts::Browse.toString());
    browse_->setObjectName(QStringLiteral("browse"));
    browse_->setAutoDefault(false);
    auto *row = new QHBoxLayout(field);
    row->setContentsMargins({});
    row->addWidget(label);
    row->addWidget(path_, 1);
    row->addWidget(browse_);
    connect(path_, &QLineEdit::editingFinished, this, [this] {
        if (!schema_ || schema_->path != path_->text())
            examine(path_->text());
    });
    connect(browse_, &QPushButton::clicked, this, [this] {
        ui::guarded([this] {
            const QString chosen = editor_.schemaCommands.askForSchema(texts::BindTitle.toString());
            if (!chosen.isEmpty())
                examine(chosen);
        });
    });
    return field;
}

void BindDialog::examine(const QString &path) {
    schema_.reset();
    path_->setText(path);
    QString fault = texts::NoSchemaChosen.toString();
    if (!path.isEmpty()) {
        try {
            schema_ = editor_.schemaCommands.examine(path);
            fault.clear();
        } catch (const runtime::Error &error) {
            fault = error.description();
        }
    }
    qDeleteAll(findChildren<QWidget *>(QStringLiteral("form")));
    if (!fault.isEmpty()) {
        auto *told = new QLabel(fault);
        told->setObjectName(QStringLiteral("form"));
        told->setWordWrap(true);
        told->setTextFormat(Qt::PlainText);
        formColumn_->addWidget(told);
    } else {
        showForms();
    }
    path_->setAccessibleDescription(fault);
    ok_->setEnabled(schema_.has_value());
    fitHeight();
}

/// What comes later does not make the dialog higher by itself.
void BindDialog::fitHeight() {
    layout()->activate();
    resize(width(), layout()->totalHeightForWidth(width()));
}

void BindDialog::showForms() {
    for (const BindingForm form : schemas::formsFor(*schema_)) {
        auto *button = new QRadioButton(captionOf(form).toString());
        button->setObjectName(QStringLiteral("form"));
        const QString markup = schemas::preview(editor_.state.m_DOM, form, *schema_);
        button->setAccessibleDescription(markup);
        button->setChecked(forms_->buttons().isEmpty());
        forms_->addButton(button, int(form));
        auto *shown = new QLabel(markup);
        shown->setObjectName(QStringLiteral("form"));
        shown->setTextFormat(Qt::PlainText);
        shown->setWordWrap(true);
        shown->setContentsMargins(Indent, 0, 0, 0);
        shown->setAlignment(Qt::AlignTop);
        shown->setMinimumHeight(MarkupLines * shown->fontMetrics().lineSpacing());
        formColumn_->addWidget(button);
        formColumn_->addWidget(shown);
    }
}

void BindDialog::accept() {
    if (!schema_ || schema_->path != path_->text())
        examine(path_->text());
    if (!schema_)
        return;
    ui::guarded([this] {
        editor_.schemaCommands.bind(BindingForm(forms_->checkedId()), *schema_);
        QDialog::accept();
    });
}

} // namespace quillon::app
