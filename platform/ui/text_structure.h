#pragma once

#include "platform/ui/text_box.h"

#include <functional>
#include <optional>

namespace quillon::ui {

/// A piece of a text, in bytes.
struct TextStretch {
    qsizetype at = 0;
    qsizetype length = 0;

    bool operator==(const TextStretch &) const = default;
};

/// Two pieces of a text that belong together: brackets, or the names in the tags of an element.
struct TextPair {
    /// The one that the caret is at. Where it is between the two it is the second one.
    TextStretch here;
    TextStretch partner;

    bool operator==(const TextPair &) const = default;
};

/// Knows what belongs together in a text. Texts are UTF-8, places are bytes.
struct TextStructure {
    std::function<std::optional<TextPair>(QByteArrayView text, qsizetype caret,
                                          TextBox::Language language)>
        pairAt;
    /// What is to follow a "</" in markup that has just been typed ahead of the caret; empty for
    /// nothing.
    std::function<QByteArray(QByteArrayView text, qsizetype caret)> closing;
    /// The text is another one from a place on.
    std::function<void(qsizetype from)> textChanged;

    explicit operator bool() const { return bool(pairAt); }
};

} // namespace quillon::ui
