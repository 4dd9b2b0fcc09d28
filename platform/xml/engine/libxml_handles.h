#pragma once

#include <QByteArray>

#include <libxml/tree.h>
#include <memory>
#include <string_view>

namespace quillon::xml {

/// Calls a C library's function to release what it allocated.
template <auto release>
struct Releaser {
    template <typename T>
    void operator()(T *object) const {
        release(object);
    }
};

using XmlDocument = std::unique_ptr<xmlDoc, Releaser<xmlFreeDoc>>;

/// The library's UTF-8 character type.
inline const xmlChar *utf8(const char *text) {
    return reinterpret_cast<const xmlChar *>(text);
}
inline const xmlChar *utf8(const QByteArray &text) {
    return utf8(text.constData());
}
inline const char *bytes(const xmlChar *text) {
    return reinterpret_cast<const char *>(text);
}
/// Empty for none.
inline std::string_view view(const xmlChar *text) {
    return text ? std::string_view(bytes(text)) : std::string_view();
}

/// Takes over a text that libxml2 has allocated; null for none.
inline QByteArray taken(xmlChar *text) {
    const QByteArray copy(bytes(text));
    xmlFree(text);
    return copy;
}

} // namespace quillon::xml
