#pragma once

#include "platform/system/working_folder.h"
#include "platform/ui/browser.h"
#include "platform/ui/long_work.h"
#include "platform/xml/engine/background_child.h"
#include "preview/shown_part.h"
#include "state/document_state.h"
#include "tree/selection.h"
#include "tree/tree_builder.h"

#include <QObject>
#include <QTimer>

#include <optional>

namespace quillon::preview {

/// The font of the built-in stylesheet.
struct PreviewFont {
    QString name;
    /// In points.
    qint16 size = 10;
};

/// Shows the document, or one node, in the browser pane: transformed by the stylesheet that the
/// user has chosen, else as coloured source that can be folded. A click on a name there selects
/// the node in the tree. Of a large document the source shows, unless the whole is asked for, what
/// is around the selected node, and more where that is scrolled to.
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
    /// Refreshes it after any other change, too, where a part of the document is shown.
    void documentChanged();

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

    /// Of the nodes that the page leaves out from one on, those at one end are wanted.
    void showMore(quint32 first, ShownPart::End end);
    /// Another node is selected: a page with a part of the document shows it.
    void showSelected();

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
    bool hasChosenStylesheet() const;
    /// What was asked for by requestPreview().
    void renderUnasked(const xml::Node &node);
    /// Why not even a part of a document is rendered unasked; empty where that is.
    QString objection(const xml::Node &document) const;
    void showNotice(const QString &reason);
    /// Renders the part of the document that is shown, with the selected node in it.
    void renderPart();
    /// What a page is to show of a document, and whether that is another place than before.
    struct PartOfPage {
        xml::DocumentPart runs;
        bool isElsewhere = false;
    };
    using PartChange = std::function<std::optional<PartOfPage>(ShownPart &part)>;
    /// Has a child process change the part that is shown and render what the change says of it, if
    /// that is anything; a function takes the page from it.
    void startRendering(PartChange change,
                        std::function<void(const QString &page, bool isElsewhere)> take);
    void takeRendered(const QByteArray &report);
    /// The selected node; the element for an attribute, the document where nothing is selected.
    xml::Node selectedNode() const;
    /// The nodes whose block shows the selected one, the best first.
    QList<quint32> blocksOfSelected() const;
    QString subjectOf(const xml::Node &node, const QString &stylesheet) const;

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

    /// While the page shows a part of a document, or is going to: which, empty before the first
    /// page, and of which document.
    std::optional<ShownPart> part_;
    xml::DOMDocument40 partOf_;
    /// Renders parts, one at a time, and who takes the page.
    xml::BackgroundChild child_;
    std::function<void(const QString &page, bool isElsewhere)> takePage_;
};

} // namespace quillon::preview
