#include "platform/xml/schema/schematron/schematron_reader.h"

#include "platform/xml/dom/qualified_name.h"
#include "platform/xml/schema/grammar/node_lines.h"
#include "platform/xml/schema/schema_error.h"
#include "resources/schematron_texts.h"
#include "resources/validation_texts.h"

#include <QFileInfo>

#include <algorithm>

namespace quillon::schematron {

using xml::Node;
using xml::NodeType;
namespace texts = resources::schematron_texts;

namespace {

const QString Namespaces[] = {QStringLiteral("http://purl.oclc.org/dsdl/schematron"),
                              QStringLiteral("http://www.ascc.net/xml/schematron")};
const QString XsltNamespace = QStringLiteral("http://www.w3.org/1999/XSL/Transform");
const QString AllPatterns = QStringLiteral("#ALL");
const QString DefaultPhase = QStringLiteral("#DEFAULT");

/// Of includes and rules in one another, and of markup in messages.
constexpr int MaxDepth = 50;
constexpr int MaxIncludes = 1000;
/// In characters, of all that is taken over: abstract parts may be used without end.
constexpr qsizetype MaxSize = 16 << 20;
/// What counts for a text however short it is.
constexpr qsizetype LeastSize = 16;

/// The local name of an element of the language; empty for any other node. A key may be one of
/// XSLT's.
QString kindOf(const Node &node) {
    if (node.nodeType() != NodeType::Element)
        return {};
    const QString name = node.nodeName();
    const QString local = xml::localNameOf(name);
    const QString space = xml::namespaceAt(node, xml::prefixOf(name));
    const bool isKey = local == QLatin1String("key") && space == XsltNamespace;
    return isKey || std::ranges::find(Namespaces, space) != std::end(Namespaces) ? local
                                                                                 : QString();
}

/// The next node in document order within a top one; not what is inside `node` when that is passed
/// over.
Node following(const Node &node, const Node &top, bool passOver) {
    if (Node child = node.firstChild(); child && !passOver)
        return child;
    for (Node at = node; at && !(at == top); at = at.parentNode()) {
        if (Node next = at.nextSibling())
            return next;
    }
    return {};
}

Node elementWithId(const Node &top, const QString &id) {
    for (Node at = top; at; at = following(at, top, false)) {
        if (at.getAttribute(QStringLiteral("id")) == id)
            return at;
    }
    return {};
}

bool continuesName(QChar c) {
    return c.isLetterOrNumber() || c == u'_';
}

bool isHint(const QString &role) {
    static const QStringList roles{"warning", "warn",   "info",   "information",
                                   "hint",    "notice", "caution"};
    return roles.contains(role.trimmed().toLower());
}

bool isTrue(const Node &element, const char *attribute) {
    return element.getAttribute(QLatin1String(attribute)).value_or(QString()).trimmed() == u"true";
}

} // namespace

void SchematronReader::raise(const Spot &spot, const QString &reason) const {
    const Place place = placeOf(spot);
    xml::raiseSchemaError(QFileInfo(place.file).fileName(), place.line, reason);
}

Place SchematronReader::placeOf(const Spot &spot) const {
    const File &file = opened_[static_cast<std::size_t>(spot.file)];
    return {file.path, static_cast<int>(file.lines.value(spot.node.number()))};
}

int SchematronReader::open(const QString &path) {
    const auto known = std::ranges::find(opened_, path, &File::path);
    if (known != opened_.end())
        return static_cast<int>(known - opened_.begin());
    const std::optional<QByteArray> text = files_.read(path);
    if (!text)
        return -1;
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    // Blanks between the marked parts of a message belong to it.
    document.setPreserveWhiteSpace(true);
    if (!document.loadXML(*text))
        xml::raiseSchemaError(QFileInfo(path).fileName(), document.parseError().line,
                              document.parseError().reason);
    opened_.push_back({path, document.documentElement(), grammar::linesOfElements(document)});
    return static_cast<int>(opened_.size()) - 1;
}

QString SchematronReader::replaced(const QString &text, const Parameters &parameters) {
    QString result;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QStringView rest = QStringView(text).sliced(at);
        const auto meant = std::ranges::find_if(parameters, [&](const auto &parameter) {
            const qsizetype end = parameter.first.size() + 1;
            return rest.front() == u'$' && rest.sliced(1).startsWith(parameter.first) &&
                   (end == rest.size() || !continuesName(rest[end]));
        });
        if (meant == parameters.end()) {
            result += rest.front();
        } else {
            result += meant->second;
            at += meant->first.size();
        }
        if (size_ + result.size() > MaxSize)
            xml::raiseSchemaError(QFileInfo(path_).fileName(), 0, texts::TooLarge.toString());
    }
    size_ += result.size() + LeastSize;
    return result;
}

