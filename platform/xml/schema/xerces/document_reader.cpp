#include "platform/xml/schema/xerces/document_reader.h"

#include "platform/xml/schema/xerces/key_paths.h"
#include "platform/xml/schema/xerces/report_kinds.h"

#include <algorithm>
#include <limits>
#include <xercesc/framework/XMLAttr.hpp>
#include <xercesc/framework/XMLErrorCodes.hpp>
#include <xercesc/framework/XMLGrammarPool.hpp>
#include <xercesc/framework/XMLValidityCodes.hpp>
#include <xercesc/framework/psvi/PSVIAttribute.hpp>
#include <xercesc/framework/psvi/PSVIAttributeList.hpp>
#include <xercesc/framework/psvi/PSVIElement.hpp>
#include <xercesc/framework/psvi/XSSimpleTypeDefinition.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLChar.hpp>
#include <xercesc/validators/DTD/DTDAttDef.hpp>
#include <xercesc/validators/DTD/DTDElementDecl.hpp>
#include <xercesc/validators/common/Grammar.hpp>
#include <xercesc/validators/schema/SchemaElementDecl.hpp>

namespace quillon::xml {

using xercesc::XMLErrs;
using xercesc::XMLUni;
using xercesc::XMLValid;

namespace {

/// Beyond this depth each further element takes Xerces longer.
constexpr std::size_t MaxDepth = 20'000;
constexpr quint64 BaseExpansion = 16 << 20;
constexpr quint64 ExpansionPerByte = 4;
/// Each reference takes some bytes.
constexpr quint64 BaseReferences = 100'000;
constexpr quint64 BytesPerReference = 3;
/// More than are kept in the end: content models are reported when an element ends.
constexpr std::size_t MaxFindings = 4'000;

/// Ends the reading.
struct Stop {};

/// Whether a default value, if there is one, may be one of an attribute's type. Xerces looks at
/// that where the attribute is left out.
bool isDefault(const xercesc::DTDAttDef &attribute, const QString &value) {
    using xercesc::XMLAttDef;
    using xercesc::XMLChar1_0;
    if (!attribute.getValue())
        return true;
    const QStringList tokens = value.simplified().split(u' ');
    const auto isName = [](const QString &token) {
        return XMLChar1_0::isValidName(toXerces(token), XMLSize_t(token.size()));
    };
    const auto isToken = [](const QString &token) {
        return XMLChar1_0::isValidNmtoken(toXerces(token), XMLSize_t(token.size()));
    };
    switch (attribute.getType()) {
    case XMLAttDef::NmToken:
        return tokens.size() == 1 && isToken(tokens.front());
    case XMLAttDef::NmTokens:
        return std::ranges::all_of(tokens, isToken);
    case XMLAttDef::IDRef:
    case XMLAttDef::Entity:
        return tokens.size() == 1 && isName(tokens.front());
    case XMLAttDef::IDRefs:
    case XMLAttDef::Entities:
        return std::ranges::all_of(tokens, isName);
    default:
        return true;
    }
}

bool refersToIdentifiers(xercesc::XSTypeDefinition *type) {
    using xercesc::XSSimpleTypeDefinition;
    constexpr int MaxDerivations = 100;
    for (int i = 0; type && i < MaxDerivations; ++i) {
        if (type->getTypeCategory() == xercesc::XSTypeDefinition::COMPLEX_TYPE)
            return false;
        auto *simple = static_cast<XSSimpleTypeDefinition *>(type);
        const QString name = fromXerces(type->getName());
        if (name == QLatin1String("IDREF") || name == QLatin1String("IDREFS"))
            return true;
        xercesc::XSTypeDefinition *const item =
            simple->getVariety() == XSSimpleTypeDefinition::VARIETY_LIST ? simple->getItemType()
                                                                         : nullptr;
        xercesc::XSTypeDefinition *const next = item ? item : type->getBaseType();
        if (next == type)
            return false;
        type = next;
    }
    return false;
}

} // namespace

DocumentReader::DocumentReader(Language language, PartResolver &resolver,
                               xercesc::XMLGrammarPool &grammars)
    : SAX2XMLReaderImpl(xercesc::XMLPlatformUtils::fgMemoryManager, &grammars), language_(language),
      resolver_(resolver), limits_(std::make_unique<xercesc::SecurityManager>()) {
    const bool byXsd = language == Language::Xsd;
    // Without these Xerces calls none of its own functions that are overridden here.
    setContentHandler(&noHandler_);
    setErrorHandler(&noHandler_);
    setLexicalHandler(&noHandler_);
    setDeclarationHandler(&noHandler_);
    setXMLEntityResolver(&resolver);
    setProperty(XMLUni::fgXercesSecurityManager, limits_.get());
    setFeature(XMLUni::fgXercesDisableDefaultEntityResolution, true);
    setFeature(XMLUni::fgSAX2CoreValidation, true);
    setFeature(XMLUni::fgXercesDynamic, false);
    // A DTD knows names as they are written.
    setFeature(XMLUni::fgSAX2CoreNameSpaces, byXsd);
    setFeature(XMLUni::fgXercesSchema, byXsd);
    setFeature(XMLUni::fgXercesSchemaFullChecking, byXsd);
    setFeature(XMLUni::fgXercesIdentityConstraintChecking, byXsd);
    setFeature(XMLUni::fgXercesHandleMultipleImports, true);
    setFeature(XMLUni::fgXercesSkipDTDValidation, byXsd);
    setFeature(XMLUni::fgXercesUseCachedGrammarInParse, byXsd);
    // A reference to what is not defined is one error among others; all else stops in error().
    setFeature(XMLUni::fgXercesContinueAfterFatalError, true);
}

void DocumentReader::loadSchema(const QByteArray &utf8, const QString &address,
                                const std::function<void(const Report &)> &fault) {
    fault_ = fault;
    loadGrammar(*inputOf(utf8, address), xercesc::Grammar::SchemaGrammarType, true);
    fault_ = {};
}

void DocumentReader::tellMore(const std::set<QString> &danglingIdentifiers) {
    tellsMore_ = true;
    wanted_ = danglingIdentifiers;
    if (language_ == Language::Xsd)
        setPSVIHandler(this);
}

void DocumentReader::read(const QByteArray &utf8, const QString &address, const QString &dtdPath,
                          bool followsHints) {
    const auto size = quint64(utf8.size());
    dtdPath_ = dtdPath;
    expansionLimit_ = BaseExpansion + ExpansionPerByte * size;
    limits_->setEntityExpansionLimit(XMLSize_t(BaseReferences + size / BytesPerReference));
    setFeature(XMLUni::fgXercesLoadSchema, followsHints);
    try {
        parse(*inputOf(utf8, address));
    } catch (const Stop &) {
    }
}

void DocumentReader::error(unsigned int code, const XMLCh *domain, ErrTypes type,
                           const XMLCh *sentence, const XMLCh *systemId, const XMLCh *,
                           XMLFileLoc line, XMLFileLoc column) {
    Report report;
    report.domain = domainOf(domain);
    report.code = int(code);
    report.arguments = argumentsIn(sentence, report.domain, report.code);
    report.isWarning = type == ErrType_Warning;
    report.isFatal = type == ErrType_Fatal;
    report.file = fromXerces(systemId);
    report.line = int(line);
    report.column = int(column);
    if (fault_) {
        fault_(report);
        return;
    }
    if (report.is(ReportDomain::Error, XMLErrs::EntityExpansionLimitExceeded))
        throw TooMuch();
    if (report.isFatal && !isUndefinedEntity(report)) {
        syntaxFault_ = report;
        throw Stop();
    }
    if (report.isWarning || undeclaredDepth_ > 0)
        return;
    if (report.is(ReportDomain::Validity, XMLValid::IDNotDeclared)) {
        dangling_.insert(report.argument(0));
    } else if (!isOfText(report) || open_.empty()) {
        pending_.push_back(std::move(report));
    } else if (isUndefinedEntity(report) || open_.back().hasTellableText) {
        // Text in several pieces is one error.
        open_.back().hasTellableText = open_.back().hasTellableText && isUndefinedEntity(report);
        keep({.report = std::move(report), .element = open_.back().position});
    }
}

void DocumentReader::startElement(const xercesc::XMLElementDecl &declaration, unsigned int,
                                  const XMLCh *,
                                  const xercesc::RefVectorOf<xercesc::XMLAttr> &attributes,
                                  XMLSize_t count, bool isEmpty, bool isRoot) {
    if (open_.size() > MaxDepth)
        throw TooMuch();
    keepUnnamed();
    OpenElement element{entityDepth_ == 0 ? count_++ : open_.empty() ? 0 : open_.back().position};
    if (declaration.getObjectType() == xercesc::XMLElementDecl::Schema) {
        const auto &schema = static_cast<const xercesc::SchemaElementDecl &>(declaration);
        if (schema.getIdentityConstraintCount() > 0)
            element.keys = &schema;
    }
    open_.push_back(element);
    if (tellsMore_ && language_ == Language::Dtd) {
        for (XMLSize_t i = 0; i < count; ++i) {
            const xercesc::XMLAttr &attribute = *attributes.elementAt(i);
            if (attribute.getType() == xercesc::XMLAttDef::IDRef ||
                attribute.getType() == xercesc::XMLAttDef::IDRefs)
                noteReferences(fromXerces(attribute.getValue()), fromXerces(attribute.getQName()));
        }
    }
    if (isRoot)
        claimDefaults(attributes, count);
    if (!pending_.empty())
        claimForTag(open_.back());
    if (open_.back().isUndeclared)
        ++undeclaredDepth_;
    // Nobody tells of its end where names have no namespaces.
    if (isEmpty)
        closeElement();
}

void DocumentReader::claimDefaults(const xercesc::RefVectorOf<xercesc::XMLAttr> &attributes,
                                   XMLSize_t count) {
    const auto isWritten = [&](const QString &name) {
        for (XMLSize_t i = 0; i < count; ++i) {
            if (attributes.elementAt(i)->getSpecified() &&
                fromXerces(attributes.elementAt(i)->getQName()) == name)
                return true;
        }
        return false;
    };
    // Some rules for declarations are looked at when all are there.
    std::erase_if(pending_, [&](Report &report) {
        if (report.domain != ReportDomain::Validity)
            return false;
        if (report.code == XMLValid::MultipleIdAttrs ||
            report.code == XMLValid::EmptyElemNotationAttr ||
            report.code == XMLValid::ElemOneNotationAttr) {
            const QString element = report.argument(0);
            keep({.report = report, .attribute = report.argument(1), .declared = element});
            return true;
        }
        if (report.code != XMLValid::DoesNotMatchEnumList || isWritten(report.argument(1)))
            return false;
        const auto declared = defaults_.find({report.argument(1), report.argument(0)});
        if (declared == defaults_.end())
            return false;
        keep({.report = report, .attribute = report.argument(1), .declared = declared->second});
        return true;
    });
}

void DocumentReader::claimForTag(OpenElement &element) {
    std::vector<Report> reports = std::move(pending_);
    pending_.clear();
    // A root of another name is one error, declared or not.
    if (std::ranges::any_of(reports, [](const Report &report) {
            return report.is(ReportDomain::Validity, XMLValid::RootElemNotLikeDocType);
        }))
        std::erase_if(reports, isUndeclared);
    const auto undeclared = std::ranges::find_if(reports, isUndeclared);
    if (undeclared != reports.end()) {
        // What else is said of it, and of what stands in it, follows from this.
        element.isUndeclared = language_ == Language::Xsd;
        keep({.report = *undeclared, .element = element.position, .inTag = true});
        return;
    }
    for (Report &report : reports) {
        Finding finding{.report = std::move(report), .element = element.position, .inTag = true};
        finding.attribute = attributeNamedBy(finding.report);
        noteScope(finding);
        // Which attribute it is, Xerces tells next, if at all.
        if (tellsMore_ && finding.report.domain == ReportDomain::Value)
            unnamed_.push_back(std::move(finding));
        else
            keep(std::move(finding));
    }
}

void DocumentReader::keepUnnamed() {
    for (Finding &finding : unnamed_)
        keep(std::move(finding));
    unnamed_.clear();
}

void DocumentReader::endElement(const xercesc::XMLElementDecl &, unsigned int, bool,
                                const XMLCh *) {
    closeElement();
}

void DocumentReader::closeElement() {
    keepUnnamed();
    if (!pending_.empty())
        claim(open_.back().position);
    if (open_.back().isUndeclared)
        --undeclaredDepth_;
    open_.pop_back();
}

void DocumentReader::claim(qint64 position) {
    for (Report &report : pending_) {
        Finding finding{.report = std::move(report), .element = position};
        noteScope(finding);
        keep(std::move(finding));
    }
    pending_.clear();
}

void DocumentReader::endDocument() {
    keepUnnamed();
    claim(-1);
}

void DocumentReader::docCharacters(const XMLCh *, XMLSize_t length, bool) {
    if (entityDepth_ == 0)
        return;
    expanded_ += length;
    if (expanded_ > expansionLimit_)
        throw TooMuch();
}

void DocumentReader::startEntityReference(const xercesc::XMLEntityDecl &) {
    ++entityDepth_;
}

void DocumentReader::endEntityReference(const xercesc::XMLEntityDecl &) {
    --entityDepth_;
}

void DocumentReader::doctypeDecl(const xercesc::DTDElementDecl &, const XMLCh *,
                                 const XMLCh *systemId, bool, bool) {
    resolver_.setDtd(fromXerces(systemId), dtdPath_);
}

void DocumentReader::elementDecl(const xercesc::DTDElementDecl &declaration, bool) {
    claimForDeclaration(fromXerces(declaration.getFullName()), {});
}

void DocumentReader::attDef(const xercesc::DTDElementDecl &element,
                            const xercesc::DTDAttDef &attribute, bool) {
    const QString elementName = fromXerces(element.getFullName());
    const QString name = fromXerces(attribute.getFullName());
    const QString value = fromXerces(attribute.getValue());
    defaults_.insert({{name, value}, elementName});
    if (!isDefault(attribute, value)) {
        Report report;
        report.domain = ReportDomain::Validity;
        report.code = XMLValid::AttrValNotName;
        report.arguments = {value, name};
        pending_.push_back(report);
    }
    claimForDeclaration(elementName, name);
}

void DocumentReader::claimForDeclaration(const QString &element, const QString &attribute) {
    for (Report &report : pending_)
        keep({.report = std::move(report), .attribute = attribute, .declared = element});
    pending_.clear();
}

void DocumentReader::handleAttributesPSVI(const XMLCh *, const XMLCh *,
                                          xercesc::PSVIAttributeList *attributes) {
    // Values are looked at one after the other.
    auto next = unnamed_.begin();
    for (XMLSize_t i = 0; i < attributes->getLength(); ++i) {
        xercesc::PSVIAttribute *const attribute = attributes->getAttributePSVIAtIndex(i);
        const QString name = fromXerces(attributes->getAttributeNameAtIndex(i));
        if (refersToIdentifiers(attribute->getTypeDefinition()))
            noteReferences(fromXerces(attribute->getSchemaNormalizedValue()), name);
        const bool isInvalid = attribute->getValidity() == xercesc::PSVIItem::VALIDITY_INVALID &&
                               attribute->getTypeDefinition();
        if (isInvalid && next != unnamed_.end() && !hasOwnReport(name))
            (next++)->attribute = name;
    }
    keepUnnamed();
}

bool DocumentReader::hasOwnReport(const QString &attribute) const {
    // Those of this tag were kept last.
    for (auto at = findings_.rbegin();
         at != findings_.rend() && at->inTag && at->element == open_.back().position; ++at) {
        if (at->attribute.section(u':', -1) == attribute)
            return true;
    }
    return false;
}

void DocumentReader::handleElementPSVI(const XMLCh *, const XMLCh *,
                                       xercesc::PSVIElement *element) {
    if (refersToIdentifiers(element->getTypeDefinition()))
        noteReferences(fromXerces(element->getSchemaNormalizedValue()), {});
}

void DocumentReader::noteReferences(const QString &value, const QString &attribute) {
    for (const QString &token : value.simplified().split(u' ')) {
        if (wanted_.contains(token))
            references_.push_back({open_.back().position, attribute, token});
    }
}

void DocumentReader::noteScope(Finding &finding) {
    if (!isOfKeys(finding.report))
        return;
    const auto holds = [&](const OpenElement &element) {
        return element.keys && (finding.report.argument(0).isEmpty() ||
                                fromXerces(element.keys->getBaseName()) ==
                                    finding.report.argument(0).section(u':', -1));
    };
    auto scope = std::find_if(open_.rbegin(), open_.rend(), holds);
    if (scope == open_.rend())
        return;
    finding.scope = scope->position;
    if (!constraints_.contains(scope->position))
        constraints_[scope->position] = identityConstraints(
            *scope->keys, [this](unsigned uri) { return fromXerces(getURIText(uri)); });
}

void DocumentReader::keep(Finding finding) {
    findings_.push_back(std::move(finding));
    if (findings_.size() < 2 * MaxFindings)
        return;
    std::ranges::stable_sort(findings_, {}, &Finding::element);
    findings_.resize(MaxFindings);
}

} // namespace quillon::xml
