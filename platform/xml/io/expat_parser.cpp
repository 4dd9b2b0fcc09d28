#include "platform/xml/io/expat_parser.h"

#include "platform/runtime/error.h"
#include "platform/xml/io/expat_position.h"
#include "platform/xml/storage/values.h"
#include "resources/runtime_errors.h"
#include "resources/xml_texts.h"

#include <algorithm>
#include <set>

namespace quillon::xml {

namespace texts = resources::xml_texts;

namespace {

/// Entities may refer to one another this deep. The parser follows such chains recursively.
constexpr int MaxEntityDepth = 100;

/// A few milliseconds' work.
constexpr unsigned ElementsPerReport = 16'384;

using parse_error_code::Base;

struct Reason {
    XML_Error code;
    /// Of the error, counted from Base.
    std::uint8_t number;
    resources::Text text;
};

constexpr Reason Reasons[] = {
    {XML_ERROR_NO_ELEMENTS, 0x58, texts::NoElement},
    {XML_ERROR_INVALID_TOKEN, 0x08, texts::InvalidToken},
    {XML_ERROR_PARTIAL_CHAR, 0x14, texts::UnexpectedEnd},
    {XML_ERROR_UNCLOSED_TOKEN, 0x59, texts::UnclosedToken},
    {XML_ERROR_TAG_MISMATCH, 0x6D, texts::MismatchedTag},
    {XML_ERROR_DUPLICATE_ATTRIBUTE, parse_error_code::DuplicateAttribute - Base,
     texts::DuplicateAttribute},
    {XML_ERROR_JUNK_AFTER_DOC_ELEMENT, 0x55, texts::JunkAfterRoot},
    {XML_ERROR_UNDEFINED_ENTITY, parse_error_code::UndefinedEntity - Base, texts::UndefinedEntity},
    {XML_ERROR_RECURSIVE_ENTITY_REF, 0x03, texts::EntityLoop},
    {XML_ERROR_AMPLIFICATION_LIMIT_BREACH, 0x03, texts::EntityLimit},
    {XML_ERROR_MISPLACED_XML_PI, 0x07, texts::MisplacedDeclaration},
    {XML_ERROR_XML_DECL, 0x07, texts::BadDeclaration},
    {XML_ERROR_UNCLOSED_CDATA_SECTION, 0x64, texts::UnclosedCData},
    {XML_ERROR_SYNTAX, 0x56, texts::OtherSyntaxError},
};

class Parser {
public:
    using Position = std::uint32_t;

    Parser(Arena &arena, NodeAppender &nodes, const std::string &text,
           const runtime::Progress &progress);
    ~Parser() { XML_ParserFree(parser_); }
    Parser(const Parser &) = delete;
    Parser &operator=(const Parser &) = delete;

    ParseError run();
    /// See parseProlog().
    std::optional<Position> runProlog();

private:
    static Parser &self(void *data) { return *static_cast<Parser *>(data); }
    static void onStart(void *data, const XML_Char *name, const XML_Char **attributes);
    static void onEnd(void *data, const XML_Char *name);
    static void onComment(void *data, const XML_Char *text);
    static void onInstruction(void *data, const XML_Char *target, const XML_Char *text);
    static void onCDataStart(void *data);
    static void onCDataEnd(void *data);
    static void onDeclaration(void *data, const XML_Char *, const XML_Char *, int);
    static void onDocumentTypeStart(void *data, const XML_Char *name, const XML_Char *,
                                    const XML_Char *, int);
    static void onDocumentTypeEnd(void *data);
    static void onEntity(void *data, const XML_Char *name, int isParameter, const XML_Char *value,
                         int length, const XML_Char *, const XML_Char *, const XML_Char *,
                         const XML_Char *);
    static void onSkippedEntity(void *data, const XML_Char *name, int isParameter);
    static int onExternalEntity(XML_Parser parser, const XML_Char *context, const XML_Char *,
                                const XML_Char *, const XML_Char *);

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
    void addEntityReference();
    bool entitiesNestTooDeep() const;
    /// Has the library read the text. False when that went wrong, or was stopped.
    bool feed();
    void reportProgress();
    void stop(const QString &reason);
    ParseError failure() const;

