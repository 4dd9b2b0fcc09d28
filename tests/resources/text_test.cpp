#include "resources/language.h"
#include "resources/messages.h"
#include "resources/texts.h"

#include <gtest/gtest.h>

namespace quillon::resources::test {

namespace {

class TextTest : public testing::Test {
protected:
    void TearDown() override { setLanguage(languages().front()); }
    static void speak(QStringView code) { setLanguage(languageOf(code, QLocale::c())); }
};

TEST_F(TextTest, IsReadInTheLanguageInForce) {
    constexpr Text table[] = {texts::ButtonYes, u"同じ文字"};
    EXPECT_EQ(table[0], u"はい(&Y)");
    const QStringView before = table[0];
    speak(u"en");
    EXPECT_EQ(table[0].toString(), "&Yes");
    EXPECT_EQ(table[0], texts::ButtonYes);
    EXPECT_EQ(messageText(message::CannotParse), "Cannot parse the XML.");
    EXPECT_EQ(table[1], u"同じ文字") << "what no catalogue has stays as it is written";
    const QStringView english = table[0];
    speak(u"ja");
    EXPECT_EQ(table[0].toString(), QString::fromUtf8("はい(&Y)"));
    EXPECT_EQ(english, u"&Yes") << "views stay valid";
    EXPECT_EQ(before, u"はい(&Y)");
}

TEST_F(TextTest, NotesTellTheSameJapaneseApart) {
    speak(u"en");
    EXPECT_EQ(Text(u"要素"), u"Element");
    EXPECT_EQ(Text(u"要素", "what an element holds"), u"elements");
}

TEST_F(TextTest, TheLanguageIsThatOfTheSettingOrTheDesktop) {
    const QLocale japan(QLocale::Japanese, QLocale::Japan);
    const QLocale canada(QLocale::English, QLocale::Canada);
    const QLocale france(QLocale::French, QLocale::France);
    const struct {
        QStringView setting;
        const QLocale &desktop;
        QStringView language;
    } cases[] = {
        {u"ja", canada, u"ja"},     {u"en", japan, u"en"},     {u"", canada, u"ja"},
        {u"xx", canada, u"ja"},     {u"system", japan, u"ja"}, {u"system", canada, u"en"},
        {u"system", france, u"en"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(languageOf(c.setting, c.desktop).code, c.language)
            << c.setting.toUtf8().toStdString() << c.desktop.name().toStdString();
}

} // namespace

} // namespace quillon::resources::test
