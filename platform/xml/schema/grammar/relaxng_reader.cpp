#include "platform/xml/schema/grammar/relaxng_reader.h"

#include "platform/runtime/error.h"
#include "platform/xml/schema/grammar/grammar_from_relaxng.h"
#include "resources/validation_texts.h"

#include <algorithm>

namespace quillon::grammar {

using xml::Node;

namespace {

constexpr int MaxDepth = 400;

} // namespace

Data RelaxNgReader::read(const QString &path) {
    const int file = definitions_.open(path, -1);
    const Node root = definitions_.file(file).root;
    const RelaxNgPattern start = pattern({root, file, -1}, relaxNgKind(root));
    // The list grows while types are built.
    for (std::size_t i = 0; i < work_.size(); ++i) {
        const auto [type, spot] = work_[i];
        build(type, spot);
    }
    // What the start lets in may be the root.
    std::vector<Index> pending;
    if (start.particle != None)
        pending.push_back(start.particle);
    QSet<Index> seen;
    while (!pending.empty()) {
        const Index at = pending.back();
        pending.pop_back();
        if (seen.contains(at))
            continue;
        seen.insert(at);
        const Particle &piece = builder_.data.particles[at];
        if (piece.kind == ParticleKind::Element)
            builder_.data.elements[piece.target].isGlobal = 1;
        for (Index i = 0; i < piece.parts.count; ++i)
            pending.push_back(builder_.data.particleLists[piece.parts.first + i]);
    }
    return std::move(builder_.data);
}

RelaxNgPattern RelaxNgReader::pattern(const RelaxNgSpot &spot, const QString &kind) {
    struct Depth {
        explicit Depth(int &depth) : depth_(depth) { ++depth_; }
        ~Depth() { --depth_; }
        int &depth_;
    } depth(depth_);
    if (depth_ > MaxDepth)
        throw runtime::Error(runtime::error_number::Fail,
                             resources::validation_texts::XdrTooDeep.toString());
    RelaxNgPattern result;
    if (kind == QLatin1String("element"))
        return element(spot);
    if (kind == QLatin1String("attribute"))
        return attribute(spot);
    if (kind == QLatin1String("group") || kind == QLatin1String("define") ||
        kind == QLatin1String("start"))
        return all(spot, ParticleKind::Sequence);
    if (kind == QLatin1String("interleave"))
        return all(spot, ParticleKind::Interleave);
    if (kind == QLatin1String("choice"))
        return all(spot, ParticleKind::Choice);
    if (kind == QLatin1String("optional"))
        return repeated(all(spot, ParticleKind::Sequence), 0, 1);
    if (kind == QLatin1String("zeroOrMore"))
        return repeated(all(spot, ParticleKind::Sequence), 0, Unbounded);
    if (kind == QLatin1String("oneOrMore"))
        return repeated(all(spot, ParticleKind::Sequence), 1, Unbounded);
    if (kind == QLatin1String("mixed")) {
        result = all(spot, ParticleKind::Sequence);
        result.hasText = true;
        return result;
    }
    if (kind == QLatin1String("ref"))
        return reference(spot, spot.scope);
    if (kind == QLatin1String("parentRef"))
        return reference(spot, spot.scope < 0 ? -1 : definitions_.scope(spot.scope).parent);
    if (kind == QLatin1String("externalRef") || kind == QLatin1String("grammar"))
        return nested(spot);
    if (kind == QLatin1String("data") || kind == QLatin1String("value") ||
        kind == QLatin1String("list"))
        return data(spot);
    result.hasText = kind == QLatin1String("text");
    result.isImpossible = kind == QLatin1String("notAllowed");
    return result;
}

RelaxNgPattern RelaxNgReader::all(const RelaxNgSpot &spot, ParticleKind kind) {
    std::vector<RelaxNgPattern> parts;
    forEachPattern(spot.node, [&](const Node &child, const QString &childKind) {
        parts.push_back(pattern({child, spot.file, spot.scope}, childKind));
    });
    return kind == ParticleKind::Choice ? eitherOf(std::move(parts))
                                        : joined(std::move(parts), kind);
}

void RelaxNgReader::addTo(RelaxNgPattern &whole, const RelaxNgPattern &part) {
    whole.hasText = whole.hasText || part.hasText;
    for (const Attribute &attribute : part.attributes) {
        const auto same = std::ranges::find(whole.attributes, attribute.name, &Attribute::name);
        if (same == whole.attributes.end())
            whole.attributes.push_back(attribute);
        else
            same->type = eitherType(same->type, attribute.type);
    }
    whole.anyAttribute = eitherWildcard(whole.anyAttribute, part.anyAttribute);
    if (part.type != None)
        whole.type = part.type;
    whole.values.insert(whole.values.end(), part.values.begin(), part.values.end());
}

Index RelaxNgReader::eitherWildcard(Index a, Index b) {
    if (a == None || b == None || a == b)
        return a == None ? b : a;
    // What lets in too much is better than what calls something wrong that is not.
    Wildcard any;
    any.process = Process::Lax;
    builder_.data.wildcards.push_back(any);
    return static_cast<Index>(builder_.data.wildcards.size()) - 1;
}

RelaxNgPattern RelaxNgReader::joined(std::vector<RelaxNgPattern> parts, ParticleKind kind) {
    if (parts.size() == 1)
        return std::move(parts.front());
    RelaxNgPattern whole;
    std::vector<Index> particles;
    for (const RelaxNgPattern &part : parts) {
        whole.isImpossible = whole.isImpossible || part.isImpossible;
        if (part.particle != None)
            particles.push_back(part.particle);
        addTo(whole, part);
    }
    if (particles.size() == 1)
        whole.particle = particles.front();
    else if (!particles.empty())
        whole.particle = builder_.group(kind, particles);
    return whole;
}

RelaxNgPattern RelaxNgReader::eitherOf(std::vector<RelaxNgPattern> parts) {
    std::erase_if(parts, [](const RelaxNgPattern &part) { return part.isImpossible; });
    RelaxNgPattern whole;
    whole.isImpossible = parts.empty();
    std::vector<Index> particles;
    bool isOptional = false;
    for (const RelaxNgPattern &part : parts) {
        if (part.particle != None)
            particles.push_back(part.particle);
        else
            isOptional = true;
        addTo(whole, part);
    }
    // Where any text will do, the values beside it say nothing.
    if (std::ranges::any_of(parts, [](const RelaxNgPattern &part) {
            return part.hasText && part.type == None && part.values.empty();
        })) {
        whole.type = None;
        whole.values.clear();
    }
    // Required is what none of the ways leaves out.
    for (Attribute &attribute : whole.attributes) {
        attribute.isRequired = std::ranges::all_of(parts, [&](const RelaxNgPattern &part) {
            const auto same = std::ranges::find(part.attributes, attribute.name, &Attribute::name);
            return same != part.attributes.end() && same->isRequired;
        });
    }
    if (particles.size() == 1 && !isOptional)
        whole.particle = particles.front();
    else if (!particles.empty())
        whole.particle = builder_.group(ParticleKind::Choice, particles, isOptional ? 0 : 1, 1);
    return whole;
}

RelaxNgPattern RelaxNgReader::repeated(RelaxNgPattern inner, quint32 minimum, quint32 maximum) {
    if (inner.isImpossible && minimum == 0)
        return {};
    if (inner.particle != None)
        inner.particle = builder_.group(ParticleKind::Sequence, {inner.particle}, minimum, maximum);
    if (minimum == 0) {
        for (Attribute &attribute : inner.attributes)
            attribute.isRequired = 0;
    }
    return inner;
}

RelaxNgPattern RelaxNgReader::reference(const RelaxNgSpot &spot, int scope) {
    const QString name =
        spot.node.getAttribute(QStringLiteral("name")).value_or(QString()).trimmed();
    return definition(name, scope);
}

RelaxNgPattern RelaxNgReader::definition(const QString &name, int scope) {
    const QString key = QString::number(scope) + u' ' + name;
    if (const auto known = known_.constFind(key); known != known_.constEnd())
        return known.value();
    const RelaxNgDefinition found =
        scope < 0 ? RelaxNgDefinition() : definitions_.scope(scope).definitions.value(name);
    // One that refers to itself other than in an element says nothing.
    if (found.parts.empty() || building_.contains(key)) {
        builder_.noteUndeclared(name);
        return {};
    }
    building_.insert(key);
    std::vector<RelaxNgPattern> parts;
    for (const RelaxNgDefinition::Part &part : found.parts)
        parts.push_back(all({part.node, part.file, scope}, ParticleKind::Sequence));
    building_.remove(key);
    RelaxNgPattern whole = parts.size() == 1 ? std::move(parts.front())
                           : found.isInterleaved
                               ? joined(std::move(parts), ParticleKind::Interleave)
                               : eitherOf(std::move(parts));
    known_.insert(key, whole);
    return whole;
}

RelaxNgPattern RelaxNgReader::nested(const RelaxNgSpot &spot) {
    if (relaxNgKind(spot.node) == QLatin1String("grammar"))
        return definition({}, definitions_.scopeOf(spot.node, spot.file, spot.scope));
    const int file = definitions_.open(
        spot.node.getAttribute(QStringLiteral("href")).value_or(QString()), spot.file);
    const QString key = QStringLiteral("file %1").arg(file);
    if (file < 0 || building_.contains(key))
        return {};
    building_.insert(key);
    const Node root = definitions_.file(file).root;
    RelaxNgPattern whole = pattern({root, file, -1}, relaxNgKind(root));
    building_.remove(key);
    return whole;
}

bool isRelaxNg(const Node &root) {
    return !relaxNgKind(root).isEmpty();
}

Data grammarFromRelaxNg(const QString &path, SchemaFiles &files) {
    return RelaxNgReader(files).read(path);
}

} // namespace quillon::grammar
