#include "resources/messages.h"
#include "resources/runtime_errors.h"

#include <QFile>

#include <gtest/gtest.h>
#include <stdexcept>

using namespace quillon::resources;

TEST(Messages, ComeFromTheTableByNumber) {
    EXPECT_EQ(messageText(message::RootCannotBeDeleted), u"ルート要素は削除できません。");
    EXPECT_EQ(messageText(message::ConfirmSave), u"保存しますか？");
    EXPECT_EQ(messageText(14), u"ドキュメントの検証が正常に終了しました。");
    for (const int missing : {0, 4, 11, 15, 1005})
        EXPECT_THROW(messageText(missing), std::out_of_range) << missing;
}

TEST(RuntimeErrors, HaveJapaneseDescriptions) {
    EXPECT_EQ(runtimeErrorText(6), u"オーバーフローしました。");
    EXPECT_EQ(runtimeErrorText(93), u"パターン文字列が不正です。");
    EXPECT_EQ(runtimeErrorText(-1), u"アプリケーション定義またはオブジェクト定義のエラーです。");
}

TEST(Icons, AreInTheProgram) {
    for (const char *name : {"quillon", "toolbar/move", "tree/DOMDocument", "tree/IXMLDOMText",
                             "tree/IXMLDOMProcessingInstruction"}) {
        QFile icon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
        ASSERT_TRUE(icon.open(QIODevice::ReadOnly)) << name;
        EXPECT_TRUE(icon.readAll().contains("<svg")) << name;
    }
}
