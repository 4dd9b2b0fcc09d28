#include "platform/xml/schema/xerces/key_paths.h"

#include "platform/xml/schema/xerces/xerces_library.h"

#include <xercesc/validators/schema/SchemaElementDecl.hpp>
#include <xercesc/validators/schema/identity/IC_Field.hpp>
#include <xercesc/validators/schema/identity/IC_KeyRef.hpp>
#include <xercesc/validators/schema/identity/IC_Selector.hpp>
#include <xercesc/validators/schema/identity/XercesXPath.hpp>

namespace quillon::xml {

namespace {

using UriText = std::function<QString(unsigned)>;

KeyStep stepOf(const xercesc::XercesStep &from, const UriText &uriText) {
    using xercesc::XercesNodeTest;
    using xercesc::XercesStep;
    KeyStep step;
    switch (from.getAxisType()) {
    case XercesStep::AxisType_CHILD:
        step.axis = KeyStep::Axis::Child;
        break;
    case XercesStep::AxisType_ATTRIBUTE:
        step.axis = KeyStep::Axis::Attribute;
        break;
    case XercesStep::AxisType_DESCENDANT:
        step.axis = KeyStep::Axis::Descendants;
        break;
    default:
        step.axis = KeyStep::Axis::Self;
    }
    const XercesNodeTest *const test = from.getNodeTest();
    if (!test)
        return step;
    step.anyName = test->getType() != XercesNodeTest::NodeType_QNAME;
    step.anyNamespace = step.anyName && test->getType() != XercesNodeTest::NodeType_NAMESPACE;
    if (const xercesc::QName *const name = test->getName()) {
        step.namespaceName = uriText(name->getURI());
        step.localName = fromXerces(name->getLocalPart());
    }
    return step;
}

KeyPath pathOf(const xercesc::XercesXPath &from, const UriText &uriText) {
    KeyPath path;
    const auto &alternatives = *from.getLocationPaths();
    for (XMLSize_t i = 0; i < alternatives.size(); ++i) {
        const xercesc::XercesLocationPath &steps = *alternatives.elementAt(i);
        path.emplace_back();
        for (XMLSize_t k = 0; k < steps.getStepSize(); ++k)
            path.back().push_back(stepOf(*steps.getStep(k), uriText));
    }
    return path;
}

std::vector<KeyPath> fieldsOf(const xercesc::IdentityConstraint &from, const UriText &uriText) {
    std::vector<KeyPath> fields;
    for (XMLSize_t i = 0; i < from.getFieldCount(); ++i)
        fields.push_back(pathOf(*from.getFieldAt(i)->getXPath(), uriText));
    return fields;
}

} // namespace

std::vector<IdentityConstraint> identityConstraints(const xercesc::SchemaElementDecl &element,
                                                    const UriText &uriText) {
    using Kind = IdentityConstraint::Kind;
    std::vector<IdentityConstraint> constraints;
    for (XMLSize_t i = 0; i < element.getIdentityConstraintCount(); ++i) {
        const xercesc::IdentityConstraint &from = *element.getIdentityConstraintAt(i);
        IdentityConstraint constraint;
        constraint.name = fromXerces(from.getIdentityConstraintName());
        constraint.selector = pathOf(*from.getSelector()->getXPath(), uriText);
        constraint.fields = fieldsOf(from, uriText);
        constraint.kind =
            from.getType() == xercesc::IdentityConstraint::ICType_KEY ? Kind::Key : Kind::Unique;
        if (from.getType() == xercesc::IdentityConstraint::ICType_KEYREF) {
            constraint.kind = Kind::Reference;
            const auto *key = static_cast<const xercesc::IC_KeyRef &>(from).getKey();
            constraint.keyName = fromXerces(key->getIdentityConstraintName());
            constraint.keySelector = pathOf(*key->getSelector()->getXPath(), uriText);
            constraint.keyFields = fieldsOf(*key, uriText);
        }
        constraints.push_back(std::move(constraint));
    }
    return constraints;
}

} // namespace quillon::xml
