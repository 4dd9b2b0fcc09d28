#pragma once

#include "platform/system/working_folder.h"
#include "platform/ui/browser.h"
#include "platform/ui/long_work.h"
#include "state/document_state.h"
#include "tree/selection.h"
#include "tree/tree_builder.h"

#include <QObject>
#include <QTimer>

namespace quillon::preview {

/// The font of the built-in stylesheet.
struct PreviewFont {
    QString name;
    /// In points.
    qint16 size = 10;
};

/// Shows the document, or one node, in the browser pane: transformed by the stylesheet that the
/// user has chosen, else as coloured source that can be folded. A click on a name there selects
/// the node in the tree.
class Preview : public QObject {
    Q_OBJECT

public:
    Preview(const state::DocumentState &state, tree::TreeBuilder &builder,
            tree::Selection &selection, items::Tree &tree, ui::Browser &ie,
            const system::WorkingFolder &workingFolder, ui::LongWork &longWork,
            std::function<PreviewFont()> font);

    /// Renders a document or an element at once; nothing for no node. A failure is shown in a
    /// message box and leaves the pane as it was; so does the user who has it stopped, for which
    /// the result is false.
    bool ShowPreview(const xml::Node &node);
    /// The same after the event that asked for it, once for all who ask. A document that is large
    /// or deep is not rendered then: the pane tells how to have it shown.
    void requestPreview(const xml::Node &node);
    /// Refreshes the preview after a change of the tree, where it follows the tree.
    void SyncPreview();

    void mnuToolPreview_Click();
    /// Previews the selected node; for one that is neither element nor document, its parent.
    void mnuToolPreviewSel_Click();
    /// Has a stylesheet chosen, which stays in force until the window closes.
    void mnuToolSelXSL_Click();
    void mnuToolPrevHTML_Click(bool checked);
    void mnuToolPreviewSync_Click(bool checked) { previewSync_ = checked; }
    void mnuFilePrint_Click();
    /// Empties the pane.
    void clear();
    /// Another document is open, whose pages do not start where the former one was scrolled to.
    void forgetPlace() { ++documents_; }

    /// Selects the node that an element of the page stands for, by the element's id.
    void m_doc_onclick(const QString &id);

    bool previewsWhole() const { return m_bPreviewWhole; }

Q_SIGNALS:
    void statusText(const QString &text);

private:
    /// Rendering that nobody has asked for must not take the keys away from who is typing.
    enum class Asked { Yes, No };

    bool tryToRender(const xml::Node &node, Asked asked);
    void render(const xml::Node &node, Asked asked);
    /// Pages of one subject keep their place; see ui::Browser::Navigate().
    void show(const QString &page, const QString &extension, const QString &subject,
              ui::Browser::Colours colours);
    xml::DOMDocument40 stylesheet(const QString &path) const;
    xml::DOMDocument40 builtInStylesheet() const;
    /// Why a document is not rendered unasked; empty where it is.
    static QString objection(const xml::Node &node);
    void showNotice(const QString &reason);

    const state::DocumentState &state_;
    tree::TreeBuilder &builder_;
    tree::Selection &selection_;
    items::Tree &tree_;
    ui::Browser &ie_;
    const system::WorkingFolder &workingFolder_;
    ui::LongWork &longWork_;
    std::function<PreviewFont()> font_;

    /// The chosen stylesheet's copy in the working folder; empty for the built-in one.
    QString m_strXslPath;
    /// Where it was chosen: what it imports stands there.
    QString stylesheetFolder_;
    /// The pane shows the whole document, not a single node.
    bool m_bPreviewWhole = false;
    /// The status bar says that the user has stopped the latest rendering.
    bool saysStopped_ = false;
    bool prevHtml_ = false;
    bool previewSync_ = true;
    /// How many documents were shown.
    int documents_ = 0;
    xml::Node requested_;
    QTimer later_;
};

} // namespace quillon::preview
