#pragma once

#include "platform/xml/dom/dom.h"
#include "platform/xml/engine/libxml_handles.h"
#include "platform/xml/schema/schema_parts.h"

#include <QHash>

#include <functional>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>

namespace quillon::xml {

/// By what name libxml2 knows the document, as a file of the schema's folder.
inline const QString DocumentName = QStringLiteral("document.xml");

/// libxml2 set up for one validation: while the object lives, all that libxml2 reports goes to one
/// function, and all that it wants to read comes from some folders or not at all. Only one such
/// object at a time.
class SchemaSession {
public:
    using Report = std::function<void(const xmlError &)>;

    /// `schemaPath` is the schema itself; its folder is the base of relative names. Everything else
    /// is looked up in the other folders first.
    SchemaSession(const QString &schemaPath, const QStringList &partFolders);
    ~SchemaSession();
    SchemaSession(const SchemaSession &) = delete;
    SchemaSession &operator=(const SchemaSession &) = delete;

    /// Where reports go from now on.
    Report report;

    /// What is done to the text, in UTF-8, of each file that is read from now on, given its
    /// address.
    std::function<QByteArray(const QByteArray &text, const QString &address)> prepare;
    /// Whether there is a file to be read at an address.
    bool finds(const QString &address) const { return !parts_.find(address).isEmpty(); }

    /// The name of the first file that was wanted and not there; null for none.
    const QString &missing() const { return missing_; }

    /// A file of the schema's folder as the address by which libxml2 knows it.
    QByteArray addressOf(const QString &fileName) const {
        return parts_.addressOf(fileName).toLatin1();
    }

    /// Parses a document, with the DTD that it names when `loadDtd`, and puts entities in their
    /// places. Null after a syntax error, which has been reported. Raises Fail when entities expand
    /// beyond bounds. Elements that stand in the document itself, not in an entity, are numbered
    /// for elementIndex().
    XmlDocument parse(QByteArray utf8, bool loadDtd);

    /// The 0-based position, among the elements of the document parsed last in document order, of
    /// the element that an error is about, or that a node stands in; -1 when unknown.
    qint64 elementIndex(const xmlError &error) const;
    static qint64 elementIndex(const xmlNode *node);

private:
    static xmlParserInput *openEntity(const char *url, const char *id, xmlParserCtxt *context);
    static xmlParserInput *resolveEntity(void *context, const xmlChar *publicId,
                                         const xmlChar *systemId);
    static void startElement(void *context, const xmlChar *name, const xmlChar *prefix,
                             const xmlChar *uri, int namespaceCount, const xmlChar **namespaces,
                             int attributeCount, int defaultCount, const xmlChar **attributes);
    static xmlEntity *getEntity(void *context, const xmlChar *name);
    static xmlEntity *getParameterEntity(void *context, const xmlChar *name);

    xmlParserInput *open(const QString &path, const QByteArray &url, xmlParserCtxt *context) const;
    QByteArray contentOf(const xmlEntity *entity) const;
    quint64 expandedSize(const xmlEntity *entity, int depth);
    void expand(quint64 size, void *context);

    SchemaParts parts_;
    QString missing_;
    xmlExternalEntityLoader loaderBefore_;
    xmlStructuredErrorFunc reportBefore_;
    void *reportContextBefore_;

    xmlParserCtxt *context_ = nullptr;
    xmlSAXHandler original_{};
    qint64 elementCount_ = 0;
    /// Entities are replaced by this many bytes in all at most.
    quint64 expansionLimit_ = 0;
    quint64 expanded_ = 0;
    /// What each entity stands for, counted once.
    QHash<const xmlEntity *, quint64> sizes_;
};

} // namespace quillon::xml
