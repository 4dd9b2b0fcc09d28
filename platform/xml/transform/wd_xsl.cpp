#include "platform/xml/transform/wd_xsl.h"

#include "platform/runtime/error.h"
#include "platform/xml/transform/wd_xsl_functions.h"
#include "platform/xml/transform/wd_xsl_pattern.h"
#include "platform/xml/transform/wd_xsl_script.h"
#include "resources/xslt_texts.h"

#include <QHash>
#include <QXmlStreamWriter>

#include <utility>

namespace quillon::xml {

namespace texts = resources::xslt_texts;

namespace {

constexpr QLatin1String WdNamespace("http://www.w3.org/TR/WD-xsl");
const QString XsltNamespace = QStringLiteral("http://www.w3.org/1999/XSL/Transform");

[[noreturn]] void refuse(QStringView sentence, const QString &name) {
    throw runtime::Error(runtime::error_number::Fail, sentence.toString().arg(name));
}

/// The qualified name of the attribute that puts the root element into the old dialect's namespace;
/// empty when none does.
QString dialectDeclaration(const Node &root) {
    const QString name = root.nodeName();
    const QString declaration = name.contains(u':')
                                    ? QStringLiteral("xmlns:") + name.section(u':', 0, 0)
                                    : QStringLiteral("xmlns");
    return root.getAttribute(declaration) == WdNamespace ? declaration : QString();
}

class Translator {
public:
    explicit Translator(const Node &root);
    QByteArray translate();

private:
    using Handler = void (Translator::*)(const Node &);

    /// The local name of an element of the dialect; empty for an element of the result.
    QString dialectName(const Node &element) const;
    QString required(const Node &element, const char *attribute) const;

    void stylesheet();
    void output();
    void templates(const Node &parent, const QString &mode);
    void templateRule(const Node &element, const QString &mode);
    void localTemplates();
    void nothingByDefault(const QString &mode);

    void children(const Node &parent);
    void content(const Node &node);
    void literalText(const QString &value);
    void literalElement(const Node &element);
    void literalAttribute(const Node &attribute);
    void instruction(const Node &element);
    void sorts(const Node &element);

    void applyTemplates(const Node &element);
    void forEach(const Node &element);
    void valueOf(const Node &element);
    void condition(const Node &element);
    void choose(const Node &element);
    void otherwise(const Node &element);
    void nodeName(const Node &element);
    void namedNode(const Node &element);
    void comment(const Node &element);
    void cdata(const Node &element);
    void entityReference(const Node &element);
    void copy(const Node &element);
    void eval(const Node &element);

    void start(const char *name) { out_.writeStartElement(XsltNamespace, QLatin1String(name)); }
    void attribute(const char *name, const QString &value) {
        out_.writeAttribute(QLatin1String(name), value);
    }
    void rawText(const QString &value);

