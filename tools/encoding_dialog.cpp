#include "tools/encoding_dialog.h"

#include "platform/ui/error_boundary.h"
#include "platform/xml/query/xpath.h"
#include "resources/encoding_texts.h"
#include "resources/texts.h"
#include "tree/node_captions.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace quillon::tools {

namespace texts = resources::encoding_texts;
using xml::FileEncoding;
using xml::LineEnds;
using xml::UnheldCharacter;

namespace {

constexpr QSize DialogSize(620, 380);

/// What is offered, as far as the system supports it.
std::vector<FileEncoding> offeredEncodings() {
    std::vector<FileEncoding> all = {{QStringLiteral("UTF-8")},
                                     {QStringLiteral("UTF-8"), true},
                                     {QStringLiteral("UTF-16"), true},
                                     {QStringLiteral("UTF-16"), true, true}};
    for (const char *name : {"Shift_JIS", "EUC-JP", "ISO-2022-JP", "US-ASCII", "ISO-8859-1",
                             "ISO-8859-2", "ISO-8859-15", "windows-1250", "windows-1251",
                             "windows-1252", "KOI8-R", "GB18030", "GBK", "Big5", "EUC-KR"})
        all.push_back({QString::fromLatin1(name)});
    std::erase_if(all, [](const FileEncoding &one) { return !xml::isEncodingSupported(one.name); });
    return all;
}

QString nameOf(const FileEncoding &encoding) {
    if (encoding.name.startsWith(QLatin1String("UTF-16"), Qt::CaseInsensitive))
        return (encoding.isBigEndian ? texts::BigEndian : texts::LittleEndian)
            .toString()
            .arg(encoding.name);
    return encoding.byteOrderMark ? texts::WithMark.toString().arg(encoding.name) : encoding.name;
}

QString placeOf(const xml::Node &node) {
    QString place = tree::kindText(node.nodeType());
    if (node.nodeType() == xml::NodeType::Attribute || node.nodeType() == xml::NodeType::Element)
        place += u' ' + node.nodeName();
    const xml::Node above =
        node.nodeType() == xml::NodeType::Attribute ? xml::ownerElement(node) : node.parentNode();
    return above.nodeType() == xml::NodeType::Element
               ? texts::PlaceInElement.toString().arg(place, above.nodeName())
               : place;
}

QTreeWidgetItem *rowOf(const UnheldCharacter &one) {
    const auto code = quint32(one.character);
    const QString reference = QStringLiteral("&#%1;").arg(code);
    auto *row = new QTreeWidgetItem;
    row->setText(0, one.line == 0 ? QString() : QString::number(one.line));
    const QString hexadecimal =
        QString::number(code, 16).toUpper().rightJustified(4, QLatin1Char('0'));
    row->setText(
        1, QStringLiteral("%1 (U+%2)").arg(QString::fromUcs4(&one.character, 1), hexadecimal));
    row->setText(2, placeOf(one.node));
    row->setText(3, one.becomesReference ? texts::BecomesReference.toString().arg(reference)
                                         : texts::CannotBeWritten.toString());
    return row;
}

} // namespace

EncodingDialog::EncodingDialog(const edit::EncodingCommands &commands, QWidget *parent)
    : QDialog(parent), commands_(commands), encodings_(offeredEncodings()) {
    setWindowTitle(texts::Title.toString());
    setObjectName(QStringLiteral("encodingDialog"));
    sum_ = new QLabel;
    sum_->setObjectName(QStringLiteral("sum"));
    sum_->setWordWrap(true);
    sum_->setTextFormat(Qt::PlainText);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    change_ = buttons->button(QDialogButtonBox::Ok);
    change_->setText(texts::ChangeButton.toString());
    buttons->button(QDialogButtonBox::Cancel)->setText(resources::texts::ButtonCancel.toString());
    goTo_ = buttons->addButton(texts::GoToButton.toString(), QDialogButtonBox::ActionRole);
    goTo_->setAutoDefault(false);
    connect(goTo_, &QPushButton::clicked, this, &EncodingDialog::goToCurrent);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *column = new QVBoxLayout(this);
    column->addWidget(fields());
    column->addWidget(unheldList(), 1);
    column->addWidget(sum_);
    column->addWidget(buttons);
    resize(DialogSize);
    connect(encoding_, &QComboBox::currentIndexChanged, this,
            [this] { ui::guarded([this] { check(); }); });
    connect(lineEnds_, &QComboBox::currentIndexChanged, this, &EncodingDialog::showSum);
    showSum();
}

