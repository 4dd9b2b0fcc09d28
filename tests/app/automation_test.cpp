#include "app/automation/automation_server.h"
#include "platform/ui/message_box.h"
#include "tests/support/patience.h"
#include "tests/support/private_bus.h"
#include "tests/support/scripted_dialogs.h"

#include <QApplication>
#include <QDBusInterface>
#include <QDBusReply>
#include <QDialog>
#include <QFile>
#include <QPointer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace quillon::app {

namespace {

using test::Patience;
using test::PrivateBus;

constexpr int GraceMs = 50;

class AutomationTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(server.start()); }
    void TearDown() override {
        for (const auto &form : forms)
            delete form;
        for (const char *name : {"program", "client", "second client"})
            QDBusConnection::disconnectFromBus(name);
    }

    std::unique_ptr<Window> make() {
        auto window = std::make_unique<Window>(
            Environment{folder.path(), system::SettingsStore(folder.filePath("settings.ini")), {}});
        forms.emplace_back(window->form());
        return window;
    }
    /// Calls a method as a client would; the answer's first value, or an invalid one for an error.
    QVariant call(const QString &path, const QString &interface, const QString &method,
                  const QVariantList &arguments = {}) {
        return call(client, path, interface, method, arguments);
    }
    static QVariant call(QDBusConnection &bus, const QString &path, const QString &interface,
                         const QString &method, const QVariantList &arguments = {}) {
        QDBusMessage message =
            QDBusMessage::createMethodCall("org.quillon.XmlEditor", path, interface, method);
        message.setArguments(arguments);
        // The object answers on this thread, so the event loop has to run meanwhile.
        QDBusPendingCall pending = bus.asyncCall(message);
        EXPECT_TRUE(QTest::qWaitFor([&] { return pending.isFinished(); }, 20'000));
        const QDBusMessage reply = pending.reply();
        if (reply.type() != QDBusMessage::ReplyMessage)
            return {};
        return reply.arguments().value(0, QStringLiteral("no value"));
    }
    QString createWindow() {
        return call("/org/quillon/XmlEditor", "org.quillon.XmlEditor.Factory", "CreateWindow")
            .value<QDBusObjectPath>()
            .path();
    }
    QVariant onWindow(const QString &path, const QString &method,
                      const QVariantList &arguments = {}) {
        return call(path, "org.quillon.XmlEditor.Window", method, arguments);
    }
    QVariant get(const QString &path, const QString &name) {
        return call(path, "org.freedesktop.DBus.Properties", "Get",
                    {"org.quillon.XmlEditor.Window", name})
            .value<QDBusVariant>()
            .variant();
    }
    void setVisible(const QString &path, bool visible) {
        call(path, "org.freedesktop.DBus.Properties", "Set",
             {"org.quillon.XmlEditor.Window", "Visible",
              QVariant::fromValue(QDBusVariant(visible))});
    }
    QString write(const QByteArray &text) {
        QFile file(folder.filePath("doc.xml"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }
    bool isShown(size_t form) {
        const frmMain *const there = forms[form];
        return there && there->isVisible();
    }
    bool isGone(size_t form) {
        return QTest::qWaitFor([&] { return forms[form].isNull(); }, Patience);
    }

    PrivateBus bus;
    QTemporaryDir folder;
    test::ScriptedDialogs dialogs;
    std::vector<QPointer<frmMain>> forms;
    QDBusConnection client = bus.connect("client");
    AutomationServer server{bus.connect("program"), [this] { return make(); }, GraceMs};
};

TEST_F(AutomationTest, ServesThePublishedMembers) {
    const QString window = createWindow();
    EXPECT_EQ(window, "/org/quillon/XmlEditor/Window/1");
    EXPECT_EQ(createWindow(), "/org/quillon/XmlEditor/Window/2");
    frmMain &form = *forms[0];
    EXPECT_EQ(get(window, "hWnd"), QVariant(static_cast<qint32>(form.winId())));
    EXPECT_EQ(get(window, "ReadOnly"), QVariant(false));
    EXPECT_EQ(get(window, "Visible"), QVariant(false));
    setVisible(window, true);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(get(window, "Visible"), QVariant(true));

    EXPECT_TRUE(onWindow(window, "OpenFile", {write("<r/>")}).isValid());
    for (const char *name : {"Save", "Quit"})
        EXPECT_EQ(onWindow(window, name).value<QDBusVariant>().variant(), QVariant("")) << name;
    EXPECT_TRUE(
        onWindow(window, "SaveAs", {QVariant::fromValue(QDBusVariant("elsewhere"))}).isValid());
    EXPECT_EQ(form.editor().state.m_DOM.xml(), "<r/>");
    EXPECT_TRUE(form.isVisible());
}

TEST_F(AutomationTest, OpenFileShowsItsFailureAndStillSetsTheCaption) {
    const QString window = createWindow();
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_TRUE(onWindow(window, "OpenFile", {write("<r>")}).isValid());
    EXPECT_EQ(get(window, "ReadOnly"), QVariant(false));
    EXPECT_EQ(dialogs.messages.size(), 1u);
    EXPECT_TRUE(forms[0]->windowTitle().startsWith("doc.xml"))
        << forms[0]->windowTitle().toStdString();
}

TEST_F(AutomationTest, NothingIsOpenedUnderAModalBox) {
    const QString window = createWindow();
    onWindow(window, "OpenFile", {write("<first/>")});
    const auto xml = [&] { return forms[0]->editor().state.m_DOM.xml(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return xml() == "<first/>"; }, Patience));
    QDialog box(forms[0]);
    box.setModal(true);
    box.show();
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return QApplication::activeModalWidget() == &box; }, Patience));
    EXPECT_TRUE(onWindow(window, "OpenFile", {write("<second/>")}).isValid());
    // The window goes on answering, and has not touched what the box may be about.
    EXPECT_EQ(get(window, "ReadOnly"), QVariant(false));
    EXPECT_EQ(xml(), "<first/>");
    box.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return xml() == "<second/>"; }, Patience));
}