    Node root_;
    QString declaration_;
    QString prefix_;
    QByteArray bytes_;
    QXmlStreamWriter out_;
    int rules_ = 0;
    /// The apply-templates elements with templates of their own; the mode of each is its place.
    QList<Node> local_;
    bool inCdata_ = false;
};

Translator::Translator(const Node &root)
    : root_(root), declaration_(dialectDeclaration(root)), prefix_(declaration_.section(u':', 1)),
      out_(&bytes_) {}

QByteArray Translator::translate() {
    stylesheet();
    out_.writeEndDocument();
    return bytes_;
}

QString Translator::dialectName(const Node &element) const {
    const QString name = element.nodeName();
    if (prefix_.isEmpty())
        return name.contains(u':') ? QString() : name;
    return name.startsWith(prefix_ + u':') ? name.mid(prefix_.size() + 1) : QString();
}

QString Translator::required(const Node &element, const char *attribute) const {
    const auto value = element.getAttribute(QLatin1String(attribute));
    if (!value)
        throw runtime::Error(
            runtime::error_number::Fail,
            texts::WdAttributeMissing.toString().arg(element.nodeName(), QLatin1String(attribute)));
    return *value;
}

void Translator::stylesheet() {
    if (dialectName(root_) != u"stylesheet")
        refuse(texts::WdElementRefused, root_.nodeName());
    out_.writeNamespace(XsltNamespace, prefix_.isEmpty() ? QStringLiteral("xsl") : prefix_);
    out_.writeNamespace(QLatin1String(WdFunctionsNamespace), QLatin1String(WdFunctionsPrefix));
    start("stylesheet");
    attribute("version", QStringLiteral("1.0"));
    attribute("exclude-result-prefixes", QLatin1String(WdFunctionsPrefix));
    if (root_.getAttribute(QStringLiteral("default-space")) == QStringLiteral("preserve"))
        attribute("xml:space", QStringLiteral("preserve"));
    const AttributeMap attributes = root_.attributes();
    for (int i = 0; i < attributes.length(); ++i) {
        const Node declared = attributes.item(i);
        if (declared.nodeName().startsWith(u"xmlns") && declared.nodeName() != declaration_)
            out_.writeAttribute(declared.nodeName(), declared.nodeValue());
    }
    output();
    nothingByDefault(QString());
    templates(root_, QString());
    localTemplates();
    out_.writeEndElement();
}

void Translator::output() {
    const QString result = root_.getAttribute(QStringLiteral("result-ns")).value_or(QString());
    const QString indent = root_.getAttribute(QStringLiteral("indent-result")).value_or(QString());
    const bool html = result == u"html" || result.startsWith(u"http://www.w3.org/TR/REC-html");
    if (!html && indent.isEmpty())
        return;
    start("output");
    if (html)
        attribute("method", QStringLiteral("html"));
    if (!indent.isEmpty())
        attribute("indent", indent);
    out_.writeEndElement();
}

void Translator::nothingByDefault(const QString &mode) {
    start("template");
    attribute("match", QStringLiteral("*|@*|text()|comment()|processing-instruction()|/"));
    attribute("priority", QStringLiteral("-1"));
    if (!mode.isEmpty()) {
        // Where no local template matches, the general ones do.
        attribute("mode", mode);
        start("apply-templates");
        attribute("select", QStringLiteral("."));
        out_.writeEndElement();
    }
    out_.writeEndElement();
}

void Translator::templates(const Node &parent, const QString &mode) {
    for (Node child = parent.firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() != NodeType::Element)
            continue;
        const QString name = dialectName(child);
        if (name == u"template")
            templateRule(child, mode);
        else if (name == u"define-template-set")
            templates(child, mode);
        else if (name == u"script")
            refuse(texts::WdScriptRefused, child.nodeName());
        else
            refuse(texts::WdElementRefused, child.nodeName());
    }
}

void Translator::templateRule(const Node &element, const QString &mode) {
    const auto match = element.getAttribute(QStringLiteral("match"));
    start("template");
    attribute("match", match ? translateWdPattern(*match) : QStringLiteral("*|/"));
    // The last one that matches wins.
    attribute("priority", QString::number(++rules_));
    if (!mode.isEmpty())
        attribute("mode", mode);
    children(element);
    out_.writeEndElement();
}

void Translator::localTemplates() {
    // The list grows as templates in it turn out to have local templates of their own.
    for (qsizetype i = 0; i < local_.size(); ++i) {
        const QString mode = QStringLiteral("local%1").arg(i + 1);
        const Node owner = local_[i];
        nothingByDefault(mode);
        templates(owner, mode);
    }
}

void Translator::children(const Node &parent) {
    for (Node child = parent.firstChild(); child; child = child.nextSibling())
        content(child);
}

void Translator::content(const Node &node) {
    switch (node.nodeType()) {
    case NodeType::Element:
        return dialectName(node).isEmpty() ? literalElement(node) : instruction(node);
    case NodeType::Text:
    case NodeType::CDATASection:
        return literalText(node.nodeValue());
    case NodeType::EntityReference:
        return literalText(node.text());
    default:
        return;
    }
}

void Translator::rawText(const QString &value) {
    start("text");
    attribute("disable-output-escaping", QStringLiteral("yes"));
    out_.writeCharacters(value);
    out_.writeEndElement();
}

void Translator::literalText(const QString &value) {
    if (inCdata_)
        return rawText(value);
    if (!value.trimmed().isEmpty())
        return out_.writeCharacters(value);
    // White space that is a node was meant to be kept.
    start("text");
    out_.writeCharacters(value);
    out_.writeEndElement();
}

void Translator::literalElement(const Node &element) {
    out_.writeStartElement(element.nodeName());
    const AttributeMap attributes = element.attributes();
    for (int i = 0; i < attributes.length(); ++i)
        literalAttribute(attributes.item(i));
    children(element);
    out_.writeEndElement();
}

void Translator::literalAttribute(const Node &attribute) {
    QString value = attribute.nodeValue();
    if (!attribute.nodeName().startsWith(u"xmlns")) {
        // The old dialect has no attribute value templates.
        value.replace(u'{', QStringLiteral("{{")).replace(u'}', QStringLiteral("}}"));
    }
    out_.writeAttribute(attribute.nodeName(), value);
}

void Translator::instruction(const Node &element) {
    static const QHash<QString, Handler> handlers = {
        {"apply-templates", &Translator::applyTemplates},
        {"for-each", &Translator::forEach},
        {"value-of", &Translator::valueOf},
        {"if", &Translator::condition},
        {"choose", &Translator::choose},
        {"when", &Translator::condition},
        {"otherwise", &Translator::otherwise},
        {"node-name", &Translator::nodeName},
        {"attribute", &Translator::namedNode},
        {"element", &Translator::namedNode},
        {"pi", &Translator::namedNode},
        {"comment", &Translator::comment},
        {"cdata", &Translator::cdata},
        {"entity-ref", &Translator::entityReference},
        {"copy", &Translator::copy},
        {"eval", &Translator::eval},
    };
    const QString name = dialectName(element);
    if (element.getAttribute(QStringLiteral("expr")))
        refuse(texts::WdScriptRefused, texts::WdExprOf.toString().arg(element.nodeName()));
    if (name == u"script")
        refuse(texts::WdScriptRefused, element.nodeName());
    const auto handler = handlers.find(name);
    if (handler == handlers.end())
        refuse(texts::WdElementRefused, element.nodeName());
    (this->**handler)(element);
}

void Translator::sorts(const Node &element) {
    const QString order = element.getAttribute(QStringLiteral("order-by")).value_or(QString());
    for (const QString &part : order.split(u';', Qt::SkipEmptyParts)) {
        QString key = part.trimmed();
        const bool descending = key.startsWith(u'-');
        if (descending || key.startsWith(u'+'))
            key = key.mid(1).trimmed();
        const bool number = key.startsWith(u"number(") && key.endsWith(u')');
        if (number)
            key = key.sliced(7).chopped(1);
        start("sort");
        attribute("select", translateWdPattern(key));
        attribute("order", descending ? QStringLiteral("descending") : QStringLiteral("ascending"));
        if (number)
            attribute("data-type", QStringLiteral("number"));
        out_.writeEndElement();
    }
}

void Translator::applyTemplates(const Node &element) {
    const auto select = element.getAttribute(QStringLiteral("select"));
    start("apply-templates");
    attribute("select", select ? translateWdPattern(*select) : QStringLiteral("node()"));
    bool hasLocal = false;
    for (Node child = element.firstChild(); child; child = child.nextSibling())
        hasLocal = hasLocal || child.nodeType() == NodeType::Element;
    if (hasLocal) {
        local_.append(element);
        attribute("mode", QStringLiteral("local%1").arg(local_.size()));
    }
    sorts(element);
    out_.writeEndElement();
}

void Translator::forEach(const Node &element) {
    const auto select = element.getAttribute(QStringLiteral("select"));
    start("for-each");
    attribute("select", select ? translateWdPattern(*select) : QStringLiteral("node()"));
    sorts(element);
    children(element);
    out_.writeEndElement();
}

void Translator::valueOf(const Node &element) {
    const auto select = element.getAttribute(QStringLiteral("select"));
    start("value-of");
    attribute("select", select ? translateWdPattern(*select) : QStringLiteral("."));
    if (inCdata_)
        attribute("disable-output-escaping", QStringLiteral("yes"));
    out_.writeEndElement();
}

void Translator::condition(const Node &element) {
    // The condition may stand in either attribute: a pattern is true where it selects a node.
    const auto match = element.getAttribute(QStringLiteral("match"));
    out_.writeStartElement(XsltNamespace, dialectName(element));
    attribute("test", translateWdPattern(match ? *match : required(element, "test")));
    children(element);
    out_.writeEndElement();
}

void Translator::choose(const Node &element) {
    start("choose");
    children(element);
    out_.writeEndElement();
}

void Translator::otherwise(const Node &element) {
    start("otherwise");
    children(element);
    out_.writeEndElement();
}

void Translator::nodeName(const Node & /*element*/) {
    start("value-of");
    attribute("select", QStringLiteral("name()"));
    out_.writeEndElement();
}

void Translator::namedNode(const Node &element) {
    const QString kind = dialectName(element);
    QString name = required(element, "name");
    name.replace(u'{', QStringLiteral("{{")).replace(u'}', QStringLiteral("}}"));
    out_.writeStartElement(XsltNamespace,
                           kind == u"pi" ? QStringLiteral("processing-instruction") : kind);
    attribute("name", name);
    children(element);
    out_.writeEndElement();
}

void Translator::comment(const Node &element) {
    start("comment");
    children(element);
    out_.writeEndElement();
}

void Translator::cdata(const Node &element) {
    rawText(QStringLiteral("<![CDATA["));
    const bool outer = std::exchange(inCdata_, true);
    children(element);
    inCdata_ = outer;
    rawText(QStringLiteral("]]>"));
}

void Translator::entityReference(const Node &element) {
    rawText(u'&' + required(element, "name") + u';');
}

void Translator::copy(const Node &element) {
    start("copy");
    children(element);
    out_.writeEndElement();
}

void Translator::eval(const Node &element) {
    const auto expression = translateWdScript(element.text());
    if (!expression)
        refuse(texts::WdScriptRefused,
               element.text().trimmed().isEmpty() ? element.nodeName() : element.text().trimmed());
    if (!expression->select.isEmpty()) {
        start("value-of");
        attribute("select", expression->select);
    } else {
        start("number");
        attribute("format", expression->numberFormat);
    }
    out_.writeEndElement();
}

} // namespace

bool isWdXsl(const DOMDocument40 &stylesheet) {
    return !dialectDeclaration(stylesheet.documentElement()).isEmpty();
}

QByteArray translateWdXsl(const DOMDocument40 &stylesheet) {
    return Translator(stylesheet.documentElement()).translate();
}

} // namespace quillon::xml
