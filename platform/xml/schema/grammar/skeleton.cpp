#include "platform/xml/schema/grammar/skeleton.h"

#include "platform/xml/schema/grammar/document_names.h"

#include <algorithm>

namespace quillon::grammar {

namespace {

/// What does not come to an end within so many levels is taken for endless.
constexpr int Endless = 64;
/// From this level on, of alternatives the one that ends soonest is taken.
constexpr std::size_t ShortBelow = 4;
/// So many elements are made at most.
constexpr int MaxElements = 500;
/// So many choices are put to the user at most.
constexpr int MaxQuestions = 8;

const QString XmlNamespace = QStringLiteral("http://www.w3.org/XML/1998/namespace");

int oneMore(int height) {
    return std::min(height + 1, Endless);
}

/// Sets a number; true when it was another one before.
bool lower(int &height, int to) {
    return std::exchange(height, to) != to;
}

QString usualPrefix(const QString &space) {
    if (space == InstanceNamespace)
        return QStringLiteral("xsi");
    return space == QLatin1String("http://www.w3.org/1999/xlink") ? QStringLiteral("xlink")
                                                                  : QStringLiteral("ns");
}

/// A prefix for a namespace that has none yet.
QString freePrefix(const QString &space, const NameScope &scope) {
    const QString usual = usualPrefix(space);
    QString prefix = usual;
    for (int number = 1; scope.namespaces.contains(prefix); ++number)
        prefix = usual + QString::number(number);
    return prefix;
}

/// The prefix that stands for a namespace; nothing when none does.
std::optional<QString> prefixFor(const QString &space, const NameScope &scope, bool maybeEmpty) {
    const auto means = [&](const QString &prefix) {
        const auto declared = scope.namespaces.find(prefix);
        return declared != scope.namespaces.end() && declared->second == space;
    };
    if ((maybeEmpty || !scope.prefix.isEmpty()) && means(scope.prefix))
        return scope.prefix;
    for (const auto &[prefix, declared] : scope.namespaces) {
        if (declared == space && (maybeEmpty || !prefix.isEmpty()))
            return prefix;
    }
    return std::nullopt;
}

QString attributeMarkup(const QString &name, const QString &value) {
    QString escaped = value.toHtmlEscaped();
    // White space other than blanks would be blanks when it is read again.
    escaped.replace(u'\t', QLatin1String("&#9;"))
        .replace(u'\n', QLatin1String("&#10;"))
        .replace(u'\r', QLatin1String("&#13;"));
    return QStringLiteral(" %1=\"%2\"").arg(name, escaped);
}

} // namespace

SkeletonMaker::SkeletonMaker(const Grammar &grammar) : grammar_(grammar) {
    const Data &data = grammar_.data();
    elements_.assign(data.elements.size(), Endless);
    substituted_ = elements_;
    types_.assign(data.types.size(), Endless);
    derived_ = types_;
    particles_.assign(data.particles.size(), Endless);
    measure();
}

void SkeletonMaker::measure() {
    // Each round finds what is one level higher than what the one before has found.
    for (int round = 0; round < Endless && measureOnce(); ++round) {
    }
}

int SkeletonMaker::heightOf(const Particle &particle) const {
    if (particle.minimum == 0)
        return 0;
    switch (particle.kind) {
    case ParticleKind::Element:
        return substituted_[particle.target];
    case ParticleKind::Wildcard:
        // Nobody can tell what it is to be.
        return 0;
    case ParticleKind::Choice: {
        int least = Endless;
        for (const Index part : grammar_.partsOf(particle))
            least = std::min(least, particles_[part]);
        return least;
    }
    default: {
        int most = 0;
        for (const Index part : grammar_.partsOf(particle))
            most = std::max(most, particles_[part]);
        return most;
    }
    }
}

bool SkeletonMaker::measureOnce() {
    const Data &data = grammar_.data();
    bool isChanged = false;
    for (Index i = 0; i < data.particles.size(); ++i)
        isChanged |= lower(particles_[i], heightOf(data.particles[i]));
    for (Index i = 0; i < data.types.size(); ++i) {
        const Type &type = data.types[i];
        const bool hasElements =
            type.content == Content::Elements || type.content == Content::Mixed;
        const int height = hasElements && type.particle != None ? particles_[type.particle] : 0;
        isChanged |= lower(types_[i], height);
        if (type.base == None || type.base == i || type.name.local == 0)
            continue;
        const int least = type.isAbstract ? derived_[i] : std::min(height, derived_[i]);
        if (least < derived_[type.base])
            isChanged |= lower(derived_[type.base], least);
    }
    for (Index i = 0; i < data.elements.size(); ++i) {
        const Element &element = data.elements[i];
        int height = 0;
        if (element.type != None)
            height =
                data.types[element.type].isAbstract ? derived_[element.type] : types_[element.type];
        isChanged |= lower(elements_[i], oneMore(height));
    }
    for (Index i = 0; i < data.elements.size(); ++i) {
        int least = Endless;
        for (const Index element : grammar_.standingFor(i))
            least = std::min(least, elements_[element]);
        isChanged |= lower(substituted_[i], least);
    }
    return isChanged;
}

/// One skeleton on its way.
struct SkeletonMaker::Making {
    const SkeletonMaker &maker;
    const Grammar &grammar;
    const Chooser &choose;
    QString text = {};
    /// The elements that are open.
    std::vector<Index> path = {};
    int elements = 0;
    int questions = 0;

