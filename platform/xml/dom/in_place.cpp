#include "platform/xml/dom/in_place.h"

#include "platform/runtime/error.h"
#include "platform/runtime/strings.h"
#include "platform/xml/dom/handle_access.h"
#include "platform/xml/storage/value_changes.h"
#include "platform/xml/storage/values.h"
#include "resources/xml_texts.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace quillon::xml {

namespace texts = resources::xml_texts;

namespace {

[[noreturn]] void raise(qint32 number, const QString &description) {
    throw runtime::Error(number, description);
}

std::size_t utf8Length(QStringView text) {
    std::size_t length = 0;
    for (const QChar unit : text) {
        const char16_t c = unit.unicode();
        // Each half of a pair stands for two of the four bytes.
        length += c < 0x80 ? 1 : c < 0x800 || unit.isSurrogate() ? 2 : 3;
    }
    return length;
}

void markTagChanged(Arena &arena, Number element) {
    arena.writeRecord(element).flags |= record_flag::TagChanged;
    arena.markContentChanged(arena.record(element).parent);
}

/// The same changes in bytes. The views are of `newTexts`.
std::vector<TextChange> inBytes(const QString &value, const std::vector<ValueChange> &changes,
                                const std::vector<std::string> &newTexts) {
    std::vector<TextChange> out;
    qsizetype at = 0;
    std::size_t bytes = 0;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const ValueChange &change = changes[i];
        if (change.at < at || change.length < 0 || change.at + change.length > value.size())
            raise(runtime::error_number::InvalidArgument, texts::OutsideOfValue.toString());
        bytes += utf8Length(QStringView(value).mid(at, change.at - at));
        const std::size_t length = utf8Length(QStringView(value).mid(change.at, change.length));
        out.push_back({bytes, length, newTexts[i]});
        bytes += length;
        at = change.at + change.length;
    }
    return out;
}

} // namespace

void replaceInValue(const Node &node, const std::vector<ValueChange> &changes) {
    const QString value = node.nodeValue();
    if (value.isNull() || (node.nodeType() == NodeType::ProcessingInstruction &&
                           node.nodeName() == QLatin1String("xml")))
        return node.setNodeValue(value); // which says why it cannot be done
    std::vector<std::string> newTexts;
    for (const ValueChange &change : changes)
        newTexts.push_back(checkedValue(change.text));
    const std::vector<TextChange> inside = inBytes(value, changes, newTexts);
    Arena &arena = HandleAccess::arena(node);
    const Number n = node.number();
    ChangedValue changed = changedValue(arena, n, inside);
    {
        std::string buffer;
        if (valueView(arena, n, buffer) == changed.value)
            return;
    }
    arena.setOwnText(n, OwnTextKind::Value, std::move(changed.value), std::move(changed.kept));
    Record &r = arena.writeRecord(n);
    r.flags = static_cast<RecordFlags>((r.flags | record_flag::OwnValue) & ~record_flag::Defaulted);
    const Number parent = r.parent;
    if (parent != 0 && node.nodeType() == NodeType::Attribute)
        markTagChanged(arena, parent);
    else if (parent != 0)
        arena.markContentChanged(parent);
}

std::vector<ValueStretch> referencesIn(const Node &attribute) {
    std::vector<ValueStretch> stretches;
    if (attribute.nodeType() != NodeType::Attribute)
        return stretches;
    const Arena &arena = HandleAccess::arena(attribute);
    const std::string value = valueOf(arena, attribute.number());
    if (value.find('&') == value.npos)
        return stretches;
    const auto units = [&](std::size_t start, std::size_t length) {
        return runtime::fromUtf8(std::string_view(value).substr(start, length)).size();
    };
    for (const TextPlace &place : keptReferences(value, readAttribute(arena, attribute.number())))
        stretches.push_back({units(0, place.start), units(place.start, place.length)});
    return stretches;
}

void changeName(const Node &element, const QString &name) {
    if (element.nodeType() != NodeType::Element)
        raise(runtime::error_number::Fail, texts::WrongKind.toString().arg(TypeName(element)));
    const std::string checked = checkedName(name);
    Arena &arena = HandleAccess::arena(element);
    const std::uint32_t number = arena.names->intern(checked);
    if (arena.record(element.number()).name == number)
        return;
    arena.writeRecord(element.number()).name = number;
    markTagChanged(arena, element.number());
}

void changeNames(const Node &element, const std::vector<AttributeName> &names) {
    Arena &arena = HandleAccess::arena(element);
    std::unordered_map<Number, std::uint32_t> wanted;
    for (const AttributeName &one : names) {
        const Number n = one.attribute.number();
        if (one.attribute.nodeType() != NodeType::Attribute ||
            !HandleAccess::sameArena(element, one.attribute) ||
            arena.record(n).parent != element.number())
            raise(runtime::error_number::InvalidArgument, texts::NotAChild.toString());
        wanted[n] = arena.names->intern(checkedName(one.name));
    }
    std::unordered_set<std::uint32_t> present;
    for (Number a = arena.part(element.number()).firstAttribute; a != 0; a = arena.record(a).next) {
        const auto changed = wanted.find(a);
        if (!present.insert(changed != wanted.end() ? changed->second : arena.record(a).name)
                 .second)
            raise(runtime::error_number::Fail, texts::DuplicateAttribute.toString());
    }
    for (const auto &[n, name] : wanted) {
        if (arena.record(n).name == name)
            continue;
        Record &r = arena.writeRecord(n);
        r.name = name;
        r.flags =
            static_cast<RecordFlags>((r.flags | record_flag::Renamed) & ~record_flag::Defaulted);
        markTagChanged(arena, element.number());
    }
}

} // namespace quillon::xml
