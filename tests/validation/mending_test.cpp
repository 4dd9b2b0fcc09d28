#include "tests/validation/live_fixture.h"

namespace quillon::test {

namespace {

using validation::Mend;

class Mending : public Live {
protected:
    void openWithSchema(const QByteArray &text) {
        open(text);
        useSchema(Orders);
        waitForChecks();
    }
    QStringList offered(const QString &path) {
        QStringList captions;
        for (const Mend &mend : editor().mending.mendsAt(nodeAt(path)))
            captions << mend.caption;
        return captions;
    }
    Mend mend(const QString &path, const QString &caption) {
        for (const Mend &mend : editor().mending.mendsAt(nodeAt(path))) {
            if (mend.caption == caption)
                return mend;
        }
        ADD_FAILURE() << caption.toStdString() << " is not among "
                      << offered(path).join(" | ").toStdString();
        return {};
    }
    /// Carries one out, has it undone and redone.
    void expectMend(const QString &path, const QString &caption, const QByteArray &after) {
        const QByteArray before = xml();
        editor().mending.mend(mend(path, caption));
        EXPECT_EQ(xml(), after) << caption.toStdString();
        editor().history.UndoCommand();
        EXPECT_EQ(xml(), before) << "one step: " << caption.toStdString();
        editor().history.RedoCommand();
        EXPECT_EQ(xml(), after);
        waitForChecks();
    }
};

TEST_F(Mending, WhatIsMissingIsInserted) {
    openWithSchema("<orders><order/></orders>");
    EXPECT_EQ(offered("/orders/order").join(" | ").toStdString(),
              "不足している要素をすべて挿入 (item, total) | 要素 'item' を挿入 | 属性 'id' を追加");
    expectMend("/orders/order", "属性 'id' を追加", "<orders><order id=\"\"/></orders>");
    expectMend("/orders/order", "不足している要素をすべて挿入 (item, total)",
               "<orders><order id=\"\"><item></item><total></total></order></orders>");
    EXPECT_EQ(offered("/orders/order"), QStringList());

    openWithSchema("<orders><order id='1'><total>1</total></order></orders>");
    expectMend("/orders/order/total", "要素 'item' を挿入",
               "<orders><order id='1'><item></item><total>1</total></order></orders>");
    EXPECT_EQ(found(), "");
}

TEST_F(Mending, NamesAreCorrectedAndWhatMayNotBeIsRemoved) {
    openWithSchema("<orders><order id='1' stat='open'><itm>a<!--b--></itm><total>1</total>"
                   "<extra/>text</order></orders>");
    expectMend("/orders/order/itm", "要素の名前を 'item' に変更",
               "<orders><order id='1' stat='open'><item>a<!--b--></item><total>1</total>"
               "<extra/>text</order></orders>");
    expectMend("/orders/order/@stat", "属性の名前を 'state' に変更",
               "<orders><order id='1' state='open'><item>a<!--b--></item><total>1</total>"
               "<extra/>text</order></orders>");
    expectMend("/orders/order/extra", "要素 'extra' を削除",
               "<orders><order id='1' state='open'><item>a<!--b--></item><total>1</total>"
               "text</order></orders>");
    expectMend("/orders/order/text()", "テキストを削除",
               "<orders><order id='1' state='open'><item>a<!--b--></item><total>1</total>"
               "</order></orders>");
    EXPECT_EQ(found(), "");
}

TEST_F(Mending, ValuesAreThoseOfTheEnumeration) {
    openWithSchema("<orders><order id='1' state='close'><item>a</item><total>1</total></order>"
                   "</orders>");
    EXPECT_EQ(offered("/orders/order/@state").join(" | ").toStdString(),
              "値を 'closed' に変更 | 値を 'open' に変更");
    expectMend("/orders/order/@state", "値を 'closed' に変更",
               "<orders><order id='1' state='closed'><item>a</item><total>1</total></order>"
               "</orders>");
}

TEST_F(Mending, WhatCannotBeDoneAnyMoreIsNotDone) {
    openWithSchema("<orders><order/></orders>");
    const Mend add = mend("/orders/order", "属性 'id' を追加");
    nodeAt("/orders/order").setAttribute("id", "7");
    const QByteArray before = xml();
    editor().mending.mend(add);
    EXPECT_EQ(xml(), before);
    EXPECT_EQ(status(), "ドキュメントが変わったため、この修正は行えません。");
    // The node has gone.
    const Mend insert = mend("/orders/order", "要素 'item' を挿入");
    editor().removal.DeleteNode(item("order"));
    editor().mending.mend(insert);
    EXPECT_EQ(xml(), "<orders></orders>");
    // There is no document.
    editor().commands.ClearStatus();
    editor().mending.mend(insert);
    EXPECT_FALSE(state().m_DOM);
}

TEST_F(Mending, NothingIsOfferedWhereNothingMayBeChanged) {
    openWithSchema("<orders><order id='1'><itm/><total>1</total></order></orders>");
    editor().options.viewLock = true;
    EXPECT_EQ(offered("/orders/order/itm").join(" | ").toStdString(), "要素 'itm' を削除")
        << "names are locked";
    state().m_ReadOnly = true;
    EXPECT_EQ(offered("/orders/order/itm"), QStringList());
}

} // namespace

} // namespace quillon::test
