#include "platform/xml/transform/xslt_source.h"

#include "platform/xml/dom/dom.h"
#include "platform/xml/engine/document_type.h"
#include "platform/xml/transform/xslt.h"
#include "platform/xml/transform/xslt_source_part.h"

#include <QHash>
#include <QList>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <libxml/parser.h>
#include <libxml/valid.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>
#include <libxslt/extensions.h>
#include <memory>
#include <string>
#include <vector>

namespace quillon::xml {

namespace {

/// What a libxml2 node remembers of the DOM node it was made from.
struct Origin {
    /// 1-based among all children of the parent, at most 2^28; 0 for an attribute.
    std::uintptr_t position;
    NodeType type;
    /// Node::number().
    quint32 number = 0;

    void store(void *&slot) const {
        static_assert(sizeof(slot) == 8);
        slot = reinterpret_cast<void *>(std::uintptr_t(number) << 32 | position << 4 |
                                        std::uintptr_t(type));
    }
    static Origin read(const void *slot) {
        const auto value = reinterpret_cast<std::uintptr_t>(slot);
        return {(value & 0xFFFFFFFF) >> 4, NodeType(value & 15), quint32(value >> 32)};
    }
};

bool declaresNamespace(const QByteArray &attribute) {
    return attribute == "xmlns" || attribute.startsWith("xmlns:");
}

/// The prefix that a namespace declaration binds; empty for the default namespace.
QByteArray boundPrefix(const QByteArray &attribute) {
    return attribute.mid(qsizetype(std::size("xmlns:")) - 1);
}

class SourceBuilder : public PartVisitor {
public:
    SourceBuilder(const Node &top, SourceView view, const QByteArray &baseUrl);

    void enter(quint32 number, NodeType kind) override;
    void leave() override;
    void pass(const ChildRun &run) override;
    XmlDocument take() { return std::move(result_); }

private:
    struct Attribute {
        QByteArray name;
        QByteArray value;
    };
    struct Level {
        xmlNodePtr node;
        std::uintptr_t children = 0;
        std::size_t namespacesOutside = 0;
    };

    void inheritNamespaces(const Node &top);
    void finishTag();
    void declare(xmlNodePtr element, const Attribute &declaration);
    void addAttribute(xmlNodePtr element, const Attribute &attribute);
    /// The declaration in force for the prefix of a qualified name, and the local name. Without
    /// one the whole name is local: an undeclared prefix is no error in the DOM.
    xmlNsPtr findNamespace(const QByteArray &qualified, bool isAttribute, QByteArray &local) const;
    xmlNodePtr newChild(const Node &node, NodeType kind);
    void append(xmlNodePtr child, const Origin &origin);
    void appendReplacement(const QByteArray &entity);

