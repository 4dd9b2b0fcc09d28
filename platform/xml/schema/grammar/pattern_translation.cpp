#include "platform/xml/schema/grammar/pattern_translation.h"

#include "platform/xml/schema/grammar/value_spaces.h"

#include <QHash>

namespace quillon::grammar {

namespace {

/// What the matcher counts, more or less every step back that it takes. Without its compiler, which
/// counts in another way.
const QString Bounds = QStringLiteral("(*LIMIT_MATCH=50000)(*NO_JIT)");

/// The blocks of Unicode that patterns ask for most, by their names.
const QHash<QString, QString> &blocks() {
    static const QHash<QString, QString> table{
        {"BasicLatin", R"(\x{0}-\x{7F})"},
        {"Latin-1Supplement", R"(\x{80}-\x{FF})"},
        {"LatinExtended-A", R"(\x{100}-\x{17F})"},
        {"LatinExtended-B", R"(\x{180}-\x{24F})"},
        {"Greek", R"(\x{370}-\x{3FF})"},
        {"GreekandCoptic", R"(\x{370}-\x{3FF})"},
        {"Cyrillic", R"(\x{400}-\x{4FF})"},
        {"Hebrew", R"(\x{590}-\x{5FF})"},
        {"Arabic", R"(\x{600}-\x{6FF})"},
        {"Thai", R"(\x{E00}-\x{E7F})"},
        {"GeneralPunctuation", R"(\x{2000}-\x{206F})"},
        {"CJKSymbolsandPunctuation", R"(\x{3000}-\x{303F})"},
        {"Hiragana", R"(\x{3040}-\x{309F})"},
        {"Katakana", R"(\x{30A0}-\x{30FF})"},
        {"CJKUnifiedIdeographsExtensionA", R"(\x{3400}-\x{4DB5})"},
        {"CJKUnifiedIdeographs", R"(\x{4E00}-\x{9FFF})"},
        {"HangulSyllables", R"(\x{AC00}-\x{D7A3})"},
        {"HalfwidthandFullwidthForms", R"(\x{FF00}-\x{FFEF})"},
    };
    return table;
}

/// Goes over a pattern once and writes the other one.
class Translation {
public:
    explicit Translation(QStringView pattern) : rest_(pattern) {}

    std::optional<QString> all() {
        while (good_ && !rest_.isEmpty())
            step();
        return good_ ? std::optional(written_) : std::nullopt;
    }

private:
    QChar take() {
        const QChar first = rest_.isEmpty() ? QChar() : rest_.front();
        good_ = good_ && !rest_.isEmpty();
        rest_ = rest_.sliced(rest_.isEmpty() ? 0 : 1);
        return first;
    }

    void step() {
        const QChar c = take();
        if (c == u'.') {
            written_ += QLatin1String("[^\\n\\r]");
        } else if (c == u'^' || c == u'$') {
            written_ += u'\\';
            written_ += c;
        } else if (c == u'(') {
            // What may follow means something else here.
            good_ = good_ && !rest_.startsWith(u'?') && !rest_.startsWith(u'*');
            written_ += QLatin1String("(?:");
        } else if (c == u'[') {
            written_ += characterClass(0);
        } else if (c == u'\\') {
            const QString members = escaped();
            written_ += isClass_ ? u'[' + members + u']' : members;
        } else {
            written_ += c;
        }
    }

    /// What stands for an escape inside a class; isClass_ tells whether it is more than one
    /// character.
    QString escaped() {
        const QChar c = take();
        isClass_ = true;
        switch (c.unicode()) {
        case u'd':
            return QStringLiteral("\\p{Nd}");
        case u'D':
            return QStringLiteral("\\P{Nd}");
        case u'w':
            return QStringLiteral("\\p{L}\\p{M}\\p{N}\\p{S}");
        case u'W':
            return QStringLiteral("\\p{P}\\p{Z}\\p{C}");
        case u's':
            return QStringLiteral("\\x20\\t\\n\\r");
        case u'S':
            return QStringLiteral("\\x{21}-\\x{10FFFF}");
        case u'i':
            return NameStartCharacters.toString();
        case u'c':
            return NameStartCharacters.toString() + FurtherNameCharacters.toString();
        case u'I':
            return complement(NameStartCharacters.toString());
        case u'C':
            return complement(NameStartCharacters.toString() + FurtherNameCharacters.toString());
        case u'p':
        case u'P':
            return property(c == u'P');
        default:
            isClass_ = false;
            // The other letters mean something here that they do not mean there.
            good_ = good_ && (QStringView(u"nrt").contains(c) || c.unicode() > 0x7F ||
                              !c.isLetterOrNumber());
            return c.unicode() > 0x7F ? QString(c) : QString(u'\\') + c;
        }
    }

    QString property(bool isNegated) {
        const qsizetype end = rest_.indexOf(u'}');
        if (!rest_.startsWith(u'{') || end < 0) {
            good_ = false;
            return {};
        }
        const QString name = rest_.sliced(1, end - 1).toString();
        rest_ = rest_.sliced(end + 1);
        if (name.startsWith(QLatin1String("Is"))) {
            const QString block = blocks().value(name.sliced(2));
            good_ = good_ && !block.isEmpty();
            return isNegated ? complement(block) : block;
        }
        return (isNegated ? QStringLiteral("\\P{") : QStringLiteral("\\p{")) + name + u'}';
    }

    /// All but some characters; only outside of classes can that be said.
    QString complement(const QString &members) {
        good_ = good_ && !inClass_;
        return u'^' + members;
    }

    /// A class behind its opening bracket, up to the one that closes it.
    QString characterClass(int depth) {
        constexpr int MaxDepth = 20;
        QString members;
        QString subtracted;
        const bool isNegated = rest_.startsWith(u'^');
        if (isNegated)
            take();
        inClass_ = true;
        while (good_ && depth < MaxDepth && !rest_.startsWith(u']')) {
            const QChar c = take();
            if (c == u'-' && rest_.startsWith(u'[')) {
                take();
                subtracted = characterClass(depth + 1);
                inClass_ = true;
                good_ = good_ && rest_.startsWith(u']');
            } else if (c == u'\\') {
                members += escaped();
            } else if (c == u'[') {
                good_ = false;
            } else {
                members += c == u'^' ? QStringLiteral("\\^") : QString(c);
            }
        }
        inClass_ = false;
        good_ = good_ && depth < MaxDepth && !members.isEmpty();
        take();
        const QString whole =
            (isNegated ? QStringLiteral("[^") : QStringLiteral("[")) + members + u']';
        return subtracted.isEmpty() ? whole : QStringLiteral("(?:(?!%1)%2)").arg(subtracted, whole);
    }

    QStringView rest_;
    QString written_;
    bool good_ = true;
    bool inClass_ = false;
    bool isClass_ = false;
};

} // namespace

std::optional<QRegularExpression> translatedPattern(QStringView pattern) {
    const std::optional<QString> translated = Translation(pattern).all();
    if (!translated)
        return {};
    const QRegularExpression expression(Bounds + QStringLiteral("\\A(?:") + *translated +
                                        QStringLiteral(")\\z"));
    return expression.isValid() ? std::optional(expression) : std::nullopt;
}

} // namespace quillon::grammar
