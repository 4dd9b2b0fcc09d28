#include "platform/xml/io/expat_parser.h"

#include "platform/runtime/error.h"
#include "platform/xml/io/expat_error.h"
#include "platform/xml/io/expat_position.h"
#include "platform/xml/storage/values.h"
#include "resources/runtime_errors.h"
#include "resources/xml_texts.h"

#include <algorithm>
#include <cstring>
#include <set>

namespace quillon::xml {

namespace texts = resources::xml_texts;

namespace {

/// A few milliseconds' work.
constexpr unsigned ElementsPerReport = 16'384;

class Parser {
public:
    using Position = std::uint32_t;

    Parser(Arena &arena, NodeAppender &nodes, const std::string &text,
           const runtime::Progress &progress, const NameSubstitutes *substitutes = nullptr);
    ~Parser() { XML_ParserFree(parser_); }
    Parser(const Parser &) = delete;
    Parser &operator=(const Parser &) = delete;

    ParseError run();
    /// See parseProlog().
    std::optional<Prolog> runProlog();

private:
    static Parser &self(void *data) { return *static_cast<Parser *>(data); }
    static void onStart(void *data, const XML_Char *name, const XML_Char **attributes);
    static void onEnd(void *data, const XML_Char *name);
    static void onComment(void *data, const XML_Char *text);
    static void onInstruction(void *data, const XML_Char *target, const XML_Char *text);
    static void onCDataStart(void *data);
    static void onCDataEnd(void *data);
    static void onDeclaration(void *data, const XML_Char *, const XML_Char *, int standalone);
    static void onDocumentTypeStart(void *data, const XML_Char *name, const XML_Char *systemId,
                                    const XML_Char *, int);
    static void onDocumentTypeEnd(void *data);
    static void onEntity(void *data, const XML_Char *name, int isParameter, const XML_Char *value,
                         int length, const XML_Char *, const XML_Char *, const XML_Char *,
                         const XML_Char *);
    static void onAttribute(void *data, const XML_Char *element, const XML_Char *attribute,
                            const XML_Char *, const XML_Char *value, int);
    static void onSkippedEntity(void *data, const XML_Char *name, int isParameter);
    static int onExternalEntity(XML_Parser parser, const XML_Char *context, const XML_Char *,
                                const XML_Char *, const XML_Char *);

    /// What the library tells, as the text has it.
    std::string original(std::string_view told) const {
        return substitutes_ ? substitutes_->original(told) : std::string(told);
    }
    /// The name behind so many bytes of the present event, as long as the library tells.
    std::string_view nameInEvent(Position offset, const XML_Char *told) const {
        return std::string_view(bytes_).substr(eventStart() + offset, std::strlen(told));
    }
    Position eventStart() const { return static_cast<Position>(expat::byteIndex(parser_)); }
    Position eventEnd() const {
        return eventStart() + static_cast<Position>(expat::byteCount(parser_));
    }

    /// Makes a text node of what stands between the last markup and `position`, unless it is
    /// layout. Returns where the layout of the node at `position` starts.
    Position flushText(Position position);
    void addMarkup(NodeType kind, std::uint32_t name, Position start, Position end);
    void addAttributes(Position nameEnd, Position end);
    void addDefaultedAttributes(const XML_Char **attributes);
    /// A value that the library keeps. Entities may make it long, and elements have it often.
    const Ref<OwnText> &defaultValue(const XML_Char *told);
    void addEntityReference();
    /// Has the library read the text. False when that went wrong, or was stopped.
    bool feed();
    void reportProgress();
    void stop(const QString &reason);
    /// What has stopped it.
    ParseError failure() const;