    DOMDocument40 document_;
    SourceView view_;
    QByteArray documentType_;
    XmlDocument result_;
    /// The open nodes; the document is the first.
    std::vector<Level> levels_;
    /// Whether each node entered and not left opened a level.
    std::vector<bool> opened_;
    std::vector<xmlNsPtr> namespaces_;
    bool tagOpen_ = false;
    std::vector<Attribute> attributes_;
    std::vector<Attribute> inherited_;
    QHash<QByteArray, std::shared_ptr<xmlDoc>> replacements_;
};

SourceBuilder::SourceBuilder(const Node &top, SourceView view, const QByteArray &baseUrl)
    : document_(top.ownerDocument()), view_(view), documentType_(documentTypeOf(document_)) {
    if (!documentType_.isEmpty())
        result_ = parseWithSubset(documentType_, "<root/>");
    if (result_) {
        // The declarations stay: they say which attributes are identifiers.
        xmlNodePtr root = xmlDocGetRootElement(result_.get());
        xmlUnlinkNode(root);
        xmlFreeNode(root);
    } else {
        result_.reset(xmlNewDoc(utf8("1.0")));
    }
    xmlFree(const_cast<xmlChar *>(result_->URL));
    result_->URL = xmlStrdup(utf8(baseUrl));
    Origin{1, NodeType::Document}.store(result_->_private);
    levels_.push_back({reinterpret_cast<xmlNodePtr>(result_.get())});
    if (top.nodeType() == NodeType::Element)
        inheritNamespaces(top);
}

void SourceBuilder::inheritNamespaces(const Node &top) {
    for (Node outer = top.parentNode(); outer; outer = outer.parentNode()) {
        const AttributeMap attributes = outer.attributes();
        for (int i = 0; i < attributes.length(); ++i) {
            const Node attribute = attributes.item(i);
            const QByteArray name = attribute.nodeName().toUtf8();
            const auto sameName = [&](const Attribute &inner) { return inner.name == name; };
            if (declaresNamespace(name) &&
                std::none_of(inherited_.begin(), inherited_.end(), sameName))
                inherited_.push_back({name, attribute.nodeValue().toUtf8()});
        }
    }
}

void SourceBuilder::enter(quint32 number, NodeType kind) {
    const Node node = document_.nodeByNumber(number);
    opened_.push_back(false);
    if (kind == NodeType::Document)
        return;
    if (kind == NodeType::Attribute) {
        attributes_.push_back({node.nodeName().toUtf8(), node.nodeValue().toUtf8()});
        return;
    }
    finishTag();
    const Origin origin{++levels_.back().children, kind, node.number()};
    if (kind == NodeType::EntityReference && view_ == SourceView::XPath)
        return appendReplacement(node.nodeName().toUtf8());
    xmlNodePtr child = newChild(node, kind);
    if (!child)
        return;
    append(child, origin);
    if (kind == NodeType::Element) {
        opened_.back() = true;
        levels_.push_back({child, 0, namespaces_.size()});
        tagOpen_ = true;
    }
}

void SourceBuilder::leave() {
    if (opened_.back()) {
        finishTag();
        namespaces_.resize(levels_.back().namespacesOutside);
        levels_.pop_back();
    }
    opened_.pop_back();
}

void SourceBuilder::pass(const ChildRun &run) {
    finishTag();
    std::uintptr_t &children = levels_.back().children;
    const bool isKept = run.kind == ChildRun::Kind::Kept;
    const QByteArray value = isKept ? QByteArray::number(run.last) : run.label.toUtf8();
    append(xmlNewDocPI(result_.get(), utf8(isKept ? "kept" : "more"), utf8(value)),
           {children + 1, NodeType::None, run.first});
    children += run.count;
}

xmlNodePtr SourceBuilder::newChild(const Node &node, NodeType kind) {
    xmlDocPtr document = result_.get();
    const QByteArray name = node.nodeName().toUtf8();
    const QByteArray value = node.nodeValue().toUtf8();
    switch (kind) {
    case NodeType::Element:
        // Gets its namespace when its declarations are known.
        return xmlNewDocRawNode(document, nullptr, utf8(name), nullptr);
    case NodeType::Text:
        return xmlNewDocText(document, utf8(value));
    case NodeType::CDATASection:
        return view_ == SourceView::Dom ? xmlNewCDataBlock(document, utf8(value), int(value.size()))
                                        : xmlNewDocText(document, utf8(value));
    case NodeType::EntityReference:
        return xmlNewDocText(document, utf8('&' + name + ';'));
    case NodeType::Comment:
        return xmlNewDocComment(document, utf8(value));
    case NodeType::ProcessingInstruction:
        if (name == "xml" && view_ == SourceView::XPath)
            return nullptr;
        return xmlNewDocPI(document, utf8(name), utf8(value));
    case NodeType::DocumentType:
        return view_ == SourceView::Dom ? xmlNewDocPI(document, utf8(name), nullptr) : nullptr;
    default:
        return nullptr;
    }
}

void SourceBuilder::append(xmlNodePtr child, const Origin &origin) {
    origin.store(child->_private);
    xmlNodePtr parent = levels_.back().node;
    if (view_ == SourceView::XPath) {
        // Joins text to text before it, as XPath wants it.
        xmlAddChild(parent, child);
        return;
    }
    child->parent = parent;
    child->prev = parent->last;
    (parent->last ? parent->last->next : parent->children) = child;
    parent->last = child;
}

void SourceBuilder::appendReplacement(const QByteArray &entity) {
    auto replacement = replacements_.find(entity);
    if (replacement == replacements_.end()) {
        XmlDocument parsed = parseWithSubset(documentType_, "<root>&" + entity + ";</root>");
        replacement = replacements_.insert(entity, std::shared_ptr<xmlDoc>(std::move(parsed)));
    }
    xmlNodePtr root = xmlDocGetRootElement(replacement->get());
    for (xmlNodePtr node = root ? root->children : nullptr; node; node = node->next) {
        xmlNodePtr copy = xmlDocCopyNode(node, result_.get(), 1);
        if (copy)
            xmlAddChild(levels_.back().node, copy);
    }
}

void SourceBuilder::finishTag() {
    if (!tagOpen_)
        return;
    tagOpen_ = false;
    xmlNodePtr element = levels_.back().node;
    for (const Attribute &attribute : attributes_) {
        if (declaresNamespace(attribute.name))
            declare(element, attribute);
    }
    // A second declaration of the same prefix is not taken, so the element's own come first.
    for (const Attribute &declaration : inherited_)
        declare(element, declaration);
    inherited_.clear();
    QByteArray local;
    if (xmlNsPtr found = findNamespace(QByteArray(bytes(element->name)), false, local)) {
        xmlNodeSetName(element, utf8(local));
        xmlSetNs(element, found);
    }
    for (const Attribute &attribute : attributes_)
        addAttribute(element, attribute);
    attributes_.clear();
}

void SourceBuilder::declare(xmlNodePtr element, const Attribute &declaration) {
    const QByteArray prefix = boundPrefix(declaration.name);
    // Null when the element declares this prefix already.
    xmlNsPtr made =
        xmlNewNs(element, utf8(declaration.value), prefix.isEmpty() ? nullptr : utf8(prefix));
    if (made)
        namespaces_.push_back(made);
}

void SourceBuilder::addAttribute(xmlNodePtr element, const Attribute &attribute) {
    const bool declaration = declaresNamespace(attribute.name);
    if (declaration && view_ == SourceView::XPath)
        return;
    QByteArray local = attribute.name;
    xmlNsPtr found = declaration ? nullptr : findNamespace(attribute.name, true, local);
    xmlAttrPtr made = xmlNewNsProp(element, found, utf8(local), utf8(attribute.value));
    if (!made)
        return;
    Origin{0, NodeType::Attribute}.store(made->_private);
    if (xmlIsID(result_.get(), element, made) == 1)
        xmlAddID(nullptr, result_.get(), utf8(attribute.value), made);
}

xmlNsPtr SourceBuilder::findNamespace(const QByteArray &qualified, bool isAttribute,
                                      QByteArray &local) const {
    const qsizetype colon = qualified.indexOf(':');
    const QByteArray prefix = colon < 0 ? QByteArray() : qualified.left(colon);
    local = qualified;
    if (prefix.isEmpty() && isAttribute)
        return nullptr;
    xmlNsPtr found = nullptr;
    for (auto it = namespaces_.rbegin(); it != namespaces_.rend() && !found; ++it) {
        if (prefix == bytes((*it)->prefix))
            found = *it;
    }
    if (!found && prefix == "xml")
        found = xmlSearchNs(result_.get(), levels_.back().node, utf8("xml"));
    // An empty name takes the default namespace back.
    if (!found || !found->href || !*found->href)
        return nullptr;
    local = qualified.mid(colon + 1);
    return found;
}

/// The first node of the set on the stack, when it comes from the source; takes the set away.
const xmlNode *sourceArgument(xmlXPathParserContextPtr context, int count) {
    if (count != 1 || !context->value || context->value->type != XPATH_NODESET) {
        xmlXPathErr(context, count == 1 ? XPATH_INVALID_TYPE : XPATH_INVALID_ARITY);
        return nullptr;
    }
    using XPathObject = std::unique_ptr<xmlXPathObject, Releaser<xmlXPathFreeObject>>;
    const XPathObject set(valuePop(context));
    if (!set->nodesetval || set->nodesetval->nodeNr == 0)
        return nullptr;
    const xmlNode *node = set->nodesetval->nodeTab[0];
    const xsltTransformContext *transform = xsltXPathGetTransformContext(context);
    // A namespace node is another structure.
    const bool ours =
        node->type != XML_NAMESPACE_DECL && transform && node->doc == transform->initialContextDoc;
    return ours ? node : nullptr;
}

void getPath(xmlXPathParserContextPtr context, int count) {
    const xmlNode *node = sourceArgument(context, count);
    if (context->error != XPATH_EXPRESSION_OK)
        return;
    // Kept from call to call: a path is as long as the document is deep, and every element asks for
    // its own.
    static std::vector<std::uintptr_t> positions;
    static std::string path;
    positions.clear();
    for (; node; node = node->parent) {
        const Origin origin = Origin::read(node->_private);
        if (origin.position == 0) {
            // An attribute, or what an entity reference stands for.
            positions.clear();
            break;
        }
        positions.push_back(origin.position);
    }
    path.clear();
    for (auto position = positions.rbegin(); position != positions.rend(); ++position) {
        std::array<char, 16> digits;
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), *position).ptr;
        if (!path.empty())
            path += '.';
        path.append(digits.data(), end);
    }
    valuePush(context, xmlXPathNewString(utf8(path.c_str())));
}

