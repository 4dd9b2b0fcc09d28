#include "app/main_window/replace_dialog.h"
#include "platform/xml/dom/part_walk.h"
#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace quillon::test {

namespace {

class ReplaceDialogTest : public EditorWindow {
protected:
    void showDialog() {
        form->show();
        open("<r><a k='x'>x</a><b>X</b></r>");
        form->actions().action(u"mnuEditReplace")->trigger();
        dialog = form->findChild<app::ReplaceDialog *>("replaceDialog");
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog, Patience));
    }
    template <typename Control>
    Control &find(const char *name) {
        return *dialog->findChild<Control *>(name);
    }
    QPushButton &button(const char *name) { return find<QPushButton>(name); }
    QString text(const char *label) { return find<QLabel>(label).text(); }
    void enter(const char *field, const QString &typed) {
        find<QComboBox>(field).lineEdit()->selectAll();
        QTest::keyClicks(find<QComboBox>(field).lineEdit(), typed);
    }
    /// The radio button or check box with that caption, without its access key.
    QAbstractButton &option(const QString &caption) {
        for (auto *found : dialog->findChildren<QAbstractButton *>()) {
            if (found->text().section('(', 0, 0) == caption)
                return *found;
        }
        throw std::runtime_error(caption.toStdString());
    }

    app::ReplaceDialog *dialog = nullptr;
};

TEST_F(ReplaceDialogTest, TellsWhatIsWrongWhileItIsTyped) {
    showDialog();
    EXPECT_FALSE(button("findNext").isEnabled()) << "there is nothing to look for yet";
    EXPECT_EQ(text("fault"), "");
    enter("what", "(");
    EXPECT_TRUE(button("findNext").isEnabled());
    option("正規表現").click();
    EXPECT_EQ(text("fault"), "正規表現の 2 文字目の付近: ( に対応する ) がありません。");
    EXPECT_EQ(find<QComboBox>("what").accessibleDescription(), text("fault"));
    EXPECT_FALSE(button("replaceAll").isEnabled());
    EXPECT_FALSE(option("全角と半角、ひらがなとカタカナを区別する").isEnabled());
    enter("what", "(x)");
    EXPECT_EQ(text("fault"), "");
    enter("with", "$2");
    EXPECT_NE(text("fault"), "");
    enter("with", "$1");
    const QString hint = text("hint");
    option("ワイルドカード").click();
    EXPECT_NE(text("hint"), hint);
    EXPECT_TRUE(button("replaceAll").isEnabled());
    for (const char *part :
         {"要素名", "属性名", "属性値", "テキスト", "CDATA", "コメント", "処理命令"})
        option(part).click();
    EXPECT_EQ(text("fault"), "検索する場所を選択してください。");
    option("属性値").click();
    option("大文字と小文字を区別する").click();
    option("単語単位で検索する").click();
    option("選択したノードとその下").click();
    const search::SearchRequest expected{"(x)",
                                         "$1",
                                         {search::PatternKind::Wildcards, false, true, true},
                                         xml::part_kind::AttributeValue,
                                         search::SearchScope::Selection};
    EXPECT_EQ(dialog->request(), expected);
}

TEST_F(ReplaceDialogTest, FindsPlansAndReplaces) {
    showDialog();
    enter("what", "x");
    QTest::keyClick(find<QComboBox>("what").lineEdit(), Qt::Key_Return);
    EXPECT_EQ(tree().SelectedItem().Text(), "k=\"x\"");
    button("findAll").click();
    EXPECT_EQ(text("message"), "2 か所で見つかりました。");
    EXPECT_TRUE(form->findChild<app::ResultPanel *>()->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([this] { return dialog->isActiveWindow(); }, Patience));
    EXPECT_EQ(status(), text("message"));
    EXPECT_FALSE(button("execute").isEnabled());
    enter("with", "y");
    button("replaceAll").click();
    EXPECT_TRUE(button("execute").isEnabled());
    EXPECT_EQ(xml(), "<r><a k='x'>x</a><b>X</b></r>");
    button("discard").click();
    EXPECT_FALSE(button("execute").isEnabled());
    button("replaceAll").click();
    button("execute").click();
    EXPECT_EQ(xml(), "<r><a k='y'>y</a><b>X</b></r>");
    EXPECT_FALSE(button("execute").isEnabled());
    button("replace").click();
    EXPECT_EQ(text("message"), "見つかりませんでした。");
    // It keeps what has been entered, and what was entered before.
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    enter("what", "other");
    form->actions().action(u"mnuEditReplace")->trigger();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->request().what, "other");
    EXPECT_EQ(find<QComboBox>("what").itemText(0), "x");
    EXPECT_EQ(find<QComboBox>("with").itemText(0), "y");
}

} // namespace

} // namespace quillon::test
