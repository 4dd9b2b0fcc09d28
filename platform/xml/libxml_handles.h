#pragma once

#include <QByteArray>

#include <libxml/tree.h>
#include <memory>

namespace quillon::xml {

/// Calls a C library's function to release what it allocated.
template <auto release>
struct Releaser {
    template <typename T>
    void operator()(T *object) const {
        release(object);
    }
};

/// A text that libxml2 has allocated. Its function to release one is a variable.
struct TextReleaser {
    void operator()(xmlChar *text) const { xmlFree(text); }
};
using LibxmlText = std::unique_ptr<xmlChar, TextReleaser>;

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

} // namespace quillon::xml