QString SchematronReader::value(const Spot &spot, const char *name, const Parameters &parameters) {
    return replaced(spot.node.getAttribute(QLatin1String(name)).value_or(QString()).trimmed(),
                    parameters);
}

QString SchematronReader::wanted(const Spot &spot, const char *name, const Parameters &parameters) {
    QString found = value(spot, name, parameters);
    if (found.isEmpty())
        raise(spot,
              texts::MissingAttribute.toString().arg(spot.node.nodeName(), QLatin1String(name)));
    return found;
}

Spot SchematronReader::referred(const Spot &at, const QString &href) {
    if (++includes_ > MaxIncludes)
        raise(at, texts::TooDeep.toString());
    const qsizetype hash = href.indexOf(u'#');
    const QString address = hash < 0 ? href : href.first(hash);
    const QString from = opened_[static_cast<std::size_t>(at.file)].path;
    const int file = address.isEmpty() ? at.file : open(files_.find(address, from));
    Node found = file < 0 ? Node() : opened_[static_cast<std::size_t>(file)].root;
    if (found && hash >= 0)
        found = elementWithId(found, href.sliced(hash + 1));
    if (!found)
        raise(at, texts::MissingFile.toString().arg(href));
    return {found, file};
}

void SchematronReader::forEachPart(const Spot &parent, const Visit &visit, int depth) {
    if (depth > MaxDepth)
        raise(parent, texts::TooDeep.toString());
    for (Node child = parent.node.firstChild(); child; child = child.nextSibling()) {
        const QString kind = kindOf(child);
        const Spot spot{child, parent.file};
        if (kind == QLatin1String("include")) {
            const Spot included = referred(spot, wanted(spot, "href"));
            const QString includedKind = kindOf(included.node);
            if (includedKind == QLatin1String("schema"))
                forEachPart(included, visit, depth + 1);
            else if (!includedKind.isEmpty())
                visit(included, includedKind);
        } else if (!kind.isEmpty()) {
            visit(spot, kind);
        }
    }
}

void SchematronReader::forEachTopPart(const Visit &visit) {
    const Node root = opened_.front().root;
    bool isFound = false;
    // In a schema of another language the parts stand where that lets them.
    for (Node at = root; at;) {
        const QString kind = kindOf(at);
        if (kind == QLatin1String("schema"))
            forEachPart({at, 0}, visit);
        else if (!kind.isEmpty())
            visit({at, 0}, kind);
        isFound = isFound || !kind.isEmpty();
        at = following(at, root, !kind.isEmpty());
    }
    if (!isFound)
        raise({root, 0}, texts::NotASchematron.toString());
}

void SchematronReader::index() {
    forEachTopPart([&](const Spot &spot, const QString &kind) {
        if (kind == QLatin1String("pattern")) {
            patterns_.push_back(spot);
            if (isTrue(spot.node, "abstract"))
                abstractPatterns_.emplace(value(spot, "id"), spot);
            forEachPart(spot, [&](const Spot &rule, const QString &ruleKind) {
                if (ruleKind == QLatin1String("rule") && isTrue(rule.node, "abstract"))
                    rules_.emplace(value(rule, "id"), rule);
            });
        } else if (kind == QLatin1String("rules")) {
            forEachPart(spot, [&](const Spot &rule, const QString &) {
                rules_.emplace(value(rule, "id"), rule);
            });
        } else if (kind == QLatin1String("diagnostics")) {
            forEachPart(spot, [&](const Spot &diagnostic, const QString &) {
                diagnostics_.emplace(value(diagnostic, "id"), diagnostic);
            });
        } else if (kind == QLatin1String("phase")) {
            phases_.emplace(value(spot, "id"), spot);
        } else if (kind == QLatin1String("ns")) {
            schema_.namespaces.emplace_back(wanted(spot, "prefix"), wanted(spot, "uri"));
        } else if (kind == QLatin1String("let")) {
            schema_.lets.push_back(let(spot, {}));
        } else if (kind == QLatin1String("key")) {
            schema_.keys.push_back(key(spot, {}, {}));
        }
    });
}

