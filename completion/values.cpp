#include "completion/values.h"

#include "platform/ui/dialogs.h"
#include "resources/completion_texts.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace quillon::completion {

namespace texts = resources::completion_texts;
using grammar::Grammar;
using grammar::Index;
using grammar::None;
using grammar::SimpleType;
using grammar::ValueRule;
using grammar::Variety;
using ui::Proposal;
using ui::ValueEditor;
using xml::Node;

namespace {

constexpr std::size_t MaxValues = 2000;
/// Unions nest no deeper in any schema that somebody has written.
constexpr int MaxUnionDepth = 20;
constexpr qsizetype MaxIds = 5000;
constexpr int MaxIdNodes = 300'000;

class Values {
public:
    explicit Values(const Grammar &grammar) : grammar_(grammar) {}

    void add(const QString &value, const QString &detail = {}, const QString &documentation = {}) {
        if (found_.size() >= MaxValues || value.isEmpty() || known_.contains(value))
            return;
        known_.insert(value);
        found_.push_back({.text = value, .detail = detail, .documentation = documentation});
    }

    void addOf(Index type, int depth = 0) {
        if (type == None || depth > MaxUnionDepth || found_.size() >= MaxValues)
            return;
        const grammar::Data &data = grammar_.data();
        const SimpleType &simple = data.simpleTypes[type];
        for (Index i = 0; i < simple.enumeration.count; ++i) {
            const grammar::EnumerationValue &value =
                data.enumerations[simple.enumeration.first + i];
            add(text(value.text), {}, text(value.documentation));
        }
        if (simple.enumeration.count > 0)
            return;
        if (simple.variety != Variety::Atomic) {
            for (Index i = 0; i < simple.members.count; ++i)
                addOf(data.simpleTypeLists[simple.members.first + i], depth + 1);
            return;
        }
        const QString builtIn = text(simple.builtIn);
        if (builtIn == QLatin1String("boolean")) {
            add(QStringLiteral("true"));
            add(QStringLiteral("false"));
        } else if (builtIn == QLatin1String("language")) {
            addLanguages();
        }
    }

    void addLanguages() {
        for (const auto &[code, name] : texts::Languages)
            add(code.toString(), name.toString());
    }

    std::vector<Proposal> take() { return std::move(found_); }

    QString text(Index string) const { return grammar_.text(string).toString(); }

private:
    const Grammar &grammar_;
    std::vector<Proposal> found_;
    QSet<QString> known_;
};

/// The built-in type that a value is of; for a list that of its items.
QString builtInOf(const Grammar &grammar, const ValueType &type) {
    if (type.type == None)
        return {};
    const SimpleType *simple = &grammar.data().simpleTypes[type.type];
    if (simple->variety == Variety::List && simple->members.count > 0)
        simple = &grammar.data().simpleTypes[grammar.data().simpleTypeLists[simple->members.first]];
    return grammar.text(simple->builtIn).toString();
}

bool looksLikeColour(const QString &value) {
    static const QRegularExpression colour(QStringLiteral("^#([0-9A-Fa-f]{3}|[0-9A-Fa-f]{6})$"));
    return colour.match(value).hasMatch();
}

bool namesColour(const QString &name) {
    return name.contains(QLatin1String("color"), Qt::CaseInsensitive) ||
           name.contains(QLatin1String("colour"), Qt::CaseInsensitive) || name.contains(u'色');
}

const QRegularExpression &dateAndTime() {
    static const QRegularExpression parts(
        QStringLiteral("^(-?\\d{4,}-\\d\\d-\\d\\d)?T?(\\d\\d:\\d\\d:\\d\\d(?:\\.\\d+)?)?"
                       "(Z|[+-]\\d\\d:\\d\\d)?$"));
    return parts;
}

} // namespace

bool isList(const Grammar &grammar, const ValueType &type) {
    return type.type != None && grammar.data().simpleTypes[type.type].variety == Variety::List;
}

bool refersToId(const Grammar &grammar, const ValueType &type) {
    const QString builtIn = builtInOf(grammar, type);
    return builtIn == QLatin1String("IDREF") || builtIn == QLatin1String("IDREFS");
}

