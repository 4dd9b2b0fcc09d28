#pragma once

#include "platform/xml/schema/xerces/identity_constraint.h"
#include "platform/xml/schema/xerces/part_resolver.h"
#include "platform/xml/schema/xerces/xerces_library.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <xercesc/framework/psvi/PSVIHandler.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>

XERCES_CPP_NAMESPACE_BEGIN
class SchemaElementDecl;
XERCES_CPP_NAMESPACE_END

namespace quillon::xml {

/// A report about a document, with the element that it is about.
struct Finding {
    Report report;
    /// The 0-based position of the element in document order; -1 for none.
    qint64 element = -1;
    /// It is about the start tag: the element's name, its attributes.
    bool inTag = false;
    /// The qualified name of the attribute; empty when it is about none, or that is not known.
    QString attribute = {};
    /// For a declaration in a DTD: the element that it is for.
    QString declared = {};
    /// For keys: the element that has them; -1 for other reports.
    qint64 scope = -1;
};

/// An attribute or element that refers to an identifier which nothing has.
struct DanglingReference {
    qint64 element = -1;
    /// Empty when it is the element itself.
    QString attribute;
    QString identifier;
};

/// What is thrown when a schema, a document or what its entities stand for is more than Xerces
/// manages in a sensible time.
struct TooMuch {};

/// Reads a document with Xerces and collects what is wrong with it. Positions count the elements
/// that stand in the document itself, not in entities.
class DocumentReader : private xercesc::SAX2XMLReaderImpl, private xercesc::PSVIHandler {
public:
    enum class Language : quint8 { Dtd, Xsd };

    /// `grammars` keeps what loadSchema() has read, for other readers too.
    DocumentReader(Language language, PartResolver &resolver, xercesc::XMLGrammarPool &grammars);
    ~DocumentReader() override = default;

    /// Reads a schema; what is wrong with it goes to a function.
    void loadSchema(const QByteArray &utf8, const QString &address,
                    const std::function<void(const Report &)> &fault);

    /// Has the reading tell which attributes are wrong, and what refers to these identifiers; it
    /// takes longer then.
    void tellMore(const std::set<QString> &danglingIdentifiers);
    /// Reads a document. `dtdPath`: the DTD that it names; `followsHints`: schemas that it names
    /// are read, too. Throws TooMuch.
    void read(const QByteArray &utf8, const QString &address, const QString &dtdPath,
              bool followsHints);

    /// At most about `MaxFindings` of them, those of the first elements.
    std::vector<Finding> &findings() { return findings_; }
    /// Identifiers that are referred to and that nothing has.
    const std::set<QString> &danglingIdentifiers() const { return dangling_; }
    const std::vector<DanglingReference> &danglingReferences() const { return references_; }
    /// What ended the reading; nothing when it came to the end of the document.
    const std::optional<Report> &syntaxFault() const { return syntaxFault_; }
    /// The keys of the elements that findings name as their scope.
    const std::map<qint64, std::vector<IdentityConstraint>> &constraints() const {
        return constraints_;
    }

private:
    struct OpenElement {
        qint64 position;
        /// The schema knows nothing of what stands in it.
        bool isUndeclared = false;
        bool hasTellableText = true;
        const xercesc::SchemaElementDecl *keys = nullptr;
    };

    // What Xerces calls.
    void error(unsigned int code, const XMLCh *domain, ErrTypes type, const XMLCh *sentence,
               const XMLCh *systemId, const XMLCh *publicId, XMLFileLoc line,
               XMLFileLoc column) override;
    void startElement(const xercesc::XMLElementDecl &declaration, unsigned int uri,
                      const XMLCh *prefix, const xercesc::RefVectorOf<xercesc::XMLAttr> &attributes,
                      XMLSize_t count, bool isEmpty, bool isRoot) override;
    void endElement(const xercesc::XMLElementDecl &declaration, unsigned int uri, bool isRoot,
                    const XMLCh *prefix) override;
    void docCharacters(const XMLCh *text, XMLSize_t length, bool isCData) override;
    void ignorableWhitespace(const XMLCh *, XMLSize_t, bool) override {}
    void docComment(const XMLCh *) override {}
    void docPI(const XMLCh *, const XMLCh *) override {}
    void startEntityReference(const xercesc::XMLEntityDecl &entity) override;
    void endEntityReference(const xercesc::XMLEntityDecl &entity) override;
    void endDocument() override;
    void doctypeDecl(const xercesc::DTDElementDecl &root, const XMLCh *publicId,
                     const XMLCh *systemId, bool hasInternalSubset,
                     bool hasExternalSubset) override;
    void elementDecl(const xercesc::DTDElementDecl &declaration, bool isIgnored) override;
    void attDef(const xercesc::DTDElementDecl &element, const xercesc::DTDAttDef &attribute,
                bool isIgnored) override;
    void handleElementPSVI(const XMLCh *localName, const XMLCh *uri,
                           xercesc::PSVIElement *element) override;
    void handleAttributesPSVI(const XMLCh *localName, const XMLCh *uri,
                              xercesc::PSVIAttributeList *attributes) override;

    void claimForTag(OpenElement &element);
    void claimDefaults(const xercesc::RefVectorOf<xercesc::XMLAttr> &attributes, XMLSize_t count);
    void closeElement();
    void keepUnnamed();
    /// Of the attributes of the element that was opened last, by their local names.
    bool hasOwnReport(const QString &attribute) const;
    void claimForDeclaration(const QString &element, const QString &attribute);
    void claim(qint64 position);
    void keep(Finding finding);
    void noteReferences(const QString &value, const QString &attribute);
    void noteScope(Finding &finding);

    const Language language_;
    PartResolver &resolver_;
    xercesc::DefaultHandler noHandler_;
    std::unique_ptr<xercesc::SecurityManager> limits_;
    std::function<void(const Report &)> fault_;
    QString dtdPath_;
    bool tellsMore_ = false;
    std::set<QString> wanted_;

    qint64 count_ = 0;
    int entityDepth_ = 0;
    int undeclaredDepth_ = 0;
    quint64 expanded_ = 0;
    quint64 expansionLimit_ = 0;
    std::vector<OpenElement> open_;
    /// Reports that belong to what Xerces tells of next.
    std::vector<Report> pending_;
    /// What was found in the values of the last tag, until Xerces tells which attributes are wrong.
    std::vector<Finding> unnamed_;

    /// The element that a default value is declared for, by attribute and value.
    std::map<std::pair<QString, QString>, QString> defaults_;

    std::vector<Finding> findings_;
    std::set<QString> dangling_;
    std::vector<DanglingReference> references_;
    std::optional<Report> syntaxFault_;
    std::map<qint64, std::vector<IdentityConstraint>> constraints_;
};

} // namespace quillon::xml
