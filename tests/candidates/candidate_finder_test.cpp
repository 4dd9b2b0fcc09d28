#include "candidates/candidate_finder.h"
#include "platform/xml/schema/grammar/load_grammar.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon::candidates {

namespace {

/// A document and the schema it is to keep to.
class Finding {
public:
    explicit Finding(const QByteArray &document, const QByteArray &schema = {}) : finder(state) {
        state.m_DOM = xml::DOMDocument40::create();
        EXPECT_TRUE(state.m_DOM.loadXML(document)) << document.toStdString();
        if (schema.isEmpty())
            return;
        const QString path = folder.filePath("schema");
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(schema);
        file.close();
        finder.setGrammar(grammar::loadGrammar({path}));
    }
    /// The first node of a name below the document, the document included; or the first child that
    /// is no element.
    xml::Node node(const QString &name) const {
        xml::Node at = state.m_DOM.node();
        while (at && at.nodeName() != name) {
            xml::Node next = at.firstChild();
            for (; !next && at; at = at.parentNode())
                next = at.nextSibling();
            at = next;
        }
        EXPECT_TRUE(at) << name.toStdString();
        return at;
    }
    std::string elements(const QString &name, Position position) {
        return shown(finder.elements(node(name), position));
    }
    /// "!" behind what is mandatory, "+" behind what needs more; behind a slash what is not
    /// allowed; in brackets the remark of an empty list.
    static std::string shown(const EntryList &list) {
        QString allowed, refused;
        for (const Entry &entry : list.entries) {
            QString &to = entry.isAllowed ? allowed : refused;
            to += (to.isEmpty() ? "" : " ") + entry.name + (entry.isMandatory ? "!" : "") +
                  (entry.isAllowed && !entry.remark.isEmpty() ? "+" : "");
        }
        QString all = allowed + (refused.isEmpty() ? "" : " / " + refused);
        return (list.entries.empty() ? "[" + list.remark + "]" : all).toStdString();
    }

    QTemporaryDir folder;
    state::DocumentState state;
    CandidateFinder finder;
};

TEST(CandidateFinder, TellsWhatMayStandAroundANode) {
    const QByteArray dtd = "<!ELEMENT r (a,b?,(c,d)*,e)><!ELEMENT a EMPTY><!ELEMENT b (#PCDATA)>"
                           "<!ELEMENT c ANY><!ELEMENT d EMPTY><!ELEMENT e EMPTY>";
    const struct {
        QByteArray document;
        QString node;
        std::string child, ahead, behind;
    } cases[] = {
        {"<r/>", "r", "a! / b c d e", "[ルート要素は 1 つだけです。]",
         "[ルート要素は 1 つだけです。]"},
        {"<r><a/><e/></r>", "a", "[空要素のため、子を置けません。]", " / a b c d e",
         "b c+ / e a d"},
        {"<r><a/>text<!-- --><e/></r>", "#comment", "[このノードに子は置けません。]",
         "b c+ / e a d", "b c+ / e a d"},
        {"<r><a/><b>x</b></r>", "b", "[テキストだけを持つ要素のため、子要素を置けません。]",
         " / b c e a d", "e! c / a b d"},
        // What is wrong ahead does not matter.
        {"<r><x/><a/><c/><e/></r>", "c", "r a b c d e", "b c+ / e a d", "d! / a b c e"},
        // Nothing is known of what the schema does not have.
        {"<x><y/><z/></x>", "y", "[文書中に同じ例がありません。]", "y z", "y z"},
    };
    for (const auto &at : cases) {
        Finding finding(at.document, dtd);
        finding.finder.elements(finding.node(at.node), Position::Ahead);
        finding.finder.finishCounting();
        EXPECT_EQ(finding.elements(at.node, Position::LastChild), at.child) << at.document.data();
        EXPECT_EQ(finding.elements(at.node, Position::Ahead), at.ahead) << at.document.data();
        EXPECT_EQ(finding.elements(at.node, Position::Behind), at.behind) << at.document.data();
    }
}

TEST(CandidateFinder, ProposesRoots) {
    const QByteArray dtd = "<!ELEMENT r (a)><!ELEMENT a EMPTY>";
    Finding finding("<?xml version='1.0'?><!DOCTYPE a SYSTEM 'a.dtd'><!-- --><r/>", dtd);
    const xml::Node root = finding.state.m_DOM.documentElement();
    EXPECT_EQ(finding.shown(finding.finder.namesFor(root)), "a r");
    finding.state.m_DOM.node().removeChild(root);
    EXPECT_EQ(finding.elements("#document", Position::LastChild), "a r");
    EXPECT_EQ(finding.elements("#comment", Position::Behind), "a r");
    EXPECT_EQ(finding.elements("#comment", Position::Ahead), "a r");
    EXPECT_EQ(finding.elements("a", Position::Ahead), "[ここに要素は置けません。]");
}

const QByteArray Xsd =
    "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' xmlns:t='t' targetNamespace='t'>"
    "<xs:attribute name='g' type='xs:string'/><xs:element name='r'><xs:complexType><xs:sequence>"
    "<xs:element name='q' form='qualified' maxOccurs='9' type='xs:string'/>"
    "<xs:element name='u' minOccurs='0' fixed='7' type='xs:int'><xs:annotation><xs:documentation>"
    "About u.</xs:documentation></xs:annotation></xs:element>"
    "<xs:any namespace='##other' minOccurs='0' processContents='lax'/></xs:sequence>"
    "<xs:attribute name='o' default='1'><xs:simpleType><xs:restriction base='xs:int'>"
    "<xs:minInclusive value='1'/><xs:maxExclusive value='5'/></xs:restriction></xs:simpleType>"
    "</xs:attribute><xs:attribute ref='t:g' use='required'/><xs:attribute name='there'/>"
    "</xs:complexType></xs:element></xs:schema>";

TEST(CandidateFinder, WritesNamesAsTheirPlaceNeedsThem) {
    const struct {
        QByteArray document;
        std::string child, attributes;
    } cases[] = {
        {"<r xmlns='t' there=''><q/></r>", "q u", "ns:g! o / there"},
        {"<p:r xmlns:p='t' there=''><p:q/></p:r>", "p:q u", "p:g! o / there"},
        {"<p:r xmlns:p='t' xmlns='t' p:g=''/>", "p:q! / u", "o there / p:g"},
    };
    for (const auto &at : cases) {
        Finding finding(at.document, Xsd);
        const xml::Node root = finding.state.m_DOM.documentElement();
        EXPECT_EQ(finding.elements(root.nodeName(), Position::LastChild), at.child);
        EXPECT_EQ(finding.shown(finding.finder.attributes(root)), at.attributes);
    }
}

TEST(CandidateFinder, SaysWhatThingsAre) {
    Finding finding("<p:r xmlns:p='t'><p:q/></p:r>", Xsd);
    const xml::Node root = finding.state.m_DOM.documentElement();
    const EntryList children = finding.finder.elements(root, Position::LastChild);
    ASSERT_GE(children.entries.size(), 2U);
    EXPECT_EQ(children.entries[1].type, "int、固定値 7");
    EXPECT_EQ(children.entries[1].documentation, "About u.");
    EXPECT_EQ(children.remark, "ほかに、次以外の名前空間の要素を置けます: t, (名前空間なし)");
    const EntryList attributes = finding.finder.attributes(root);
    ASSERT_GE(attributes.entries.size(), 2U);
    EXPECT_EQ(attributes.entries[0].type, "必須、string");
    EXPECT_EQ(attributes.entries[1].type, "int、1 以上、5 未満、既定値 1");
}

TEST(CandidateFinder, LearnsFromTheDocumentWithoutASchema) {
    QByteArray items;
    for (int i = 0; i < 5000; ++i)
        items += "<item id='1'><name/></item>";
    Finding finding("<list><item><a/></item>" + items + "<item kind='2'><b/></item></list>");
    CandidateFinder &finder = finding.finder;
    const xml::Node item = finding.state.m_DOM.documentElement().firstChild();
    // How much is counted at once depends on the machine.
    const QString counting = QStringLiteral("文書から集めています...");
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return finder.elements(item, Position::LastChild).remark != counting; }, 60'000));
    const EntryList children = finder.elements(item, Position::LastChild);
    EXPECT_EQ(finding.shown(children), "a name b");
    EXPECT_EQ(children.remark, "スキーマがないため、文書中で使われている名前です。");
    EXPECT_EQ(finding.shown(finder.elements(item, Position::Behind)), "item");
    EXPECT_EQ(finding.shown(finder.namesFor(item)), "item");
    EXPECT_EQ(finding.shown(finder.attributes(item)), "id kind");
    EXPECT_EQ(finding.shown(finder.attributes(item.nextSibling())), "kind / id");
}

