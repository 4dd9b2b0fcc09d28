#include "platform/runtime/error.h"
#include "platform/runtime/paths.h"
#include "tests/support/editor_window.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace quillon::test {

namespace {

/// Records what would be started.
class RecordingShell : public system::Shell {
public:
    void start(const QString &program, const QStringList &arguments) override {
        if (program.contains("missing"))
            system::Shell::start(program, arguments);
        started.append(program + '|' + arguments.join('|'));
    }
    QStringList started;
};

class ToolsTest : public EditorWindow {
protected:
    ToolsTest() {
        form = std::make_unique<app::frmMain>(
            true, app::Surroundings{folder.path(), system::SettingsStore(path("settings.ini")),
                                    runtime::Clock{}, shell});
    }
    std::shared_ptr<RecordingShell> shell = std::make_shared<RecordingShell>();
};

TEST_F(ToolsTest, ClearingTakesTextAndCommentsAndEmptiesAttributes) {
    open("<?xml version='1.0'?><!--c--><r a='1' b=''>t<x k='v'><!--d--><![CDATA[kept]]>u</x><?p "
         "d?></r>");
    dialogs.answerMessage(2);
    editor().tools.mnuToolRemoveText_Click();
    EXPECT_EQ(dialogs.messages.back().style, 33);
    EXPECT_TRUE(item("t"));
    dialogs.answerMessage(1);
    item("x").setExpanded(true);
    select("x");
    editor().tools.mnuToolRemoveText_Click();
    EXPECT_EQ(expanded(), QStringList({"#document", "xml", "r", "x"}));
    EXPECT_EQ(tvw().SelectedItem().Text(), "x");
    EXPECT_EQ(txtEdit().Text(), "<x k=''><![CDATA[kept]]></x>");
    EXPECT_EQ(xml(), "<?xml version='1.0'?><r a='' b=''><x k=''><![CDATA[kept]]></x><?p d?></r>");
    EXPECT_FALSE(item("t"));
    EXPECT_TRUE(state().m_Modified);
    editor().history.UndoCommand();
    EXPECT_TRUE(item("t"));
    state().m_ReadOnly = true;
    editor().tools.mnuToolRemoveText_Click();
    EXPECT_EQ(dialogs.messages.size(), 2u);
}

TEST_F(ToolsTest, OtherProgramsAreStartedWithTheFile) {
    open("<r/>", "my file.xml");
    editor().tools.mnuToolOpen_Click("/usr/bin/an editor");
    editor().tools.mnuHelpReadme_Click();
    EXPECT_EQ(shell->started,
              QStringList({"/usr/bin/an editor|" + path("my file.xml"),
                           "xdg-open|" + runtime::programFolder() + "/readme.txt"}));
    dialogs.answerMessage(1);
    editor().tools.mnuToolOpen_Click("/missing/program");
    EXPECT_EQ(dialogs.messages.back().text, "ファイルが見つかりません。");
    EXPECT_EQ(dialogs.messages.back().style, 48);
}

TEST_F(ToolsTest, TheDocumentIsPostedInItsOwnEncoding) {
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    QByteArray received;
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
        QTcpSocket *socket = server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [&received, socket] {
            received += socket->readAll();
            if (received.contains("</r>"))
                socket->write(
                    "HTTP/1.1 500 No\r\nContent-Length: 2\r\nConnection: close\r\n\r\nno");
        });
    });
    open("<?xml version='1.0' encoding='Shift_JIS'?><r>\x82\xA0</r>");
    dialogs.answerInput(QString("http://127.0.0.1:%1/in").arg(server.serverPort()));
    editor().tools.mnuToolSend_Click();
    EXPECT_EQ(dialogs.prompts.back(), "URL?");
    EXPECT_TRUE(received.startsWith("POST /in HTTP/1.1\r\n")) << received.toStdString();
    EXPECT_TRUE(received.toLower().contains("content-type: text/xml; charset=shift_jis"));
    EXPECT_TRUE(received.endsWith("<?xml version='1.0' encoding='Shift_JIS'?><r>\x82\xA0</r>"));
    EXPECT_EQ(dialogs.messages.size(), 0u) << "the answer is not shown";

    server.close();
    for (const QString &address : {QString("http://127.0.0.1:%1/").arg(server.serverPort()),
                                   QString("no address"), QString("file:///etc/passwd")}) {
        dialogs.answerInput(address);
        EXPECT_THROW(editor().tools.mnuToolSend_Click(), runtime::Error) << address.toStdString();
    }
    dialogs.answerInput("");
    editor().tools.mnuToolSend_Click();
}

