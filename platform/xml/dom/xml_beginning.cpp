#include "platform/xml/dom/xml_beginning.h"

#include "platform/runtime/utf8.h"
#include "platform/xml/dom/handle_access.h"
#include "platform/xml/io/output.h"
#include "platform/xml/io/serializer.h"
#include "platform/xml/storage/values.h"

#include <string>
#include <string_view>

namespace quillon::xml {

namespace {

/// Takes no more than so many bytes.
class BoundedOutput final : public Output {
public:
    /// There is no room for more.
    struct Full {};

    explicit BoundedOutput(std::size_t most) : most_(most) {}

    bool holds(const SourceText &) const override { return true; }
    bool verbatim(const SourceText &source, std::uint32_t start, std::uint32_t end) override {
        // Line ends take one byte here and may take two there.
        const std::size_t room = 2 * (most_ - text_.size()) + 1;
        markup(normalizeLineEnds(source.slice(start, end).substr(0, room)));
        return true;
    }
    void markup(std::string_view text) override {
        const std::size_t room = most_ - text_.size();
        text_ += text.substr(0, room);
        if (text.size() > room)
            throw Full();
    }
    void characters(std::string_view text) override { markup(text); }

    const std::string &text() const { return text_; }

private:
    std::size_t most_;
    std::string text_;
};

} // namespace

QByteArray beginningOfXml(const Node &node, std::size_t mostBytes, bool &isWhole) {
    BoundedOutput output(mostBytes);
    isWhole = true;
    try {
        writeNode(HandleAccess::arena(node), node.number(), output);
        return QByteArray::fromStdString(output.text());
    } catch (const BoundedOutput::Full &) {
        isWhole = false;
    }
    const std::string_view text = runtime::withoutHalfCharacter(output.text());
    return {text.data(), qsizetype(text.size())};
}

} // namespace quillon::xml
