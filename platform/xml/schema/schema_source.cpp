#include "platform/xml/schema/schema_source.h"

#include <QUrl>

namespace quillon::xml {

QByteArray combiningSchema(const std::vector<XsdSource> &schemas) {
    // Only a schema with a namespace may import what has none.
    QByteArray text = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' "
                      "targetNamespace='urn:quillon-xml-editor:combined'>";
    for (const XsdSource &schema : schemas) {
        text += "<xs:import schemaLocation='" +
                QString::fromLatin1(QUrl::fromLocalFile(schema.path).toEncoded())
                    .toHtmlEscaped()
                    .replace(u'\'', QLatin1String("%27"))
                    .toUtf8() +
                "'";
        if (!schema.namespaceName.isEmpty())
            text += " namespace='" +
                    schema.namespaceName.toHtmlEscaped()
                        .replace(u'\'', QLatin1String("&apos;"))
                        .toUtf8() +
                    "'";
        text += "/>";
    }
    return text + "</xs:schema>";
}

} // namespace quillon::xml