QWidget *EncodingDialog::fields() {
    auto *box = new QWidget;
    const auto present = commands_.present();
    const auto isPresent = [&](const FileEncoding &one) {
        return present && xml::isSameEncoding(one, *present);
    };
    auto at = std::ranges::find_if(encodings_, isPresent);
    if (at == encodings_.end() && present)
        at = encodings_.insert(encodings_.begin(), *present);
    encoding_ = new QComboBox;
    encoding_->setObjectName(QStringLiteral("encoding"));
    for (const FileEncoding &one : encodings_)
        encoding_->addItem(nameOf(one));
    encoding_->setCurrentIndex(present ? int(at - encodings_.begin()) : -1);
    lineEnds_ = new QComboBox;
    lineEnds_->setObjectName(QStringLiteral("lineEnds"));
    for (const resources::Text &caption :
         {texts::LineEndsKeep, texts::LineEndsLf, texts::LineEndsCrLf})
        lineEnds_->addItem(caption.toString());
    auto *now = new QLabel(texts::Present.toString().arg(
        present ? nameOf(*present)
                : texts::PresentNotSupported.toString().arg(commands_.declared())));
    now->setTextFormat(Qt::PlainText);
    auto *form = new QFormLayout(box);
    form->setContentsMargins({});
    form->addRow(now);
    form->addRow(texts::EncodingLabel.toString(), encoding_);
    form->addRow(texts::LineEndsLabel.toString(), lineEnds_);
    return box;
}

QWidget *EncodingDialog::unheldList() {
    auto *box = new QWidget;
    list_ = new QTreeWidget;
    list_->setObjectName(QStringLiteral("unheld"));
    list_->setAccessibleName(texts::UnheldName.toString());
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setHeaderLabels({texts::LineHeader.toString(), texts::CharacterHeader.toString(),
                            texts::PlaceHeader.toString(), texts::ResultHeader.toString()});
    list_->header()->setStretchLastSection(true);
    const int letter = fontMetrics().averageCharWidth();
    list_->setColumnWidth(0, 9 * letter);
    list_->setColumnWidth(1, 18 * letter);
    list_->setColumnWidth(2, 34 * letter);
    connect(list_, &QTreeWidget::itemActivated, this, &EncodingDialog::goToCurrent);
    connect(list_, &QTreeWidget::currentItemChanged, this,
            [this] { goTo_->setEnabled(list_->currentItem()); });
    auto *label = new QLabel(texts::UnheldLabel.toString());
    label->setBuddy(list_);
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins({});
    column->addWidget(label);
    column->addWidget(list_, 1);
    return box;
}

FileEncoding EncodingDialog::encoding() const {
    const int at = encoding_->currentIndex();
    return at < 0 ? FileEncoding() : encodings_[std::size_t(at)];
}

LineEnds EncodingDialog::lineEnds() const {
    return LineEnds(lineEnds_->currentIndex());
}

void EncodingDialog::check() {
    list_->clear();
    found_ = {};
    // What has been stopped says nothing about what can be changed.
    change_->setEnabled(false);
    sum_->clear();
    found_ = commands_.check(encoding());
    QList<QTreeWidgetItem *> rows;
    // What stands in the way comes first.
    std::ranges::stable_partition(found_.characters,
                                  [](const UnheldCharacter &one) { return !one.becomesReference; });
    for (const UnheldCharacter &one : found_.characters)
        rows.append(rowOf(one));
    list_->addTopLevelItems(rows);
    showSum();
}

void EncodingDialog::showSum() {
    const auto references = std::size_t(
        std::ranges::count(found_.characters, true, &UnheldCharacter::becomesReference));
    const std::size_t obstacles = found_.characters.size() - references;
    const auto number = [this](std::size_t count) {
        const QString digits = QString::number(count);
        return !found_.isWhole && count >= edit::EncodingCommands::MostListed
                   ? texts::AtLeast.toString().arg(digits)
                   : digits;
    };
    QStringList sum;
    if (obstacles > 0)
        sum.append(texts::Obstacles.toString().arg(number(obstacles)));
    if (references > 0)
        sum.append(texts::References.toString().arg(number(references)));
    if (found_.characters.empty())
        sum.append(texts::AllIsHeld.toString());
    sum_->setText(sum.join(u'\n'));
    const auto now = commands_.present();
    const bool changes =
        !now || !xml::isSameEncoding(*now, encoding()) || lineEnds() != LineEnds::Keep;
    change_->setEnabled(obstacles == 0 && changes && encoding_->currentIndex() >= 0);
    goTo_->setEnabled(list_->currentItem());
}

void EncodingDialog::goToCurrent() {
    const int row = list_->indexOfTopLevelItem(list_->currentItem());
    if (row < 0)
        return;
    place_ = found_.characters[std::size_t(row)].node;
    reject();
}

} // namespace quillon::tools
