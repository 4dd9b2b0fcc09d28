#include "platform/runtime/like.h"

#include "platform/runtime/error.h"

#include <algorithm>
#include <optional>

namespace quillon::runtime {

LikePattern::LikePattern(QStringView pattern) {
    for (qsizetype at = 0; at < pattern.size(); ++at) {
        const char16_t unit = pattern[at].unicode();
        if (unit == u'*') {
            tokens_.push_back({Kind::AnyRun});
        } else if (unit == u'?') {
            tokens_.push_back({Kind::AnyOne});
        } else if (unit == u'#') {
            tokens_.push_back({Kind::Digit});
        } else if (unit == u'[') {
            const qsizetype close = pattern.indexOf(u']', at + 1);
            if (close < 0)
                raise(error_number::InvalidPattern);
            addList(pattern.sliced(at + 1, close - at - 1));
            at = close;
        } else {
            tokens_.push_back({Kind::Literal, unit});
        }
    }
}

void LikePattern::addList(QStringView list) {
    if (list.isEmpty())
        return;
    const bool excludes = list.size() > 1 && list.front() == u'!';
    if (excludes)
        list = list.sliced(1);
    const size_t firstRange = ranges_.size();
    for (qsizetype at = 0; at < list.size(); ++at) {
        const char16_t start = list[at].unicode();
        char16_t end = start;
        const bool leadingHyphen = at == 0 && start == u'-';
        if (!leadingHyphen && at + 2 < list.size() && list[at + 1] == u'-') {
            end = list[at + 2].unicode();
            if (end < start)
                raise(error_number::InvalidPattern);
            at += 2;
        }
        ranges_.emplace_back(start, end);
    }
    tokens_.push_back({excludes ? Kind::NotInList : Kind::InList, 0, firstRange, ranges_.size()});
}

bool LikePattern::matchesOne(const Token &token, char16_t unit) const {
    switch (token.kind) {
    case Kind::Literal:
        return unit == token.literal;
    case Kind::Digit:
        return unit >= u'0' && unit <= u'9';
    case Kind::InList:
    case Kind::NotInList: {
        const bool listed = std::any_of(
            ranges_.begin() + static_cast<std::ptrdiff_t>(token.firstRange),
            ranges_.begin() + static_cast<std::ptrdiff_t>(token.endRange),
            [unit](Range range) { return unit >= range.first && unit <= range.second; });
        return listed == (token.kind == Kind::InList);
    }
    case Kind::AnyOne:
    case Kind::AnyRun:
        break;
    }
    return true;
}

bool LikePattern::matches(QStringView text) const {
    struct Retry {
        size_t token;
        qsizetype at;
    };
    // Going back to the latest "*" is enough: whatever an earlier one could take over, the latest
    // can take as well.
    std::optional<Retry> retry;
    size_t token = 0;
    qsizetype at = 0;
    for (;;) {
        if (token < tokens_.size() && tokens_[token].kind == Kind::AnyRun) {
            ++token;
            retry = Retry{token, at};
        } else if (token == tokens_.size() && at == text.size()) {
            return true;
        } else if (token < tokens_.size() && at < text.size() &&
                   matchesOne(tokens_[token], text[at].unicode())) {
            ++token;
            ++at;
        } else if (retry && retry->at < text.size()) {
            token = retry->token;
            at = ++retry->at;
        } else {
            return false;
        }
    }
}

bool like(QStringView text, QStringView pattern) {
    return LikePattern(pattern).matches(text);
}

} // namespace quillon::runtime
