#pragma once

#include "platform/ui/long_work.h"
#include "platform/xml/dom/pretty_print.h"
#include "state/document_state.h"
#include "tree/tree_builder.h"

#include <QObject>
#include <QString>

#include <vector>

namespace quillon::edit {

/// How a document would look, or the beginning of it.
struct LayoutPreview {
    struct Line {
        QString text;
        /// There is no such line at this place in the other text.
        bool isChanged = false;
    };

    std::vector<Line> before;
    std::vector<Line> after;
    /// Whether that is all of it.
    bool isWhole = true;
};

/// Lays the document out anew, or the selected elements. It changes lines and indents only, so the
/// tree stays as it is, with what is selected.
class PrettyPrinting : public QObject {
    Q_OBJECT

public:
    enum class Scope { Document, SelectedElements };

    PrettyPrinting(const state::DocumentState &state, tree::TreeBuilder &builder, items::Tree &tree,
                   ui::LongWork &longWork);

    /// Whether there are elements among what is selected.
    bool hasSelectedElements() const;
    /// What would become of it. Of a large document only the beginning is looked at.
    LayoutPreview preview(const xml::LayoutStyle &style, Scope scope) const;
    /// Does so, as one change; nothing but a text in the status bar where all stands so already,
    /// and nothing at all in a read-only document. Raises Cancelled when the user has it stopped,
    /// which leaves everything as it was.
    void format(const xml::LayoutStyle &style, Scope scope);

Q_SIGNALS:
    void documentModified();
    void statusText(const QString &text);

private:
    std::vector<xml::Node> tops(Scope scope) const;

    const state::DocumentState &state_;
    tree::TreeBuilder &builder_;
    items::Tree &tree_;
    ui::LongWork &longWork_;
};

} // namespace quillon::edit
