#include "tests/support/patience.h"
#include "tests/support/scripted_dialogs.h"
#include "tools/options_dialog.h"

#include <QComboBox>
#include <QFontComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon::test {

namespace {

using settings::ExternalEditor;
using tools::Options;
using tools::OptionsDialog;

class OptionsTest : public testing::Test {
protected:
    void show(const std::vector<ExternalEditor> &editors, qsizetype recentFiles = 3) {
        dialog = std::make_unique<OptionsDialog>(Options{editors, "MS UI Gothic", 10}, recentFiles,
                                                 nullptr);
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get(), Patience));
    }
    template <typename Control>
    Control &find(const char *name) {
        return *dialog->findChild<Control *>(name);
    }
    void press(const char *button) { find<QPushButton>(button).click(); }
    void enter(const char *field, const QString &text) {
        find<QLineEdit>(field).selectAll();
        QTest::keyClicks(&find<QLineEdit>(field), text);
    }
    void select(int row) { find<QListWidget>("editors").setCurrentRow(row); }
    QString fault(const char *label) { return find<QLabel>(label).text(); }
    /// Enter, wherever the focus is.
    bool confirm() {
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
        return dialog->result() == QDialog::Accepted;
    }
    QStringList names() {
        QStringList out;
        for (const ExternalEditor &editor : dialog->options().editors)
            out.append(editor.name);
        return out;
    }

    ScriptedDialogs dialogs;
    std::unique_ptr<OptionsDialog> dialog;
};

TEST_F(OptionsTest, WhatIsNotChangedComesBackAsItWas) {
    show({{"一", "/one"}, {"two", "/two"}});
    EXPECT_EQ(find<QLineEdit>("name").text(), "一");
    EXPECT_TRUE(confirm());
    const Options chosen = dialog->options();
    EXPECT_EQ(chosen.editors, (std::vector<ExternalEditor>{{"一", "/one"}, {"two", "/two"}}));
    EXPECT_EQ(chosen.fontName, "MS UI Gothic") << "though it is not installed";
    EXPECT_EQ(chosen.fontSize, 10);
    EXPECT_EQ(chosen.theme, controls::ThemeMode::Automatic);
    EXPECT_FALSE(chosen.clearRecentFiles);
    find<QComboBox>("theme").setCurrentText("ダーク");
    EXPECT_EQ(dialog->options().theme, controls::ThemeMode::Dark);
    EXPECT_EQ(chosen.language, "ja") << "what no language is called by is Japanese";
    find<QComboBox>("language").setCurrentText("English");
    EXPECT_EQ(dialog->options().language, "en");
    find<QComboBox>("language").setCurrentText("デスクトップに合わせる");
    EXPECT_EQ(dialog->options().language, "system");
}

TEST_F(OptionsTest, EditorsAreAddedChangedOrderedAndRemoved) {
    show({{"a", "/a"}, {"b", "/b"}});
    press("add");
    enter("name", " c ");
    dialogs.answerFile({"/usr/bin/c", 0});
    press("browse");
    EXPECT_EQ(dialogs.openRequests.back().path, "");
    EXPECT_EQ(names(), QStringList({"a", "b", "c"}));
    EXPECT_FALSE(find<QPushButton>("down").isEnabled());
    press("up");
    press("up");
    EXPECT_EQ(names(), QStringList({"c", "a", "b"}));
    EXPECT_FALSE(find<QPushButton>("up").isEnabled());
    press("down");
    select(0);
    enter("name", "changed");
    dialogs.answerFile({});
    press("browse");
    EXPECT_EQ(dialogs.openRequests.back().path, "/a");
    select(2);
    press("remove");
    EXPECT_EQ(dialog->options().editors,
              (std::vector<ExternalEditor>{{"changed", "/a"}, {"c", "/usr/bin/c"}}));
    press("remove");
    press("remove");
    EXPECT_FALSE(find<QLineEdit>("name").isEnabled());
    EXPECT_FALSE(find<QPushButton>("remove").isEnabled());
    EXPECT_TRUE(confirm());
    EXPECT_TRUE(dialog->options().editors.empty());
}

