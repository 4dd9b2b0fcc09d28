#include "platform/xml/schema/grammar/load_grammar.h"
#include "tests/app/commands_fixture.h"
#include "tests/support/private_bus.h"
#include "view/controls/print_preview.h"
#include "view/controls/proposal_list.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDialog>
#include <QDialogButtonBox>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QTreeWidget>

#include <set>

namespace quillon::test {

namespace {

using controls::ActionKind;

using ui::message_answer::No;
using ui::message_answer::Ok;
using ui::message_answer::Yes;
constexpr int patienceMs = 60'000;

} // namespace

std::vector<Commands::Case> Commands::documentCases() {
    const QByteArray withoutB = "<r><a k=\"1\">t</a><c/></r>";
    const QByteArray bUp = "<r><b/><a k=\"1\">t</a><c/></r>";
    const QByteArray bDown = "<r><a k=\"1\">t</a><c/><b/></r>";
    const auto inB = [](const QByteArray &made) {
        return "<r><a k=\"1\">t</a><b>" + made + "</b><c/></r>";
    };
    const auto aheadOfB = [](const QByteArray &made) {
        return "<r><a k=\"1\">t</a>" + made + "<b/><c/></r>";
    };
    const auto confirm = [this] { dialogs.answerMessage(Yes); };
    const auto undone = [this] {
        change();
        editor().history.UndoCommand();
    };
    return {
        {u"mnuEditUndo", [this] { change(); }, makes(Sample)},
        {u"mnuEditRedo", undone, makes("<r n=\"1\"><a k=\"1\">t</a><b/><c/></r>")},
        {u"mnuEditUndoAll",
         [=, this] {
             change();
             confirm();
         },
         makes(Sample)},
        {u"mnuEditCut", [] {},
         [=, this] {
             return xml() == withoutB && QGuiApplication::clipboard()->text() == u"<b/>";
         }},
        {u"mnuEditCopy", [] { QGuiApplication::clipboard()->clear(); },
         [] { return QGuiApplication::clipboard()->text() == u"<b/>"; }},
        {u"mnuEditPaste", [] { QGuiApplication::clipboard()->setText("<x/>"); },
         makes(inB("<x/>"))},
        {u"mnuEditDelete", confirm, makes(withoutB)},
        {u"mnuEditRename", [] {}, [this] { return tvw().isEditingLabel(); }},
        {u"mnuNodeMoveUp", [] {}, makes(bUp)},
        {u"mnuNodeMoveDown", [] {}, makes(bDown)},
        {u"mnuNodeAddElement", [] {}, makes(inB("<Element1/>"))},
        {u"mnuNodeAddAttribute", [] {}, makes("<r><a k=\"1\">t</a><b Attribute1=\"\"/><c/></r>")},
        {u"mnuNodeAddText", [] {}, makes(inB("Text1"))},
        {u"mnuNodeAddComment", [] {}, makes(inB("<!--Comment1-->"))},
        {u"mnuNodeAddCDATA", [] {}, makes(inB("<![CDATA[CDATA1]]>"))},
        {u"mnuNodeInsElement", [] {}, makes(aheadOfB("<Element1/>"))},
        {u"mnuNodeInsText", [] {}, makes(aheadOfB("Text1"))},
        {u"mnuNodeInsComment", [] {}, makes(aheadOfB("<!--Comment1-->"))},
        {u"mnuNodeInsCDATA", [] {}, makes(aheadOfB("<![CDATA[CDATA1]]>"))},
        {u"mnuNodeDelete", confirm, makes(withoutB)},
        {u"mnuNodeDuplicate", [] {}, makes("<r><a k=\"1\">t</a><b/><b/><c/></r>")},
        {u"mnuNodeRaise", [this] { select("t"); }, makes("<r><a k=\"1\"></a>t<b/><c/></r>")},
        {u"mnuNodeLower", [] {}, makes("<r><a k=\"1\">t<b/></a><c/></r>")},
        {u"mnuNodeEnclose", [this] { dialogs.answerInput("x"); },
         makes("<r><a k=\"1\">t</a><x><b/></x><c/></r>")},
        {u"mnuNodeMend",
         [this] {
             editor().schemas.disconnect();
             editor().live.setSchemas(
                 grammar::loadGrammar({.path = write("other.dtd", "<!ELEMENT r (x)>")}), {});
             EXPECT_TRUE(
                 QTest::qWaitFor([this] { return editor().live.isUpToDate(); }, patienceMs));
             select("a");
         },
         [] {
             QWidget *const menu = QApplication::activePopupWidget();
             return menu && menu->close();
         }},
        {u"mnuNodeSort",
         [this] {
             select("r");
             QTimer::singleShot(0, form.get(), [] {
                 auto *box = qobject_cast<QDialog *>(QApplication::activeModalWidget());
                 ASSERT_NE(box, nullptr);
                 box->findChild<QCheckBox *>()->setChecked(true);
                 box->accept();
             });
         },
         makes("<r><c/><b/><a k=\"1\">t</a></r>")},
        {u"mnuEditFormat",
         [this] {
             select("a");
             QTimer::singleShot(0, form.get(), [] {
                 auto *box = qobject_cast<QDialog *>(QApplication::activeModalWidget());
                 ASSERT_NE(box, nullptr);
                 auto *text = box->findChild<QPlainTextEdit *>("preview");
                 EXPECT_EQ(text->toPlainText(), "*   <r>\n*     <a k=\"1\">t</a>\n*     <b/>\n"
                                                "*     <c/>\n*   </r>");
                 box->findChild<QRadioButton *>("before")->setChecked(true);
                 EXPECT_EQ(text->toPlainText(), "*   <r><a k=\"1\">t</a><b/><c/></r>");
                 box->findChild<QRadioButton *>("tab")->setChecked(true);
                 box->findChild<QComboBox *>("empty")->setCurrentIndex(2);
                 EXPECT_FALSE(box->findChild<QWidget *>("indent")->isEnabled());
                 box->accept();
             });
         },
         [this] {
             return editor().settings.formatTabs && selected() == u"a" &&
                    editor().state.m_DOM.xml() == "<r>\n\t<a k=\"1\">t</a>\n\t<b></b>\n"
                                                  "\t<c></c>\n</r>";
         }},
        {u"mnuEditEncoding", [this] { changeEncoding(); },
         [this] {
             return editor().state.m_DOM.encoding() == "Shift_JIS" && item("xml") &&
                    editor().history.CanUndo();
         }},
        {u"mnuNodeChooseValue",
         [this] {
             open("<r k=\"2024-04-01\"/>");
             editor().builder.ExpandSubtree(tree().nodes().Item(1));
             select("k=\"2024-04-01\"");
             editor().selection.ShowNode(tree().SelectedItem(), true);
         },
         [this] {
             return txtEdit().proposalPopup() && txtEdit().proposalPopup()->shownCount() == 1;
         }},
        {u"mnuNodeExplain",
         [=, this] {
             openDeclared();
             dialogs.answerMessage(Ok);
         },
         [this] { return dialogs.messages.back().text.startsWith(u"要素「b」"); }},
        {u"mnuNodeDefinition",
         [=, this] {
             openDeclared();
             dialogs.answerMessage(Ok);
         },
         [this] { return dialogs.messages.back().text.contains(u"文書型宣言"); }},
        {u"mnuNodeUnwrap",
         [=, this] {
             select("a");
             confirm();
         },
         makes("<r>t<b/><c/></r>")},
        {u"MoveUpByKey", [] {}, makes(bUp)},
        {u"MoveDownByKey", [] {}, makes(bDown)},
        {u"mnuNodeContextUp", [] {}, makes(bUp)},
        {u"mnuNodeContextDown", [] {}, makes(bDown)},
        {u"AddAttributeToParent", [this] { select("t"); },
         makes("<r><a k=\"1\" Attribute1=\"\">t</a><b/><c/></r>")},
        {u"mnuToolRemoveText", [this] { dialogs.answerMessage(Ok); },
         makes("<r><a k=\"\"></a><b/><c/></r>")},
    };
}

std::vector<Commands::Case> Commands::fileCases() {
    const auto answerFile = [this](const QString &name) { dialogs.answerFile({path(name), 0}); };
    // Looks at the first page and prints.
    const auto printsFromPreview = [this](const QString &name) {
        return [this, name] {
            auto *timer = new QTimer(form.get());
            QObject::connect(timer, &QTimer::timeout, form.get(), [this, timer, name] {
                auto *box =
                    qobject_cast<controls::PrintPreview *>(QApplication::activeModalWidget());
                if (!box || box->count() == 0)
                    return;
                EXPECT_EQ(box->count(), 1);
                timer->stop();
                printer.answer(path(name));
                box->accept();
            });
            timer->start(10);
        };
    };
    return {
        {u"mnuFileNew", [] {}, [this] { return state().m_FileName == u"New XML File"; }},
        {u"mnuFileOpen",
         [=, this] {
             write("other.xml", "<other/>");
             answerFile("other.xml");
         },
         makes("<other/>")},
        {u"mnuFileReload", [this] { write("doc.xml", "<again/>"); }, makes("<again/>")},
        {u"mnuFileSave", [this] { change(); },
         [this] { return read("doc.xml").startsWith("<r n=\"1\">"); }},
        {u"mnuFileSaveAs", [=] { answerFile("copy.xml"); },
         [this] { return QFile::exists(path("copy.xml")) && read("copy.xml") == Sample; }},
        {u"mnuFilePrint", [this] { printer.answer(path("preview.pdf")); },
         [this] { return QFile::exists(path("preview.pdf")); }},
        {u"mnuFilePrintTree", [this] { printer.answer(path("tree.pdf")); },
         [this] { return QFile::exists(path("tree.pdf")); }},
        {u"mnuFilePrintPreview", printsFromPreview("page.pdf"),
         [this] { return QFile::exists(path("page.pdf")); }},
        {u"mnuFilePrintTreePreview", printsFromPreview("items.pdf"),
         [this] { return QFile::exists(path("items.pdf")); }},
        {u"mnuFileClose", [] {}, [this] { return !state().m_DOM; }},
        {u"mnuFileQuit", [] {}, [this] { return !form->isVisible(); }},
    };
}

std::vector<Commands::Case> Commands::toolCases() {
    const auto noPreview = [this] { removePreview(); };
    const auto preview = [this] { return hasPreview(); };
    const auto chooseSchema = [this] {
        dialogs.answerFile({write("doc.dtd", "<!ELEMENT r ANY>"), 0});
        dialogs.answerMessage(Ok);
    };
    const auto hasOptions = std::make_shared<bool>(false);
    const auto hasErrors = [this] { return !editor().validation.errors().empty(); };
    return {
        {u"mnuToolSelXSL",
         [this] {
             dialogs.answerFile(
                 {write("style.xsl", "<xsl:stylesheet version='1.0' "
                                     "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'/>"),
                  0});
         },
         [this] { return working().contains("style.xsl"); }},
        {u"mnuToolPreview", noPreview, preview},
        {u"mnuToolPreviewSel", noPreview, preview},
        {u"mnuToolPrevHTML", noPreview, preview},
        {u"mnuToolPreviewSync", [] {},
         [this] {
             select("b");
             editor().preview.m_doc_onclick("1.1");
             return selected() == u"b";
         }},
        {u"mnuToolVerifyNew", chooseSchema, hasErrors},
        {u"mnuToolVerify", chooseSchema, hasErrors},
        {u"mnuToolSend", [this] { dialogs.answerInput(""); },
         [this] { return !dialogs.prompts.empty() && dialogs.prompts.back() == u"URL?"; }},
        {u"mnuToolOption",
         [=, this] {
             QTimer::singleShot(0, form.get(), [hasOptions] {
                 auto *box = qobject_cast<QDialog *>(QApplication::activeModalWidget());
                 *hasOptions = box && box->windowTitle() == u"オプション";
                 if (box)
                     box->reject();
             });
         },
         [hasOptions] { return *hasOptions; }},
        {u"mnuToolSchemas", [] {},
         [this] {
             const auto *const box = form->findChild<QWidget *>("schemaDialog");
             return box && box->isVisible();
         }},
        {u"mnuToolBindSchema",
         [this] {
             dialogs.answerFile({write("bound.dtd", "<!ELEMENT r ANY>"), 0});
             QTimer::singleShot(0, form.get(), [] {
                 auto *box = qobject_cast<QDialog *>(QApplication::activeModalWidget());
                 ASSERT_TRUE(box);
                 box->findChild<QPushButton *>("browse")->click();
                 box->accept();
             });
         },
         [this] { return xml().contains("<!DOCTYPE r SYSTEM \"bound.dtd\">"); }},
        {u"mnuToolCreateSchema",
         [this] {
             dialogs.answerFile({path("made.xsd"), 0});
             dialogs.answerMessage(No);
         },
         [this] { return QFile::exists(path("made.xsd")); }},
        {u"mnuWindowMore",
         [this] {
             form->show();
             dialogs.answerChoice(0);
         },
         [this] {
             return !dialogs.choices.empty() &&
                    dialogs.choices.back() == QStringList("doc.xml(このウィンドウ)");
         }},
        {u"mnuHelpReadme", [] {},
         [this] { return shell->started.join(' ').endsWith("readme.txt"); }},
        {u"mnuHelpAbout", [this] { dialogs.answerMessage(Ok); },
         [this] {
             return !dialogs.messages.empty() && dialogs.messages.back().text.contains("Version");
         }},
        {u"mnuHelpManual", [] {},
         [] {
             return std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget *one) {
                 return one->objectName() == u"manual" && one->isVisible();
             });
         }},
        {u"mnuHelpFindCommand", [] {},
         [this] {
             const auto *const box = form->findChild<QWidget *>("commandBox");
             return box && box->isVisible();
         }},
    };
}

