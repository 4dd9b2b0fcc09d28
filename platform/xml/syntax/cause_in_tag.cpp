#include "platform/xml/syntax/cause.h"

#include <QByteArrayList>

#include <algorithm>
#include <map>

namespace quillon::xml {

using FaultKind = SyntaxFaultKind;
using namespace markup;

namespace {

bool isQuote(char c) {
    return c == '"' || c == '\'';
}

/// Goes through the attributes of a start tag up to what is wrong with it.
class TagWalk {
public:
    TagWalk(QByteArrayView text, const StopPlace &stop, Cause &cause)
        : text_(text), stop_(stop), cause_(cause) {}

    void find();

private:
    void set(FaultKind kind, qsizetype start, qsizetype length) {
        cause_.kind = kind;
        cause_.start = start;
        cause_.length = length;
    }
    char at(qsizetype place) const { return place < text_.size() ? text_[place] : '\0'; }
    /// The next attribute, or what stands in its place; false when the tag has ended, or when what
    /// is wrong has been found.
    bool readAttribute();
    bool readValue();
    void findWithoutName(bool hasBlanks);
    bool isDuplicate();
    /// In a value. The parser tells only of the tag.
    bool findUndeclared(qsizetype start, qsizetype end);
    bool isDeclared(QByteArrayView entity) const;
    /// What is marked of a value that is not closed: up to the end of its line, or to where the tag
    /// may end.
    qsizetype likelyEnd(qsizetype quote) const;

