#include "schemas/schema_inference.h"

#include "platform/runtime/error.h"
#include "resources/schema_link_texts.h"
#include "schemas/element_facts.h"

#include <algorithm>

namespace quillon::schemas {

namespace {

using Child = ElementFacts::Child;

bool isOptional(const ElementFacts &facts, const Child &child) {
    return child.count < facts.count - facts.nilCount;
}

bool isMixed(const ElementFacts &facts) {
    return facts.hasText && !facts.children.empty();
}

/// Writes what is known as a DTD.
class DtdWriter {
public:
    explicit DtdWriter(const DocumentFacts &facts) : facts_(facts) {}

    QString written() const {
        QString text = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
        for (const ElementFacts &element : facts_.elements) {
            text += QStringLiteral("\n<!ELEMENT %1 %2>\n").arg(element.name, contentOf(element));
            if (!element.attributes.empty())
                text += attributesOf(element);
        }
        return text;
    }

private:
    QString nameOf(const Child &child) const {
        return facts_.elements[std::size_t(child.element)].name;
    }

    QString contentOf(const ElementFacts &element) const {
        if (element.hasEntity)
            return QStringLiteral("ANY");
        if (element.children.empty())
            return element.isEverBlank ? QStringLiteral("(#PCDATA)") : QStringLiteral("EMPTY");
        QStringList names;
        for (const Child &child : element.children)
            names.append(nameOf(child));
        if (isMixed(element))
            return QStringLiteral("(#PCDATA | %1)*").arg(names.join(QStringLiteral(" | ")));
        const std::vector<Child> sequence = element.sequence();
        if (sequence.empty())
            return QStringLiteral("(%1)*").arg(names.join(QStringLiteral(" | ")));
        names.clear();
        for (const Child &child : sequence) {
            // By whether it may be missing and may be there more than once.
            static constexpr const char *Signs[] = {"", "+", "?", "*"};
            names.append(
                nameOf(child) +
                QString::fromLatin1(
                    Signs[(child.repeats ? 1 : 0) + (child.count < element.count ? 2 : 0)]));
        }
        return QStringLiteral("(%1)").arg(names.join(QStringLiteral(", ")));
    }

    static QString attributesOf(const ElementFacts &element) {
        QString text = QStringLiteral("<!ATTLIST %1").arg(element.name);
        for (const AttributeFacts &attribute : element.attributes) {
            const bool isSpace = attribute.name == QLatin1String("xml:space");
            text +=
                QStringLiteral("\n          %1 %2 %3")
                    .arg(attribute.name,
                         isSpace ? QStringLiteral("(default | preserve)") : QStringLiteral("CDATA"),
                         attribute.count < element.count ? QStringLiteral("#IMPLIED")
                                                         : QStringLiteral("#REQUIRED"));
        }
        return text + QStringLiteral(">\n");
    }

    const DocumentFacts &facts_;
};

/// Writes what is known as an XML Schema.
class XsdWriter {
public:
    explicit XsdWriter(const DocumentFacts &facts) : facts_(facts) {}

