#pragma once

#include "candidates/candidate_finder.h"
#include "completion/place_document.h"
#include "completion/values.h"
#include "platform/items/tree.h"
#include "platform/ui/proposals.h"
#include "state/document_state.h"
#include "tree/node_registry.h"
#include "tree/pane_content.h"

namespace quillon::completion {

/// Proposes what can be typed, in the pane and into captions: by the schema in force, also where
/// the document does not keep to it or cannot be parsed, else by what the document has elsewhere.
class Completion : public QObject {
    Q_OBJECT

public:
    Completion(const state::DocumentState &state, candidates::CandidateFinder &finder,
               const tree::NodeRegistry &registry, items::Tree &tree,
               const tree::PaneContent &pane);

    /// For the text of the pane, whatever node it shows. The proposer must not outlive this.
    ui::Proposer paneProposer();
    /// For the caption of an item, while it is edited: names for elements and attributes, values
    /// for texts. What is inserted is all of the caption.
    ui::Proposer captionProposer(const items::TreeItem &item);

    /// What the schema says of the name at a place of the pane's text; empty for nothing.
    QString explanationAt(QByteArrayView text, qsizetype at);

    /// Whether there are values to be proposed, or an editor for them, for the node in the pane: an
    /// attribute or a text.
    bool hasValues() const;

Q_SIGNALS:
    void statusText(const QString &text);

private:
    struct Shown {
        xml::Node node;
        /// The element that an attribute, a text or an element stands in.
        xml::Node element;
    };
    Shown shown() const;
    Shown shown(const items::TreeItem &item) const;

    ui::ProposalList proposeInMarkup(QByteArrayView text, qsizetype caret, bool isAsked);
    ui::ProposalList proposeValue(const Shown &shown, QByteArrayView text, qsizetype caret) const;
    candidates::EntryList elementEntries(const PlaceDocument &place);
    void addElements(const PlaceDocument &place, ui::ProposalList &list);
    void addContentValues(const PlaceDocument &place, ui::ProposalList &list) const;
    void addValues(const ValueType &type, const QString &present, ui::ProposalList &list) const;
    ValueType typeOfAttribute(const xml::Node &element, const QString &name) const;
    ValueType typeOfText(const xml::Node &element) const;
    ValueType typeOfShown(const Shown &shown) const;
    const grammar::Grammar *grammar() const;

    std::optional<ui::Insertion> insertInMarkup(QByteArrayView text, qsizetype caret,
                                                const ui::Proposal &proposal);
    std::optional<ui::Insertion> insertValue(QByteArrayView text, qsizetype caret,
                                             const ui::Proposal &proposal);
    QByteArray elementMarkup(const PlaceDocument &place, const ui::Proposal &proposal) const;

    const state::DocumentState &state_;
    candidates::CandidateFinder &finder_;
    const tree::NodeRegistry &registry_;
    items::Tree &tree_;
    const tree::PaneContent &pane_;
    /// Of the text in the pane.
    TextContexts contexts_;
};

} // namespace quillon::completion