void SchematronReader::addNamespaces(const Spot &spot) {
    for (const Node &attribute : spot.node.attributes().all()) {
        const QString name = attribute.nodeName();
        if (name.startsWith(QLatin1String("xmlns:")))
            schema_.namespaces.emplace_back(name.sliced(6), attribute.nodeValue());
    }
}

std::optional<QStringList> SchematronReader::activePatterns(const QString &phase) {
    QString name = phase.isEmpty() || phase == DefaultPhase ? defaultPhase_ : phase;
    if (name.isEmpty() || name == AllPatterns)
        return {};
    const auto found = phases_.find(name);
    if (found == phases_.end())
        raise({opened_.front().root, 0}, texts::UnknownPhase.toString().arg(name));
    QStringList active;
    forEachPart(found->second, [&](const Spot &spot, const QString &kind) {
        if (kind == QLatin1String("active")) {
            const QString pattern = wanted(spot, "pattern");
            if (std::ranges::none_of(patterns_, [&](const Spot &known) {
                    return known.node.getAttribute(QStringLiteral("id")) == pattern;
                }))
                raise(spot, texts::UnknownPattern.toString().arg(pattern));
            active.append(pattern);
        } else if (kind == QLatin1String("let")) {
            // The phase has its own say about what the schema defines.
            const Let own = let(spot, {});
            std::erase_if(schema_.lets, [&](const Let &known) { return known.name == own.name; });
            schema_.lets.push_back(own);
        }
    });
    return active;
}

Schema SchematronReader::read(const QString &phase) {
    const QString canonical = QFileInfo(path_).canonicalFilePath();
    if (open(canonical) < 0)
        xml::raiseSchemaError(QFileInfo(path_).fileName(), 0,
                              resources::validation_texts::SchemaNotFound.toString());
    const Spot root{opened_.front().root, 0};
    static const QStringList bindings{"", "xslt", "xslt1", "xpath", "xpath1", "exslt"};
    if (kindOf(root.node) == QLatin1String("schema")) {
        const QString binding = value(root, "queryBinding");
        if (!bindings.contains(binding.toLower()))
            raise(root, texts::QueryBinding.toString().arg(binding));
        defaultPhase_ = value(root, "defaultPhase");
    }
    index();
    addNamespaces(root);
    const std::optional<QStringList> active = activePatterns(phase);
    for (const Spot &spot : patterns_) {
        const QString id = spot.node.getAttribute(QStringLiteral("id")).value_or(QString());
        if (!isTrue(spot.node, "abstract") && (!active || active->contains(id)))
            schema_.patterns.push_back(pattern(spot));
    }
    return std::move(schema_);
}

Pattern SchematronReader::pattern(const Spot &spot) {
    Pattern result;
    const QString abstractName = value(spot, "is-a");
    if (!abstractName.isEmpty()) {
        const auto found = abstractPatterns_.find(abstractName);
        if (found == abstractPatterns_.end())
            raise(spot, texts::UnknownAbstractPattern.toString().arg(abstractName));
        Parameters parameters;
        forEachPart(spot, [&](const Spot &part, const QString &kind) {
            if (kind == QLatin1String("param"))
                parameters.emplace_back(wanted(part, "name"), value(part, "value"));
        });
        std::ranges::stable_sort(parameters, std::ranges::greater(),
                                 [](const auto &parameter) { return parameter.first.size(); });
        addRules(found->second, parameters, result);
    }
    addRules(spot, {}, result);
    return result;
}

void SchematronReader::addRules(const Spot &spot, const Parameters &parameters, Pattern &to) {
    forEachPart(spot, [&](const Spot &part, const QString &kind) {
        if (kind == QLatin1String("let")) {
            to.lets.push_back(let(part, parameters));
        } else if (kind == QLatin1String("rule") && !isTrue(part.node, "abstract")) {
            Rule rule;
            rule.context = wanted(part, "context", parameters);
            rule.place = placeOf(part);
            addToRule(part, parameters, rule, 0);
            to.rules.push_back(std::move(rule));
        }
    });
}

