#include "app/main_window/bind_dialog.h"
#include "app/main_window/rules_dialog.h"
#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>

namespace quillon::test {

namespace {

const QByteArray Xsd = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
                       "<xs:element name='r'/></xs:schema>";
const QByteArray Start = "<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' ";

/// The button in the status bar and the boxes about schemas.
class SchemaBoxes : public EditorWindow {
protected:
    void show(const QByteArray &document) {
        open(document);
        settle();
    }
    void settle() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !editor().schemas.isFinding(); }, Patience));
    }
    QString statusButton() { return form->findChild<QPushButton *>("schemaButton")->text(); }
    QWidget &box() {
        form->mnuToolSchemas_Click();
        return *form->findChild<QWidget *>("schemaDialog");
    }
    QPushButton &boxButton(const char *name) { return *box().findChild<QPushButton *>(name); }
    QStringList rows() {
        QStringList rows;
        const auto *list = box().findChild<QTreeWidget *>("schemas");
        for (int row = 0; row < list->topLevelItemCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < list->columnCount(); ++column)
                cells.append(list->topLevelItem(row)->text(column));
            rows.append(cells.join(u'|'));
        }
        return rows;
    }
};

TEST_F(SchemaBoxes, TellWhatIsInForce) {
    EXPECT_EQ(statusButton(), "スキーマ: 文書なし");
    show("<r/>");
    EXPECT_EQ(statusButton(), "スキーマなし");
    EXPECT_EQ(rows(), QStringList());
    EXPECT_FALSE(boxButton("open").isEnabled() || boxButton("fetch").isEnabled());

    // The box that is open follows.
    write("a&b.xsd", Xsd);
    show("<?xml-model href='http://x.example/r.rng'?>" + Start +
         "xsi:noNamespaceSchemaLocation='a&amp;b.xsd'/>");
    EXPECT_EQ(statusButton(), "スキーマ: a&&b.xsd（xsi:noNamespaceSchemaLocation）");
    EXPECT_EQ(rows(), (QStringList{"a&b.xsd|XML Schema|xsi:noNamespaceSchemaLocation|使用中",
                                   "r.rng|不明|xml-model|未取得"}));
    EXPECT_TRUE(boxButton("open").isEnabled());
    EXPECT_FALSE(boxButton("fetch").isEnabled());
    auto *list = box().findChild<QTreeWidget *>("schemas");
    list->setCurrentItem(list->topLevelItem(1));
    EXPECT_TRUE(boxButton("fetch").isEnabled());
    EXPECT_FALSE(boxButton("open").isEnabled());

    show(Start + "xsi:noNamespaceSchemaLocation='no.xsd'/>");
    EXPECT_EQ(statusButton(), "スキーマ: no.xsd（使用不可）");
    editor().commands.ClearStatus();
    EXPECT_EQ(statusButton(), "スキーマ: 文書なし");
}

TEST_F(SchemaBoxes, BindingShowsWhatWillBeWritten) {
    show("<r/>");
    app::BindDialog dialog(editor(), nullptr);
    const auto forms = [&] {
        QStringList captions;
        for (const QRadioButton *choice : dialog.findChildren<QRadioButton *>())
            captions.append(choice->accessibleDescription() + (choice->isChecked() ? "*" : ""));
        return captions;
    };
    EXPECT_EQ(forms(), QStringList());
    dialogs.answerFile({write("no.xml", "<a/>"), 0});
    dialog.findChild<QPushButton *>("browse")->click();
    EXPECT_EQ(forms(), QStringList());
    dialogs.answerFile({write("a.xsd", Xsd), 0});
    dialog.findChild<QPushButton *>("browse")->click();
    EXPECT_EQ(forms(), (QStringList{"xsi:noNamespaceSchemaLocation=\"a.xsd\"*",
                                    "<?xml-model href=\"a.xsd\" type=\"application/xml\" "
                                    "schematypens=\"http://www.w3.org/2001/XMLSchema\"?>"}));
    dialog.accept();
    EXPECT_TRUE(xml().contains("xsi:noNamespaceSchemaLocation=\"a.xsd\""));
    settle();
    EXPECT_EQ(statusButton(), "スキーマ: a.xsd（xsi:noNamespaceSchemaLocation）");
}

TEST_F(SchemaBoxes, RulesAreEditedAndTakeEffect) {
    show("<r/>");
    const QString schema = write("a.xsd", Xsd);
    app::RulesDialog dialog(editor(), nullptr);
    auto &table = *dialog.findChild<QTableWidget *>("rules");
    dialogs.answerFile({schema, 0});
    dialog.findChild<QPushButton *>("add")->click();
    ASSERT_EQ(table.rowCount(), 1);
    EXPECT_EQ(table.item(0, 1)->text(), "r");
    table.item(0, 1)->setText(" ");
    dialog.accept();
    EXPECT_EQ(dialog.findChild<QLabel *>("fault")->text().left(5), "1 行目:");
    table.item(0, 0)->setText("*.xml");
    dialogs.answerFile({write("catalog.xml", "<catalog/>"), 0});
    dialog.findChild<QPushButton *>("addCatalog")->click();
    dialog.accept();
    settle();
    EXPECT_EQ(statusButton(), "スキーマ: a.xsd（規則）");
    EXPECT_EQ(editor().schemas.settings().catalogs(), QStringList(path("catalog.xml")));

    app::RulesDialog again(editor(), nullptr);
    again.findChild<QTableWidget *>("rules")->setCurrentCell(0, 0);
    again.findChild<QPushButton *>("remove")->click();
    again.accept();
    settle();
    EXPECT_EQ(statusButton(), "スキーマなし");
}

} // namespace

} // namespace quillon::test
