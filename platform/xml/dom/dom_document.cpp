#include "platform/runtime/error.h"
#include "platform/xml/dom/dom.h"
#include "platform/xml/dom/handle_access.h"
#include "platform/xml/io/atomic_file.h"
#include "platform/xml/io/encoding.h"
#include "platform/xml/io/file_bytes.h"
#include "platform/xml/io/file_target.h"
#include "platform/xml/io/parser.h"
#include "platform/xml/io/serializer.h"
#include "platform/xml/storage/values.h"
#include "resources/xml_texts.h"

#include <algorithm>

namespace quillon::xml {

namespace texts = resources::xml_texts;

namespace {

/// Number of the error for a file that cannot be read.
constexpr qint32 CannotLocate = static_cast<qint32>(0x800C0006);
constexpr qint32 BadEncoding = static_cast<qint32>(0xC00CE56E);

bool loadFrom(Arena &arena, Decoded decoded, bool fromFile,
              const runtime::Progress &progress = {}) {
    arena.clear();
    if (!decoded.error.isNull()) {
        arena.parseError.errorCode = BadEncoding;
        arena.parseError.reason = decoded.error;
        const std::string &read = decoded.utf8;
        arena.parseError.line = 1 + static_cast<int>(std::count(read.begin(), read.end(), '\n'));
        const std::size_t lineStart = read.rfind('\n') + 1;
        arena.parseError.linepos = 1 + static_cast<int>(read.size() - lineStart);
        return false;
    }
    Ref<SourceText> source(new SourceText);
    source->utf8 = std::move(decoded.utf8);
    source->codec = decoded.format.codec;
    source->keepsLineEnds = fromFile;
    source->hasCarriageReturn = source->utf8.find('\r') != std::string::npos;
    source->originals = std::move(decoded.originals);
    arena.format = decoded.format;
    ParseError error;
    try {
        error = parse(arena, source, progress);
        if (error.errorCode == 0)
            return true;
    } catch (const runtime::Error &noRoom) {
        error.errorCode = parse_error_code::Base;
        error.reason = noRoom.description();
    }
    // Nobody has seen a number of what was read.
    arena.dropNodes();
    arena.entities = std::make_shared<EntityTable>();
    arena.format = {};
    arena.parseError = error;
    return false;
}

} // namespace

DOMDocument40 DOMDocument40::create() {
    return DOMDocument40(Ref<ArenaBase>(new Arena));
}

bool DOMDocument40::load(const QString &path, const runtime::Progress &progress) {
    Arena &arena = HandleAccess::arena(*this);
    std::string bytes;
    try {
        bytes = readFile(path);
    } catch (const runtime::Error &error) {
        arena.clear();
        arena.parseError.errorCode = CannotLocate;
        arena.parseError.reason = error.description();
        arena.parseError.url = path;
        return false;
    }
    const bool ok = loadBytes(std::move(bytes), progress);
    arena.parseError.url = ok ? QString() : path;
    return ok;
}

bool DOMDocument40::loadBytes(std::string bytes, const runtime::Progress &progress) {
    // A statement of its own: with it the bytes go that have been decoded.
    Decoded decoded = decodeFile(std::move(bytes));
    return loadFrom(HandleAccess::arena(*this), std::move(decoded), true, progress);
}

bool DOMDocument40::loadXML(const QByteArray &utf8) {
    Decoded decoded;
    constexpr std::string_view Mark = "\xEF\xBB\xBF";
    std::string_view text(utf8.constData(), std::size_t(utf8.size()));
    if (text.substr(0, Mark.size()) == Mark)
        text.remove_prefix(Mark.size());
    decoded.utf8 = normalizeLineEnds(text);
    return loadFrom(HandleAccess::arena(*this), std::move(decoded), false);
}

const ParseError &DOMDocument40::parseError() const {
    return HandleAccess::arena(*this).parseError;
}

void DOMDocument40::save(const QString &path, const SaveOptions &options) const {
    writeFileAtomically(path, serializeDocument(HandleAccess::arena(*this)), options);
}

QByteArray DOMDocument40::serialize() const {
    return QByteArray::fromStdString(serializeDocument(HandleAccess::arena(*this)));
}

void DOMDocument40::takeFileFormat(const DOMDocument40 &from) {
    HandleAccess::arena(*this).format = HandleAccess::arena(from).format;
}

Node DOMDocument40::node() const {
    return isNull() ? Node()
                    : HandleAccess::node(*this, HandleAccess::arena(*this).documentNumber());
}

quint32 DOMDocument40::maxNodeCount() const {
    return HandleAccess::arena(*this).slotCount();
}

Node DOMDocument40::nodeByNumber(quint32 number) const {
    return HandleAccess::node(*this, number);
}

Node DOMDocument40::documentElement() const {
    Node n = node().firstChild();
    while (n && n.nodeType() != NodeType::Element)
        n = n.nextSibling();
    return n;
}

Node DOMDocument40::setDocumentElement(const Node &element) const {
    if (element.nodeType() != NodeType::Element)
        throw runtime::Error(runtime::error_number::InvalidArgument, texts::NoNode.toString());
    const Node root = documentElement();
    if (root)
        return node().replaceChild(element, root);
    Arena &arena = HandleAccess::arena(*this);
    const RootPlace place = std::exchange(arena.rootPlace, {});
    const bool known = place.valid && (place.next == 0 ||
                                       arena.record(place.next).parent == arena.documentNumber());
    const Node placed =
        node().insertBefore(element, known ? HandleAccess::node(*this, place.next) : Node());
    if (known)
        arena.setLayout(placed.number(), place.layout);
    return placed;
}

Node DOMDocument40::createElement(const QString &name) const {
    Arena &arena = HandleAccess::arena(*this);
    const std::string checked = checkedName(name);
    return HandleAccess::node(*this, arena.add(NodeType::Element, arena.names->intern(checked)));
}

Node DOMDocument40::createAttribute(const QString &name) const {
    Arena &arena = HandleAccess::arena(*this);
    const std::string checked = checkedName(name);
    return HandleAccess::node(*this, arena.add(NodeType::Attribute, arena.names->intern(checked)));
}

namespace {

Node createLeaf(const DOMDocument40 &document, NodeType kind, const std::string &name,
                const QString &data) {
    Arena &arena = HandleAccess::arena(document);
    std::string value = checkedValue(data);
    const Number n = arena.add(kind, arena.names->intern(name));
    arena.setOwnText(n, OwnTextKind::Value, std::move(value));
    arena.writeRecord(n).flags |= record_flag::OwnValue;
    return HandleAccess::node(document, n);
}

/// The data of an XML declaration: version, then at most encoding and standalone.
bool isDeclarationData(const QString &data) {
    const DOMDocument40 probe = DOMDocument40::create();
    return DOMDocument40(probe).loadXML(QStringLiteral("<?xml ") + data + QStringLiteral("?><a/>"));
}

} // namespace

Node DOMDocument40::createTextNode(const QString &data) const {
    return createLeaf(*this, NodeType::Text, {}, data);
}

Node DOMDocument40::createComment(const QString &data) const {
    return createLeaf(*this, NodeType::Comment, {}, data);
}

Node DOMDocument40::createCDATASection(const QString &data) const {
    return createLeaf(*this, NodeType::CDATASection, {}, data);
}

Node DOMDocument40::createProcessingInstruction(const QString &target, const QString &data) const {
    const std::string name = checkedName(target);
    if (target == QLatin1String("xml")) {
        if (!isDeclarationData(data))
            throw runtime::Error(runtime::error_number::Fail, texts::BadDeclaration.toString());
    } else if (target.compare(QLatin1String("xml"), Qt::CaseInsensitive) == 0) {
        throw runtime::Error(runtime::error_number::Fail, texts::ReservedTarget.toString());
    }
    return createLeaf(*this, NodeType::ProcessingInstruction, name, data);
}

Node DOMDocument40::createEntityReference(const QString &name) const {
    Arena &arena = HandleAccess::arena(*this);
    const std::string checked = checkedName(name);
    return HandleAccess::node(*this,
                              arena.add(NodeType::EntityReference, arena.names->intern(checked)));
}

QString DOMDocument40::encoding() const {
    const std::string declared = declaredEncodingOf(HandleAccess::arena(*this));
    return declared.empty() ? QStringLiteral("UTF-8") : QString::fromStdString(declared);
}

DOMDocument40 DOMDocument40::clone() const {
    if (isNull())
        return {};
    return DOMDocument40(Ref<ArenaBase>(new Arena(HandleAccess::arena(*this))));
}

bool DOMDocument40::preserveWhiteSpace() const {
    return HandleAccess::arena(*this).properties.preserveWhiteSpace;
}
void DOMDocument40::setPreserveWhiteSpace(bool on) {
    HandleAccess::arena(*this).properties.preserveWhiteSpace = on;
}

} // namespace quillon::xml
