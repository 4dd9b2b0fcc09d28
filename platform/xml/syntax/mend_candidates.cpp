#include "platform/xml/syntax/mend_candidates.h"

#include "resources/syntax_texts.h"

#include <QByteArrayList>

#include <algorithm>
#include <map>

namespace quillon::xml {

namespace texts = resources::syntax_texts;
using FaultKind = SyntaxFaultKind;
using Kind = MarkupPiece::Kind;
using namespace markup;

namespace {

/// As much of a text as there is room for in a title.
constexpr qsizetype ShownLength = 40;

/// The entities of web pages that are found in XML most often, with their characters.
const std::map<QByteArrayView, const char *> WebEntities = {
    {"nbsp", "#160"},   {"copy", "#169"},   {"reg", "#174"},     {"deg", "#176"},
    {"plusmn", "#177"}, {"middot", "#183"}, {"times", "#215"},   {"ndash", "#8211"},
    {"mdash", "#8212"}, {"lsquo", "#8216"}, {"rsquo", "#8217"},  {"ldquo", "#8220"},
    {"rdquo", "#8221"}, {"bull", "#8226"},  {"hellip", "#8230"}, {"yen", "#165"},
    {"trade", "#8482"}, {"larr", "#8592"},  {"rarr", "#8594"},   {"euro", "#8364"},
};

class Candidates {
public:
    Candidates(QByteArrayView text, const Cause &cause, qsizetype noticedAt)
        : text_(text), cause_(cause), noticedAt_(noticedAt) {}

    std::vector<SyntaxMend> find();

private:
    void add(const QString &title, std::vector<Replacement> replacements) {
        mends_.push_back({title, std::move(replacements)});
    }
    void add(QStringView title, std::vector<Replacement> replacements) {
        add(title.toString(), std::move(replacements));
    }
    void addForReference();
    void addForLessThan();
    void addForUnclosedTag();
    void addForSecondRoot();
    void addForTextOutside();
    void addForCharacter();
    void addForDeclaration();
    void addForComment();
    void addForSection();
    void addForInstruction();
    void addEscape() { add(texts::EscapeLessThan, {{cause_.piece.start, 1, "&lt;"}}); }
    /// Moves the end tag of the root element to a place behind it.
    void addMoveIntoRoot(QStringView title, qsizetype to);

    qsizetype lineEnd(qsizetype at) const {
        while (at < text_.size() && text_[at] != '\n' && text_[at] != '\r')
            ++at;
        return at;
    }
    qsizetype contentEnd() const { return aheadOfBlanks(text_, text_.size()); }

