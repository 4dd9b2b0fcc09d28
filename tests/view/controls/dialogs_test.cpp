#include "platform/runtime/file_names.h"
#include "platform/ui/message_box.h"
#include "tests/support/scripted_dialogs.h"
#include "view/controls/desktop_dialogs.h"
#include "view/controls/library_texts.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace quillon;
using namespace quillon::controls;
using quillon::test::ScriptedDialogs;

namespace {

/// Has the test act on the modal window that is about to open.
template <typename Window>
void whenOpen(const std::function<void(Window &)> &act) {
    QTimer::singleShot(0, [act] {
        auto *window = qobject_cast<Window *>(QApplication::activeModalWidget());
        ASSERT_NE(window, nullptr);
        act(*window);
        if (window->isVisible()) {
            ADD_FAILURE() << "the test left the window open";
            window->reject();
        }
    });
}

TEST(InputBox, ReturnsWhatWasTypedAndNothingOnCancel) {
    DesktopDialogs desktop;
    whenOpen<QInputDialog>([](QInputDialog &box) {
        EXPECT_EQ(box.labelText(), QStringLiteral("URL?"));
        EXPECT_EQ(box.textValue(), QString());
        QTest::keyClicks(box.findChild<QLineEdit *>(), QStringLiteral("<a>"));
        box.accept();
    });
    EXPECT_EQ(desktop.inputText(QStringLiteral("URL?")), QStringLiteral("<a>"));
    whenOpen<QInputDialog>([](QInputDialog &box) {
        box.setTextValue(QStringLiteral("x"));
        box.reject();
    });
    EXPECT_EQ(desktop.inputText(QStringLiteral("URL?")), QString());
}

TEST(InputBox, SaysWhatComesOfItAndOffersTexts) {
    DesktopDialogs desktop;
    const ui::InputHelp help{[](const QString &typed) { return u'[' + typed + u']'; },
                             {QStringLiteral("last"), QStringLiteral("first")}};
    whenOpen<QDialog>([](QDialog &box) {
        auto *field = box.findChild<QComboBox *>();
        auto *line = box.findChild<QLabel *>(QStringLiteral("explanation"));
        EXPECT_EQ(line->text(), QStringLiteral("[]"));
        QTest::keyClick(field, Qt::Key_Down);
        EXPECT_EQ(line->text(), QStringLiteral("[last]"));
        QTest::keyClicks(field, QStringLiteral("!"));
        EXPECT_EQ(field->accessibleDescription(), QStringLiteral("[last!]"));
        box.accept();
    });
    EXPECT_EQ(desktop.inputText(QStringLiteral("URL?"), help), QStringLiteral("last!"));
    whenOpen<QDialog>([](QDialog &box) { box.reject(); });
    EXPECT_EQ(desktop.inputText(QStringLiteral("URL?"), help), QString());
}

class FileDialogs : public testing::Test {
protected:
    FileDialogs() {
        QFile file(path("old.xml"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }

    QString path(const char *name) const { return folder_.filePath(QLatin1String(name)); }

    static void enter(QFileDialog &dialog, const QString &name) {
        auto *edit = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(edit, nullptr);
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    }

    const QTemporaryDir folder_;
    DesktopDialogs desktop_;
    const QString filter_ =
        QStringLiteral("XML File(*.xml)|*.xml|XSL File(*.xsl)|*.xsl|すべて(*.*)|*.*");
};

TEST_F(FileDialogs, OpenReportsTheReadOnlyBox) {
    for (const bool tick : {true, false}) {
        whenOpen<QFileDialog>([&](QFileDialog &dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("開く"));
            const auto *types = dialog.findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
            ASSERT_NE(types, nullptr);
            EXPECT_EQ(types->currentText(), QStringLiteral("XMLファイル (*.xml)"));
            EXPECT_EQ(dialog.nameFilters().last(), QStringLiteral("すべて (*)"));
            auto *box = dialog.findChild<QCheckBox *>();
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text(), QStringLiteral("読み取り専用で開く(&R)"));
            EXPECT_EQ(box->isChecked(), !tick);
            box->click();
            enter(dialog, path("old.xml"));
        });
        const int before = tick ? 4096 : 4097;
        const auto chosen = desktop_.showOpen({QString(), filter_, before, QString()});
        EXPECT_EQ(chosen.path, path("old.xml"));
        EXPECT_EQ(chosen.flags, tick ? 4097 : 4096);
    }
}

/// What there is to be read in a widget, without what the user or the system has named.
QStringList wordsIn(const QFileDialog &dialog) {
    QStringList words;
    for (const auto *label : dialog.findChildren<QLabel *>())
        words.append(label->text());
    for (const auto *button : dialog.findChildren<QAbstractButton *>())
        words.append({button->text(), button->toolTip(), button->accessibleName()});
    for (const auto *action : dialog.findChildren<QAction *>())
        words.append({action->text(), action->toolTip()});
    for (const auto *view : dialog.findChildren<QHeaderView *>()) {
        for (int at = 0; view->model() && at < view->count(); ++at)
            words.append(view->model()->headerData(at, Qt::Horizontal).toString());
    }
    words.removeAll(QString());
    return words;
}

TEST_F(FileDialogs, SpeakJapaneseWithoutTheLibrarysTranslations) {
    LibraryTexts texts;
    QCoreApplication::installTranslator(&texts);
    const auto check = [&](QFileDialog &dialog) {
        const QStringList words = wordsIn(dialog);
        EXPECT_GT(words.size(), 20);
        static const QRegularExpression english(QStringLiteral("[A-Za-z]{3,}"));
        for (QString word : words) {
            word.remove(QStringLiteral("UTF-8")).remove(QStringLiteral("OK"));
            EXPECT_FALSE(english.match(word).hasMatch()) << word.toStdString();
        }
        dialog.reject();
    };
    whenOpen<QFileDialog>(check);
    desktop_.showOpen({QString(), filter_, 4096, QString(), folder_.path()});
    whenOpen<QFileDialog>(check);
    desktop_.showSave({QString(), filter_, 2, QString(), folder_.path()});
    QCoreApplication::removeTranslator(&texts);
}

TEST_F(FileDialogs, NamesThatAreNotUtf8AreListedApart) {
    const QByteArray folder = folder_.path().toUtf8() + "/\x8e\xa6";
    ASSERT_EQ(::mkdir(folder.constData(), 0700), 0);
    const QByteArray names[] = {folder_.path().toUtf8() + "/\x95\x5c.xml", folder + "/a.xml",
                                folder_.path().toUtf8() + "/\x95\x5c.txt"};
    for (const QByteArray &name : names)
        ::close(::open(name.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    for (const int at : {0, 1}) {
        whenOpen<QFileDialog>([&](QFileDialog &dialog) {
            QComboBox *list = nullptr;
            for (auto *box : dialog.findChildren<QComboBox *>()) {
                if (!box->accessibleName().isEmpty() && box->isVisible())
                    list = box;
            }
            ASSERT_NE(list, nullptr);
            ASSERT_EQ(list->count(), 2);
            EXPECT_EQ(list->itemText(1), QStringLiteral("表.xml"));
            EXPECT_EQ(list->itemText(0), QStringLiteral("示/a.xml"));
            list->setCurrentIndex(1 - at);
            Q_EMIT list->textActivated(list->currentText());
            QTest::keyClick(dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit")),
                            Qt::Key_Return);
        });
        const auto chosen =
            desktop_.showOpen({QString(), filter_, 4096, QString(), folder_.path()});
        EXPECT_EQ(quillon::runtime::encodedPath(chosen.path), names[at]);
    }
    whenOpen<QFileDialog>(
        [&](QFileDialog &dialog) { enter(dialog, folder_.filePath(QStringLiteral("表.xml"))); });
    EXPECT_EQ(quillon::runtime::encodedPath(
                  desktop_.showOpen({QString(), filter_, 4096, QString()}).path),
              names[0]);
    for (const QByteArray &name : names)
        ::unlink(name.constData());
    ::rmdir(folder.constData());
    // Where there is none, there is no list.
    whenOpen<QFileDialog>([&](QFileDialog &dialog) {
        for (auto *box : dialog.findChildren<QComboBox *>())
            EXPECT_TRUE(!box->isVisible() || box->accessibleName().isEmpty());
        dialog.reject();
    });
    desktop_.showOpen({QString(), filter_, 4096, QString(), folder_.path()});
}

TEST_F(FileDialogs, OpenRefusesWhatItsFlagsExclude) {
    ScriptedDialogs script;
    script.answerMessage(ui::message_answer::Ok);
    script.answerMessage(ui::message_answer::Ok);
    whenOpen<QFileDialog>([&](QFileDialog &dialog) {
        EXPECT_EQ(dialog.findChild<QCheckBox *>(), nullptr);
        enter(dialog, path("none.xml"));
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
    EXPECT_EQ(desktop_.showOpen({QString(), filter_, 4096 + 4, QString()}).path, QString());
    whenOpen<QFileDialog>([&](QFileDialog &dialog) {
        enter(dialog, path("none/none.xml"));
        EXPECT_TRUE(dialog.isVisible());
        enter(dialog, path("none.xml"));
    });
    EXPECT_EQ(desktop_.showOpen({QString(), filter_, 2048 + 4, QString()}).path, path("none.xml"));
    ASSERT_EQ(script.messages.size(), 2u);
    EXPECT_TRUE(script.messages[0].text.startsWith(path("none.xml")));
    EXPECT_EQ(script.messages[0].style, ui::message_style::Exclamation);
}

TEST_F(FileDialogs, SaveAddsTheExtensionBeforeItAsks) {
    ScriptedDialogs script;
    script.answerMessage(ui::message_answer::No);
    script.answerMessage(ui::message_answer::Yes);
    whenOpen<QFileDialog>([&](QFileDialog &dialog) {
        enter(dialog, path("old"));
        EXPECT_TRUE(dialog.isVisible());
        enter(dialog, path("old"));
    });
    const ui::FileDialogRequest request{QStringLiteral("t"), filter_, 2, QString()};
    EXPECT_EQ(desktop_.showSave(request).path, path("old.xml"));
    ASSERT_EQ(script.messages.size(), 2u);
    EXPECT_TRUE(script.messages[0].text.startsWith(path("old.xml")));
    EXPECT_EQ(script.messages[0].style, 4 + 48 + 256);
    EXPECT_EQ(script.messages[0].title, QStringLiteral("t"));

    // Without the flag nothing is asked.
    whenOpen<QFileDialog>([&](QFileDialog &dialog) { enter(dialog, path("old.xml")); });
    EXPECT_EQ(desktop_.showSave({QString(), filter_, 0, QString()}).path, path("old.xml"));
}

TEST_F(FileDialogs, SaveAddsTheExtensionOfTheChosenFilter) {
    const std::tuple<int, const char *, const char *> cases[] = {
        {0, "new", "new.xml"},
        {1, "new", "new.xsl"},
        {1, "new.txt", "new.txt"},
        {2, "new", "new"},
    };
    for (const auto &[filter, typed, saved] : cases) {
        whenOpen<QFileDialog>([&, filter = filter, typed = typed](QFileDialog &dialog) {
            auto *types = dialog.findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
            ASSERT_NE(types, nullptr);
            while (types->currentIndex() < filter)
                QTest::keyClick(types, Qt::Key_Down);
            enter(dialog, path(typed));
        });
        EXPECT_EQ(desktop_.showSave({QString(), filter_, 2, QString()}).path, path(saved));
    }
}

} // namespace
