#include "platform/xml/engine/libxml_tree.h"

#include "platform/xml/engine/document_type.h"
#include "platform/xml/engine/libxml_handles.h"
#include "platform/xml/engine/libxml_walk.h"
#include "platform/xml/storage/values.h"

#include <algorithm>
#include <deque>
#include <libxml/parserInternals.h>

namespace quillon::xml {

namespace {

/// libxml2 leaves the field to its users, who may keep a number in it.
void *asPrivate(std::uintptr_t ordinal) {
    return reinterpret_cast<void *>(ordinal);
}

/// As written, prefix and all.
template <typename T>
std::string qualifiedName(const T *node) {
    const std::string local(view(node->name));
    return node->ns && node->ns->prefix ? std::string(view(node->ns->prefix)) + ':' + local : local;
}

LibxmlTree::Ordinal fromPrivate(const void *field) {
    return static_cast<LibxmlTree::Ordinal>(reinterpret_cast<std::uintptr_t>(field));
}

} // namespace

/// Makes the copy in one walk over the document, without recursion.
class LibxmlTree::Writer {
public:
    Writer(const Arena &arena, LibxmlTree &tree) : arena_(arena), tree_(tree) {
        scopes_["xml"].push_back(&tree.xmlNamespace_);
    }

    void write();

private:
    /// The declarations of one prefix that are in force, the innermost last.
    using Scope = std::vector<xmlNs *>;

    struct Name {
        const xmlChar *whole = nullptr;
        const xmlChar *local = nullptr;
        bool hasPrefix = false;
        bool isDeclaration = false;
        /// For a declaration, the one of the prefix that it declares.
        Scope *scope = nullptr;
    };

    template <typename T>
    T *make() {
        return new (tree_.nodes_.allocate(sizeof(T), alignof(T))) T();
    }
    xmlChar *copyText(std::string_view text);
    /// Good until the next one is asked for.
    std::string_view value(Number n) { return valueView(arena_, n, buffer_); }
    void *newOrdinal(Number n);
    const Name &name(std::uint32_t id);
    static xmlNs *namespaceOf(const Name &name);

    xmlNode *addNode(xmlElementType type, Number n);
    void addElement(Number n);
    void addNamespaceDeclarations(xmlNode *element, Number n);
    void addAttribute(xmlNode *element, xmlAttr *&last, Number n, const Name &name);
    void addCharacters(xmlElementType type, const xmlChar *name, Number n,
                       std::string_view content);
    void add(Number n);
    void leave();

