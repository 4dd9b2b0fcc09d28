#include "fuzz/fuzz_support.h"
#include "platform/xml/dom/dom.h"

#include <vector>

using namespace quillon;
using namespace quillon::fuzz;
using xml::Node;

namespace {

/// The edits, a few bytes each.
class Edits {
public:
    Edits(const xml::DOMDocument40 &document, std::string_view bytes)
        : document_(document), bytes_(bytes) {
        collect(document.node());
    }

    void run() {
        while (!bytes_.empty())
            succeeds([&] { editOnce(); });
    }

private:
    unsigned next() {
        if (bytes_.empty())
            return 0;
        const auto byte = static_cast<unsigned char>(bytes_.front());
        bytes_.remove_prefix(1);
        return byte;
    }
    QString value() {
        static const char *const Values[] = {"",   " ",      "x",   "--", "]]>", "?>", "a\n b",
                                             "\r", "&<>\"'", "&e;", "あ", "😀",   "-",  "\t"};
        return QString::fromUtf8(Values[next() % std::size(Values)]);
    }
    QString name() {
        static const char *const Names[] = {"a", "p:b", "xml:space", "xmlns", "xmlns:p", "é", "1"};
        return QString::fromUtf8(Names[next() % std::size(Names)]);
    }
    Node node() { return nodes_[next() % nodes_.size()]; }

    void collect(const Node &top) {
        for (Node at = top; at && nodes_.size() < MostNodes;) {
            nodes_.push_back(at);
            for (const Node &attribute : at.attributes().all())
                nodes_.push_back(attribute);
            Node next = at.firstChild();
            while (!next && at && at != top) {
                next = at.nextSibling();
                if (!next)
                    at = at.parentNode();
            }
            at = next;
        }
    }

    Node made() {
        switch (next() % 6) {
        case 0:
            return document_.createElement(name());
        case 1:
            return document_.createTextNode(value());
        case 2:
            return document_.createComment(value());
        case 3:
            return document_.createCDATASection(value());
        case 4:
            return document_.createProcessingInstruction(name(), value());
        default:
            return node().cloneNode(next() % 2);
        }
    }

    void editOnce() {
        const unsigned kind = next();
        const Node at = node();
        switch (kind % 8) {
        case 0:
        case 1: {
            const Node newNode = made();
            nodes_.push_back(at.insertBefore(newNode, kind & 8 ? at.firstChild() : Node()));
            break;
        }
        case 2:
            at.parentNode().removeChild(at);
            break;
        case 3:
            at.setAttribute(name(), value());
            break;
        case 4:
            at.setText(value());
            break;
        case 5:
            nodes_.push_back(at.rename(name()));
            break;
        case 6:
            at.parentNode().replaceChild(made(), at);
            break;
        default:
            at.removeAttribute(name());
            break;
        }
    }

    static constexpr std::size_t MostNodes = 250;

    xml::DOMDocument40 document_;
    std::string_view bytes_;
    std::vector<Node> nodes_;
};

void requireReadable(const xml::DOMDocument40 &document) {
    if (!document.documentElement())
        return;
    xml::DOMDocument40 again = xml::DOMDocument40::create();
    require(again.loadXML(document.xml()), "an edited document parses");
    require(again.xml() == document.xml(), "an edited document is written as it is read again");
    require(again.node().text() == document.node().text(), "an edited document has its text");
}

} // namespace

/// A document and, behind it, bytes that edit it: what is loaded is saved as it was, and what is
/// edited can be read again and means the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const ScratchFile file;
    const TwoParts parts(bytesOf(data, size));
    file.write(parts.first);
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    if (!document.load(file.path())) {
        require(!document.parseError().reason.isEmpty(), "a refused document has a reason");
        require(document.parseError().errorCode != 0, "a refused document has an error code");
        return 0;
    }
    require(document.serialize() == toQByteArray(parts.first),
            "an unchanged document is unchanged");
    const xml::DOMDocument40 untouched = document.clone();
    Edits(document, parts.second).run();
    requireReadable(document);
    require(untouched.serialize() == toQByteArray(parts.first), "a copy stays what it was");
    succeeds([&] { document.serialize(); });
    return 0;
}
