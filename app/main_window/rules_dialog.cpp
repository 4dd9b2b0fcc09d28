#include "app/main_window/rules_dialog.h"

#include "app/editor.h"
#include "platform/ui/dialogs.h"
#include "platform/ui/error_boundary.h"
#include "resources/schema_box_texts.h"
#include "resources/texts.h"
#include "view/controls/theme.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace quillon::app {

namespace texts = resources::schema_box_texts;
using schemas::SchemaRule;

namespace {

constexpr QSize Size(780, 480);
/// Few have more of them.
constexpr int CatalogLines = 5;
constexpr int PathColumn = 3;

} // namespace

RulesDialog::RulesDialog(Editor &editor, QWidget *parent)
    : QDialog(parent), editor_(editor), before_(editor.schemas.settings().rules()),
      table_(new QTableWidget(0, PathColumn + 1)), fault_(new QLabel), catalogs_(new QListWidget) {
    setWindowTitle(texts::RulesTitle.toString());
    setObjectName(QStringLiteral("rulesDialog"));
    table_->setObjectName(QStringLiteral("rules"));
    table_->setAccessibleName(texts::RulesName.toString());
    table_->setHorizontalHeaderLabels(
        {texts::PatternColumn.toString(), texts::RootColumn.toString(),
         texts::NamespaceColumn.toString(), texts::PathColumn.toString()});
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setTabKeyNavigation(false);
    auto *hint = new QLabel(texts::RulesHint.toString());
    hint->setWordWrap(true);
    fault_->setForegroundRole(controls::FaultRole);
    fault_->setObjectName(QStringLiteral("fault"));
    fault_->setWordWrap(true);
    fault_->hide();
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(resources::texts::ButtonOk.toString());
    buttons->button(QDialogButtonBox::Cancel)->setText(resources::texts::ButtonCancel.toString());
    connect(buttons, &QDialogButtonBox::accepted, this, &RulesDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &RulesDialog::reject);

    auto *row = new QHBoxLayout;
    row->addWidget(table_, 1);
    row->addWidget(ruleButtons());
    auto *column = new QVBoxLayout(this);
    column->addWidget(hint);
    column->addLayout(row, 1);
    column->addWidget(fault_);
    column->addWidget(catalogsGroup());
    column->addWidget(buttons);
    resize(Size);
    for (const SchemaRule &rule : before_)
        addRow(table_->rowCount(), rule);
    table_->setCurrentCell(0, 0);
    connect(table_, &QTableWidget::currentCellChanged, this, &RulesDialog::showState);
    showState();
}

QPushButton *RulesDialog::addButton(QVBoxLayout &column, QStringView caption, const char *name,
                                    void (RulesDialog::*press)()) {
    auto *button = new QPushButton(caption.toString());
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, press] {
        ui::guarded([&] { (this->*press)(); });
        showState();
    });
    column.addWidget(button);
    return button;
}

QWidget *RulesDialog::ruleButtons() {
    auto *box = new QWidget;
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins({});
    addButton(*column, texts::AddRule, "add", &RulesDialog::addRule);
    change_ = addButton(*column, texts::ChangeSchema, "change", &RulesDialog::changeSchema);
    remove_ = addButton(*column, texts::RemoveRule, "remove", &RulesDialog::removeRule);
    up_ = addButton(*column, texts::RuleUp, "up", &RulesDialog::moveUp);
    down_ = addButton(*column, texts::RuleDown, "down", &RulesDialog::moveDown);
    column->addStretch(1);
    return box;
}

QWidget *RulesDialog::catalogsGroup() {
    auto *box = new QGroupBox(texts::CatalogsGroup.toString());
    auto *hint = new QLabel(texts::CatalogsHint.toString());
    hint->setWordWrap(true);
    catalogs_->setObjectName(QStringLiteral("catalogs"));
    catalogs_->setAccessibleName(texts::CatalogsGroup.toString());
    catalogs_->addItems(editor_.schemas.settings().catalogs());
    catalogs_->setMaximumHeight(CatalogLines * catalogs_->fontMetrics().lineSpacing());
    auto *buttons = new QVBoxLayout;
    addButton(*buttons, texts::AddCatalog, "addCatalog", &RulesDialog::addCatalog);
    removeCatalog_ =
        addButton(*buttons, texts::RemoveCatalog, "removeCatalog", &RulesDialog::removeCatalog);
    buttons->addStretch(1);
    auto *grid = new QGridLayout(box);
    grid->addWidget(hint, 0, 0, 1, 2);
    grid->addWidget(catalogs_, 1, 0);
    grid->addLayout(buttons, 1, 1);
    connect(catalogs_, &QListWidget::currentRowChanged, this, &RulesDialog::showState);
    return box;
}

