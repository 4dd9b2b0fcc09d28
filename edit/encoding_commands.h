#pragma once

#include "platform/ui/long_work.h"
#include "platform/xml/dom/encoding_change.h"
#include "state/document_state.h"
#include "tree/tree_builder.h"

#include <QObject>

#include <optional>

namespace quillon::edit {

/// Gives the document another encoding, or other line ends.
class EncodingCommands : public QObject {
    Q_OBJECT

public:
    /// So many characters of each kind are listed.
    static constexpr std::size_t MostListed = 1000;

    EncodingCommands(const state::DocumentState &state, tree::TreeBuilder &builder,
                     items::Tree &tree, ui::LongWork &longWork);

    /// What the document is saved in; nothing where that is not supported.
    std::optional<xml::FileEncoding> present() const;
    /// What it says of that itself.
    QString declared() const { return state_.m_DOM.encoding(); }
    /// What of the document an encoding cannot hold. Raises Cancelled when the user has it stopped.
    xml::EncodingCheck check(const xml::FileEncoding &encoding) const;
    /// Changes it, as one change. Raises Fail, with nothing changed, when the document could not be
    /// saved so.
    void change(const xml::FileEncoding &encoding, xml::LineEnds lineEnds);

Q_SIGNALS:
    void documentModified();
    void statusText(const QString &text);

private:
    void showDeclaration(xml::Node added);

    const state::DocumentState &state_;
    tree::TreeBuilder &builder_;
    items::Tree &tree_;
    ui::LongWork &longWork_;
};

} // namespace quillon::edit
