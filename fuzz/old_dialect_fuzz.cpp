#include "fuzz/fuzz_support.h"
#include "platform/xml/transform/wd_xsl.h"

using namespace quillon;
using namespace quillon::fuzz;

/// A stylesheet of the old dialect, or what stands in its root element: it is refused with a
/// reason, or becomes a document whose root is an XSLT stylesheet.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    QByteArray text = toQByteArray(bytesOf(data, size));
    xml::DOMDocument40 stylesheet = xml::DOMDocument40::create();
    if (!text.contains("TR/WD-xsl"))
        text =
            "<xsl:stylesheet xmlns:xsl='http://www.w3.org/TR/WD-xsl'>" + text + "</xsl:stylesheet>";
    if (!stylesheet.loadXML(text) || !xml::isWdXsl(stylesheet))
        return 0;
    succeeds([&] {
        xml::DOMDocument40 translated = xml::DOMDocument40::create();
        require(translated.loadXML(xml::translateWdXsl(stylesheet)), "a translation is XML");
        require(!xml::isWdXsl(translated), "a translation is in the newer dialect");
    });
    return 0;
}