    struct Alternative {
        std::vector<Index> brings;
        int height = 0;
    };

    void write(Index element, Index type, NameScope scope);
    Index chosenType(Index element, Index type);
    void writeStartTag(const QString &name, Index element, Index type, Index declaredType,
                       NameScope &scope);
    void expand(Index particle, std::vector<Index> &children);
    void expandOnce(const Particle &particle, std::vector<Index> &children);
    /// The elements that a particle brings along.
    std::vector<Index> first(Index particle) const;
    std::size_t chosen(const std::vector<Alternative> &alternatives, bool isOfTypes);
    bool isFull() const { return elements >= MaxElements; }
};

std::size_t SkeletonMaker::Making::chosen(const std::vector<Alternative> &alternatives,
                                          bool isOfTypes) {
    if (alternatives.size() == 1)
        return 0;
    if (choose && questions < MaxQuestions) {
        ++questions;
        OpenChoice choice{path.back(), isOfTypes, {}};
        for (const Alternative &alternative : alternatives)
            choice.alternatives.push_back(alternative.brings);
        return std::min(choose(choice), alternatives.size() - 1);
    }
    const auto isOpen = [&](Index element) {
        return std::ranges::find(path, element) != path.end();
    };
    for (std::size_t i = 0; i < alternatives.size() && path.size() < ShortBelow; ++i) {
        if (isOfTypes || std::ranges::none_of(alternatives[i].brings, isOpen))
            return i;
    }
    const auto least = std::ranges::min_element(alternatives, {}, &Alternative::height);
    return static_cast<std::size_t>(least - alternatives.begin());
}

std::vector<Index> SkeletonMaker::Making::first(Index particle) const {
    std::vector<Index> brings;
    std::vector<Index> pending{particle};
    while (!pending.empty() && brings.size() < MaxElements) {
        const Index at = pending.back();
        pending.pop_back();
        const Particle &piece = grammar.particle(at);
        if (maker.particles_[at] == 0)
            continue;
        const auto parts = grammar.partsOf(piece);
        if (piece.kind == ParticleKind::Element) {
            for (const Index element : grammar.standingFor(piece.target)) {
                if (maker.elements_[element] < Endless) {
                    brings.push_back(element);
                    break;
                }
            }
        } else if (piece.kind == ParticleKind::Choice) {
            const auto part = std::ranges::find_if(
                parts, [&](Index each) { return maker.particles_[each] < Endless; });
            if (part != parts.end())
                pending.push_back(*part);
        } else {
            pending.insert(pending.end(), parts.rbegin(), parts.rend());
        }
    }
    return brings;
}

void SkeletonMaker::Making::expand(Index particle, std::vector<Index> &children) {
    const int height = maker.particles_[particle];
    const Particle &piece = grammar.particle(particle);
    for (quint32 turn = 0; turn < piece.minimum && height > 0 && height < Endless; ++turn) {
        if (isFull() || children.size() >= MaxElements)
            break;
        expandOnce(piece, children);
    }
}

void SkeletonMaker::Making::expandOnce(const Particle &particle, std::vector<Index> &children) {
    std::vector<Alternative> alternatives;
    const auto parts = grammar.partsOf(particle);
    if (particle.kind == ParticleKind::Element) {
        for (const Index element : grammar.standingFor(particle.target)) {
            if (maker.elements_[element] < Endless)
                alternatives.push_back({{element}, maker.elements_[element]});
        }
        children.push_back(alternatives[chosen(alternatives, false)].brings.front());
    } else if (particle.kind == ParticleKind::Choice) {
        std::vector<Index> ways;
        for (const Index part : parts) {
            if (maker.particles_[part] == Endless)
                continue;
            ways.push_back(part);
            alternatives.push_back({first(part), maker.particles_[part]});
        }
        expand(ways[chosen(alternatives, false)], children);
    } else {
        for (const Index part : parts)
            expand(part, children);
    }
}

Index SkeletonMaker::Making::chosenType(Index element, Index type) {
    if (type == None)
        type = grammar.element(element).type;
    if (type == None || !grammar.type(type).isAbstract)
        return type;
    std::vector<Alternative> alternatives;
    for (const Index derived : grammar.typesFor(type, element)) {
        if (maker.types_[derived] < Endless)
            alternatives.push_back({{derived}, maker.types_[derived]});
    }
    return alternatives.empty() ? type : alternatives[chosen(alternatives, true)].brings.front();
}

void SkeletonMaker::Making::writeStartTag(const QString &name, Index element, Index type,
                                          Index declaredType, NameScope &scope) {
    text += u'<' + name;
    const auto declare = [&](const std::pair<QString, QString> &declaration) {
        if (declaration.first.isEmpty())
            return;
        text += attributeMarkup(declaration.first, declaration.second);
        scope.namespaces[declaration.first.section(u':', 1)] = declaration.second;
    };
    std::pair<QString, QString> declaration;
    maker.elementName(element, scope, &declaration);
    declare(declaration);
    if (type == None)
        return;
    if (type != declaredType && grammar.type(type).name.local != 0) {
        // Attributes and names in their values have their prefixes chosen alike.
        const Name &typeName = grammar.type(type).name;
        const QString space = grammar.text(typeName.space).toString();
        const auto named = [&](const QString &nameSpace, const QString &local, bool isValue) {
            std::optional<QString> prefix = prefixFor(nameSpace, scope, isValue);
            if (isValue && nameSpace.isEmpty() && !scope.namespaces.contains(QString()))
                prefix = QString();
            if (!prefix) {
                prefix = freePrefix(nameSpace, scope);
                declare({QStringLiteral("xmlns:") + *prefix, nameSpace});
            }
            return prefix->isEmpty() ? local : *prefix + u':' + local;
        };
        const QString value = named(space, grammar.text(typeName.local).toString(), true);
        const QString attribute = named(InstanceNamespace, QStringLiteral("type"), false);
        text += attributeMarkup(attribute, value);
    }
    for (const Attribute &attribute : grammar.attributesOf(grammar.type(type))) {
        if (!attribute.isRequired)
            continue;
        declaration = {};
        const QString attributeName = maker.attributeName(attribute, scope, &declaration);
        declare(declaration);
        text += attributeMarkup(attributeName, maker.valueOf(attribute));
    }
}

void SkeletonMaker::Making::write(Index element, Index type, NameScope scope) {
    ++elements;
    path.push_back(element);
    const Element &declared = grammar.element(element);
    type = chosenType(element, type);
    const QString name = maker.elementName(element, scope);
    writeStartTag(name, element, type, declared.type, scope);
    const qsizetype colon = name.indexOf(u':');
    scope.prefix = name.left(std::max<qsizetype>(colon, 0));
    std::vector<Index> children;
    QString content;
    bool takesText = false;
    if (type != None) {
        const Type &known = grammar.type(type);
        takesText = known.content == Content::Text || known.content == Content::Mixed;
        if (known.content == Content::Text)
            content = maker.textOf(declared).toHtmlEscaped();
        else if (known.particle != None &&
                 (known.content == Content::Elements || known.content == Content::Mixed))
            expand(known.particle, children);
    }
    if (children.empty() && content.isEmpty() && !takesText) {
        text += QLatin1String("/>");
    } else {
        text += u'>' + content;
        for (const Index child : children) {
            if (!isFull())
                write(child, None, scope);
        }
        text += QLatin1String("</") + name + u'>';
    }
    path.pop_back();
}

QString SkeletonMaker::markup(Index element, const NameScope &scope, const Chooser &choose,
                              Index type) const {
    Making making{*this, grammar_, choose};
    making.write(element, type, scope);
    return making.text;
}

bool SkeletonMaker::isEndless(Index element) const {
    return elements_[element] == Endless;
}

QString SkeletonMaker::elementName(Index element, const NameScope &scope,
                                   std::pair<QString, QString> *declaration) const {
    const Name &name = grammar_.element(element).name;
    const QString local = grammar_.text(name.local).toString();
    const QString space = grammar_.text(name.space).toString();
    if (grammar_.data().language == Language::Dtd)
        return local;
    const auto declaredDefault = scope.namespaces.find(QString());
    const bool isDefaultFree =
        declaredDefault == scope.namespaces.end() || declaredDefault->second.isEmpty();
    if (space.isEmpty()) {
        if (!isDefaultFree && declaration)
            *declaration = {QStringLiteral("xmlns"), QString()};
        return local;
    }
    if (const std::optional<QString> prefix = prefixFor(space, scope, true))
        return prefix->isEmpty() ? local : *prefix + u':' + local;
    if (declaration)
        *declaration = {QStringLiteral("xmlns"), space};
    return local;
}

QString SkeletonMaker::attributeName(const Attribute &attribute, const NameScope &scope,
                                     std::pair<QString, QString> *declaration) const {
    const QString local = grammar_.text(attribute.name.local).toString();
    const QString space = grammar_.text(attribute.name.space).toString();
    if (space.isEmpty())
        return local;
    if (space == XmlNamespace)
        return QStringLiteral("xml:") + local;
    std::optional<QString> prefix = prefixFor(space, scope, false);
    if (!prefix) {
        prefix = freePrefix(space, scope);
        if (declaration)
            *declaration = {QStringLiteral("xmlns:") + *prefix, space};
    }
    return *prefix + u':' + local;
}

QString SkeletonMaker::firstValue(Index simpleType) const {
    if (simpleType == None)
        return {};
    const Data &data = grammar_.data();
    const SimpleType &type = data.simpleTypes[simpleType];
    if (type.enumeration.count > 0)
        return grammar_.text(data.enumerations[type.enumeration.first].text).toString();
    return grammar_.text(type.builtIn) == QLatin1String("boolean") ? QStringLiteral("false")
                                                                   : QString();
}

QString SkeletonMaker::valueOf(const Attribute &attribute) const {
    return attribute.valueRule != ValueRule::Free ? grammar_.text(attribute.value).toString()
                                                  : firstValue(attribute.type);
}

QString SkeletonMaker::textOf(const Element &element) const {
    if (element.valueRule != ValueRule::Free)
        return grammar_.text(element.value).toString();
    return element.type == None ? QString() : firstValue(grammar_.type(element.type).text);
}

} // namespace quillon::grammar