void Commands::changeEncoding() {
    open("<r a='\xC3\xA9'>\xF0\x9F\x98\x80<!--\xC3\xA9--></r>");
    const auto inDialog = [this](auto act) {
        QTimer::singleShot(0, form.get(), [act] {
            auto *box = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            auto *encoding = box->findChild<QComboBox *>("encoding");
            EXPECT_EQ(encoding->currentText(), "UTF-8");
            encoding->setCurrentIndex(encoding->findText("Shift_JIS"));
            act(*box, *box->findChild<QTreeWidget *>("unheld"));
        });
    };
    inDialog([](QDialog &box, QTreeWidget &list) {
        ASSERT_EQ(list.topLevelItemCount(), 3);
        const auto row = [&](int at) {
            QStringList texts;
            for (int column = 0; column < list.columnCount(); ++column)
                texts.append(list.topLevelItem(at)->text(column));
            return texts.join('|');
        };
        EXPECT_EQ(row(0), "1|é (U+00E9)|コメント(要素 r)|表せません");
        EXPECT_EQ(row(1), "1|é (U+00E9)|属性 a(要素 r)|文字参照 &#233; になります");
        EXPECT_EQ(row(2), "1|😀 (U+1F600)|テキスト(要素 r)|文字参照 &#128512; になります");
        auto *buttons = box.findChild<QDialogButtonBox *>();
        EXPECT_FALSE(buttons->button(QDialogButtonBox::Ok)->isEnabled());
        // To the first of them, which has to be changed before.
        list.setCurrentItem(list.topLevelItem(0));
        QTest::keyClick(&list, Qt::Key_Return);
    });
    run(u"mnuEditEncoding");
    EXPECT_EQ(txtEdit().Text(), "é");
    txtEdit().setText(QStringLiteral("e"));
    inDialog([](QDialog &box, QTreeWidget &list) {
        EXPECT_EQ(list.topLevelItemCount(), 2);
        box.accept();
    });
}
namespace {

TEST_F(Commands, DoWhatTheySay) {
    std::set<QStringView> tested{u"mnuWindowTileH"};
    for (const auto &cases :
         {documentCases(), fileCases(), viewCases(), paneCases(), toolCases()}) {
        for (const Case &one : cases) {
            SCOPED_TRACE(one.command.toString().toStdString());
            EXPECT_TRUE(tested.insert(one.command).second);
            reopen();
            show();
            one.prepare();
            EXPECT_FALSE(one.hasHappened());
            run(one.command);
            EXPECT_TRUE(QTest::qWaitFor(one.hasHappened, patienceMs)) << xml().data();
        }
    }
    for (const app::CommandRow &row : app::commandTable()) {
        const bool isCommand = row.entry.kind == ActionKind::Command;
        EXPECT_EQ(isCommand, tested.count(row.entry.name) == 1)
            << row.entry.name.toString().toStdString();
        EXPECT_EQ(isCommand, row.run != nullptr) << row.entry.name.toString().toStdString();
    }
}

/// The companion program, in a thread of its own, since the editor waits for its answer.
class Companion : public QDBusVirtualObject {
public:
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override {
        commands.append(message.arguments().value(0).toString());
        return bus.send(message.createReply());
    }
    QStringList commands;
};

TEST_F(Commands, TilingIsLeftToTheCompanion) {
    const PrivateBus bus;
    ASSERT_TRUE(bus.runs());
    QThread thread;
    Companion companion;
    companion.moveToThread(&thread);
    thread.start();
    QDBusConnection theirs = bus.connect("companion");
    ASSERT_TRUE(theirs.registerVirtualObject("/System", &companion));
    ASSERT_TRUE(theirs.registerService(QLatin1String(system::CompanionBusName)));
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    reopen();
    run(u"mnuWindowTileH");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    thread.quit();
    thread.wait();
    EXPECT_EQ(companion.commands.last(), "TILE_VERTICAL");
}

} // namespace

} // namespace quillon::test
