#include "platform/xml/schema/xerces/report_kinds.h"

#include <xercesc/framework/XMLErrorCodes.hpp>
#include <xercesc/framework/XMLValidityCodes.hpp>

namespace quillon::xml {

using xercesc::XMLErrs;
using xercesc::XMLValid;

bool isOfContent(const Report &report) {
    return report.domain == ReportDomain::Validity &&
           (report.code == XMLValid::ElementNotValidForContent ||
            report.code == XMLValid::EmptyNotValidForContent ||
            report.code == XMLValid::NotEnoughElemsForCM);
}

bool isOfKeys(const Report &report) {
    return report.domain == ReportDomain::Validity &&
           report.code >= XMLValid::IC_FieldMultipleMatch &&
           report.code <= XMLValid::IC_KeyNotFound;
}

bool isUndefinedEntity(const Report &report) {
    return report.is(ReportDomain::Error, XMLErrs::EntityNotFound) ||
           report.is(ReportDomain::Validity, XMLValid::VC_EntityNotFound);
}

bool isOfText(const Report &report) {
    return isUndefinedEntity(report) || (report.domain == ReportDomain::Validity &&
                                         (report.code == XMLValid::NoCharDataInCM ||
                                          report.code == XMLValid::NoWSForStandalone ||
                                          report.code == XMLValid::ElemChildrenHasInvalidWS ||
                                          report.code == XMLValid::VC_IllegalRefInStandalone));
}

bool isUndeclared(const Report &report) {
    return report.domain == ReportDomain::Validity &&
           (report.code == XMLValid::ElementNotDefined ||
            report.code == XMLValid::GrammarNotFound ||
            report.code == XMLValid::ElementNotQualified ||
            report.code == XMLValid::ElementNotUnQualified);
}

QString attributeNamedBy(const Report &report) {
    if (report.domain != ReportDomain::Validity)
        return {};
    switch (report.code) {
    case XMLValid::AttNotDefined:
    case XMLValid::RequiredAttrNotProvided:
    case XMLValid::UnknownNotRefAttr:
    case XMLValid::AttNotDefinedForElement:
    case XMLValid::UnknownEntityRefAttr:
    case XMLValid::NoMultipleValues:
    case XMLValid::NotSameAsFixedValue:
    case XMLValid::ProhibitedAttributePresent:
    case XMLValid::NoDatatypeValidatorForAttribute:
    case XMLValid::NoDefAttForStandalone:
    case XMLValid::NoAttNormForStandalone:
    case XMLValid::AttributeNotQualified:
    case XMLValid::AttributeNotUnQualified:
        return report.argument(0);
    case XMLValid::BadEntityRefAttr:
    case XMLValid::DoesNotMatchEnumList:
    case XMLValid::AttrValNotName:
        return report.argument(1);
    default:
        return {};
    }
}

} // namespace quillon::xml
