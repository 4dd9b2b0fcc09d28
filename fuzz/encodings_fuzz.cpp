#include "fuzz/fuzz_support.h"
#include "platform/xml/dom/dom.h"

using namespace quillon;
using namespace quillon::fuzz;

namespace {

const char *const Encodings[] = {
    "UTF-8",         "Shift_JIS",  "windows-31j", "EUC-JP",       "ISO-2022-JP",
    "ISO-2022-JP-2", "US-ASCII",   "ISO-8859-1",  "windows-1252", "GB18030",
    "gb2312",        "Big5",       "EUC-KR",      "ISO-2022-KR",  "koi8-r",
    "UTF-16",        "hz-gb-2312", "x-sjis",      "EUC-TW",       "windows-1258",
};

} // namespace

/// A byte that chooses an encoding, and bytes in it that stand as text and in a comment: what can
/// be read is saved byte for byte, also beside what is new.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0)
        return 0;
    static const ScratchFile file;
    const std::string body(bytesOf(data + 1, size - 1));
    const std::string bytes = std::string("<?xml version=\"1.0\" encoding=\"") +
                              Encodings[*data % std::size(Encodings)] + "\"?><a><!--" + body +
                              "--><b/>\n" + body + "</a>";
    file.write(bytes);
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    if (!document.load(file.path())) {
        require(!document.parseError().reason.isEmpty(), "a refused document has a reason");
        return 0;
    }
    require(document.serialize().toStdString() == bytes, "an unchanged document is unchanged");
    document.documentElement().setAttribute(QStringLiteral("new"), QStringLiteral("あé€"));
    const xml::Node last = document.documentElement().lastChild();
    if (last.nodeType() == xml::NodeType::Text)
        last.setNodeValue(QStringLiteral("改") + last.nodeValue().mid(int(size % 5)));
    if (!succeeds([&] { file.write(document.serialize().toStdString()); }))
        return 0;
    xml::DOMDocument40 again = xml::DOMDocument40::create();
    require(again.load(file.path()), "what was saved can be read");
    require(again.node().text() == document.node().text(), "what was saved has its text");
    require(again.documentElement().firstChild().nodeValue() ==
                document.documentElement().firstChild().nodeValue(),
            "what was saved has its comment");
    return 0;
}