    Arena &arena_;
    NodeAppender &nodes_;
    const runtime::Progress &progress_;
    const std::string &bytes_;
    XML_Parser parser_;
    Position lastEnd_ = 0;
    Position sectionStart_ = 0;
    bool preserve_;
    bool inDocumentType_ = false;
    std::string documentTypeName_;
    std::shared_ptr<EntityTable> entities_;
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

void Parser::addDefaultedAttributes(const XML_Char **attributes) {
    for (attributes += XML_GetSpecifiedAttributeCount(parser_); *attributes; attributes += 2) {
        nodes_.appendDefaultedAttribute(arena_.names->intern(attributes[0]), attributes[1]);
        if (std::string_view(attributes[0]) == "xml:space")
            preserve_ = std::string_view(attributes[1]) == "preserve" ||
                        arena_.properties.preserveWhiteSpace;
    }
}

void Parser::onStart(void *data, const XML_Char *name, const XML_Char **attributes) {
    Parser &p = self(data);
    const Position start = p.eventStart();
    const Position end = p.eventEnd();
    const Position layoutStart = p.flushText(start);
    const std::string_view tagName(name);
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
        p.addMarkup(NodeType::ProcessingInstruction, p.arena_.names->intern(target), p.eventStart(),
                    p.eventEnd());
}

void Parser::onDeclaration(void *data, const XML_Char *, const XML_Char *, int) {
    Parser &p = self(data);
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

void Parser::onDocumentTypeStart(void *data, const XML_Char *name, const XML_Char *,
                                 const XML_Char *, int) {
    Parser &p = self(data);
    p.inDocumentType_ = true;
    p.documentTypeName_ = name;
}

void Parser::onDocumentTypeEnd(void *data) {
    Parser &p = self(data);
    p.inDocumentType_ = false;
    // Only white space can stand between the markup before it and the declaration.
    const auto start = static_cast<Position>(p.bytes_.find('<', p.lastEnd_));
    p.addMarkup(NodeType::DocumentType, p.arena_.names->intern(p.documentTypeName_), start,
                p.eventEnd());
    if (p.entitiesNestTooDeep())
        p.stop(texts::EntityLimit.toString());
}

void Parser::onEntity(void *data, const XML_Char *name, int isParameter, const XML_Char *value,
                      int length, const XML_Char *, const XML_Char *, const XML_Char *,
                      const XML_Char *) {
    if (!isParameter && value)
        self(data).entities_->emplace(name, std::string(value, static_cast<std::size_t>(length)));
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

bool Parser::entitiesNestTooDeep() const {
    // Peels off, round by round, the entities that refer to none that is left. What is left after
    // the permitted number of rounds nests too deep, or in a loop; loops are left to the parser.
    std::map<std::string_view, std::set<std::string_view>> open;
    for (const auto &[name, value] : *entities_) {
        for (std::size_t at = 0; (at = value.find('&', at)) != std::string::npos; ++at) {
            const std::size_t end = value.find(';', at);
            if (end == std::string::npos)
                break;
            const auto target =
                entities_->find(std::string_view(value).substr(at + 1, end - at - 1));
            if (target != entities_->end())
                open[name].insert(target->first);
        }
    }
    for (int round = 0; round < MaxEntityDepth && !open.empty(); ++round) {
        std::vector<std::string_view> done;
        for (const auto &[name, targets] : open) {
            if (std::none_of(targets.begin(), targets.end(),
                             [&](std::string_view target) { return open.count(target) != 0; }))
                done.push_back(name);
        }
        if (done.empty())
            return open.size() > static_cast<std::size_t>(MaxEntityDepth);
        for (const std::string_view name : done)
            open.erase(name);
    }
    return !open.empty();
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
    const XML_Error code = XML_GetErrorCode(parser_);
    ParseError error;
    const auto reason = std::find_if(std::begin(Reasons), std::end(Reasons),
                                     [code](const Reason &r) { return r.code == code; });
    if (!stopReason_.isNull()) {
        error.reason = stopReason_;
        error.errorCode = Base;
    } else if (reason != std::end(Reasons)) {
        error.reason = reason->text.toString();
        error.errorCode = Base + reason->number;
    } else {
        error.reason = texts::OtherSyntaxError.toString();
        error.errorCode = Base + code;
    }
    // The end of the text without a root is reported like the end inside one.
    if (code == XML_ERROR_NO_ELEMENTS && !nodes_.isOutside())
        error.reason = texts::UnexpectedEnd.toString();
    error.line = expat::line(parser_);
    error.linepos = expat::column(parser_) + 1;
    error.filepos = std::max<qint64>(expat::byteIndex(parser_), 0);
    const std::size_t at = std::min(static_cast<std::size_t>(error.filepos), bytes_.size());
    const std::size_t before = at == 0 ? bytes_.npos : bytes_.rfind('\n', at - 1);
    const std::size_t lineStart = before == bytes_.npos ? 0 : before + 1;
    const std::size_t lineEnd = std::min(bytes_.find_first_of("\r\n", lineStart), bytes_.size());
    error.srcText =
        QString::fromUtf8(bytes_.data() + lineStart, static_cast<qsizetype>(lineEnd - lineStart));
    return error;
}

bool Parser::feed() {
    // The library copies what it is given.
    constexpr std::size_t piece = 1 << 20;
    std::string_view rest = bytes_;
    for (; rest.size() > piece; rest.remove_prefix(piece)) {
        if (XML_Parse(parser_, rest.data(), int{piece}, XML_FALSE) != XML_STATUS_OK)
            return false;
    }
    return XML_Parse(parser_, rest.data(), static_cast<int>(rest.size()), XML_TRUE) ==
           XML_STATUS_OK;
}

Parser::Parser(Arena &arena, NodeAppender &nodes, const std::string &text,
               const runtime::Progress &progress)
    : arena_(arena), nodes_(nodes), progress_(progress), bytes_(text),
      // The text has been decoded, whatever encoding it declares.
      parser_(XML_ParserCreate("UTF-8")), preserve_(arena.properties.preserveWhiteSpace),
      entities_(std::make_shared<EntityTable>()) {
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

std::optional<Parser::Position> Parser::runProlog() {
    // An element without an end tag would still be ended.
    XML_SetElementHandler(
        parser_,
        [](void *data, const XML_Char *, const XML_Char **) {
            XML_StopParser(self(data).parser_, XML_FALSE);
        },
        nullptr);
    XML_SetDoctypeDeclHandler(
        parser_,
        [](void *data, const XML_Char *, const XML_Char *, const XML_Char *, int) {
            Parser &p = self(data);
            p.inDocumentType_ = true;
            XML_StopParser(p.parser_, XML_FALSE);
        },
        nullptr);
    feed();
    return inDocumentType_ ? std::nullopt : std::optional(lastEnd_);
}

ParseError Parser::run() {
    const ParseError error = feed() ? ParseError() : failure();
    arena_.entities = std::move(entities_);
    nodes_.finish(lastEnd_);
    return error;
}

} // namespace

std::optional<std::uint32_t> parseProlog(Arena &arena, NodeAppender &nodes,
                                         const std::string &text) {
    return Parser(arena, nodes, text, {}).runProlog();
}

ParseError parseByExpat(Arena &arena, const Ref<SourceText> &source,
                        const runtime::Progress &progress) {
    NodeAppender nodes(arena, source);
    return Parser(arena, nodes, source->utf8, progress).run();
}

} // namespace quillon::xml