std::vector<Proposal> knownValues(const Grammar &grammar, const ValueType &type) {
    Values values(grammar);
    if (type.rule == ValueRule::Fixed) {
        values.add(values.text(type.value), texts::FixedValue.toString());
        return values.take();
    }
    if (type.rule == ValueRule::Default)
        values.add(values.text(type.value), texts::DefaultValue.toString());
    values.addOf(type.type);
    return values.take();
}

std::vector<Proposal> knownValues(const QString &attribute) {
    std::vector<Proposal> found;
    if (attribute == QLatin1String("xml:space")) {
        for (const char *value : {"preserve", "default"})
            found.push_back({.text = QLatin1String(value)});
    } else if (attribute == QLatin1String("xml:lang")) {
        for (const auto &[code, name] : texts::Languages)
            found.push_back({.text = code.toString(), .detail = name.toString()});
    }
    return found;
}

ValueEditor editorFor(const Grammar *grammar, const ValueType &type, const QString &present) {
    static const QHash<QString, ValueEditor> editors{
        {QStringLiteral("date"), ValueEditor::Date},
        {QStringLiteral("dateTime"), ValueEditor::DateTime},
        {QStringLiteral("time"), ValueEditor::Time}};
    bool isEnumerated = false;
    if (grammar && type.type != None) {
        const SimpleType &simple = grammar->data().simpleTypes[type.type];
        const QString builtIn = builtInOf(*grammar, type);
        if (const auto editor = editors.constFind(builtIn); editor != editors.constEnd())
            return editor.value();
        isEnumerated = simple.enumeration.count > 0;
        const bool isText =
            simple.variety == Variety::Atomic && builtIn != QLatin1String("boolean");
        if (!isEnumerated && isText && namesColour(grammar->text(simple.name.local).toString()))
            return ValueEditor::Colour;
    }
    if (looksLikeColour(present) || (!isEnumerated && namesColour(type.name)))
        return ValueEditor::Colour;
    const QRegularExpressionMatch match = dateAndTime().match(present);
    if (present.isEmpty() || !match.hasMatch())
        return ValueEditor::None;
    const bool hasDate = !match.capturedView(1).isEmpty();
    const bool hasTime = !match.capturedView(2).isEmpty();
    if (hasDate)
        return hasTime ? ValueEditor::DateTime : ValueEditor::Date;
    return hasTime ? ValueEditor::Time : ValueEditor::None;
}

QStringList idsOf(const xml::DOMDocument40 &document, const Grammar *grammar) {
    QSet<QString> names{QStringLiteral("xml:id")};
    if (grammar) {
        for (const grammar::Attribute &attribute : grammar->data().attributes) {
            const bool isId =
                attribute.type != None &&
                grammar->text(grammar->data().simpleTypes[attribute.type].builtIn) == u"ID";
            if (isId)
                names.insert(grammar->text(attribute.name.local).toString());
        }
    }
    QStringList ids;
    int visited = 0;
    Node at = document.documentElement();
    while (at && ids.size() < MaxIds && ++visited < MaxIdNodes) {
        for (const Node &attribute : at.attributes().all()) {
            if (names.contains(attribute.nodeName()))
                ids.append(attribute.nodeValue());
        }
        Node next = at.firstChild();
        for (; !next && at; at = at.parentNode())
            next = at.nextSibling();
        at = next;
    }
    return ids;
}

std::optional<QString> askForValue(ValueEditor editor, const QString &present) {
    const QString trimmed = present.trimmed();
    if (editor == ValueEditor::Colour) {
        static const QRegularExpression bare(QStringLiteral("^[0-9A-Fa-f]{6}$"));
        const bool isBare = bare.match(trimmed).hasMatch();
        auto chosen = ui::dialogs().chooseValue(editor, isBare ? u'#' + trimmed : trimmed);
        if (!chosen)
            return std::nullopt;
        if (isBare)
            chosen->remove(0, 1);
        return trimmed == trimmed.toUpper() && trimmed != trimmed.toLower() ? chosen->toUpper()
                                                                            : *chosen;
    }
    // Zones are nothing that the editors know, and stay what they are.
    const QRegularExpressionMatch match = dateAndTime().match(trimmed);
    const QString zone = match.captured(3);
    const auto chosen = ui::dialogs().chooseValue(editor, trimmed.chopped(zone.size()));
    if (!chosen)
        return std::nullopt;
    return *chosen + zone;
}

} // namespace quillon::completion
