#include "platform/xml/schema/grammar/relaxng_definitions.h"

#include "platform/runtime/error.h"
#include "platform/xml/dom/qualified_name.h"
#include "platform/xml/schema/grammar/node_lines.h"
#include "platform/xml/schema/grammar/relaxng_compact.h"
#include "platform/xml/schema/schema_error.h"
#include "resources/validation_texts.h"

#include <QFileInfo>

#include <algorithm>

namespace quillon::grammar {

using xml::Node;
namespace texts = resources::validation_texts;

namespace {

const QString RelaxNgNamespace = QStringLiteral("http://relaxng.org/ns/structure/1.0");
constexpr int MaxIncludeDepth = 100;

/// The name that a start or define gives to what is in it.
QString definedName(const Node &node, const QString &kind) {
    return kind == QLatin1String("start")
               ? QString()
               : node.getAttribute(QStringLiteral("name")).value_or(QString()).trimmed();
}

bool isDefinition(const QString &kind) {
    return kind == QLatin1String("start") || kind == QLatin1String("define");
}

} // namespace

QString relaxNgKind(const Node &node) {
    if (node.nodeType() != xml::NodeType::Element)
        return {};
    const QString name = node.nodeName();
    return xml::namespaceAt(node, xml::prefixOf(name)) == RelaxNgNamespace ? xml::localNameOf(name)
                                                                           : QString();
}

int RelaxNgDefinitions::open(const QString &address, int from) {
    const QString path = from < 0 ? QFileInfo(address).canonicalFilePath()
                                  : files_.find(address.trimmed(), file(from).path);
    const auto known = std::ranges::find(opened_, path, &RelaxNgFile::path);
    if (known != opened_.end())
        return static_cast<int>(known - opened_.begin());
    std::optional<QByteArray> text = files_.read(path);
    const QString name = QFileInfo(address).fileName();
    if (!text && from < 0)
        xml::raiseSchemaError(name, 0, texts::SchemaNotFound.toString());
    if (!text) {
        builder_.noteMissing(address);
        return -1;
    }
    if (mayBeCompactRelaxNg(*text))
        text = relaxNgFromCompact(*text, name);
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    if (!document.loadXML(*text))
        xml::raiseSchemaError(name, document.parseError().line, document.parseError().reason);
    builder_.data.files.push_back(builder_.string(path));
    opened_.push_back({path, document.documentElement(), linesOfElements(document)});
    return static_cast<int>(opened_.size()) - 1;
}

int RelaxNgDefinitions::scopeOf(const Node &grammar, int file, int parent) {
    const QString key = QStringLiteral("%1 %2 %3").arg(file).arg(grammar.number()).arg(parent);
    if (const auto known = scopeNumbers_.constFind(key); known != scopeNumbers_.constEnd())
        return known.value();
    RelaxNgScope scope;
    scope.parent = parent;
    readGrammar(grammar, file, {}, scope, 0);
    scopes_.push_back(std::move(scope));
    const int number = static_cast<int>(scopes_.size()) - 1;
    scopeNumbers_.insert(key, number);
    return number;
}

void RelaxNgDefinitions::readGrammar(const Node &grammar, int file, const QSet<QString> &overridden,
                                     RelaxNgScope &scope, int depth) {
    if (depth > MaxIncludeDepth)
        throw runtime::Error(runtime::error_number::Fail, texts::XdrTooDeep.toString());
    forEachPattern(grammar, [&](const Node &child, const QString &kind) {
        if (kind == QLatin1String("div")) {
            readGrammar(child, file, overridden, scope, depth + 1);
        } else if (kind == QLatin1String("include")) {
            readInclude(child, file, overridden, scope, depth);
        } else if (isDefinition(kind)) {
            const QString name = definedName(child, kind);
            if (overridden.contains(name))
                return;
            RelaxNgDefinition &definition = scope.definitions[name];
            definition.parts.push_back({child, file});
            if (child.getAttribute(QStringLiteral("combine")) == QLatin1String("interleave"))
                definition.isInterleaved = true;
        }
    });
}

void RelaxNgDefinitions::readInclude(const Node &include, int file, const QSet<QString> &overridden,
                                     RelaxNgScope &scope, int depth) {
    // What stands in the include takes the place of what is included under the same name.
    QSet<QString> replaced = overridden;
    std::vector<Node> pending{include};
    while (!pending.empty()) {
        const Node at = pending.back();
        pending.pop_back();
        forEachPattern(at, [&](const Node &child, const QString &kind) {
            if (kind == QLatin1String("div"))
                pending.push_back(child);
            else if (isDefinition(kind))
                replaced.insert(definedName(child, kind));
        });
    }
    readGrammar(include, file, overridden, scope, depth + 1);
    const int included =
        open(include.getAttribute(QStringLiteral("href")).value_or(QString()), file);
    if (included >= 0)
        readGrammar(this->file(included).root, included, replaced, scope, depth + 1);
}

} // namespace quillon::grammar
