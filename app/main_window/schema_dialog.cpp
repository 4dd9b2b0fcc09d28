#include "app/main_window/schema_dialog.h"

#include "app/editor.h"
#include "app/main_window/bind_dialog.h"
#include "app/main_window/rules_dialog.h"
#include "platform/ui/error_boundary.h"
#include "resources/schema_box_texts.h"
#include "schemas/schema_words.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace quillon::app {

namespace texts = resources::schema_box_texts;
using schemas::SchemaLink;

namespace {

constexpr QSize Size(880, 400);
/// The names of most files, and the longest of what is said of how they were found.
constexpr int NameWidth = 180;
constexpr int LanguageWidth = 100;
constexpr int FoundByWidth = 240;
/// What is said of a schema is seldom longer.
constexpr int DetailLines = 5;

} // namespace

SchemaDialog::SchemaDialog(Editor &editor, QWidget *parent)
    : QDialog(parent), editor_(editor), list_(new QTreeWidget), details_(new QLabel) {
    setWindowTitle(texts::BoxTitle.toString());
    setObjectName(QStringLiteral("schemaDialog"));
    list_->setObjectName(QStringLiteral("schemas"));
    list_->setAccessibleName(texts::LinksName.toString());
    list_->setRootIsDecorated(false);
    list_->setHeaderLabels({texts::NameColumn.toString(), texts::LanguageColumn.toString(),
                            texts::FoundByColumn.toString(), texts::StateColumn.toString()});
    list_->header()->resizeSection(0, NameWidth);
    list_->header()->resizeSection(1, LanguageWidth);
    list_->header()->resizeSection(2, FoundByWidth);
    details_->setObjectName(QStringLiteral("details"));
    details_->setAccessibleName(texts::DetailsName.toString());
    details_->setTextFormat(Qt::PlainText);
    details_->setWordWrap(true);
    details_->setAlignment(Qt::AlignTop);
    details_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    details_->setMinimumHeight(DetailLines * details_->fontMetrics().lineSpacing());

    auto *left = new QVBoxLayout;
    left->addWidget(list_, 1);
    left->addWidget(details_);
    auto *row = new QHBoxLayout(this);
    row->addLayout(left, 1);
    buttons_ = new QVBoxLayout;
    addButtons(*buttons_);
    row->addLayout(buttons_);
    resize(Size);
    connect(list_, &QTreeWidget::currentItemChanged, this, &SchemaDialog::showRow);
    connect(&editor_.schemas, &schemas::DocumentSchemas::changed, this, &SchemaDialog::showLinks);
    showLinks();
}

QPushButton *SchemaDialog::addButton(QStringView caption, QStringView tip, const char *name,
                                     std::function<void()> press) {
    auto *button = new QPushButton(caption.toString());
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip.toString());
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this,
            [press = std::move(press)] { ui::guarded(press); });
    buttons_->addWidget(button);
    return button;
}

void SchemaDialog::addButtons(QVBoxLayout &column) {
    schemas::SchemaCommands &commands = editor_.schemaCommands;
    choose_ = addButton(texts::ChooseButton, texts::ChooseTip, "choose",
                        [&] { commands.chooseSchema(); });
    forget_ = addButton(texts::ForgetButton, {}, "forget", [&] { commands.forgetChoice(); });
    column.addSpacing(8);
    fetch_ = addButton(texts::FetchButton, texts::FetchTip, "fetch", [&, this] {
        if (const Row *row = currentRow())
            commands.fetch(QString(row->fetchable));
    });
    open_ = addButton(texts::OpenButton, {}, "open", [&, this] {
        if (const Row *row = currentRow())
            commands.openSchema(row->path);
    });
    column.addSpacing(8);
    bind_ = addButton(texts::BindButton, texts::BindTip, "bind", [this] {
        if (editor_.selection.mayLeavePane())
            BindDialog(editor_, this).exec();
    });
    create_ = addButton(texts::CreateButton, texts::CreateTip, "create", [&, this] {
        if (editor_.selection.mayLeavePane())
            commands.createSchema();
    });
    column.addSpacing(8);
    addButton(texts::RulesButton, texts::RulesTip, "rules",
              [this] { RulesDialog(editor_, this).exec(); });
    clear_ =
        addButton(texts::ClearButton, texts::ClearTip, "clear", [&] { commands.clearFetched(); });
    column.addStretch(1);
    addButton(texts::CloseButton, {}, "close", [this] { close(); })->setDefault(true);
}