    QString written() {
        line(0, QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
        const QString space = facts_.rootNamespace.toHtmlEscaped();
        QString start = QStringLiteral("<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\"");
        if (!space.isEmpty())
            start += QStringLiteral(" xmlns=\"%1\" targetNamespace=\"%1\"").arg(space);
        line(0, start + QStringLiteral(" elementFormDefault=\"qualified\">"));
        for (const ElementFacts &element : facts_.elements)
            write(element);
        line(0, QStringLiteral("</xs:schema>"));
        return text_;
    }

private:
    void line(int depth, const QString &markup) {
        text_ += QString(depth * 2, u' ') + markup + u'\n';
    }

    /// Whether all that is in such elements is text, and nothing to be said of it but its type.
    static bool isSimple(const ElementFacts &element) {
        return element.children.empty() && element.isEverBlank && !element.hasEntity;
    }
    static bool hasAttributes(const ElementFacts &element) {
        return !element.attributes.empty() || !element.foreignAttributes.empty();
    }

    void write(const ElementFacts &element) {
        QString start = QStringLiteral("<xs:element name=\"%1\"").arg(element.name);
        if (element.nilCount > 0)
            start += QStringLiteral(" nillable=\"true\"");
        if (isSimple(element) && !hasAttributes(element)) {
            line(1, start + QStringLiteral(" type=\"xs:%1\"/>").arg(element.text.type()));
            return;
        }
        line(1, start + u'>');
        const bool isAnything = isMixed(element) || element.hasEntity;
        line(2, isAnything ? QStringLiteral("<xs:complexType mixed=\"true\">")
                           : QStringLiteral("<xs:complexType>"));
        if (isSimple(element)) {
            line(3, QStringLiteral("<xs:simpleContent>"));
            line(4, QStringLiteral("<xs:extension base=\"xs:%1\">").arg(element.text.type()));
            writeAttributes(element, 5);
            line(4, QStringLiteral("</xs:extension>"));
            line(3, QStringLiteral("</xs:simpleContent>"));
        } else {
            writeContent(element);
            writeAttributes(element, 3);
        }
        line(2, QStringLiteral("</xs:complexType>"));
        line(1, QStringLiteral("</xs:element>"));
    }

    void writeContent(const ElementFacts &element) {
        if (element.hasEntity) {
            line(3, QStringLiteral("<xs:sequence>"));
            line(4, QStringLiteral("<xs:any processContents=\"lax\" minOccurs=\"0\" "
                                   "maxOccurs=\"unbounded\"/>"));
            line(3, QStringLiteral("</xs:sequence>"));
            return;
        }
        if (element.children.empty())
            return;
        const std::vector<Child> sequence =
            isMixed(element) ? std::vector<Child>() : element.sequence();
        if (sequence.empty()) {
            line(3, QStringLiteral("<xs:choice minOccurs=\"0\" maxOccurs=\"unbounded\">"));
            for (const Child &child : element.children)
                writeChild(element, child, QString());
            line(3, QStringLiteral("</xs:choice>"));
            return;
        }
        line(3, QStringLiteral("<xs:sequence>"));
        for (const Child &child : sequence) {
            QString occurs;
            if (isOptional(element, child))
                occurs += QStringLiteral(" minOccurs=\"0\"");
            if (child.repeats)
                occurs += QStringLiteral(" maxOccurs=\"unbounded\"");
            writeChild(element, child, occurs);
        }
        line(3, QStringLiteral("</xs:sequence>"));
    }

    void writeChild(const ElementFacts &parent, const Child &child, const QString &occurs) {
        if (child.element == ElementFacts::Foreign)
            line(4, QStringLiteral("<xs:any namespace=\"%1\" processContents=\"lax\"%2/>")
                        .arg(listed(parent.foreignChildren), occurs));
        else
            line(4, QStringLiteral("<xs:element ref=\"%1\"%2/>")
                        .arg(facts_.elements[std::size_t(child.element)].name, occurs));
    }

    void writeAttributes(const ElementFacts &element, int depth) {
        for (const AttributeFacts &attribute : element.attributes)
            line(depth,
                 QStringLiteral("<xs:attribute name=\"%1\" type=\"xs:%2\"%3/>")
                     .arg(attribute.name, attribute.values.type(),
                          attribute.count < element.count ? QString()
                                                          : QStringLiteral(" use=\"required\"")));
        if (!element.foreignAttributes.empty())
            line(depth,
                 QStringLiteral("<xs:anyAttribute namespace=\"%1\" processContents=\"lax\"/>")
                     .arg(listed(element.foreignAttributes)));
    }

    static QString listed(const std::set<QString> &spaces) {
        QStringList names;
        for (const QString &space : spaces)
            names.append(space.isEmpty() ? QStringLiteral("##local") : space.toHtmlEscaped());
        return names.join(u' ');
    }

    const DocumentFacts &facts_;
    QString text_;
};

} // namespace

QByteArray inferredSchema(const xml::DOMDocument40 &document, SchemaKind kind) {
    if (!document.documentElement())
        throw runtime::Error(runtime::error_number::Fail,
                             resources::schema_link_texts::NoRootToBind.toString());
    const bool isDtd = kind == SchemaKind::Dtd;
    const DocumentFacts facts = factsOf(document, isDtd);
    return (isDtd ? DtdWriter(facts).written() : XsdWriter(facts).written()).toUtf8();
}

} // namespace quillon::schemas
