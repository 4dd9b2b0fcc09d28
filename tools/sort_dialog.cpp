#include "tools/sort_dialog.h"

#include "resources/node_texts.h"
#include "resources/texts.h"
#include "view/controls/theme.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quillon::tools {

using By = edit::SortOrder::By;
namespace texts = resources::node_texts;

SortDialog::SortDialog(const edit::SortOrder &present, QWidget *parent)
    : QDialog(parent), byName_(new QRadioButton(texts::SortByName.toString())),
      byAttribute_(new QRadioButton(texts::SortByAttribute.toString())),
      byPath_(new QRadioButton(texts::SortByPath.toString())), attribute_(new QLineEdit),
      path_(new QLineEdit), fault_(new QLabel),
      descending_(new QCheckBox(texts::SortDescending.toString())) {
    setWindowTitle(texts::SortTitle.toString());
    (present.by == By::Name        ? byName_
     : present.by == By::Attribute ? byAttribute_
                                   : byPath_)
        ->setChecked(true);
    (present.by == By::Path ? path_ : attribute_)->setText(present.key);
    descending_->setChecked(present.isDescending);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(resources::texts::ButtonOk.toString());
    buttons->button(QDialogButtonBox::Cancel)->setText(resources::texts::ButtonCancel.toString());
    connect(buttons, &QDialogButtonBox::accepted, this, &SortDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &SortDialog::reject);

    auto *hint = new QLabel(texts::SortHint.toString());
    hint->setWordWrap(true);
    auto *column = new QVBoxLayout(this);
    column->addWidget(keyFields());
    column->addWidget(descending_);
    column->addWidget(hint);
    column->addWidget(buttons);
    enableFields();
}

QWidget *SortDialog::keyFields() {
    auto *group = new QGroupBox(texts::SortByGroup.toString());
    attribute_->setObjectName(QStringLiteral("attribute"));
    attribute_->setAccessibleName(texts::SortAttributeName.toString());
    path_->setObjectName(QStringLiteral("path"));
    path_->setAccessibleName(texts::SortPathName.toString());
    fault_->setObjectName(QStringLiteral("fault"));
    fault_->setForegroundRole(controls::FaultRole);
    fault_->hide();
    for (QRadioButton *choice : {byName_, byAttribute_, byPath_})
        connect(choice, &QRadioButton::toggled, this, &SortDialog::enableFields);

    auto *grid = new QGridLayout(group);
    grid->addWidget(byName_, 0, 0, 1, 2);
    grid->addWidget(byAttribute_, 1, 0);
    grid->addWidget(attribute_, 1, 1);
    grid->addWidget(byPath_, 2, 0);
    grid->addWidget(path_, 2, 1);
    grid->addWidget(fault_, 3, 1);
    return group;
}

void SortDialog::enableFields() {
    attribute_->setEnabled(byAttribute_->isChecked());
    path_->setEnabled(byPath_->isChecked());
    fault_->hide();
}

edit::SortOrder SortDialog::order() const {
    edit::SortOrder order;
    order.by = byName_->isChecked() ? By::Name : byPath_->isChecked() ? By::Path : By::Attribute;
    if (order.by != By::Name)
        order.key = (order.by == By::Path ? path_ : attribute_)->text().trimmed();
    order.isDescending = descending_->isChecked();
    return order;
}

void SortDialog::accept() {
    const edit::SortOrder chosen = order();
    if (chosen.by == By::Name || !chosen.key.isEmpty()) {
        QDialog::accept();
        return;
    }
    const bool isPath = chosen.by == By::Path;
    QLineEdit *field = isPath ? path_ : attribute_;
    const QString fault =
        (isPath ? texts::SortPathMissing : texts::SortAttributeMissing).toString();
    fault_->setText(fault);
    fault_->show();
    field->setAccessibleDescription(fault);
    field->setFocus();
}

} // namespace quillon::tools
