#include "app/main_window/command_list.h"
#include "app/main_window/help_places.h"
#include "app/main_window/manual_window.h"
#include "help/manual.h"
#include "resources/language.h"
#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <set>

namespace quillon::test {

namespace {

const QString Pages = QStringLiteral(":/manual/ja");

/// The manual of the program in one of its languages, as it is.
class ManualOfTheProgram : public testing::TestWithParam<resources::Language> {
protected:
    const help::Manual manual{QStringLiteral(":/manual/") + GetParam().code.toString(),
                              app::commandList()};
};

TEST_P(ManualOfTheProgram, LacksNothingThatItRefersTo) {
    EXPECT_EQ(manual.missing().join("\n").toStdString(), "");
    static const QRegularExpression unfilled("\\{[a-z]");
    for (const help::ManualPage &page : manual.pages())
        EXPECT_FALSE(page.html.contains(unfilled)) << page.name.toStdString();
}

/// Keys stand in the prose for the program's commands, or for what the list of keys says of fields
/// and lists.
TEST_P(ManualOfTheProgram, NamesNoKeyThatThereIsNot) {
    static const QRegularExpression key("<kbd>([^<]*)</kbd>");
    const auto keysOf = [](const QString &html) {
        std::set<QString> keys;
        for (auto found = key.globalMatch(html); found.hasNext();)
            keys.insert(found.next().captured(1));
        return keys;
    };
    const std::set<QString> known = keysOf(manual.page(u"keys")->html);
    EXPECT_TRUE(known.contains("Ctrl+Shift+P"));
    const std::set<QString> plain{"Shift", "Ctrl", "Alt"};
    for (const help::ManualPage &page : manual.pages()) {
        for (const QString &one : keysOf(page.html))
            EXPECT_TRUE(known.contains(one) || plain.contains(one))
                << page.name.toStdString() << ": " << one.toStdString();
    }
}

TEST_P(ManualOfTheProgram, UsesEveryPictureThatIsThere) {
    QString all;
    for (const help::ManualPage &page : manual.pages())
        all += page.html;
    const QStringList pictures = QDir(help::Manual::picturesFolder()).entryList();
    EXPECT_GT(pictures.size(), 5);
    for (const QString &picture : pictures)
        EXPECT_TRUE(all.contains("pictures/" + picture)) << picture.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Languages, ManualOfTheProgram,
                         testing::ValuesIn(resources::languages().begin(),
                                           resources::languages().end()),
                         [](const auto &language) {
                             return language.param.code.toString().toStdString();
                         });

/// Every dialog has a chapter, also one that is new.
TEST(HelpPlaces, KnowEveryDialog) {
    static const QRegularExpression dialog("class (\\w+)( final)? : public QDialog");
    int count = 0;
    for (const char *folder : {"app", "tools", "view", "preview"}) {
        QDirIterator files(QStringLiteral(SOURCE_DIR "/") + folder, {"*.h"}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QString text = QString::fromUtf8(file.readAll());
            for (auto found = dialog.globalMatch(text); found.hasNext(); ++count) {
                QWidget named;
                named.setObjectName(found.next().captured(1));
                EXPECT_FALSE(app::helpPlace(&named).isEmpty()) << named.objectName().toStdString();
            }
        }
    }
    EXPECT_GE(count, 7);
}

class ManualWindowTest : public EditorWindow {
protected:
    ManualWindowTest() {
        form->show();
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get(), Patience));
    }
    static app::ManualWindow *manual() {
        for (QWidget *widget : QApplication::allWidgets()) {
            if (auto *window = qobject_cast<app::ManualWindow *>(widget))
                return window;
        }
        return nullptr;
    }
    static QString shown() {
        return manual()->findChild<QTextBrowser *>("manualPage")->source().toString();
    }
    void pressF1In(QWidget &widget) {
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get(), Patience));
        widget.setFocus();
        QTest::keyClick(&widget, Qt::Key_F1);
    }
};

TEST_F(ManualWindowTest, OpensAtThePlaceOfTheKeyboard) {
    open("<r/>");
    form->actions().action(u"mnuViewPanel")->trigger();
    form->actions().action(u"mnuViewCandidates")->trigger();
    std::set<QString> places;
    const help::Manual pages(Pages, app::commandList());
    for (const char *part : {"tvw", "txtEdit", "cboPath", "ie", "candidateFilter"}) {
        pressF1In(*form->findChild<QWidget *>(part));
        ASSERT_NE(manual(), nullptr);
        EXPECT_TRUE(manual()->isVisible());
        const QString place = shown().section('/', -1);
        EXPECT_TRUE(pages.hasPlace(place)) << place.toStdString();
        EXPECT_TRUE(places.insert(place).second) << part << ": " << place.toStdString();
    }
    EXPECT_TRUE(places.contains("tree"));
    form.reset();
    EXPECT_EQ(manual(), nullptr) << "it goes with its window";
}

TEST_F(ManualWindowTest, CanBeUsedAboveADialogAndOutlivesIt) {
    QTimer::singleShot(0, form.get(), [this] {
        QWidget *const dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        QTest::keyClick(dialog->findChild<QWidget *>("font"), Qt::Key_F1);
        ASSERT_NE(manual(), nullptr);
        EXPECT_EQ(manual()->parentWidget(), dialog) << "nothing else can be used meanwhile";
        EXPECT_EQ(shown().section('/', -1), "settings");
        qobject_cast<QDialog *>(dialog)->reject();
    });
    form->actions().action(u"mnuToolOption")->trigger();
    ASSERT_NE(manual(), nullptr);
    EXPECT_EQ(manual()->parentWidget(), nullptr);
    EXPECT_TRUE(manual()->isVisible());
}

TEST_F(ManualWindowTest, IsSearched) {
    form->help().showManual();
    auto &field = *manual()->findChild<QLineEdit *>("manualField");
    auto &findings = *manual()->findChild<QListWidget *>("manualFindings");
    field.insert("ワイルドカード");
    ASSERT_GT(findings.count(), 0);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(shown().section('/', -1).section('#', 0, 0), "search");
    auto &page = *manual()->findChild<QTextBrowser *>("manualPage");
    EXPECT_FALSE(page.extraSelections().isEmpty());
    field.insert("zzzz");
    EXPECT_EQ(findings.count(), 0);
    QTest::keyClick(manual(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(shown().section('/', -1), "start");
    QTest::keyClick(manual(), Qt::Key_Escape);
    QTest::keyClick(manual(), Qt::Key_Escape);
    EXPECT_FALSE(manual()->isVisible());
}

} // namespace

} // namespace quillon::test
