#include "edit/encoding_commands.h"

#include "platform/runtime/error.h"
#include "resources/encoding_texts.h"

namespace quillon::edit {

namespace texts = resources::encoding_texts;
using xml::FileEncoding;
using xml::LineEnds;
using xml::Node;

EncodingCommands::EncodingCommands(const state::DocumentState &state, tree::TreeBuilder &builder,
                                   items::Tree &tree, ui::LongWork &longWork)
    : state_(state), builder_(builder), tree_(tree), longWork_(longWork) {}

std::optional<FileEncoding> EncodingCommands::present() const {
    try {
        return xml::fileEncodingOf(state_.m_DOM);
    } catch (const runtime::Error &) {
        return std::nullopt;
    }
}

xml::EncodingCheck EncodingCommands::check(const FileEncoding &encoding) const {
    xml::EncodingCheck result;
    longWork_.run(texts::Checking.toString(), ui::LongWork::Stop::Offered,
                  [&](const runtime::Progress &progress) {
                      result = xml::checkEncoding(state_.m_DOM, encoding, MostListed, progress);
                  });
    return result;
}

void EncodingCommands::change(const FileEncoding &encoding, LineEnds lineEnds) {
    const auto now = present();
    if (state_.m_ReadOnly || !state_.showsDocument() ||
        (now && xml::isSameEncoding(*now, encoding) && lineEnds == LineEnds::Keep))
        return;
    Node added;
    longWork_.run(texts::Changing.toString(), ui::LongWork::Stop::NotOffered,
                  [&](const runtime::Progress &) {
                      added = xml::changeEncoding(state_.m_DOM, encoding, lineEnds);
                  });
    showDeclaration(added);
    Q_EMIT documentModified();
    Q_EMIT statusText(texts::Changed.toString().arg(encoding.name));
}

void EncodingCommands::showDeclaration(Node added) {
    const items::TreeItem document = builder_.itemOf(state_.m_DOM.node());
    if (added) {
        items::TreeItem next = document.Child();
        auto relationship = tree::TreeBuilder::Relationship::Previous;
        builder_.AddNodeToTree(next, added, true, relationship);
        return;
    }
    const quint32 declaration = state_.m_DOM.node().firstChild().number();
    tree_.nodes().renewCaptions([&](const items::TreeItem &item) {
        return builder_.registry().number(item) == declaration;
    });
}

} // namespace quillon::edit
