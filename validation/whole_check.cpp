#include "validation/whole_check.h"

#include "platform/runtime/error.h"
#include "platform/xml/dom/dom.h"
#include "validation/element_faults.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <set>
#include <unordered_map>

namespace quillon::validation {

using xml::Node;
using xml::SchemaError;

namespace {

FaultKind kindOf(qint32 code) {
    namespace error = xml::schema_error;
    switch (code) {
    case error::UndeclaredElement:
    case error::EmptyElement:
    case error::IncompleteContent:
    case error::WrongRoot:
    case error::InvalidContent:
    case error::TextNotAllowed:
        return FaultKind::Content;
    case error::UndefinedAttribute:
    case error::MissingAttribute:
        return FaultKind::Attributes;
    case error::FixedAttribute:
    case error::InvalidAttribute:
    case error::InvalidDatatype:
        return FaultKind::Value;
    default:
        return FaultKind::Other;
    }
}

/// The attribute that is wrong, else the element.
quint32 nodeOf(const SchemaError &error) {
    const Node attribute =
        error.attribute.isEmpty() ? Node() : error.node.getAttributeNode(error.attribute);
    return attribute ? attribute.number() : error.node.number();
}

Fault faultOf(const SchemaError &error) {
    return {.kind = kindOf(error.errorCode),
            .element = error.node.number(),
            .node = nodeOf(error),
            .sentence = QString(error.reason).replace(u'\n', u' '),
            .line = error.line,
            .column = error.column};
}

/// What faults are about: elements, with the kinds of faults that these have.
class Subjects {
public:
    void add(FaultKind kind, quint32 element) { known_.emplace(element, kind); }
    bool has(FaultKind kind, quint32 element) const { return known_.contains({element, kind}); }

private:
    std::set<std::pair<quint32, FaultKind>> known_;
};

/// The places of nodes in document order, by their numbers.
class Order final : public xml::NodeVisitor {
public:
    explicit Order(const xml::DOMDocument40 &document)
        : places_(std::size_t(document.node().number()) + document.maxNodeCount()) {
        xml::visitSubtree(document.node(), *this);
    }
    void enter(quint32 number, xml::NodeType) override { places_[number] = ++last_; }
    void leave() override {}

    quint32 of(quint32 number) const { return number < places_.size() ? places_[number] : 0; }

private:
    std::vector<quint32> places_;
    quint32 last_ = 0;
};

std::vector<Fault> merged(std::vector<Fault> ofGrammar, const std::vector<SchemaError> &errors,
                          bool isExactGrammar) {
    Subjects ofEngine;
    for (const SchemaError &error : errors) {
        ofEngine.add(kindOf(error.errorCode), error.node.number());
        ofEngine.add(kindOf(error.errorCode), nodeOf(error));
    }
    if (!isExactGrammar)
        std::erase_if(ofGrammar, [&](const Fault &fault) {
            return !ofEngine.has(fault.kind, fault.element) &&
                   !ofEngine.has(fault.kind, fault.node);
        });
    Subjects told;
    for (const Fault &fault : ofGrammar) {
        // An engine may name the parent where the grammar names a child, or the other way round.
        told.add(fault.kind, fault.element);
        told.add(fault.kind, fault.node);
    }
    std::vector<Fault> faults = std::move(ofGrammar);
    for (const SchemaError &error : errors) {
        // An engine that names no attribute means any of them.
        if (!told.has(kindOf(error.errorCode), nodeOf(error)))
            faults.push_back(faultOf(error));
    }
    return faults;
}

/// Nothing when there is no verdict: what is wrong with a schema is not the document's fault.
std::optional<std::vector<SchemaError>> errorsBy(const Verdict &verdict,
                                                 const xml::DOMDocument40 &document) {
    if (!verdict)
        return {};
    try {
        std::vector<SchemaError> errors = verdict(document);
        const bool isUnusable = std::ranges::any_of(errors, [](const SchemaError &error) {
            return error.errorCode == xml::schema_error::UnusableSchema;
        });
        std::erase_if(errors, [](const SchemaError &error) { return error.isWarning; });
        if (errors.empty() && isUnusable)
            return {};
        return errors;
    } catch (const runtime::Error &) {
        return {};
    }
}

} // namespace

WholeCheck checkWhole(const xml::DOMDocument40 &document,
                      const std::optional<grammar::Grammar> &grammar, const Verdict &verdict) {
    const std::optional<std::vector<SchemaError>> errors = errorsBy(verdict, document);
    if (errors && errors->empty())
        return {};
    WholeCheck check;
    std::vector<Fault> &faults = check.faults;
    if (grammar)
        faults = ElementFaults(*grammar).in(document);
    check.hasMore = faults.size() > MostFaults;
    if (errors) {
        check.hasMore |= errors->size() > xml::MaxSchemaErrors;
        const bool isExactGrammar = grammar && isExact(grammar->data().language);
        faults = merged(std::move(faults), *errors, isExactGrammar);
    }
    if (!faults.empty()) {
        const Order order(document);
        std::ranges::stable_sort(faults, {}, [&](const Fault &fault) {
            return std::pair(order.of(fault.node), fault.kind);
        });
    }
    faults.resize(std::min(faults.size(), MostFaults));
    return check;
}

QByteArray packed(const WholeCheck &check) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << check.hasMore;
    for (const Fault &fault : check.faults)
        stream << quint8(fault.kind) << fault.isOfGrammar << fault.element << fault.node
               << fault.sentence << fault.line << fault.column;
    return bytes;
}

WholeCheck unpacked(const QByteArray &bytes) {
    WholeCheck check;
    QDataStream stream(bytes);
    stream >> check.hasMore;
    while (!stream.atEnd()) {
        Fault fault;
        quint8 kind = 0;
        stream >> kind >> fault.isOfGrammar >> fault.element >> fault.node >> fault.sentence >>
            fault.line >> fault.column;
        fault.kind = FaultKind(kind);
        check.faults.push_back(std::move(fault));
    }
    return check;
}

} // namespace quillon::validation