    Arena &arena_;
    NodeAppender &nodes_;
    const runtime::Progress &progress_;
    const std::string &bytes_;
    /// What is read in its place, if anything.
    const NameSubstitutes *substitutes_;
    XML_Parser parser_;
    Position lastEnd_ = 0;
    Position sectionStart_ = 0;
    bool preserve_;
    bool inDocumentType_ = false;
    std::string documentTypeName_;
    InternalSubset subset_;
    /// The attributes that were declared, with their elements.
    std::set<std::pair<std::string, std::string>> declaredAttributes_;
    std::map<const XML_Char *, Ref<OwnText>> defaultValues_;
    bool standsAlone_ = false;
    QString stopReason_;
    unsigned elements_ = 0;
};

Parser::Position Parser::flushText(Position position) {
    if (position == lastEnd_)
        return position;
    const std::string_view run = std::string_view(bytes_).substr(lastEnd_, position - lastEnd_);
    if (nodes_.isOutside() || (!preserve_ && isLayout(run)))
        return lastEnd_;
    nodes_.append(NodeType::Text, 0, {lastEnd_, lastEnd_, position});
    lastEnd_ = position;
    return position;
}

void Parser::addMarkup(NodeType kind, std::uint32_t name, Position start, Position end) {
    const Position layoutStart = flushText(start);
    nodes_.append(kind, name, {layoutStart, start, end});
    lastEnd_ = end;
}

void Parser::addAttributes(Position nameEnd, Position end) {
    // The parser has checked the tag: it is enough to find the parts.
    const char *const bytes = bytes_.data();
    const auto isBlank = [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; };
    for (Position at = nameEnd;;) {
        const Position layoutStart = at;
        while (at < end && isBlank(bytes[at]))
            ++at;
        if (at >= end || bytes[at] == '>' || bytes[at] == '/')
            return;
        const Position start = at;
        while (at < end && bytes[at] != '=' && !isBlank(bytes[at]))
            ++at;
        const std::uint32_t name = arena_.names->intern({bytes + start, at - start});
        while (at < end && bytes[at] != '"' && bytes[at] != '\'')
            ++at;
        const std::size_t close = bytes_.find(bytes[at], at + 1);
        if (close >= end)
            return;
        at = static_cast<Position>(close) + 1;
        const Number n = nodes_.appendAttribute(name, {layoutStart, start, at});
        if (arena_.names->utf8(name) == "xml:space")
            preserve_ = valueOf(arena_, n) == "preserve" || arena_.properties.preserveWhiteSpace;
    }
}

const Ref<OwnText> &Parser::defaultValue(const XML_Char *told) {
    Ref<OwnText> &value = defaultValues_[told];
    if (!value)
        value = Ref<OwnText>(new OwnText(original(told), {}));
    return value;
}

void Parser::addDefaultedAttributes(const XML_Char **attributes) {
    for (attributes += XML_GetSpecifiedAttributeCount(parser_); *attributes; attributes += 2) {
        const std::string name = original(attributes[0]);
        const Ref<OwnText> &value = defaultValue(attributes[1]);
        nodes_.appendDefaultedAttribute(arena_.names->intern(name), value);
        if (name == "xml:space")
            preserve_ = value->utf8 == "preserve" || arena_.properties.preserveWhiteSpace;
    }
}

void Parser::onStart(void *data, const XML_Char *name, const XML_Char **attributes) {
    Parser &p = self(data);
    const Position start = p.eventStart();
    const Position end = p.eventEnd();
    const Position layoutStart = p.flushText(start);
    const std::string_view tagName = p.nameInEvent(1, name);
    p.nodes_.openElement(p.arena_.names->intern(tagName), layoutStart, start);
    p.addAttributes(start + 1 + static_cast<Position>(tagName.size()), end);
    p.addDefaultedAttributes(attributes);
    p.nodes_.endStartTag(end, p.preserve_);
    p.lastEnd_ = end;
    if (++p.elements_ % ElementsPerReport == 0)
        p.reportProgress();
}

void Parser::onEnd(void *data, const XML_Char *) {
    Parser &p = self(data);
    const Position start = p.eventStart();
    const Position end = p.eventEnd();
    // An element without an end tag ends where its start tag does, with no bytes of its own.
    if (end == start) {
        p.nodes_.closeElement();
    } else {
        const Position layoutStart = p.flushText(start);
        p.nodes_.closeElement({layoutStart, start, end});
        p.lastEnd_ = end;
    }
    p.preserve_ =
        p.arena_.properties.preserveWhiteSpace || p.nodes_.open().has(record_flag::PreserveSpace);
}

void Parser::onComment(void *data, const XML_Char *) {
    Parser &p = self(data);
    if (!p.inDocumentType_)
        p.addMarkup(NodeType::Comment, 0, p.eventStart(), p.eventEnd());
}

void Parser::onInstruction(void *data, const XML_Char *target, const XML_Char *) {
    Parser &p = self(data);
    if (!p.inDocumentType_)
        p.addMarkup(NodeType::ProcessingInstruction,
                    p.arena_.names->intern(p.nameInEvent(2, target)), p.eventStart(), p.eventEnd());
}

void Parser::onDeclaration(void *data, const XML_Char *, const XML_Char *, int standalone) {
    Parser &p = self(data);
    p.standsAlone_ = standalone == 1;
    p.addMarkup(NodeType::ProcessingInstruction, p.arena_.names->intern("xml"), p.eventStart(),
                p.eventEnd());
}

void Parser::onCDataStart(void *data) {
    Parser &p = self(data);
    p.sectionStart_ = p.eventStart();
}

void Parser::onCDataEnd(void *data) {
    Parser &p = self(data);
    p.addMarkup(NodeType::CDATASection, 0, p.sectionStart_, p.eventEnd());
}

void Parser::onDocumentTypeStart(void *data, const XML_Char *name, const XML_Char *systemId,
                                 const XML_Char *, int) {
    Parser &p = self(data);
    p.inDocumentType_ = true;
    p.subset_.hasExternalPart = systemId && !p.standsAlone_;
    p.documentTypeName_ = p.original(name);
}

void Parser::onDocumentTypeEnd(void *data) {
    Parser &p = self(data);
    p.inDocumentType_ = false;
    // Only white space can stand between the markup before it and the declaration.
    const auto start = static_cast<Position>(p.bytes_.find('<', p.lastEnd_));
    p.addMarkup(NodeType::DocumentType, p.arena_.names->intern(p.documentTypeName_), start,
                p.eventEnd());
    if (entitiesNestTooDeep(*p.subset_.entities))
        p.stop(texts::EntityLimit.toString());
}

void Parser::onEntity(void *data, const XML_Char *name, int isParameter, const XML_Char *value,
                      int length, const XML_Char *, const XML_Char *, const XML_Char *,
                      const XML_Char *notation) {
    Parser &p = self(data);
    InternalSubset &subset = p.subset_;
    if (isParameter)
        return;
    if (value)
        subset.entities->emplace(p.original(name), p.original(std::string_view(
                                                       value, static_cast<std::size_t>(length))));
    else
        (notation ? subset.unparsedEntities : subset.externalEntities).emplace(name);
}

void Parser::onAttribute(void *data, const XML_Char *element, const XML_Char *attribute,
                         const XML_Char *, const XML_Char *value, int) {
    Parser &p = self(data);
    // The first declaration holds.
    if (p.declaredAttributes_.emplace(element, attribute).second && value)
        p.subset_.defaults[element].push_back({attribute, Ref<OwnText>(new OwnText(value, {}))});
}

void Parser::addEntityReference() {
    const Position start = eventStart();
    const Position end = eventEnd();
    addMarkup(NodeType::EntityReference,
              arena_.names->intern(std::string_view(bytes_).substr(start + 1, end - start - 2)),
              start, end);
}

void Parser::onSkippedEntity(void *data, const XML_Char *, int isParameter) {
    if (!isParameter)
        self(data).addEntityReference();
}

int Parser::onExternalEntity(XML_Parser parser, const XML_Char *context, const XML_Char *,
                             const XML_Char *, const XML_Char *) {
    Parser &p = self(XML_GetUserData(parser));
    if (context && !p.inDocumentType_)
        p.addEntityReference();
    return XML_STATUS_OK;
}

void Parser::reportProgress() {
    if (progress_ && !progress_(double(lastEnd_) / double(bytes_.size())))
        stop(resources::runtimeErrorText(runtime::error_number::Cancelled));
}

void Parser::stop(const QString &reason) {
    stopReason_ = reason;
    XML_StopParser(parser_, XML_FALSE);
}

ParseError Parser::failure() const {
    ParseError error = errorOf(parser_, bytes_, !nodes_.isOutside());
    if (substitutes_) {
        // Two characters have stood for one.
        const auto at = static_cast<std::size_t>(error.filepos);
        for (std::size_t i = bytes_.rfind('\n', at) + 1; i < at; ++i) {
            const bool isOfFour = static_cast<unsigned char>(bytes_[i]) >= 0xF0;
            error.linepos -= isOfFour && bytes_[i] != substitutes_->text()[i] ? 1 : 0;
        }
    }
    if (!stopReason_.isNull()) {
        error.reason = stopReason_;
        error.errorCode = parse_error_code::Base;
    }
    return error;
}

bool Parser::feed() {
    // The library copies what it is given, and goes once more over a comment, say, that has not
    // ended with it: so pieces are small, and grow with what has been read.
    constexpr std::size_t smallest = 1 << 20;
    const std::string_view text = substitutes_ ? substitutes_->text() : bytes_;
    std::string_view rest = text;
    for (std::size_t piece = smallest; rest.size() > piece;
         piece = std::max(smallest, (text.size() - rest.size()) / 8)) {
        if (XML_Parse(parser_, rest.data(), static_cast<int>(piece), XML_FALSE) != XML_STATUS_OK)
            return false;
        rest.remove_prefix(piece);
    }
    return XML_Parse(parser_, rest.data(), static_cast<int>(rest.size()), XML_TRUE) ==
           XML_STATUS_OK;
}

Parser::Parser(Arena &arena, NodeAppender &nodes, const std::string &text,
               const runtime::Progress &progress, const NameSubstitutes *substitutes)
    : arena_(arena), nodes_(nodes), progress_(progress), bytes_(text), substitutes_(substitutes),
      // The text has been decoded, whatever encoding it declares.
      parser_(XML_ParserCreate("UTF-8")), preserve_(arena.properties.preserveWhiteSpace) {
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(parser_, onStart, onEnd);
    XML_SetCommentHandler(parser_, onComment);
    XML_SetProcessingInstructionHandler(parser_, onInstruction);
    XML_SetXmlDeclHandler(parser_, onDeclaration);
    XML_SetCdataSectionHandler(parser_, onCDataStart, onCDataEnd);
    XML_SetDoctypeDeclHandler(parser_, onDocumentTypeStart, onDocumentTypeEnd);
    XML_SetEntityDeclHandler(parser_, onEntity);
    // Setting no default handler this way is what stops the expansion of entities in content.
    XML_SetDefaultHandler(parser_, nullptr);
    XML_SetSkippedEntityHandler(parser_, onSkippedEntity);
    XML_SetExternalEntityRefHandler(parser_, onExternalEntity);
}

std::optional<Prolog> Parser::runProlog() {
    XML_SetAttlistDeclHandler(parser_, onAttribute);
    // An element without an end tag would still be ended.
    XML_SetElementHandler(
        parser_,
        [](void *data, const XML_Char *, const XML_Char **) {
            XML_StopParser(self(data).parser_, XML_FALSE);
        },
        nullptr);
    feed();
    if (inDocumentType_ || !stopReason_.isNull())
        return std::nullopt;
    return Prolog{lastEnd_, std::move(subset_)};
}

ParseError Parser::run() {
    const ParseError error = feed() ? ParseError() : failure();
    arena_.entities = std::move(subset_.entities);
    nodes_.finish(lastEnd_);
    return error;
}

} // namespace

std::optional<Prolog> parseProlog(Arena &arena, NodeAppender &nodes, const std::string &text) {
    return Parser(arena, nodes, text, {}).runProlog();
}

ParseError parseByExpat(Arena &arena, const Ref<SourceText> &source,
                        const runtime::Progress &progress, const NameSubstitutes *substitutes) {
    NodeAppender nodes(arena, source);
    return Parser(arena, nodes, source->utf8, progress, substitutes).run();
}

} // namespace quillon::xml