void SchematronReader::addToRule(const Spot &spot, const Parameters &parameters, Rule &to,
                                 int depth) {
    if (depth > MaxDepth)
        raise(spot, texts::TooDeep.toString());
    forEachPart(spot, [&](const Spot &part, const QString &kind) {
        if (kind == QLatin1String("assert") || kind == QLatin1String("report")) {
            to.checks.push_back(check(part, kind, parameters));
        } else if (kind == QLatin1String("let")) {
            to.lets.push_back(let(part, parameters));
        } else if (kind == QLatin1String("key")) {
            schema_.keys.push_back(key(part, parameters, to.context));
        } else if (kind == QLatin1String("extends")) {
            if (const QString href = value(part, "href"); !href.isEmpty())
                return addToRule(referred(part, href), parameters, to, depth + 1);
            const QString name = wanted(part, "rule", parameters);
            const auto found = rules_.find(name);
            if (found == rules_.end())
                raise(part, texts::UnknownAbstractRule.toString().arg(name));
            addToRule(found->second, parameters, to, depth + 1);
        }
    });
}

Check SchematronReader::check(const Spot &spot, const QString &kind, const Parameters &parameters) {
    Check result;
    result.isReport = kind == QLatin1String("report");
    result.test = wanted(spot, "test", parameters);
    result.isHint = isHint(value(spot, "role", parameters));
    result.place = placeOf(spot);
    addMessage(spot, parameters, result.message, 0);
    const QString diagnostics = value(spot, "diagnostics", parameters).simplified();
    for (const QString &name : diagnostics.split(u' ', Qt::SkipEmptyParts)) {
        const auto found = diagnostics_.find(name);
        if (found == diagnostics_.end())
            raise(spot, texts::UnknownDiagnostic.toString().arg(name));
        result.message.push_back({QStringLiteral(" "), true, result.place});
        addMessage(found->second, parameters, result.message, 0);
    }
    return result;
}

void SchematronReader::addMessage(const Spot &spot, const Parameters &parameters,
                                  std::vector<MessagePart> &to, int depth) {
    if (depth > MaxDepth)
        raise(spot, texts::TooDeep.toString());
    for (Node child = spot.node.firstChild(); child; child = child.nextSibling()) {
        const Spot at{child, spot.file};
        const QString kind = kindOf(child);
        if (child.nodeType() == NodeType::Element) {
            if (kind == QLatin1String("value-of"))
                to.push_back({wanted(at, "select", parameters), false, placeOf(at)});
            else if (kind == QLatin1String("name"))
                to.push_back({QStringLiteral("name(%1)").arg(value(at, "path", parameters)), false,
                              placeOf(at)});
            else
                addMessage(at, parameters, to, depth + 1);
        } else if (child.nodeType() != NodeType::Comment &&
                   child.nodeType() != NodeType::ProcessingInstruction) {
            to.push_back({replaced(child.text(), parameters), true, placeOf(spot)});
        }
    }
}

Let SchematronReader::let(const Spot &spot, const Parameters &parameters) {
    Let result;
    result.name = wanted(spot, "name", parameters);
    result.isText = !spot.node.getAttribute(QStringLiteral("value"));
    result.value =
        result.isText ? replaced(spot.node.text(), parameters) : wanted(spot, "value", parameters);
    result.place = placeOf(spot);
    return result;
}

Key SchematronReader::key(const Spot &spot, const Parameters &parameters, const QString &context) {
    Key result;
    result.name = wanted(spot, "name", parameters);
    result.match = context.isEmpty() ? wanted(spot, "match", parameters) : context;
    result.use = spot.node.getAttribute(QStringLiteral("path")) ? value(spot, "path", parameters)
                                                                : wanted(spot, "use", parameters);
    result.place = placeOf(spot);
    return result;
}

Schema readSchematron(const QString &path, const QStringList &folders, const QString &phase) {
    return SchematronReader(path, folders).read(phase);
}

} // namespace quillon::schematron
