#include "platform/xml/schema/schematron/schematron_stylesheet.h"

#include "platform/xml/query/xpath_expression.h"
#include "platform/xml/transform/xslt.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace quillon::schematron {

namespace {

/// Prefixes of ours, which no schema has.
const QString Xsl = QStringLiteral("quillon-xsl");
const QString Dom = QStringLiteral("quillon-dom");

/// By what names expressions know the variables of a pattern.
using Renamed = QHash<QString, QString>;

/// An expression with variables under the names that they have in the stylesheet.
QString renamed(const QString &expression, const Renamed &names) {
    if (names.isEmpty() || !expression.contains(u'$'))
        return expression;
    using Kind = xml::XPathToken::Kind;
    const xml::XPathExpression parsed(expression.toStdString());
    std::string result;
    std::size_t copied = 0;
    for (std::size_t i = 1; i < parsed.tokens().size(); ++i) {
        const xml::XPathToken &name = parsed.tokens()[i];
        if (name.kind != Kind::Name || parsed.text(parsed.tokens()[i - 1]) != "$")
            continue;
        const std::string_view text = parsed.text(name);
        const auto known =
            names.constFind(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
        if (known == names.constEnd())
            continue;
        result.append(parsed.utf8(), copied, name.start - copied);
        result += known->toStdString();
        copied = name.end;
    }
    result.append(parsed.utf8(), copied);
    return QString::fromStdString(result);
}

/// In an attribute; a line end in it is not to count as one of the stylesheet.
QString quoted(const QString &text) {
    QString escaped = text.toHtmlEscaped();
    escaped.replace(u'\n', QLatin1String("&#10;"));
    return u'"' + escaped + u'"';
}

/// Patterns that attributes may match: all that name one, or do not show what they stand for.
bool mayMeanAttributes(const QString &context) {
    return context.contains(u'@') || context.contains(QLatin1String("attribute")) ||
           context.contains(u'(');
}

class Writer {
public:
    explicit Writer(const Schema &schema) : schema_(schema) {}

    SchemaStylesheet written();

private:
    void put(const QString &text) {
        text_ += text;
        text_ += u'\n';
        line_ += 1 + static_cast<int>(text.count(u'\n'));
    }
    void put(const QString &text, const Place &place) {
        result_.places[line_] = place;
        put(text);
    }
    void putHead();
    void putPattern(const Pattern &pattern, int number);
    void putLet(const Let &let, const QString &name, const Renamed &names);
    void putCheck(const Check &check, const Renamed &names);

    const Schema &schema_;
    SchemaStylesheet result_;
    QString text_;
    int line_ = 1;
};

void Writer::putHead() {
    QString head = QStringLiteral("<%1:stylesheet version=\"1.0\" xmlns:%1="
                                  "\"http://www.w3.org/1999/XSL/Transform\"")
                       .arg(Xsl);
    QSet<QString> prefixes{Xsl, Dom, QStringLiteral("xml"), QStringLiteral("xmlns")};
    for (const auto &[prefix, uri] : schema_.namespaces) {
        // The root element with that one would get to see the document as the editor does.
        if (prefixes.contains(prefix) || uri.isEmpty() ||
            uri == QLatin1String(xml::DomFunctionsNamespace))
            continue;
        prefixes.insert(prefix);
        head += QStringLiteral(" xmlns:") + prefix + u'=' + quoted(uri);
    }
    put(head + u'>');
    put(QStringLiteral("<%1:output method=\"xml\" omit-xml-declaration=\"yes\"/>").arg(Xsl));
    for (const Key &key : schema_.keys)
        put(QStringLiteral("<%1:key name=%2 match=%3 use=%4/>")
                .arg(Xsl, quoted(key.name), quoted(key.match), quoted(key.use)),
            key.place);
    for (const Let &let : schema_.lets)
        putLet(let, let.name, {});
    // What entities stand for has no place of its own in the document. An attribute is told by
    // being one of its parent's.
    put(QStringLiteral("<%1:template name=\"fault\" xmlns:%2=\"%3\"><%1:param name=\"check\"/>"
                       "<%1:param name=\"message\"/><fault check=\"{$check}\" "
                       "node=\"{%2:nodeNumber(ancestor-or-self::*[%2:nodeNumber(.) &gt; 0][1])}\" "
                       "attribute=\"{name(self::node()[count(. | ../@*) = count(../@*)])}\">"
                       "<%1:value-of select=\"$message\"/></fault></%1:template>")
            .arg(Xsl, Dom, QLatin1String(xml::DomFunctionsNamespace)));
}

void Writer::putLet(const Let &let, const QString &name, const Renamed &names) {
    const QString start = QStringLiteral("<%1:variable name=%2").arg(Xsl, quoted(name));
    if (let.isText)
        put(start + QStringLiteral("><%1:text>%2</%1:text></%1:variable>")
                        .arg(Xsl, let.value.toHtmlEscaped()),
            let.place);
    else
        put(start + QStringLiteral(" select=%1/>").arg(quoted(renamed(let.value, names))),
            let.place);
}

void Writer::putCheck(const Check &check, const Renamed &names) {
    // An assertion is told where its test is not true; a test of its own keeps the author's words.
    put(QStringLiteral("<%1:choose><%1:when test=%2>%3")
            .arg(Xsl, quoted(renamed(check.test, names)),
                 check.isReport ? QString() : QStringLiteral("</%1:when><%1:otherwise>").arg(Xsl)),
        check.place);
    put(QStringLiteral("<%1:call-template name=\"fault\"><%1:with-param name=\"check\" "
                       "select=\"%2\"/><%1:with-param name=\"message\">")
            .arg(Xsl, QString::number(result_.checks.size())));
    for (const MessagePart &part : check.message) {
        if (part.isText)
            put(QStringLiteral("<%1:text>%2</%1:text>").arg(Xsl, part.value.toHtmlEscaped()));
        else
            put(QStringLiteral("<%1:value-of select=%2/>")
                    .arg(Xsl, quoted(renamed(part.value, names))),
                part.place);
    }
    put(QStringLiteral("</%1:with-param></%1:call-template></%1:%2></%1:choose>")
            .arg(Xsl, check.isReport ? QStringLiteral("when") : QStringLiteral("otherwise")));
    result_.checks.push_back(&check);
}

void Writer::putPattern(const Pattern &pattern, int number) {
    // Variables of a pattern are known in it alone, which variables of a stylesheet are not.
    const QString mode = QStringLiteral("pattern%1").arg(number);
    Renamed names;
    for (const Let &let : pattern.lets) {
        const QString name = mode + u'-' + let.name;
        putLet(let, name, names);
        names.insert(let.name, name);
    }
    // The first rule that fits has the last word.
    auto priority = static_cast<int>(pattern.rules.size());
    for (const Rule &rule : pattern.rules) {
        put(QStringLiteral("<%1:template match=%2 mode=\"%3\" priority=\"%4\">")
                .arg(Xsl, quoted(renamed(rule.context, names)), mode, QString::number(priority--)),
            rule.place);
        Renamed visible = names;
        for (const Let &let : rule.lets) {
            putLet(let, let.name, visible);
            visible.remove(let.name);
        }
        for (const Check &check : rule.checks)
            putCheck(check, visible);
        put(QStringLiteral("</%1:template>").arg(Xsl));
    }
    put(QStringLiteral("<%1:template match=\"/ | node() | @*\" mode=\"%2\" priority=\"-1\"/>")
            .arg(Xsl, mode));
}

SchemaStylesheet Writer::written() {
    putHead();
    int number = 0;
    for (const Pattern &pattern : schema_.patterns)
        putPattern(pattern, ++number);
    put(QStringLiteral("<%1:template match=\"/\"><faults>").arg(Xsl), {});
    number = 0;
    for (const Pattern &pattern : schema_.patterns) {
        const QString mode = QStringLiteral("pattern%1").arg(++number);
        const bool withAttributes = std::ranges::any_of(
            pattern.rules, [](const Rule &rule) { return mayMeanAttributes(rule.context); });
        // One loop, so that nothing nests as deeply as the document does.
        put(QStringLiteral("<%1:for-each select=\"/descendant-or-self::node()\">"
                           "<%1:apply-templates select=\".\" mode=\"%2\"/>%3</%1:for-each>")
                .arg(Xsl, mode,
                     withAttributes
                         ? QStringLiteral("<%1:apply-templates select=\"@*\" mode=\"%2\"/>")
                               .arg(Xsl, mode)
                         : QString()));
    }
    put(QStringLiteral("</faults></%1:template></%1:stylesheet>").arg(Xsl));
    result_.text = text_.toUtf8();
    return std::move(result_);
}

} // namespace

Place SchemaStylesheet::placeOf(int line) const {
    const auto after = places.upper_bound(line);
    return after == places.begin() ? Place() : std::prev(after)->second;
}

SchemaStylesheet stylesheetFor(const Schema &schema) {
    return Writer(schema).written();
}

} // namespace quillon::schematron
