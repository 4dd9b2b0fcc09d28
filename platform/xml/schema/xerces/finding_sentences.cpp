#include "platform/xml/schema/xerces/finding_sentences.h"

#include "platform/xml/dom/qualified_name.h"
#include "platform/xml/schema/xerces/report_kinds.h"
#include "platform/xml/schema/xerces/report_sentences.h"
#include "platform/xml/schema/xerces/value_sentences.h"
#include "resources/schema_fault_texts.h"
#include "resources/validation_texts.h"

#include <algorithm>
#include <xercesc/framework/XMLValidityCodes.hpp>
#include <xercesc/util/XMLExceptMsgs.hpp>

namespace quillon::xml {

using xercesc::XMLExcepts;
using xercesc::XMLValid;
namespace texts = resources::validation_texts;
namespace fault_texts = resources::schema_fault_texts;

namespace {

/// No more of what might have stood somewhere are listed.
constexpr std::size_t MostExpected = 20;
/// Of content models of DTDs, as they are written.
constexpr qsizetype LongestModel = 120;

/// The attribute of an element as it is written there: Xerces may tell the name without a prefix.
Node attributeOf(const Node &element, const QString &name) {
    if (const Node exact = element.getAttributeNode(name))
        return exact;
    for (const Node &attribute : element.attributes().all()) {
        if (localNameOf(attribute.nodeName()) == name)
            return attribute;
    }
    return {};
}

QString withExpected(const QString &reason, const QString &expected) {
    return expected.isEmpty() ? reason : reason + u'\n' + texts::Expecting.toString().arg(expected);
}

/// A content model of a DTD as its author writes it.
QString spaced(QString model) {
    return model.replace(QLatin1String(","), QLatin1String(", "))
        .replace(QLatin1String("|"), QLatin1String(" | "));
}

/// The name that an element of a namespace has at a place, as far as there is a prefix for it.
QString qualifiedName(const grammar::Grammar &grammar, grammar::Index element, const Node &at) {
    const grammar::Name &name = grammar.element(element).name;
    const QString local = grammar.text(name.local).toString();
    const QString space = grammar.text(name.space).toString();
    if (space.isEmpty() || namespaceAt(at, QString()) == space)
        return local;
    if (const QString prefix = prefixOf(at.nodeName()); namespaceAt(at, prefix) == space)
        return prefix + u':' + local;
    for (Node up = at; up.nodeType() == NodeType::Element; up = up.parentNode()) {
        for (const Node &attribute : up.attributes().all()) {
            const QString declared = attribute.nodeName();
            if (declared.startsWith(QLatin1String("xmlns:")) && attribute.nodeValue() == space)
                return declared.sliced(6) + u':' + local;
        }
    }
    return local;
}

QString expectedNames(const grammar::Grammar &grammar, const std::vector<grammar::Index> &expected,
                      const Node &parent) {
    QStringList names;
    for (const grammar::Index element : expected) {
        if (names.size() == MostExpected) {
            names.append(QStringLiteral("…"));
            break;
        }
        names.append(qualifiedName(grammar, element, parent));
    }
    names.removeDuplicates();
    return names.join(QStringLiteral(", "));
}

struct CodeAndReason {
    qint32 code;
    QString reason;
};

/// About the attribute of an element.
CodeAndReason ofAttribute(const Report &report, const QString &attribute, const QString &element,
                          const QString &value) {
    switch (report.code) {
    case XMLValid::RequiredAttrNotProvided:
        return {schema_error::MissingAttribute,
                texts::MissingAttribute.toString().arg(attribute, element)};
    case XMLValid::AttNotDefined:
    case XMLValid::AttNotDefinedForElement:
    case XMLValid::ProhibitedAttributePresent:
    case XMLValid::AttributeNotQualified:
    case XMLValid::AttributeNotUnQualified:
        return {schema_error::UndefinedAttribute,
                texts::UndefinedAttribute.toString().arg(attribute, element)};
    case XMLValid::NotSameAsFixedValue:
        return {schema_error::FixedAttribute,
                texts::FixedAttribute.toString().arg(attribute, element)};
    case XMLValid::UnknownEntityRefAttr:
        return {schema_error::InvalidAttribute,
                texts::UndeclaredEntity.toString().arg(attribute, report.argument(1))};
    case XMLValid::NoDefAttForStandalone:
    case XMLValid::NoAttNormForStandalone:
        return {schema_error::InvalidAttribute,
                texts::StandaloneAttribute.toString().arg(attribute, element)};
    default:
        return {schema_error::InvalidAttribute,
                texts::InvalidAttribute.toString().arg(attribute, element, value)};
    }
}

/// About an element, its type or its text.
CodeAndReason ofElement(const Report &report, const QString &element) {
    const auto with = [&](qint32 code, QStringView text) {
        return CodeAndReason{code, text.toString().arg(element)};
    };
    switch (report.code) {
    case XMLValid::ElementNotDefined:
    case XMLValid::GrammarNotFound:
    case XMLValid::ElementNotQualified:
    case XMLValid::ElementNotUnQualified:
        return with(schema_error::UndeclaredElement, texts::UndeclaredElement);
    case XMLValid::RootElemNotLikeDocType:
        return with(schema_error::WrongRoot, texts::WrongRoot);
    case XMLValid::NoCharDataInCM:
        return with(schema_error::TextNotAllowed, texts::TextNotAllowed);
    case XMLValid::SimpleTypeHasChild:
    case XMLValid::EmptyElemHasContent:
        return with(schema_error::InvalidContent, texts::InvalidContent);
    case XMLValid::FixedDifferentFromActual:
        return with(schema_error::InvalidContent, texts::FixedElement);
    case XMLValid::NillNotAllowed:
    case XMLValid::NilAttrNotEmpty:
        return with(schema_error::InvalidContent, texts::InvalidNil);
    case XMLValid::NoAbstractInXsiType:
    case XMLValid::NoDirectUseAbstractElement:
    case XMLValid::NoUseAbstractType:
        return with(schema_error::InvalidContent, texts::AbstractElement);
    case XMLValid::BadXsiType:
    case XMLValid::NonDerivedXsiType:
        return with(schema_error::InvalidAttribute, texts::InvalidInstanceType);
    case XMLValid::ElemNoSubforBlock:
    case XMLValid::TypeNoSubforBlock:
        return with(schema_error::InvalidContent, texts::BlockedSubstitution);
    case XMLValid::VC_IllegalRefInStandalone:
    case XMLValid::NoWSForStandalone:
    case XMLValid::ElemChildrenHasInvalidWS:
        return with(schema_error::InvalidContent, texts::StandaloneContent);
    case XMLValid::InvalidEmptyAttValue:
    case XMLValid::ColonNotValidWithNS:
    case XMLValid::IllegalXMLSpace:
        return with(schema_error::InvalidAttribute, texts::InvalidAttributes);
    case XMLValid::IC_DuplicateUnique:
    case XMLValid::IC_DuplicateKey:
    case XMLValid::IC_AbsentKeyValue:
    case XMLValid::IC_KeyNotEnoughValues:
    case XMLValid::IC_KeyMatchesNillable:
    case XMLValid::IC_KeyRefOutOfScope:
    case XMLValid::IC_KeyNotFound:
    case XMLValid::IC_FieldMultipleMatch:
    case XMLValid::IC_UnknownField:
        return with(schema_error::InvalidContent, texts::ViolatedKey);
    default:
        return {schema_error::InvalidContent,
                texts::OtherSchemaViolation.toString().arg(element).arg(report.code)};
    }
}

} // namespace

void FindingSentences::add(const Finding &finding, const Node &element,
                           std::vector<SchemaError> &errors) {
    const Report &report = finding.report;
    if (!element) {
        const QString reason =
            finding.declared.isEmpty() ? faultOf(report, {}) : declarationFault(finding);
        errors.push_back({.errorCode = schema_error::InvalidContent, .reason = reason, .node = {}});
    } else if (isOfContent(report)) {
        addContentErrors(finding, element, errors);
    } else {
        errors.push_back(inDocument(finding, element));
    }
}

SchemaError FindingSentences::inDocument(const Finding &finding, const Node &element) {
    const Report &report = finding.report;
    const QString name = element.nodeName();
    SchemaError error{.errorCode = schema_error::InvalidContent, .reason = {}, .node = element};
    if (isUndefinedEntity(report)) {
        error.errorCode = schema_error::UndefinedEntity;
        error.reason = texts::UndefinedEntity.toString().arg(report.argument(0));
    } else if (report.is(ReportDomain::Validity, XMLValid::ReusedIDValue) ||
               report.is(ReportDomain::Value, XMLExcepts::VALUE_ID_Not_Unique)) {
        error.errorCode = schema_error::InvalidAttribute;
        error.reason = texts::DuplicateId.toString().arg(report.argument(0).trimmed(), name);
        error.attribute = finding.attribute;
    } else if (report.domain == ReportDomain::Value) {
        return invalidValue(finding, element);
    } else if (!finding.attribute.isEmpty()) {
        const Node attribute = attributeOf(element, finding.attribute);
        const QString shown = attribute ? attribute.nodeName() : finding.attribute;
        const auto [code, reason] = ofAttribute(
            report, shown, name, shortened(attribute ? attribute.nodeValue() : report.argument(0)));
        error.errorCode = code;
        error.reason = reason;
        // One that is missing is none that is wrong.
        error.attribute = attribute ? shown : QString();
    } else if (report.domain == ReportDomain::Validity) {
        const auto [code, reason] = ofElement(report, name);
        error.errorCode = code;
        error.reason = reason;
    } else {
        error.reason = texts::OtherSchemaViolation.toString().arg(name).arg(report.code);
    }
    return error;
}

SchemaError FindingSentences::invalidValue(const Finding &finding, const Node &element) {
    const QString name = element.nodeName();
    const Node attribute = finding.inTag ? attributeOf(element, finding.attribute) : Node();
    SchemaError error{.errorCode = schema_error::InvalidDatatype, .reason = {}, .node = element};
    if (finding.inTag && !attribute) {
        error.errorCode = schema_error::InvalidAttribute;
        error.reason = texts::InvalidAttributes.toString().arg(name);
        return error;
    }
    const Declarations::Declared declared = declarations_.of(element);
    const grammar::Grammar *const grammar = declared ? &declared.grammar() : nullptr;
    const grammar::SimpleType *const type =
        attribute ? declarations_.typeOfAttribute(declared, element, attribute.nodeName())
                  : declarations_.typeOfText(declared);
    const QString detail = facetDetail(finding.report, grammar, type);
    const bool isOfBuiltIn = detail.isEmpty() && type && type->variety == grammar::Variety::Atomic;
    const QString builtIn =
        isOfBuiltIn ? QStringLiteral("xs:%1").arg(grammar->text(type->builtIn)) : QString();
    if (attribute) {
        error.errorCode = schema_error::InvalidAttribute;
        error.attribute = attribute.nodeName();
        error.reason = texts::InvalidAttributeValue.toString().arg(
                           name, error.attribute, shortened(attribute.nodeValue())) +
                       (isOfBuiltIn ? texts::ExpectedType.toString().arg(builtIn) : detail);
        return error;
    }
    const QString value = shortened(element.text());
    error.reason = isOfBuiltIn ? texts::InvalidDatatype.toString().arg(value, builtIn, name)
                               : texts::InvalidElementValue.toString().arg(name, value) + detail;
    return error;
}

void FindingSentences::addContentErrors(const Finding &finding, const Node &parent,
                                        std::vector<SchemaError> &errors) {
    const QString name = parent.nodeName();
    const Declarations::Declared declared = declarations_.of(parent);
    const bool byDtd = declared && declared.grammar().data().language == grammar::Language::Dtd;
    // A long one helps nobody.
    const QString whole =
        spaced(finding.report.arguments.value(finding.report.arguments.size() - 1));
    const QString model = byDtd && whole.size() <= LongestModel ? whole : QString();
    const std::size_t known = errors.size();
    if (declared) {
        const grammar::NamedChildren children = namedChildren(declared.grammar(), parent);
        const grammar::ContentRun run = declared.matcher->run(declared.known.type, children.names);
        for (const grammar::ContentFault &fault : run.faults()) {
            if (errors.size() - known > MaxSchemaErrors)
                break;
            const QString expected = expectedNames(declared.grammar(), fault.expected, parent);
            if (fault.child < children.nodes.size()) {
                const Node &child = children.nodes[fault.child];
                errors.push_back(
                    {.errorCode = schema_error::InvalidContent,
                     .reason = withExpected(
                         texts::UnexpectedElement.toString().arg(name, child.nodeName()), expected),
                     .node = child});
                continue;
            }
            SchemaError error{
                .errorCode = schema_error::IncompleteContent,
                .reason = withExpected(texts::IncompleteContent.toString().arg(name), expected),
                .node = parent};
            if (byDtd && children.nodes.empty() && parent.text().trimmed().isEmpty()) {
                error.errorCode = schema_error::EmptyElement;
                error.reason = withExpected(texts::EmptyElement.toString().arg(name),
                                            model.isEmpty() ? expected : model);
            } else if (byDtd) {
                error.errorCode = schema_error::InvalidContent;
                error.reason = withExpected(texts::InvalidContent.toString().arg(name),
                                            model.isEmpty() ? expected : model);
            }
            errors.push_back(error);
        }
    }
    // Entities may hold what is wrong.
    if (errors.size() == known)
        errors.push_back({.errorCode = schema_error::InvalidContent,
                          .reason = withExpected(texts::InvalidContent.toString().arg(name), model),
                          .node = parent});
}

QString declarationFault(const Finding &finding) {
    const Report &report = finding.report;
    const QString &element = finding.declared;
    const QString &attribute = finding.attribute;
    const auto bad = [&] { return fault_texts::BadDefault.toString().arg(element, attribute); };
    if (report.domain != ReportDomain::Validity)
        return faultOf(report, {});
    switch (report.code) {
    case XMLValid::RepElemInMixed:
        return fault_texts::RepeatedInMixed.toString().arg(element);
    case XMLValid::ElementAlreadyExists:
        return fault_texts::DuplicateElement.toString().arg(element);
    case XMLValid::BadIDAttrDefType:
        return fault_texts::IdWithDefault.toString().arg(element, attribute);
    case XMLValid::MultipleIdAttrs:
        return fault_texts::SeveralIds.toString().arg(element);
    case XMLValid::DoesNotMatchEnumList:
        return fault_texts::DefaultNotInSet.toString().arg(element, attribute, report.argument(0));
    case XMLValid::AttrValNotName:
    case XMLValid::NoMultipleValues:
    case XMLValid::InvalidEmptyAttValue:
    case XMLValid::ColonNotValidWithNS:
    case XMLValid::BadEntityRefAttr:
    case XMLValid::UnknownEntityRefAttr:
    case XMLValid::IllegalXMLSpace:
        return bad();
    case XMLValid::UnknownNotRefAttr:
        return fault_texts::UndeclaredNotation.toString().arg(report.argument(1));
    case XMLValid::EmptyElemNotationAttr:
        return fault_texts::NotationOfEmpty.toString().arg(element, attribute);
    case XMLValid::ElemOneNotationAttr:
        return fault_texts::SeveralNotations.toString().arg(element);
    case XMLValid::AttrDupToken:
        return fault_texts::DuplicateToken.toString().arg(report.argument(1));
    default:
        return faultOf(report, {});
    }
}

} // namespace quillon::xml