    QByteArrayView text_;
    const StopPlace &stop_;
    Cause &cause_;
    qsizetype at_ = 0;
    qsizetype name_ = 0;
    qsizetype nameEnd_ = 0;
    /// The quotation mark that opens the value read last, and the byte behind the one that closes
    /// it; negative ahead of the first one.
    qsizetype quote_ = -1;
    qsizetype valueEnd_ = -1;
    std::map<QByteArrayView, qsizetype> names_;
};

void TagWalk::find() {
    const qsizetype start = cause_.piece.start;
    at_ = nameEnd(text_, start + 1);
    cause_.name = text_.sliced(start + 1, at_ - start - 1);
    if (cause_.name.isEmpty()) {
        set(cause_.open.empty() ? FaultKind::TextOutsideRoot : FaultKind::BareLessThan, start, 1);
        return;
    }
    if (cause_.open.empty() && cause_.root >= 0) {
        set(FaultKind::SecondRoot, start, at_ - start);
        return;
    }
    while (readAttribute()) {
    }
}

bool TagWalk::readAttribute() {
    const qsizetype before = at_;
    at_ = behindBlanks(text_, at_);
    if (at(at_) == '>' || (at(at_) == '/' && at(at_ + 1) == '>'))
        return false;
    name_ = at_;
    nameEnd_ = at_ = nameEnd(text_, at_);
    if (name_ == at_) {
        findWithoutName(before < name_);
        return false;
    }
    cause_.name = text_.sliced(name_, nameEnd_ - name_);
    if (before == name_ && valueEnd_ >= 0) {
        // A value that ends at what opens another one was not closed.
        if (at(aheadOfBlanks(text_, valueEnd_ - 1) - 1) == '=')
            set(FaultKind::UnclosedQuote, quote_, likelyEnd(quote_) - quote_);
        else
            set(FaultKind::MissingBlank, name_, nameEnd_ - name_);
        return false;
    }
    if (isDuplicate())
        return false;
    at_ = behindBlanks(text_, at_);
    if (at(at_) == '=') {
        ++at_;
        return readValue();
    }
    set(isQuote(at(at_)) ? FaultKind::MissingEquals : FaultKind::MissingValue, name_,
        nameEnd_ - name_);
    return false;
}

bool TagWalk::isDuplicate() {
    const auto [first, isNew] = names_.emplace(cause_.name, name_);
    if (isNew || stop_.reason != StopPlace::Reason::DuplicateAttribute)
        return false;
    set(FaultKind::DuplicateAttribute, name_, nameEnd_ - name_);
    cause_.other = first->second;
    return true;
}

void TagWalk::findWithoutName(bool hasBlanks) {
    const char c = at(at_);
    const qsizetype start = cause_.piece.start;
    const bool followsValue = valueEnd_ >= 0 && !hasBlanks;
    if (at_ >= text_.size() || c == '<')
        set(FaultKind::UnclosedTag, start, 1 + tagName(text_, start).size());
    else if (followsValue && at(aheadOfBlanks(text_, valueEnd_ - 1) - 1) == '=')
        set(FaultKind::UnclosedQuote, quote_, likelyEnd(quote_) - quote_);
}

bool TagWalk::readValue() {
    at_ = behindBlanks(text_, at_);
    const char c = at(at_);
    if (!isQuote(c)) {
        qsizetype end = at_;
        while (end < text_.size() && !isBlank(text_[end]) && text_[end] != '>' && text_[end] != '<')
            ++end;
        if (end > at_ && at(end) == '>' && text_[end - 1] == '/')
            --end;
        if (end == at_)
            set(FaultKind::MissingValue, name_, nameEnd_ - name_);
        else
            set(FaultKind::UnquotedValue, at_, end - at_);
        return false;
    }
    quote_ = at_;
    const qsizetype close = text_.indexOf(c, at_ + 1);
    const qsizetype end = close < 0 ? text_.size() : close;
    const qsizetype less = text_.indexOf('<', at_);
    const bool hasLess = less >= 0 && less < end;
    if (stop_.at > quote_ && stop_.at <= (hasLess ? less : end) &&
        findBadReference(text_, stop_, quote_, cause_))
        return false;
    if (stop_.reason == StopPlace::Reason::UndeclaredEntity && findUndeclared(quote_, end))
        return false;
    at_ = valueEnd_ = end + 1;
    if (!hasLess && close >= 0)
        return true;
    // A value that is closed properly has "<" in it; else it was to be closed ahead of that.
    const char next = at(valueEnd_);
    const bool endsValue = isBlank(next) || next == '>' || next == '/';
    if (close < 0 || !endsValue || at(aheadOfBlanks(text_, close) - 1) == '=')
        set(FaultKind::UnclosedQuote, quote_, likelyEnd(quote_) - quote_);
    else
        set(FaultKind::BareLessThan, less, 1);
    return false;
}

bool TagWalk::isDeclared(QByteArrayView entity) const {
    if (QByteArrayList{"amp", "lt", "gt", "quot", "apos"}.contains(entity))
        return true;
    const QByteArrayView prolog = text_.first(cause_.root < 0 ? cause_.piece.start : cause_.root);
    constexpr QByteArrayView Declaration("<!ENTITY");
    for (const QByteArrayView text : {stop_.declarations, prolog}) {
        for (qsizetype at = 0; (at = text.indexOf(Declaration, at)) >= 0;) {
            at = behindBlanks(text, at + Declaration.size());
            if (text.sliced(at, nameEnd(text, at) - at) == entity)
                return true;
        }
    }
    return false;
}

bool TagWalk::findUndeclared(qsizetype start, qsizetype end) {
    for (qsizetype at = start; (at = text_.first(end).indexOf('&', at)) >= 0; ++at) {
        const QByteArrayView entity = text_.sliced(at + 1, nameEnd(text_, at + 1) - at - 1);
        if (entity.isEmpty() || isDeclared(entity))
            continue;
        set(FaultKind::UndeclaredEntity, at, entity.size() + 2);
        cause_.name = entity;
        return true;
    }
    return false;
}

qsizetype TagWalk::likelyEnd(qsizetype quote) const {
    const auto endsHere = [](char c) { return c == '\n' || c == '\r' || c == '<' || c == '>'; };
    qsizetype end = quote + 1;
    while (end < text_.size() && !endsHere(text_[end]))
        ++end;
    return text_.sliced(end - 1).startsWith("/>") ? end - 1 : end;
}

} // namespace

void findCauseInTag(QByteArrayView text, const StopPlace &stop, Cause &cause) {
    TagWalk(text, stop, cause).find();
}

} // namespace quillon::xml
