#include "completion/completion.h"
#include "platform/xml/schema/grammar/load_grammar.h"
#include "tests/support/headless_editor.h"

#include <QFile>
#include <QTest>

namespace quillon::completion {

namespace {

const QByteArray Order = R"(<?xml version="1.0"?>
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
  <xs:element name="注文" type="Order"/>
  <xs:complexType name="Order">
    <xs:sequence>
      <xs:element name="顧客" type="xs:string">
        <xs:annotation><xs:documentation>注文した人。</xs:documentation></xs:annotation>
      </xs:element>
      <xs:element name="日付" type="xs:date" minOccurs="0"/>
      <xs:element name="品目" maxOccurs="unbounded">
        <xs:complexType>
          <xs:sequence>
            <xs:element name="名称" type="xs:string"/>
            <xs:element name="状態" type="State"/>
          </xs:sequence>
          <xs:attribute name="番号" type="xs:ID" use="required"/>
          <xs:attribute name="参照" type="xs:IDREF"/>
          <xs:attribute name="色" type="xs:string"/>
          <xs:attribute name="急ぎ" type="xs:boolean" default="false"/>
          <xs:attribute name="タグ" type="States"/>
        </xs:complexType>
      </xs:element>
      <xs:element name="終わり" minOccurs="0"><xs:complexType/></xs:element>
    </xs:sequence>
  </xs:complexType>
  <xs:simpleType name="State">
    <xs:restriction base="xs:string">
      <xs:enumeration value="受付"/><xs:enumeration value="出荷"/><xs:enumeration value="A&amp;B"/>
    </xs:restriction>
  </xs:simpleType>
  <xs:simpleType name="States"><xs:list itemType="State"/></xs:simpleType>
</xs:schema>)";

class CompletionTest : public test::HeadlessEditor {
protected:
    /// Opens a document and shows the first node of a caption in the pane.
    void open(const QByteArray &document, const QString &caption,
              const QByteArray &schema = Order) {
        editor().options.viewText = false;
        editor().loader.LoadXML(QString::fromUtf8(document));
        if (!schema.isEmpty()) {
            QFile file(folder.filePath(QStringLiteral("schema")));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(schema);
            file.close();
            finder.setGrammar(grammar::loadGrammar({file.fileName()}));
        }
        finder.documentReplaced();
        show(caption);
    }
    static items::TreeItem itemWith(const QString &caption, items::TreeItem at) {
        for (; at; at = at.Next()) {
            if (at.Text() == caption)
                return at;
            if (const items::TreeItem below = itemWith(caption, at.Child()))
                return below;
        }
        return {};
    }
    void show(const QString &caption) {
        const items::TreeItem item = itemWith(caption, editor().tree.nodes().Item(1));
        ASSERT_TRUE(item) << caption.toStdString();
        editor().selection.ShowNode(item, true);
    }

    /// What is proposed at the "|" of a text of the pane: "!" behind what is needed, what does not
    /// fit behind a slash.
    std::string at(QByteArray text, bool isAsked = true) {
        const qsizetype caret = text.indexOf('|');
        text.remove(caret, 1);
        ui::Proposer proposer = completion.paneProposer();
        proposer.textChanged(0);
        return shown(proposer.propose(text, caret, isAsked));
    }
    static std::string shown(const ui::ProposalList &list) {
        QString fitting, others;
        for (const ui::Proposal &proposal : list.proposals) {
            QString &to = proposal.reason.isEmpty() ? fitting : others;
            to += (to.isEmpty() ? "" : " ") + proposal.text + (proposal.isNeeded ? "!" : "");
        }
        return (fitting + (others.isEmpty() ? "" : " / " + others)).toStdString();
    }
    /// The text after a proposal has been taken at the "|", with the caret as a "|".
    std::string taking(const QString &what, QByteArray text) {
        const qsizetype caret = text.indexOf('|');
        text.remove(caret, 1);
        ui::Proposer proposer = completion.paneProposer();
        proposer.textChanged(0);
        for (const ui::Proposal &proposal : proposer.propose(text, caret, true).proposals) {
            if (proposal.text != what)
                continue;
            const auto insertion = proposer.insertion(text, caret, proposal);
            if (!insertion)
                return "cancelled";
            text.replace(insertion->start, insertion->end - insertion->start, insertion->text);
            text.insert(insertion->start + insertion->caret, '|');
            return text.toStdString();
        }
        return "not proposed";
    }