TEST_F(OptionsTest, ThereIsRoomForElevenEditors) {
    std::vector<ExternalEditor> ten;
    for (int i = 0; i < 10; ++i)
        ten.push_back({QString::number(i), "/p"});
    show(ten);
    press("add");
    EXPECT_EQ(names().size(), 11);
    EXPECT_FALSE(find<QPushButton>("add").isEnabled());
    press("remove");
    EXPECT_TRUE(find<QPushButton>("add").isEnabled());
}

TEST_F(OptionsTest, WhatDoesNotFitIsToldBesideTheFieldAndKeepsTheDialogOpen) {
    show({{"a", "/a"}});
    press("add");
    EXPECT_EQ(fault("nameFault"), "") << "nothing is wrong while it is being typed";
    EXPECT_FALSE(confirm());
    EXPECT_EQ(fault("nameFault"), "名前を入力してください。");
    EXPECT_EQ(fault("programFault"), "プログラムを指定してください。");
    EXPECT_EQ(find<QLineEdit>("name").accessibleDescription(), fault("nameFault"));
    enter("name", "a");
    EXPECT_EQ(fault("nameFault"), "同じ名前の外部エディタがあります。別の名前を入力してください。");
    enter("name", "b");
    EXPECT_EQ(fault("nameFault"), "");
    EXPECT_FALSE(confirm());
    EXPECT_TRUE(find<QLineEdit>("program").hasFocus());
    enter("program", "/b");
    EXPECT_EQ(fault("programFault"), "");
    // A fault in an editor that is not shown is led to.
    enter("name", "a ");
    select(1);
    EXPECT_FALSE(confirm());
    EXPECT_EQ(find<QListWidget>("editors").currentRow(), 0);
    EXPECT_TRUE(find<QLineEdit>("name").hasFocus());
    enter("name", "other");
    find<QFontComboBox>("font").setEditText(" ");
    EXPECT_FALSE(confirm());
    EXPECT_EQ(fault("fontFault"), "フォント名を入力してください。");
    find<QFontComboBox>("font").setEditText("Sans Serif");
    EXPECT_EQ(fault("fontFault"), "");
    EXPECT_TRUE(confirm());
    EXPECT_EQ(names(), QStringList({"other", "a"}));
}

TEST_F(OptionsTest, FontAndRecentFiles) {
    show({}, 0);
    EXPECT_FALSE(find<QPushButton>("clear").isEnabled());
    show({}, 2);
    find<QFontComboBox>("font").setEditText("Noto Sans");
    find<QSpinBox>("size").setValue(24);
    EXPECT_EQ(find<QLabel>("sample").font().family(), "Noto Sans");
    EXPECT_EQ(find<QLabel>("sample").font().pointSize(), 24);
    press("clear");
    EXPECT_FALSE(find<QPushButton>("clear").isEnabled());
    EXPECT_EQ(dialog->options().fontName, "Noto Sans");
    EXPECT_EQ(dialog->options().fontSize, 24);
    EXPECT_TRUE(dialog->options().clearRecentFiles);
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
}

TEST_F(OptionsTest, EveryControlIsReachedByKeyAndHasAName) {
    show({{"a", "/a"}, {"b", "/b"}});
    select(1);
    QSet<QString> keys;
    const auto count = [&](const QString &caption) {
        static const QRegularExpression accessKey("&([A-Z])");
        const QString key = accessKey.match(caption).captured(1);
        if (key.isEmpty())
            return;
        EXPECT_FALSE(keys.contains(key)) << caption.toStdString();
        keys.insert(key);
    };
    for (const QLabel *label : dialog->findChildren<QLabel *>())
        count(label->text());
    for (const QPushButton *button : dialog->findChildren<QPushButton *>())
        count(button->text());
    EXPECT_EQ(keys.size(), 13);

    QStringList order;
    QWidget *const first = dialog->focusWidget();
    do {
        QWidget *const at = dialog->focusWidget();
        EXPECT_TRUE(!at->accessibleName().isEmpty() || order.size() > 9)
            << at->objectName().toStdString();
        order.append(at->objectName());
        QTest::keyClick(at, Qt::Key_Tab);
    } while (dialog->focusWidget() != first && order.size() < 30);
    // "down" is disabled here; OK and Cancel have no names of ours.
    EXPECT_EQ(order,
              QStringList({"editors", "add", "remove", "up", "name", "program", "browse", "font",
                           "size", "theme", "language", "firstPage", "clear", "", ""}));
}

} // namespace

} // namespace quillon::test