TEST(CandidateFinder, FollowsWhatNamesMean) {
    Finding finding("<p:r xmlns:p='t'><p:q/></p:r>", Xsd);
    EXPECT_EQ(finding.elements("p:r", Position::LastChild), "p:q u");
    finding.state.m_DOM.documentElement().setAttribute("xmlns:p", "other");
    finding.finder.documentChanged();
    EXPECT_EQ(finding.finder.known(finding.state.m_DOM.documentElement()).type, grammar::None);
}

TEST(CandidateFinder, FollowsTheDocument) {
    Finding finding("<r><a/></r>", "<!ELEMENT r (a,b,c)><!ELEMENT a EMPTY><!ELEMENT b EMPTY>"
                                   "<!ELEMENT c EMPTY>");
    const xml::Node root = finding.state.m_DOM.documentElement();
    EXPECT_EQ(finding.elements("r", Position::LastChild), "b! / a c");
    root.appendChild(finding.state.m_DOM.createElement("b"));
    finding.finder.documentChanged();
    EXPECT_EQ(finding.elements("r", Position::LastChild), "c! / a b");
    EXPECT_EQ(finding.shown(finding.finder.namesFor(root.lastChild())), "b / a c");
    // Texts and attributes do not matter, but names do, and what names mean.
    root.firstChild().setAttribute("k", "1");
    finding.finder.documentChanged();
    EXPECT_EQ(finding.elements("r", Position::LastChild), "c! / a b");
    root.replaceChild(finding.state.m_DOM.createElement("x"), root.lastChild());
    finding.finder.documentChanged();
    EXPECT_EQ(finding.elements("r", Position::LastChild), "b! / a c") << "b is x now";
    root.removeChild(root.lastChild());
    finding.finder.documentChanged();
    EXPECT_EQ(finding.elements("r", Position::LastChild), "b! / a c");
    root.appendChild(finding.state.m_DOM.createElement("b"));
    finding.finder.documentChanged();
    finding.finder.setGrammar({});
    finding.finder.attributes(root);
    finding.finder.finishCounting();
    EXPECT_EQ(finding.elements("r", Position::LastChild), "a b");
}

} // namespace

} // namespace quillon::candidates
