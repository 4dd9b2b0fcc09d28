#pragma once

#include "platform/xml/io/character_scan.h"
#include "platform/xml/io/expat_parser.h"
#include "platform/xml/io/parser.h"
#include "platform/xml/storage/name_characters.h"

#include <string>

/// Reading texts in both ways that there are.
namespace quillon::xml::test {

/// What is different first between two documents that are to be equal, slot by slot; empty when
/// nothing is.
inline std::string difference(const Arena &a, const Arena &b) {
    const auto at = [](const char *what, Number n) { return what + (' ' + std::to_string(n)); };
    if (a.slotCount() != b.slotCount() || a.documentNumber() != b.documentNumber() ||
        a.recordCount() != b.recordCount() || a.readEnd() != b.readEnd())
        return at("number of nodes", a.slotCount()) + at(",", b.slotCount());
    if (a.names->size() != b.names->size())
        return at("number of names", a.names->size());
    for (std::uint32_t name = 0; name < a.names->size(); ++name) {
        if (a.names->utf8(name) != b.names->utf8(name))
            return at("name", name);
    }
    if (*a.entities != *b.entities)
        return "entities";
    for (Number n = a.documentNumber(); a.isAlive(n); ++n) {
        if (a.isRecord(n) != b.isRecord(n))
            return at("start of a node", n);
        if (!a.isRecord(n))
            continue;
        const Record &r = a.record(n);
        const Record &s = b.record(n);
        if (r.kind != s.kind || r.flags != s.flags || r.name != s.name)
            return at("kind", n);
        if (r.parent != s.parent || r.next != s.next ||
            a.previousSibling(n) != b.previousSibling(n))
            return at("links", n);
        if (a.ownText(n, OwnTextKind::Value) != b.ownText(n, OwnTextKind::Value))
            return at("value", n);
        const bool isRead = r.has(record_flag::Source);
        if (isRead && (r.start != s.start || a.sourceEnd(n) != b.sourceEnd(n)))
            return at("position", n);
        if (isRead && a.layoutStart(n) != b.layoutStart(n))
            return at("layout", n);
        if (!a.hasPart(n))
            continue;
        const ElementPart &p = a.part(n);
        const ElementPart &q = b.part(n);
        if (p.firstChild != q.firstChild || p.lastChild != q.lastChild ||
            p.firstAttribute != q.firstAttribute || a.lastAttribute(n) != b.lastAttribute(n))
            return at("lists", n);
        if (isRead && (p.contentStart != q.contentStart || p.endTagStart != q.endTagStart ||
                       a.contentEnd(n) != b.contentEnd(n)))
            return at("tags", n);
    }
    return {};
}

inline bool expatReads(const std::string &text) {
    Arena arena;
    const Ref<SourceText> source(new SourceText);
    source->utf8 = text;
    return parseByExpat(arena, source, {}).errorCode == 0;
}

/// The text with every character of names that expat does not know replaced by some that it does.
inline std::string inOlderNames(const std::string &text) {
    std::string out;
    for (std::size_t i = 0; i < text.size();) {
        const scan::Wide wide = scan::wideAt(text.data() + i);
        const std::string character =
            text.substr(i, wide.length == 0 ? 1 : std::size_t(wide.length));
        if (wide.length != 0 && isNameCharacter(wide.character) &&
            (!expatReads("<" + character + "/>") || !expatReads("<a" + character + "/>")))
            out += "é" + std::to_string(std::uint32_t(wide.character)) + "é";
        else
            out += character;
        i += character.size();
    }
    return out;
}

/// What is wrong with how a text is read, compared with how expat reads it; empty when nothing is.
/// A text that expat refuses must be one whose names alone it objects to, where it is accepted.
inline std::string faultOfReading(const std::string &text, bool preservesWhiteSpace = false) {
    const Ref<SourceText> source(new SourceText);
    source->utf8 = text;
    Arena ours;
    Arena byExpat;
    ours.properties.preserveWhiteSpace = byExpat.properties.preserveWhiteSpace =
        preservesWhiteSpace;
    const ParseError error = parse(ours, source);
    // These are refused without being read.
    if (error.errorCode != 0 && ours.recordCount() == 1 && error.line <= 1 && error.linepos <= 1)
        return {};
    const ParseError expats = parseByExpat(byExpat, source, {});
    const bool isAtName = expats.errorCode != 0 &&
                          (error.errorCode != expats.errorCode || error.filepos != expats.filepos);
    if (!isAtName)
        return difference(ours, byExpat);
    if ((error.errorCode == 0) != expatReads(inOlderNames(text)))
        return "refused or accepted not for its names alone";
    const std::optional<NameSubstitutes> substitutes = NameSubstitutes::of(text);
    if (!substitutes)
        return "without substitutes for names";
    byExpat.dropNodes();
    const ParseError again = parseByExpat(byExpat, source, {}, &*substitutes);
    if (again.errorCode != error.errorCode || again.filepos != error.filepos)
        return "refused otherwise with other names";
    return difference(ours, byExpat);
}

} // namespace quillon::xml::test
