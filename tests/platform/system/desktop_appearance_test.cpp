#include "platform/system/desktop_appearance.h"
#include "tests/support/private_bus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon::system {

namespace {

using test::Patience;
using test::PrivateBus;
using Preference = DesktopAppearance::Preference;

constexpr char Service[] = "org.freedesktop.portal.Desktop";
constexpr char Path[] = "/org/freedesktop/portal/desktop";
constexpr char Interface[] = "org.freedesktop.portal.Settings";

QVariant asVariant(const QVariant &value) {
    return QVariant::fromValue(QDBusVariant(value));
}

/// A portal that answers as it is told, or not at all.
class Portal : public QDBusVirtualObject {
public:
    explicit Portal(const PrivateBus &bus) : bus_(bus.connect("appearance portal")) {
        EXPECT_TRUE(bus_.registerVirtualObject(Path, this));
        EXPECT_TRUE(bus_.registerService(Service));
    }
    ~Portal() override { QDBusConnection::disconnectFromBus("appearance portal"); }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override {
        asked.append(message.member() + ' ' + message.arguments()[0].toString() + ' ' +
                     message.arguments()[1].toString());
        if (answer.isValid())
            bus.send(message.createReply(asVariant(answer)));
        return true;
    }
    void tell(const QString &group, const QString &key, const QVariant &value) {
        QDBusMessage news = QDBusMessage::createSignal(Path, Interface, "SettingChanged");
        news << group << key << asVariant(value);
        bus_.send(news);
    }

    QStringList asked;
    QVariant answer;

private:
    QDBusConnection bus_;
};

class DesktopAppearanceTest : public testing::Test {
protected:
    ~DesktopAppearanceTest() override { QDBusConnection::disconnectFromBus("appearance editor"); }

    /// What comes of an answer and of news, in that order.
    QList<Preference> toldOf(const QVariant &answer, const QVariant &news) {
        Portal portal(bus);
        portal.answer = answer;
        const DesktopAppearance desktop(bus.connect("appearance editor"));
        QList<Preference> told;
        QObject::connect(&desktop, &DesktopAppearance::preferenceTold, &portal,
                         [&](Preference preference) { told.append(preference); });
        EXPECT_TRUE(QTest::qWaitFor([&] { return !portal.asked.isEmpty(); }, Patience));
        EXPECT_EQ(portal.asked, QStringList("Read org.freedesktop.appearance color-scheme"));
        portal.tell("org.freedesktop.appearance", "accent-color", 7U);
        portal.tell("org.gnome.desktop.interface", "color-scheme", 2U);
        portal.tell("org.freedesktop.appearance", "color-scheme", news);
        portal.tell("org.freedesktop.appearance", "color-scheme", 2U);
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return !told.isEmpty() && told.last() == Preference::Light; }, Patience));
        return told;
    }

    const PrivateBus bus;
};

TEST_F(DesktopAppearanceTest, IsWhatThePortalSaysAndWhateverItSaysLater) {
    ASSERT_TRUE(bus.runs());
    using enum DesktopAppearance::Preference;
    EXPECT_EQ(toldOf(asVariant(1U), 0U), (QList{Dark, None, Light}));
    // A later way of answering, and a preference that is not known yet.
    EXPECT_EQ(toldOf(1U, 9U), (QList{Dark, None, Light}));
}

TEST_F(DesktopAppearanceTest, NothingComesOfAPortalThatIsBroken) {
    ASSERT_TRUE(bus.runs());
    // It does not answer, or with something else.
    EXPECT_EQ(toldOf({}, "dark"), QList{Preference::Light});
    EXPECT_EQ(toldOf(asVariant("dark"), "dark"), QList{Preference::Light});
    // There is none, or no bus.
    for (const QDBusConnection &connection :
         {bus.connect("appearance editor"), QDBusConnection(QStringLiteral("no session bus"))}) {
        const DesktopAppearance desktop(connection);
        QSignalSpy tellings(&desktop, &DesktopAppearance::preferenceTold);
        QTest::qWait(50);
        EXPECT_EQ(tellings.size(), 0);
    }
}

} // namespace

} // namespace quillon::system