void SchemaDialog::showLinks() {
    const int row = list_->indexOfTopLevelItem(list_->currentItem());
    list_->clear();
    rows_.clear();
    const schemas::DocumentSchemas &schemas = editor_.schemas;
    for (const SchemaLink &link : schemas.links())
        addLink(link);
    for (const QString &name : schemas.missing())
        addMissing(name, schemas.links());
    const int last = list_->topLevelItemCount() - 1;
    list_->setCurrentItem(list_->topLevelItem(std::clamp(row, 0, std::max(last, 0))));
    showRow();
}

void SchemaDialog::addLink(const SchemaLink &link) {
    const QString state = schemas::stateWords(link);
    QStringList details{state};
    if (!link.path.isEmpty())
        details.append(texts::PathDetail.toString().arg(link.path));
    if (!link.location.isEmpty() && link.location != link.path)
        details.append(texts::LocationDetail.toString().arg(link.location));
    if (!link.namespaceName.isEmpty())
        details.append(texts::NamespaceDetail.toString().arg(link.namespaceName));
    addRow({schemas::nameOf(link), schemas::languageName(link.kind), schemas::foundByWords(link),
            schemas::stateWord(link)},
           link.isInForce, {link.path, link.fetchable, details.join(u'\n')});
}

void SchemaDialog::addMissing(const QString &name, const std::vector<SchemaLink> &links) {
    // A part of what was fetched stands at an address, too.
    QString address = name;
    for (const SchemaLink &link : links) {
        if (link.isInForce && link.origin == schemas::Origin::Fetched)
            address = QUrl(link.location).resolved(QUrl(name)).toString();
    }
    addRow(
        {name, QString(), texts::MissingPart.toString(), texts::MissingPartWord.toString()}, false,
        {{},
         schemas::FetchedSchemas::fetchable(address),
         texts::MissingPartState.toString() + u'\n' + texts::LocationDetail.toString().arg(name)});
}

void SchemaDialog::addRow(const QStringList &cells, bool isInForce, Row row) {
    auto *item = new QTreeWidgetItem(list_, cells);
    for (int column = 0; column < cells.size(); ++column)
        item->setToolTip(column, cells[column]);
    QFont font = list_->font();
    font.setBold(isInForce);
    item->setFont(0, font);
    rows_.push_back(std::move(row));
}

const SchemaDialog::Row *SchemaDialog::currentRow() const {
    const int row = list_->indexOfTopLevelItem(list_->currentItem());
    return row < 0 ? nullptr : &rows_[std::size_t(row)];
}

void SchemaDialog::showRow() {
    const Row *row = currentRow();
    const QString failure = editor_.schemas.failure();
    details_->setText(row ? row->details : failure.isEmpty() ? texts::Nothing.toString() : failure);
    const bool hasDocument = editor_.state.showsDocument();
    const bool isWritable = hasDocument && !editor_.state.m_ReadOnly;
    choose_->setEnabled(hasDocument);
    forget_->setEnabled(editor_.schemas.hasChoice());
    fetch_->setEnabled(row && !row->fetchable.isEmpty());
    open_->setEnabled(row && !row->path.isEmpty() && !row->path.startsWith(u':'));
    bind_->setEnabled(isWritable);
    create_->setEnabled(hasDocument);
    clear_->setEnabled(editor_.schemaCommands.fetchedCount() > 0);
}

} // namespace quillon::app