    const Arena &arena_;
    LibxmlTree &tree_;
    /// The node whose children are being added: an element, or the document.
    xmlNode *current_ = nullptr;
    std::unordered_map<std::string_view, Scope> scopes_;
    /// By number of the name; in a deque for references that hold.
    std::deque<Name> names_;
    std::string buffer_;
};

xmlChar *LibxmlTree::Writer::copyText(std::string_view text) {
    auto *copy = static_cast<char *>(tree_.texts_.allocate(text.size() + 1, 1));
    text.copy(copy, text.size());
    copy[text.size()] = '\0';
    return reinterpret_cast<xmlChar *>(copy);
}

void *LibxmlTree::Writer::newOrdinal(Number n) {
    tree_.numbers_.push_back(n);
    return asPrivate(tree_.numbers_.size());
}

const LibxmlTree::Writer::Name &LibxmlTree::Writer::name(std::uint32_t id) {
    if (names_.size() <= id)
        names_.resize(id + 1);
    Name &name = names_[id];
    if (name.whole)
        return name;
    const std::string_view text = arena_.names->utf8(id);
    const std::size_t colon = text.find(':');
    const std::string_view prefix = text.substr(0, colon == text.npos ? 0 : colon);
    // The texts of the name table end in a null byte.
    name.whole = name.local = utf8(text.data());
    name.hasPrefix = colon != text.npos;
    if (name.hasPrefix)
        name.local += colon + 1;
    name.isDeclaration = text == "xmlns" || prefix == "xmlns";
    name.scope = &scopes_[prefix == "xmlns" ? text.substr(colon + 1) : prefix];
    return name;
}

xmlNs *LibxmlTree::Writer::namespaceOf(const Name &name) {
    // An empty address takes a declaration back.
    if (name.scope->empty() || *name.scope->back()->href == 0)
        return nullptr;
    return name.scope->back();
}

xmlNode *LibxmlTree::Writer::addNode(xmlElementType type, Number n) {
    auto *node = make<xmlNode>();
    node->_private = newOrdinal(n);
    node->type = type;
    node->doc = &tree_.document_;
    node->parent = current_;
    node->prev = current_->last;
    if (current_->last)
        current_->last->next = node;
    else
        current_->children = node;
    current_->last = node;
    return node;
}

void LibxmlTree::Writer::addNamespaceDeclarations(xmlNode *element, Number n) {
    xmlNs *last = nullptr;
    for (Number a = arena_.part(n).firstAttribute; a != 0; a = arena_.record(a).next) {
        const Name &declared = name(arena_.record(a).name);
        if (!declared.isDeclaration)
            continue;
        auto *declaration = make<xmlNs>();
        declaration->type = XML_LOCAL_NAMESPACE;
        declaration->href = copyText(value(a));
        declaration->prefix = declared.hasPrefix ? declared.local : nullptr;
        (last ? last->next : element->nsDef) = declaration;
        last = declaration;
        declared.scope->push_back(declaration);
        if (declaration->prefix && *declaration->href != 0)
            tree_.firstDeclarations_.emplace(view(declaration->prefix), declaration);
    }
}

void LibxmlTree::Writer::addAttribute(xmlNode *element, xmlAttr *&last, Number n,
                                      const Name &name) {
    auto *attribute = make<xmlAttr>();
    attribute->_private = newOrdinal(n);
    attribute->type = XML_ATTRIBUTE_NODE;
    attribute->doc = &tree_.document_;
    attribute->parent = element;
    attribute->ns = name.hasPrefix ? namespaceOf(name) : nullptr;
    attribute->name = attribute->ns ? name.local : name.whole;
    attribute->prev = last;
    (last ? last->next : element->properties) = attribute;
    last = attribute;

    auto *text = make<xmlNode>();
    text->type = XML_TEXT_NODE;
    text->name = xmlStringText;
    text->doc = &tree_.document_;
    text->parent = reinterpret_cast<xmlNode *>(attribute);
    text->content = copyText(value(n));
    attribute->children = attribute->last = text;
}

void LibxmlTree::Writer::addElement(Number n) {
    xmlNode *element = addNode(XML_ELEMENT_NODE, n);
    // Where libxml2 itself notes the document order of elements, negative (xmlXPathOrderDocElems).
    element->content = static_cast<xmlChar *>(asPrivate(-tree_.numbers_.size()));
    addNamespaceDeclarations(element, n);
    const Name &elementName = name(arena_.record(n).name);
    element->ns = namespaceOf(elementName);
    element->name = element->ns ? elementName.local : elementName.whole;

    xmlAttr *last = nullptr;
    xmlNs *declaration = element->nsDef;
    for (Number a = arena_.part(n).firstAttribute; a != 0; a = arena_.record(a).next) {
        const Name &attributeName = name(arena_.record(a).name);
        if (attributeName.isDeclaration) {
            declaration->_private = newOrdinal(a);
            declaration = declaration->next;
        } else {
            addAttribute(element, last, a, attributeName);
        }
    }
    current_ = element;
}

void LibxmlTree::Writer::addCharacters(xmlElementType type, const xmlChar *nodeName, Number n,
                                       std::string_view content) {
    xmlNode *node = addNode(type, n);
    node->name = nodeName;
    node->content = copyText(content);
}

void LibxmlTree::Writer::add(Number n) {
    const Record &r = arena_.record(n);
    switch (r.kind) {
    case NodeType::Element:
        addElement(n);
        break;
    case NodeType::Text:
        addCharacters(XML_TEXT_NODE, xmlStringText, n, value(n));
        break;
    case NodeType::CDATASection:
        addCharacters(XML_CDATA_SECTION_NODE, nullptr, n, value(n));
        break;
    case NodeType::EntityReference:
        addCharacters(XML_TEXT_NODE, xmlStringText, n,
                      entityText(arena_.names->utf8(r.name), *arena_.entities));
        break;
    case NodeType::Comment:
        addCharacters(XML_COMMENT_NODE, xmlStringComment, n, value(n));
        break;
    case NodeType::ProcessingInstruction:
        if (arena_.names->utf8(r.name) != "xml")
            addCharacters(XML_PI_NODE, name(r.name).whole, n, value(n));
        break;
    default:
        break;
    }
}

void LibxmlTree::Writer::leave() {
    for (const xmlNs *declaration = current_->nsDef; declaration; declaration = declaration->next)
        scopes_[view(declaration->prefix)].pop_back();
    current_ = current_->parent;
}

void LibxmlTree::Writer::write() {
    const Number top = arena_.documentNumber();
    tree_.document_._private = newOrdinal(top);
    // The two start with the same fields, by which libxml2 takes any node for any other.
    current_ = reinterpret_cast<xmlNode *>(&tree_.document_);
    for (Number n = arena_.part(top).firstChild; n != 0;) {
        add(n);
        const bool isElement = arena_.record(n).kind == NodeType::Element;
        if (isElement && arena_.part(n).firstChild != 0) {
            n = arena_.part(n).firstChild;
            continue;
        }
        if (isElement)
            leave();
        while (n != top && arena_.record(n).next == 0) {
            n = arena_.record(n).parent;
            if (n != top)
                leave();
        }
        n = n == top ? 0 : arena_.record(n).next;
    }
}

LibxmlTree::LibxmlTree(const Arena &arena) : names_(arena.names) {
    numbers_.reserve(arena.slotCount());
    xmlNamespace_.type = XML_LOCAL_NAMESPACE;
    xmlNamespace_.href = XML_XML_NAMESPACE;
    xmlNamespace_.prefix = utf8("xml");
    document_.type = XML_DOCUMENT_NODE;
    document_.doc = &document_;
    document_.standalone = -1;
    document_.oldNs = &xmlNamespace_;
    Writer(arena, *this).write();
}

LibxmlTree::~LibxmlTree() {
    if (document_.ids)
        xmlFreeIDTable(static_cast<xmlIDTablePtr>(document_.ids));
}

void LibxmlTree::indexIdentifiers(const QByteArray &documentType) {
    const IdentifierNames declared = identifierNames(documentType);
    const xmlNode *top = reinterpret_cast<const xmlNode *>(&document_);
    for (const xmlNode *node = top; node; node = followingNode(node)) {
        for (xmlAttr *at = node->type == XML_ELEMENT_NODE ? node->properties : nullptr; at;
             at = at->next) {
            const bool isXmlId = at->ns == &xmlNamespace_ && xmlStrEqual(at->name, utf8("id"));
            if (isXmlId || declared.contains({qualifiedName(node), qualifiedName(at)}))
                xmlAddID(nullptr, &document_, at->children->content, at);
        }
    }
}

xmlNode *LibxmlTree::find(Number number) {
    const auto found = std::find(numbers_.begin(), numbers_.end(), number);
    if (found == numbers_.end())
        return nullptr;
    const auto wanted = static_cast<Ordinal>(found - numbers_.begin()) + 1;
    auto *node = reinterpret_cast<xmlNode *>(&document_);
    while (fromPrivate(node->_private) != wanted) {
        // The last child that does not come after the wanted node is it, or is above it.
        xmlNode *child = node->children;
        if (!child || fromPrivate(child->_private) > wanted) {
            xmlAttr *attribute = node->type == XML_ELEMENT_NODE ? node->properties : nullptr;
            while (attribute && fromPrivate(attribute->_private) != wanted)
                attribute = attribute->next;
            return reinterpret_cast<xmlNode *>(attribute);
        }
        while (child->next && fromPrivate(child->next->_private) <= wanted)
            child = child->next;
        node = child;
    }
    return node;
}

const xmlNs *LibxmlTree::firstDeclarationOf(std::string_view prefix) const {
    const auto found = firstDeclarations_.find(prefix);
    return found == firstDeclarations_.end() ? nullptr : found->second;
}

LibxmlTree::Ordinal LibxmlTree::ordinalOf(const xmlNode *node) {
    if (node->type != XML_NAMESPACE_DECL)
        return fromPrivate(node->_private);
    // A namespace node is a copy of the declaration which names the element it was asked for.
    const auto *ns = reinterpret_cast<const xmlNs *>(node);
    const auto *element = reinterpret_cast<const xmlNode *>(ns->next);
    for (; element && element->type == XML_ELEMENT_NODE; element = element->parent) {
        for (const xmlNs *at = element->nsDef; at; at = at->next) {
            if (view(at->prefix) == view(ns->prefix))
                return *at->href == 0 ? 0 : fromPrivate(at->_private);
        }
    }
    return 0;
}

} // namespace quillon::xml
