#pragma once

#include <QString>

#include <vector>

namespace quillon::validation {

/// What a fault is about; two of one kind at one node are told once.
enum class FaultKind : quint8 {
    /// Text in the edit pane that is no XML.
    Syntax,
    /// Which children stand in an element, or that text does.
    Content,
    /// Which attributes an element has.
    Attributes,
    /// The value of an attribute, or of the text of an element.
    Value,
    /// Anything else that a schema wants: keys, references, rules.
    Other,
};

/// One thing that is wrong in the present document.
struct Fault {
    FaultKind kind = FaultKind::Other;
    /// Known by the grammar alone, which can tell it anew as soon as something changes. Else an
    /// engine has told it.
    bool isOfGrammar = false;
    /// The number of the element whose tag or content is wrong; that of the node which the pane
    /// shows for Syntax.
    quint32 element = 0;
    /// Where it is to be seen: the same element, one of its children or its attributes.
    quint32 node = 0;
    /// In Japanese, on one line.
    QString sentence;
    /// In the pane's text for Syntax; else of the node in the text that the document was read from.
    /// 1-based; 0 when unknown.
    int line = 0;
    int column = 0;

    bool operator==(const Fault &) const = default;
};

/// More faults than these are not looked for.
inline constexpr std::size_t MostFaults = 100'000;

} // namespace quillon::validation
