#include "platform/xml/schema/xerces/report_sentences.h"

#include "platform/xml/dom/dom.h"
#include "platform/xml/dom/qualified_name.h"
#include "resources/schema_fault_texts.h"
#include "resources/xerces_texts.h"

#include <algorithm>
#include <span>

namespace quillon::xml {

namespace texts = resources::xerces_texts;
namespace fault_texts = resources::schema_fault_texts;

namespace {

std::span<const texts::Sentence> sentencesOf(ReportDomain domain) {
    switch (domain) {
    case ReportDomain::Error:
        return texts::OfErrors;
    case ReportDomain::Validity:
        return texts::OfDeclarations;
    case ReportDomain::Value:
        break;
    }
    return texts::OfValues;
}

/// The start tag that ends at a 1-based line and column, as an empty element; empty when there is
/// none.
QByteArray tagEndingAt(const QByteArray &text, int line, int column) {
    qsizetype start = 0;
    for (int at = 1; at < line && start >= 0; ++at)
        start = text.indexOf('\n', start) + 1;
    // Columns count UTF-16 units.
    qsizetype end = start;
    for (int at = 1; at < column && end < text.size(); ++end) {
        const auto byte = static_cast<unsigned char>(text[end]);
        if ((byte & 0xC0) != 0x80)
            at += byte >= 0xF0 ? 2 : 1;
        while (end + 1 < text.size() && (static_cast<unsigned char>(text[end + 1]) & 0xC0) == 0x80)
            ++end;
    }
    if (end == 0 || text[end - 1] != '>')
        return {};
    const qsizetype open = text.lastIndexOf('<', end - 1);
    if (open < 0)
        return {};
    QByteArray tag = text.sliced(open, end - open - 1);
    if (tag.endsWith('/'))
        tag.chop(1);
    return tag + "/>";
}

/// A declaration of a schema as its author knows it.
struct Declaration {
    /// With the name that it declares or refers to.
    QString shown;
    /// What patterns and paths are: the value of the attribute that has them.
    QString value;
};

Declaration declarationAt(const QByteArray &text, int line, int column) {
    const QByteArray tag = tagEndingAt(text, line, column);
    const DOMDocument40 parsed = DOMDocument40::create();
    if (tag.isEmpty() || !DOMDocument40(parsed).loadXML(tag))
        return {};
    const Node element = parsed.documentElement();
    const auto attribute = [&](const char *name) {
        return element.getAttribute(QString::fromLatin1(name)).value_or(QString());
    };
    const QString name = attribute("name").isEmpty() ? attribute("ref") : attribute("name");
    Declaration declaration{QStringLiteral("xs:") + localNameOf(element.nodeName()), {}};
    if (!name.isEmpty())
        declaration.shown = QStringLiteral("%1 '%2'").arg(declaration.shown, name);
    declaration.value = attribute("xpath").isEmpty() ? attribute("value") : attribute("xpath");
    return declaration;
}

} // namespace

QString faultOf(const Report &report, const QByteArray &text) {
    const auto sentences = sentencesOf(report.domain);
    const auto found = std::ranges::find_if(sentences, [&](const texts::Sentence &sentence) {
        return sentence.first <= report.code && report.code <= sentence.last;
    });
    if (found == sentences.end())
        return fault_texts::Other.toString().arg(report.code);
    const Declaration declaration = declarationAt(text, report.line, report.column);
    const QStringView sentence = found->text;
    // All at once, so that what an argument holds is not taken for the place of another.
    const std::array<QString, 4> values{report.argument(0), report.argument(1), report.argument(2),
                                        declaration.value};
    QString filled;
    for (qsizetype i = 0; i < sentence.size(); ++i) {
        const int place =
            sentence[i] == u'%' && i + 1 < sentence.size() ? sentence[i + 1].digitValue() : 0;
        if (place < 1 || place > int(values.size())) {
            filled += sentence[i];
            continue;
        }
        filled += values[std::size_t(place) - 1];
        ++i;
    }
    if (declaration.shown.isEmpty())
        return filled;
    return found->attribute.isEmpty()
               ? fault_texts::AtElement.toString().arg(declaration.shown, filled)
               : fault_texts::AtAttribute.toString().arg(declaration.shown, filled,
                                                         found->attribute.toString());
}

} // namespace quillon::xml