void nodeType(xmlXPathParserContextPtr context, int count) {
    const xmlNode *node = sourceArgument(context, count);
    if (context->error != XPATH_EXPRESSION_OK)
        return;
    const NodeType type = node ? Origin::read(node->_private).type : NodeType::None;
    valuePush(context, xmlXPathNewFloat(double(type)));
}

void nodeNumber(xmlXPathParserContextPtr context, int count) {
    const xmlNode *node = sourceArgument(context, count);
    if (context->error != XPATH_EXPRESSION_OK)
        return;
    valuePush(context, xmlXPathNewFloat(node ? double(Origin::read(node->_private).number) : 0));
}

} // namespace

XmlDocument buildSource(const Node &node, SourceView view, const QByteArray &baseUrl,
                        const DocumentPart *part) {
    SourceBuilder builder(node, view, baseUrl);
    if (part && view == SourceView::Dom)
        visitPart(node, *part, builder);
    else
        visitSubtree(node, builder);
    XmlDocument source = builder.take();
    // Lets XPath put nodes in document order by comparing numbers.
    xmlXPathOrderDocElems(source.get());
    return source;
}

void registerDomFunctions() {
    xsltRegisterExtModuleFunction(utf8("getPath"), utf8(DomFunctionsNamespace), getPath);
    xsltRegisterExtModuleFunction(utf8("nodeType"), utf8(DomFunctionsNamespace), nodeType);
    xsltRegisterExtModuleFunction(utf8("nodeNumber"), utf8(DomFunctionsNamespace), nodeNumber);
}

} // namespace quillon::xml
