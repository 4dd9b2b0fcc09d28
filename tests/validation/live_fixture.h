#pragma once

#include "platform/xml/query/xpath.h"
#include "platform/xml/schema/grammar/load_grammar.h"
#include "tests/support/headless_editor.h"
#include "tests/support/patience.h"

#include <QTest>

namespace quillon::test {

inline const QByteArray Orders = R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
<xs:element name="orders"><xs:complexType><xs:sequence>
  <xs:element name="order" minOccurs="0" maxOccurs="unbounded"><xs:complexType><xs:sequence>
    <xs:element name="item" type="xs:string" maxOccurs="3"/>
    <xs:element name="note" type="xs:string" minOccurs="0"/>
    <xs:element name="total" type="xs:int"/>
  </xs:sequence>
  <xs:attribute name="id" type="xs:string" use="required"/>
  <xs:attribute name="state"><xs:simpleType><xs:restriction base="xs:string">
    <xs:enumeration value="open"/><xs:enumeration value="closed"/>
  </xs:restriction></xs:simpleType></xs:attribute>
  </xs:complexType></xs:element>
</xs:sequence></xs:complexType></xs:element>
</xs:schema>)";

/// An editor whose document has a schema.
class Live : public HeadlessEditor {
protected:
    /// The tests say what the schema is, whatever the document names.
    Live() { editor().schemas.disconnect(); }

    validation::LiveValidation &live() { return editor().live; }

    /// As when the schema of the document has been found.
    void useSchema(const QByteArray &schema, const validation::Verdict &verdict = {},
                   const QString &name = "orders.xsd") {
        live().setSchemas(grammar::loadGrammar({.path = write(name, schema)}), verdict);
        editor().candidateFinder.setGrammar(live().grammar());
    }
    void waitForChecks() {
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return live().isUpToDate() && !editor().paneSyntax.isChecking(); }, Patience));
    }
    /// "path: kind" of each fault, in order.
    std::string found() {
        QStringList all;
        for (const validation::Fault &fault : live().faults()) {
            constexpr const char *Kinds[] = {"syntax", "content", "attributes", "value", "other"};
            const xml::Node node = state().m_DOM.nodeByNumber(fault.node);
            const search::HitRowReader reader;
            all << reader.path(node) + ": " + Kinds[int(fault.kind)];
        }
        return all.join(" | ").toStdString();
    }
    xml::Node nodeAt(const QString &path) {
        return xml::selectNodes(state().m_DOM.node(), path).at(0);
    }
    /// Selects the node of an element and types other text for it into the pane.
    void typeAt(const QString &path, const QString &markup) {
        editor().selection.ShowNode(editor().builder.itemOf(nodeAt(path)), true);
        type(markup);
    }
};

} // namespace quillon::test
