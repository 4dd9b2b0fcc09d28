#include "platform/xml/schema/xerces/part_resolver.h"

#include "platform/xml/engine/document_type.h"
#include "platform/xml/schema/schema_error.h"
#include "platform/xml/schema/xerces/xerces_library.h"
#include "resources/validation_texts.h"

#include <QFileInfo>
#include <QUrl>

#include <xercesc/util/XMLResourceIdentifier.hpp>
#include <xercesc/util/XMLUni.hpp>

namespace quillon::xml {

using xercesc::XMLResourceIdentifier;

namespace {

/// Keeps the text that it hands out without copying it.
class TextSource final : public xercesc::MemBufInputSource {
public:
    TextSource(const QByteArray &utf8, const QString &address)
        : MemBufInputSource(reinterpret_cast<const XMLByte *>(utf8.constData()),
                            XMLSize_t(utf8.size()), toXerces(address)),
          text_(utf8) {
        setCopyBufToStream(false);
        setEncoding(xercesc::XMLUni::fgUTF8EncodingString);
    }

private:
    QByteArray text_;
};

/// Addresses in schemas are those of files, but need not be written as addresses.
QString resolved(const QString &base, const QString &address) {
    return QUrl(base).resolved(QUrl(address)).toString(QUrl::FullyEncoded);
}

} // namespace

std::unique_ptr<xercesc::InputSource> inputOf(const QByteArray &utf8, const QString &address) {
    return std::make_unique<TextSource>(utf8, address);
}

QString PartResolver::pathOf(const QString &address) const {
    if (const auto copy = copies_.constFind(address); copy != copies_.constEnd())
        return *copy;
    // The schemas themselves may stand anywhere.
    const QUrl url(address);
    if (url.isLocalFile()) {
        for (const XsdSource &schema : schemas_) {
            if (QFileInfo(schema.path).absoluteFilePath() == url.toLocalFile())
                return schema.path;
        }
    }
    const QString path = parts_.find(address);
    return path.isEmpty() && url.isLocalFile()
               ? AllowedFolders(copyFolders_).find(url.toLocalFile())
               : path;
}

QString PartResolver::copyOf(const QStringList &names) {
    for (const QString &name : names) {
        const QString path = catalog_ && !name.isEmpty() ? catalog_(name) : QString();
        if (path.isEmpty())
            continue;
        const QString address =
            QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()).toString(QUrl::FullyEncoded);
        copies_.insert(address, path);
        copyFolders_.append(QFileInfo(path).absolutePath());
        return address;
    }
    return {};
}

std::unique_ptr<xercesc::InputSource> PartResolver::opened(const QString &path,
                                                           const QString &address) const {
    const QByteArray text = SchemaParts::read(path);
    return text.isNull() ? nullptr : inputOf(text, address);
}

std::unique_ptr<xercesc::InputSource> PartResolver::openedSchema(const QString &address) const {
    const QString path = pathOf(address);
    const QByteArray text = SchemaParts::read(path);
    if (text.isNull())
        return nullptr;
    // Xerces counts no entities where it reads schemas.
    if (text.contains("<!ENTITY") && !parseWithSubset({}, text))
        raiseSchemaError(QFileInfo(path).fileName(), 0,
                         resources::validation_texts::ExpansionLimit.toString());
    return inputOf(text, address);
}

QString PartResolver::imported(const QString &address, const QString &namespaceName) {
    if (!address.isEmpty() && !pathOf(address).isEmpty())
        return address;
    if (const QString builtIn = builtInSchemaFor(namespaceName); !builtIn.isEmpty())
        return builtIn;
    for (const XsdSource &schema : schemas_) {
        if (schema.namespaceName == namespaceName)
            return QUrl::fromLocalFile(schema.path).toString(QUrl::FullyEncoded);
    }
    return copyOf({address, namespaceName});
}

xercesc::InputSource *PartResolver::resolveEntity(XMLResourceIdentifier *wanted) {
    const QString name = fromXerces(wanted->getSystemId());
    if (wanted->getResourceIdentifierType() == XMLResourceIdentifier::ExternalEntity)
        return entity(name, fromXerces(wanted->getPublicId()), fromXerces(wanted->getBaseURI()))
            .release();
    QString address = name.isEmpty() ? QString() : resolved(fromXerces(wanted->getBaseURI()), name);
    switch (wanted->getResourceIdentifierType()) {
    case XMLResourceIdentifier::SchemaImport: {
        const QString space = fromXerces(wanted->getNameSpace());
        address = imported(address, space);
        const QString what = name.isEmpty() ? space : name;
        if (address.isEmpty() && !missingImports_.contains(what))
            missingImports_.append(what);
        return openedSchema(address).release();
    }
    case XMLResourceIdentifier::SchemaInclude:
    case XMLResourceIdentifier::SchemaRedefine: {
        if (pathOf(address).isEmpty())
            address = copyOf({address});
        auto source = openedSchema(address);
        if (!source && missingPart_.isNull())
            missingPart_ = name;
        return source.release();
    }
    default:
        // What a document says of where its schemas are is a hint.
        return openedSchema(address).release();
    }
}

std::unique_ptr<xercesc::InputSource>
PartResolver::entity(const QString &name, const QString &publicId, const QString &base) {
    const bool isDtd = !dtdName_.isNull() && name == dtdName_;
    if (isDtd && dtdPath_.isEmpty())
        return inputOf(QByteArray(), QString());
    QString address =
        isDtd ? parts_.addressOf(QFileInfo(dtdPath_).fileName()) : resolved(base, name);
    if (!isDtd && pathOf(address).isEmpty()) {
        if (const QString copy = copyOf({publicId, address}); !copy.isEmpty())
            address = copy;
    }
    if (auto source = opened(isDtd ? dtdPath_ : pathOf(address), address))
        return source;
    if (missingEntity_.isNull())
        missingEntity_ = QFileInfo(QUrl(name).path()).fileName();
    // No answer would end the reading of what refers to it.
    return inputOf(QByteArray(), address);
}

} // namespace quillon::xml