    candidates::CandidateFinder finder{editor().state};
    Completion completion{editor().state, finder, editor().builder.registry(), editor().tree,
                          editor().pane};
};

TEST_F(CompletionTest, ProposesWhatTheSchemaHasAtAPlace) {
    open("<注文><顧客/><品目 番号='a'/></注文>", QStringLiteral("注文"));
    EXPECT_EQ(at("<注文>|</注文>"), "顧客! / 日付 品目 終わり");
    EXPECT_EQ(at("<注文><顧客/><|</注文>"), "品目! 日付 / 顧客 終わり");
    EXPECT_EQ(at("<注文><顧客/><|\n<品目 番号='a'/></注文>"), "日付 品目 / 顧客 終わり");
    // What is wrong or not finished around it does not matter.
    EXPECT_EQ(at("<注文><顧客/><品目 番号=><|"), "名称! / 状態");
    EXPECT_EQ(at("<注文><顧客/><品目><|</注文>"), "名称! / 状態");
    EXPECT_EQ(at("<注文><顧客/><品目 |></品目></注文>"), "番号! 参照 色 急ぎ タグ");
    EXPECT_EQ(at("<注文><顧客/><品目 番号='1' 急|></品目></注文>"), "参照 色 急ぎ タグ / 番号");
    EXPECT_EQ(at("<注文><顧客/><品目 急ぎ=\"|\"></注文>"), "false true");
    EXPECT_EQ(at("<注文><顧客/><品目><状態>|</状態></品目></注文>"), "受付 出荷 A&B");
    EXPECT_EQ(at("<注文><顧客/><品目 タグ='受付 |'/></注文>"), "受付 出荷 A&B");
    EXPECT_EQ(at("<注文><顧客/><品目 参照='|'/></注文>"), "a");
    EXPECT_EQ(at("<注文><顧客/><品目 色='|'/></注文>"), "色の選択...");
    EXPECT_EQ(at("<注文><顧客/><日付>|</日付></注文>"), "カレンダーから...");
    EXPECT_EQ(at("<注文><顧客/></|"), "注文");
    EXPECT_EQ(at("<注文><顧客/><!-- <| --></注文>"), "");
    EXPECT_EQ(at("|"), "注文");
}

TEST_F(CompletionTest, OpensByItselfOnlyWhereSomethingIsToBeChosen) {
    open("<注文><顧客/><品目 番号='a'/></注文>", QStringLiteral("注文"));
    EXPECT_EQ(at("<注文><|</注文>", false), "顧客! / 日付 品目 終わり");
    EXPECT_EQ(at("<注文><顧|</注文>", false), "");
    EXPECT_EQ(at("<注文> |</注文>", false), "");
    EXPECT_EQ(at("<注文><品目 |/></注文>", false), "番号! 参照 色 急ぎ タグ");
    EXPECT_EQ(at("<注文><品目 急ぎ=\"|\"/></注文>", false), "false true");
    // Nothing there fits.
    EXPECT_EQ(at("<注文><顧客/><品目/><終わり><|</終わり></注文>", false), "");
}

TEST_F(CompletionTest, WritesWhatBelongsToTheProposal) {
    open("<注文><顧客/><品目 番号='a'/></注文>", QStringLiteral("注文"));
    EXPECT_EQ(taking("顧客", "<注文>\n  <|\n</注文>"), "<注文>\n  <顧客>|</顧客>\n</注文>");
    EXPECT_EQ(taking("顧客", "<注文>\n  顧|\n</注文>"), "<注文>\n  <顧客>|</顧客>\n</注文>");
    EXPECT_EQ(taking("品目", "<注文><顧客/>\n  <品|\n</注文>"),
              "<注文><顧客/>\n  <品目 番号=\"|\">\n    <名称></名称>\n    <状態>受付</状態>\n"
              "  </品目>\n</注文>");
    EXPECT_EQ(taking("終わり", "<注文><顧客/><品目/><|</注文>"),
              "<注文><顧客/><品目/><終わり/>|</注文>");
    // Text behind the caret is none of the name, although it could be.
    EXPECT_EQ(taking("顧客", "<注文><顧|山田太郎</注文>"), "<注文><顧客>|</顧客>山田太郎</注文>");
    EXPECT_EQ(taking("顧客", "<注文><|山田 太郎</注文>"), "<注文><顧客>|</顧客>山田 太郎</注文>");
    EXPECT_EQ(taking("顧客", "<注文>顧|山田</注文>"), "<注文><顧客>|</顧客>山田</注文>");
    EXPECT_EQ(taking("注文", "<注文>山</|田</注文>"), "<注文>山</注文>|田</注文>");
    // A tag that stands already is renamed, with its end.
    EXPECT_EQ(taking("日付", "<注文><顧客/><顧|客>x<!-- --></顧客></注文>"),
              "<注文><顧客/><日付|>x<!-- --></日付></注文>");
    EXPECT_EQ(taking("番号", "<注文><品目 |/></注文>"), "<注文><品目 番号=\"|\"/></注文>");
    EXPECT_EQ(taking("番号", "<注文><品目 番|='x'/></注文>"), "<注文><品目 番号|='x'/></注文>");
    EXPECT_EQ(taking("急ぎ", "<注文><品目 |色=''/></注文>"),
              "<注文><品目 急ぎ=\"false\"| 色=''/></注文>");
    EXPECT_EQ(taking("true", "<注文><品目 急ぎ='|'/></注文>"), "<注文><品目 急ぎ='true'|/></注文>");
    EXPECT_EQ(taking("true", "<注文><品目 急ぎ='t|\n<顧客/></注文>"),
              "<注文><品目 急ぎ='true'|\n<顧客/></注文>");
    EXPECT_EQ(taking("true", "<注文><品目 急ぎ=|/></注文>"), "<注文><品目 急ぎ=\"true\"|/></注文>");
    EXPECT_EQ(taking("A&B", "<注文><品目><状態>受|付</状態></品目></注文>"),
              "<注文><品目><状態>A&amp;B|</状態></品目></注文>");
    EXPECT_EQ(taking("出荷", "<注文><品目 タグ='受付 | A'/></注文>"),
              "<注文><品目 タグ='受付 出荷| A'/></注文>");
    EXPECT_EQ(taking("注文", "<注文><顧客/></|"), "<注文><顧客/></注文>|");
}

TEST_F(CompletionTest, AsksEditorsForValues) {
    open("<注文><顧客/><品目 番号='a' 色='#00F'/></注文>", QStringLiteral("注文"));
    dialogs.answerValue(QStringLiteral("2024-04-02"));
    EXPECT_EQ(taking("カレンダーから...", "<注文><顧客/><日付> 2024-|04-01Z</日付></注文>"),
              "<注文><顧客/><日付> 2024-04-02Z|</日付></注文>");
    EXPECT_EQ(dialogs.valueRequests.back().present, "2024-04-01");
    dialogs.answerValue(QString());
    EXPECT_EQ(taking("カレンダーから...", "<注文><顧客/><日付>|</日付></注文>"), "cancelled");
    show(QStringLiteral("色"));
    EXPECT_TRUE(completion.hasValues());
    dialogs.answerValue(QStringLiteral("#1e90ff"));
    EXPECT_EQ(taking("色の選択...", "#00|F"), "#1E90FF|");
    show(QStringLiteral("番号"));
    EXPECT_FALSE(completion.hasValues());
}

TEST_F(CompletionTest, KnowsNamesOfTheDocumentWithoutASchema) {
    open("<r><a x='1' y='2'><b/></a><a><c/></a></r>", QStringLiteral("a"), {});
    EXPECT_EQ(at("<a><|</a>"), "b c");
    EXPECT_EQ(at("<a |/>"), "x y");
    EXPECT_EQ(at("<a x='1' |/>"), "y / x");
    EXPECT_EQ(taking("b", "<a><|</a>"), "<a><b>|</b></a>");
}

TEST_F(CompletionTest, UsesThePrefixesOfThePlace) {
    const QByteArray schema =
        "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='urn:o' "
        "xmlns='urn:o' elementFormDefault='qualified'><xs:element name='r'><xs:complexType>"
        "<xs:sequence><xs:element name='a' minOccurs='0'/></xs:sequence></xs:complexType>"
        "</xs:element></xs:schema>";
    open("<p:r xmlns:p='urn:o'/>", QStringLiteral("p:r"), schema);
    EXPECT_EQ(at("<p:r xmlns:p='urn:o'><|</p:r>"), "p:a");
    EXPECT_EQ(taking("p:a", "<p:r xmlns:p='urn:o'><|</p:r>"),
              "<p:r xmlns:p='urn:o'><p:a>|</p:a></p:r>");
    EXPECT_EQ(at("<q:r xmlns:q='urn:o'><|</q:r>"), "q:a");
}

TEST_F(CompletionTest, ProposesForCaptions) {
    open("<注文><顧客/><品目 番号='a' 急ぎ='true'/></注文>", QStringLiteral("顧客"));
    const auto proposed = [&](const QByteArray &text) {
        const ui::Proposer proposer = completion.captionProposer(editor().tree.SelectedItem());
        return shown(proposer.propose(text, text.size(), true));
    };
    EXPECT_EQ(proposed("顧客"), "顧客 / 日付 品目 終わり");
    show(QStringLiteral("急ぎ"));
    EXPECT_EQ(proposed("急ぎ"), "参照 色 タグ / 番号 急ぎ");
}

} // namespace

} // namespace quillon::completion