TEST_F(ToolsTest, ShowingTextKeepsWhatIsExpandedAndSelected) {
    open("<r><x k='v'>t</x></r>");
    item("x").setExpanded(true);
    select("k=\"v\"");
    editor().view.mnuViewText_Click(false);
    EXPECT_EQ(expanded(), QStringList({"#document", "r", "x"}));
    EXPECT_EQ(tvw().SelectedItem().Text(), "k");
    type("new");
    EXPECT_EQ(xml(), "<r><x k='new'>t</x></r>");
}

TEST_F(ToolsTest, TheFontGoesToTreeAndPane) {
    const double pathSize = cboPath().font().pointSizeF();
    dialogs.answerFont({});
    editor().view.mnuViewFont_Click("MS UI Gothic", 10);
    EXPECT_EQ(editor().settings.fontName, "MS UI Gothic");
    dialogs.answerFont(controls::FontChoice{"Noto Sans CJK JP", 12.4});
    editor().view.mnuViewFont_Click("MS UI Gothic", 10);
    EXPECT_EQ(dialogs.fontRequests.back().family, "MS UI Gothic");
    EXPECT_EQ(editor().settings.fontSize, 12);
    EXPECT_EQ(tvw().font().pointSize(), 12);
    EXPECT_EQ(tvw().font().family(), "Noto Sans CJK JP");
    EXPECT_EQ(cboPath().font().family(), "Noto Sans CJK JP");
    EXPECT_EQ(cboPath().font().pointSizeF(), pathSize);
}

TEST_F(ToolsTest, TheTreeIsPrintedWithItsBranches) {
    using tools::TreePrinting;
    EXPECT_EQ(TreePrinting::connector({false}, 0), "");
    EXPECT_EQ(TreePrinting::connector({false, true}, 1), " |-");
    EXPECT_EQ(TreePrinting::connector({false, false}, 1), " +-");
    EXPECT_EQ(TreePrinting::connector({false, false, true}, 2), "    |-");
    EXPECT_EQ(TreePrinting::connector({false, true, false, false}, 3), " |     +-");
    QByteArray many = "<root a='1' b='2'>";
    for (int i = 0; i < 200; ++i)
        many += "<leaf/>";
    open(many + "</root>");
    dialogs.answerPrinter("");
    editor().treePrinting.mnuFilePrintTree_Click();
    dialogs.answerPrinter(path("tree.pdf"));
    editor().treePrinting.mnuFilePrintTree_Click();
    const QString command =
        "pdftotext -layout '" + path("tree.pdf") + "' '" + path("tree.txt") + "'";
    ASSERT_EQ(::system(command.toUtf8().constData()), 0);
    const QString text = QString::fromUtf8(read("tree.txt"));
    EXPECT_EQ(text.count("leaf"), 200);
    EXPECT_EQ(text.count("|-"), 2 + 199);
    EXPECT_EQ(text.count("+-"), 2);
    EXPECT_GE(text.count('\f'), 2) << "more than one page";
}

TEST_F(ToolsTest, AboutNamesTheVersion) {
    dialogs.answerMessage(1);
    editor().tools.mnuHelpAbout_Click();
    EXPECT_TRUE(dialogs.messages.back().text.startsWith(
        "Quillon XML Editor\tVersion " QUILLON_VERSION "\r\n"));
    EXPECT_EQ(dialogs.messages.back().style, 64);
}

} // namespace

} // namespace quillon::test