TEST_F(AutomationTest, OpeningAnotherFileKeepsTheUsersChangesForTheNextStart) {
    const QString window = createWindow();
    onWindow(window, "OpenFile", {write("<r/>")});
    setVisible(window, true);
    Editor &editor = forms[0]->editor();
    editor.state.m_DOM.documentElement().setAttribute("changed", "1");
    editor.commands.DocumentModified();
    onWindow(window, "OpenFile", {write("<other/>")});
    EXPECT_EQ(editor.state.m_DOM.xml(), "<other/>");
    EXPECT_FALSE(editor.state.m_Modified);
    dialogs.answerMessage(ui::message_answer::Yes);
    editor.recovery.offer();
    EXPECT_EQ(editor.state.m_DOM.xml(), "<r changed=\"1\"/>");
    dialogs.answerMessage(ui::message_answer::No);
    forms[0]->close();
}

TEST_F(AutomationTest, AReleasedWindowClosesOnlyWhenItIsHidden) {
    const QString hidden = createWindow();
    const QString shown = createWindow();
    setVisible(shown, true);
    onWindow(hidden, "CloseWindow");
    onWindow(shown, "CloseWindow");
    EXPECT_TRUE(isGone(0));
    EXPECT_TRUE(isShown(1));
    EXPECT_EQ(get(shown, "Visible"), QVariant(false)) << "the object has no window any more";
}

TEST_F(AutomationTest, ReleasingAWindowWithChangesAsksTheUser) {
    const QString window = createWindow();
    onWindow(window, "OpenFile", {write("<r/>")});
    get(window, "Visible");
    forms[0]->editor().commands.DocumentModified();
    dialogs.answerMessage(ui::message_answer::Cancel);
    onWindow(window, "CloseWindow");
    EXPECT_TRUE(isShown(0));
}

TEST_F(AutomationTest, AHiddenWindowGoesWithItsLastClient) {
    const QString shared = createWindow();
    createWindow();
    setVisible(createWindow(), true);
    QDBusConnection second = bus.connect("second client");
    call(second, shared, "org.quillon.XmlEditor.Window", "Save");
    client = QDBusConnection("none");
    QDBusConnection::disconnectFromBus("client");
    EXPECT_TRUE(isGone(1));
    EXPECT_TRUE(forms[0]) << "the second client still uses it";
    second = QDBusConnection("none");
    QDBusConnection::disconnectFromBus("second client");
    EXPECT_TRUE(isGone(0));
    EXPECT_TRUE(isShown(2));
    // The user closes it, and nobody is left who could call its object.
    forms[2]->close();
    QDBusConnection late = bus.connect("client");
    const QVariantList hWnd{"org.quillon.XmlEditor.Window", "hWnd"};
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            return !call(late, "/org/quillon/XmlEditor/Window/3", "org.freedesktop.DBus.Properties",
                         "Get", hWnd)
                        .isValid();
        },
        Patience));
}

TEST_F(AutomationTest, AProgramThatTheBusHasStartedEndsWithItsLastWindow) {
    server.waitForFirstClient();
    QTimer::singleShot(0, &server, [this] { onWindow(createWindow(), "CloseWindow"); });
    constexpr int NotEnded = 1;
    QTimer patience;
    QObject::connect(&patience, &QTimer::timeout, [] { QCoreApplication::exit(NotEnded); });
    patience.start(20'000);
    EXPECT_EQ(QCoreApplication::exec(), 0);
}

TEST_F(AutomationTest, OnlyTheFirstProcessServes) {
    AutomationServer late(bus.connect("second client"), [this] { return make(); });
    EXPECT_FALSE(late.start());
    AutomationServer alone(QDBusConnection("none"), [this] { return make(); });
    EXPECT_FALSE(alone.start());
}

} // namespace

} // namespace quillon::app
