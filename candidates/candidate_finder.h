#pragma once

#include "candidates/document_usage.h"
#include "candidates/entry.h"
#include "platform/xml/schema/grammar/content_matcher.h"
#include "platform/xml/schema/grammar/document_names.h"
#include "platform/xml/schema/grammar/skeleton.h"
#include "state/document_state.h"

#include <QObject>

#include <list>
#include <optional>

namespace quillon::candidates {

/// Where an element would stand, as seen from a node.
enum class Position { LastChild, Ahead, Behind };

/// Tells what may stand where in the document: by its schema, also where the document does not keep
/// to that, or, while none is in force or where it knows nothing, by what the rest of the document
/// has at such places.
///
/// What costs time in proportion to the siblings is kept until elements come, go or get other
/// names, so that asking again for a node among the same ones takes no time to speak of.
class CandidateFinder : public QObject {
    Q_OBJECT

public:
    explicit CandidateFinder(const state::DocumentState &state);

    /// The schema in force; nothing when there is none or it is not there yet, as `isAwaited`
    /// tells.
    void setGrammar(const std::optional<grammar::Grammar> &grammar, bool isAwaited = false);
    const std::optional<grammar::Grammar> &grammar() const { return grammar_; }
    /// For the grammar in force; null without one.
    const grammar::SkeletonMaker *skeletons() const { return skeletons_ ? &*skeletons_ : nullptr; }

    /// The elements that may be inserted at a position as seen from a node: an element, the
    /// document, or whatever else stands in one. Empty for a node that has no such position, as an
    /// attribute.
    EntryList elements(const xml::Node &node, Position position);
    /// The names that an element may have where it stands.
    EntryList namesFor(const xml::Node &element);
    /// The attributes that an element may have.
    EntryList attributes(const xml::Node &element);

    /// What an element is for the schema in force, kept as above.
    grammar::KnownElement known(const xml::Node &element);
    /// What names mean in an element; in the document for the document.
    static grammar::NameScope scopeIn(const xml::Node &parent);

    /// To be called when the document has changed, when it has become another state of itself, and
    /// when there is another one.
    void documentChanged();
    void documentReplaced();
    /// Reads all names of the document that are not counted yet.
    void finishCounting() { usage_.finish(); }

Q_SIGNALS:
    /// What has been told may not hold any more.
    void changed();

private:
    /// The children of one element, run against its type.
    struct Parent {
        xml::Node node;
        grammar::KnownElement known;
        std::vector<quint32> children;
        std::optional<grammar::ContentRun> run;
    };

    /// Drops what is kept if an edit may have been about it.
    void followEdits();
    /// Nothing where the grammar does not know the element.
    Parent *parentOf(const xml::Node &node);
    EntryList fromDocument(const xml::Node &parent);
    EntryList rootsFor(const xml::Node &document, const xml::Node &place);
    std::size_t placeOf(const Parent &parent, const xml::Node &node, Position position) const;
    void count();
    /// Says where names of the document come from.
    void remarkOnCount(EntryList &list) const;

    const state::DocumentState &state_;
    std::optional<grammar::Grammar> grammar_;
    std::optional<grammar::SkeletonMaker> skeletons_;
    std::optional<grammar::ContentMatcher> matcher_;
    /// The latest first: around one node they are the node itself and the one above it.
    std::list<Parent> parents_;
    /// The state of the document for which they hold.
    xml::DOMDocument40 seen_;
    bool isEdited_ = false;
    DocumentUsage usage_;
    bool isCounted_ = false;
    bool isAwaited_ = false;
};

} // namespace quillon::candidates