void RulesDialog::addCatalog() {
    namespace flag = ui::file_dialog_flag;
    const QString path =
        ui::dialogs()
            .showOpen({.title = texts::CatalogTitle.toString(),
                       .filter = texts::CatalogFilter.toString(),
                       .flags = flag::FileMustExist | flag::PathMustExist | flag::HideReadOnly,
                       .path = {}})
            .path;
    if (!path.isEmpty() && catalogs_->findItems(path, Qt::MatchExactly).isEmpty())
        catalogs_->addItem(path);
}

void RulesDialog::removeCatalog() {
    delete catalogs_->takeItem(catalogs_->currentRow());
}

void RulesDialog::addRow(int row, const SchemaRule &rule) {
    table_->insertRow(row);
    int column = 0;
    for (const QString &text : {rule.filePattern, rule.rootName, rule.rootNamespace, rule.path}) {
        auto *item = new QTableWidgetItem(text);
        item->setToolTip(text);
        table_->setItem(row, column++, item);
    }
}

SchemaRule RulesDialog::ruleAt(int row) const {
    const auto text = [&](int column) { return table_->item(row, column)->text().simplified(); };
    return {text(0), text(1), text(2), text(PathColumn)};
}

void RulesDialog::addRule() {
    const QString path = editor_.schemaCommands.askForSchema(texts::RuleSchemaTitle.toString());
    if (path.isEmpty())
        return;
    // What the present document is like is what is meant most often.
    const schemas::DocumentReferences &document = editor_.schemas.references();
    const QFileInfo file(editor_.state.m_FileName);
    SchemaRule rule;
    rule.path = path;
    if (!document.rootNamespace.isEmpty())
        rule.rootNamespace = document.rootNamespace;
    else if (!document.rootName.isEmpty())
        rule.rootName = document.rootName;
    else
        rule.filePattern = QStringLiteral("*.") + file.suffix();
    const int row = table_->rowCount();
    addRow(row, rule);
    table_->setCurrentCell(row, 0);
}

void RulesDialog::changeSchema() {
    const QString path = editor_.schemaCommands.askForSchema(texts::RuleSchemaTitle.toString());
    if (!path.isEmpty())
        table_->item(table_->currentRow(), PathColumn)->setText(path);
}

void RulesDialog::removeRule() {
    table_->removeRow(table_->currentRow());
}

void RulesDialog::move(int step) {
    const int row = table_->currentRow();
    const SchemaRule rule = ruleAt(row);
    table_->removeRow(row);
    addRow(row + step, rule);
    table_->setCurrentCell(row + step, 0);
}

void RulesDialog::showState() {
    const int row = table_->currentRow();
    change_->setEnabled(row >= 0);
    remove_->setEnabled(row >= 0);
    up_->setEnabled(row > 0);
    down_->setEnabled(row >= 0 && row + 1 < table_->rowCount());
    removeCatalog_->setEnabled(catalogs_->currentRow() >= 0);
}

void RulesDialog::accept() {
    std::vector<SchemaRule> rules;
    for (int row = 0; row < table_->rowCount(); ++row) {
        rules.push_back(ruleAt(row));
        if (!rules.back().isComplete()) {
            fault_->setText(texts::IncompleteRule.toString().arg(row + 1));
            fault_->show();
            table_->setCurrentCell(row, 0);
            table_->setFocus();
            return;
        }
    }
    ui::guarded([&] {
        const schemas::SchemaSettings &settings = editor_.schemas.settings();
        settings.changeRules(before_, rules);
        QStringList catalogs;
        for (int row = 0; row < catalogs_->count(); ++row)
            catalogs.append(catalogs_->item(row)->text());
        if (catalogs != settings.catalogs())
            settings.setCatalogs(catalogs);
        editor_.schemas.findAgain();
    });
    QDialog::accept();
}

} // namespace quillon::app