    QByteArrayView text_;
    const Cause &cause_;
    qsizetype noticedAt_;
    std::vector<SyntaxMend> mends_;
};

std::vector<SyntaxMend> Candidates::find() {
    switch (cause_.kind) {
    case FaultKind::MissingEndTag:
    case FaultKind::WrongCaseOfEndTag:
    case FaultKind::StrayEndTag:
        return endTagCandidates(text_, cause_);
    case FaultKind::UnquotedValue:
    case FaultKind::UnclosedQuote:
    case FaultKind::DuplicateAttribute:
    case FaultKind::MissingEquals:
    case FaultKind::MissingValue:
    case FaultKind::MissingBlank:
        mends_ = attributeCandidates(text_, cause_);
        // It may be no tag at all: "if a<b then".
        if (cause_.kind == FaultKind::MissingValue && !cause_.open.empty())
            addEscape();
        break;
    case FaultKind::BareAmpersand:
    case FaultKind::UndeclaredEntity:
    case FaultKind::BadReference:
        addForReference();
        break;
    case FaultKind::BareLessThan:
        addForLessThan();
        break;
    case FaultKind::UnclosedTag:
        addForUnclosedTag();
        break;
    case FaultKind::SecondRoot:
        addForSecondRoot();
        break;
    case FaultKind::TextOutsideRoot:
        addForTextOutside();
        break;
    case FaultKind::ForbiddenCharacter:
        addForCharacter();
        break;
    case FaultKind::AheadOfDeclaration:
        addForDeclaration();
        break;
    case FaultKind::DoubleHyphenInComment:
    case FaultKind::UnclosedComment:
        addForComment();
        break;
    case FaultKind::UnclosedSection:
        addForSection();
        break;
    case FaultKind::UnclosedInstruction:
        addForInstruction();
        break;
    case FaultKind::SectionEndInText:
        add(texts::EscapeSectionEnd, {{cause_.start, 3, "]]&gt;"}});
        break;
    case FaultKind::NoElement:
    case FaultKind::Other:
        break;
    }
    return std::move(mends_);
}

void Candidates::addForReference() {
    const qsizetype start = cause_.start;
    const qsizetype end = nameEnd(text_, start + 1);
    const QByteArray name = text_.sliced(start + 1, end - start - 1).toByteArray();
    const QByteArray lower = name.toLower();
    const bool isPredefined = QByteArrayList{"amp", "lt", "gt", "quot", "apos"}.contains(lower);
    const bool hasEnd = end < text_.size() && text_[end] == ';';
    if (isPredefined)
        add(texts::ReplaceBy.toString().arg(shownInTitle('&' + name + (hasEnd ? ";" : "")),
                                            shownInTitle('&' + lower + ';')),
            {{start, end - start + (hasEnd ? 1 : 0), '&' + lower + ';'}});
    else if (const auto web = WebEntities.find(name); web != WebEntities.end() && hasEnd)
        add(texts::ReplaceBy.toString().arg(shownInTitle('&' + name + ';'),
                                            shownInTitle(QByteArray("&") + web->second + ';')),
            {{start + 1, name.size(), web->second}});
    add(texts::EscapeAmpersand, {{start, 1, "&amp;"}});
    if (cause_.kind == FaultKind::BadReference)
        add(texts::RemoveText.toString().arg(shownInTitle(text_.sliced(start, cause_.length))),
            {{start, cause_.length, {}}});
}

void Candidates::addForLessThan() {
    const qsizetype start = cause_.start;
    add(texts::EscapeLessThan, {{start, 1, "&lt;"}});
    // "< a>" and "</ a>".
    const bool isEnd = text_.sliced(start).startsWith("</");
    const qsizetype blanks = start + (isEnd ? 2 : 1);
    const qsizetype name = behindBlanks(text_, blanks);
    if (name > blanks && nameEnd(text_, name) > name)
        add(texts::RemoveBlanks, {{blanks, name - blanks, {}}});
}

void Candidates::addForUnclosedTag() {
    const bool isEnd = cause_.piece.kind == Kind::EndTag;
    const qsizetype nameEnd = cause_.start + cause_.length;
    const qsizetype at = isEnd ? nameEnd : aheadOfBlanks(text_, std::max(noticedAt_, nameEnd));
    // Where the text ends in the tag, the parser tells of its start.
    const qsizetype end = !isEnd && noticedAt_ <= cause_.start ? contentEnd() : at;
    add(texts::CloseTag.toString().arg(QStringLiteral(">")), {{end, 0, ">"}});
    if (!isEnd)
        add(texts::CloseTag.toString().arg(QStringLiteral("/>")), {{end, 0, "/>"}});
    if (!cause_.open.empty())
        addEscape();
}

void Candidates::addMoveIntoRoot(QStringView title, qsizetype to) {
    const qsizetype endTag = text_.first(cause_.rootEnd).lastIndexOf('<');
    if (!text_.sliced(endTag).startsWith("</"))
        return;
    const QByteArray tag = text_.sliced(endTag, cause_.rootEnd - endTag).toByteArray();
    add(title.toString().arg(shownInTitle(tagName(text_, endTag))),
        {{endTag, tag.size(), {}}, {to, 0, tag}});
}

void Candidates::addForSecondRoot() {
    const Indent indent = indentAt(text_, cause_.start);
    const QByteArray newline = !indent.isOnlyBlanks ? "" : text_.contains("\r\n") ? "\r\n" : "\n";
    add(texts::WrapInRoot,
        {{cause_.root, 0, "<root>" + newline}, {contentEnd(), 0, newline + "</root>"}});
    addMoveIntoRoot(texts::MoveIntoRoot, contentEnd());
    // The end tag of the root element may stand there once too often.
    const qsizetype endTag = text_.first(cause_.rootEnd).lastIndexOf('<');
    if (!text_.sliced(endTag).startsWith("</"))
        return;
    const Stretch stretch = withOwnLine(text_, endTag, cause_.rootEnd);
    add(texts::RemoveEndTagAt.toString().arg(shownInTitle(tagName(text_, endTag)),
                                             QString::number(placeInText(text_, endTag).line)),
        {{stretch.start, stretch.end - stretch.start, {}}});
}

void Candidates::addForTextOutside() {
    const qsizetype end = cause_.start + cause_.length;
    if (cause_.rootEnd >= 0)
        addMoveIntoRoot(texts::MoveTextIntoRoot, end);
    add(texts::MakeComment, {{cause_.start, 0, "<!-- "}, {end, 0, " -->"}});
    add(texts::RemoveText.toString().arg(shownInTitle(text_.sliced(cause_.start, cause_.length))),
        {{cause_.start, cause_.length, {}}});
}

void Candidates::addForCharacter() {
    const Replacement removal{cause_.start, cause_.length, {}};
    add(texts::RemoveCharacter, {removal});
    add(texts::BlankForCharacter, {{cause_.start, cause_.length, " "}});
    std::vector<Replacement> all;
    for (qsizetype at = cause_.start; (at = text_.indexOf(cause_.name, at)) >= 0;
         at += cause_.length)
        all.push_back({at, cause_.length, {}});
    if (all.size() > 1) {
        const auto count = all.size();
        add(texts::RemoveCharacters.toString().arg(count), std::move(all));
    }
}

void Candidates::addForDeclaration() {
    if (cause_.start == 0) {
        add(texts::RemoveBlanksAhead, {{0, cause_.length, {}}});
        return;
    }
    const QByteArray declaration = text_.sliced(cause_.start, cause_.length).toByteArray();
    const QByteArray newline = text_.contains("\r\n") ? "\r\n" : "\n";
    const Stretch stretch = withOwnLine(text_, cause_.start, cause_.start + cause_.length);
    const Replacement removal{stretch.start, stretch.end - stretch.start, {}};
    if (!text_.startsWith("<?xml "))
        add(texts::MoveDeclaration, {{0, 0, declaration + newline}, removal});
    add(texts::RemoveText.toString().arg(shownInTitle(declaration)), {removal});
}

void Candidates::addForComment() {
    const qsizetype start = cause_.piece.start;
    if (cause_.kind == FaultKind::DoubleHyphenInComment) {
        // Meant as its end.
        if (text_.sliced(cause_.start).startsWith("-- >"))
            add(texts::CloseComment, {{cause_.start + 2, 1, {}}});
        std::vector<Replacement> blanks;
        for (qsizetype at = cause_.start; at + 4 <= cause_.piece.end; ++at) {
            if (text_[at] == '-' && text_[at + 1] == '-')
                blanks.push_back({at + 1, 0, " "});
        }
        // "--->" ends the comment with a hyphen in front.
        if (text_.first(cause_.piece.end).endsWith("--->"))
            blanks.push_back({cause_.piece.end - 3, 0, " "});
        const auto isSame = [](const Replacement &a, const Replacement &b) { return a == b; };
        blanks.erase(std::unique(blanks.begin(), blanks.end(), isSame), blanks.end());
        add(texts::PartHyphens, std::move(blanks));
        return;
    }
    const qsizetype end = lineEnd(start);
    if (const qsizetype arrow = text_.first(end).indexOf("->", start + 4); arrow >= 0) {
        add(texts::CloseComment, {{arrow, 0, "-"}});
        return;
    }
    if (const qsizetype less = text_.first(end).indexOf('<', start + 4); less >= 0)
        add(texts::CloseComment, {{aheadOfBlanks(text_, less, start + 4), 0, " -->"}});
    add(texts::CloseComment, {{aheadOfBlanks(text_, end, start + 4), 0, " -->"}});
}

void Candidates::addForSection() {
    const qsizetype start = cause_.start + cause_.length;
    if (!cause_.open.empty()) {
        const QByteArray tag = "</" + tagName(text_, cause_.open.back().start).toByteArray() + '>';
        if (const qsizetype at = text_.indexOf(tag, start); at >= 0)
            add(texts::CloseSection, {{at, 0, "]]>"}});
    }
    add(texts::CloseSection, {{lineEnd(start), 0, "]]>"}});
}

void Candidates::addForInstruction() {
    const qsizetype end = lineEnd(cause_.start);
    if (const qsizetype at = text_.first(end).indexOf('>', cause_.start); at >= 0)
        add(texts::CloseInstruction, {{at, 0, "?"}});
    add(texts::CloseInstruction, {{aheadOfBlanks(text_, end, cause_.start + 2), 0, "?>"}});
}

} // namespace

std::vector<SyntaxMend> mendCandidates(QByteArrayView text, const Cause &cause,
                                       qsizetype noticedAt) {
    return Candidates(text, cause, noticedAt).find();
}

QString shownInTitle(QByteArrayView utf8) {
    QString text = QString::fromUtf8(utf8.first(std::min<qsizetype>(utf8.size(), 4 * ShownLength)));
    text = text.simplified();
    if (text.size() > ShownLength)
        text = text.left(ShownLength - 1) + u'…';
    return text;
}

} // namespace quillon::xml
