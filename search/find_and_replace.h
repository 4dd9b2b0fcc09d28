#pragma once

#include "platform/ui/long_work.h"
#include "search/hit_list.h"
#include "search/replacing.h"
#include "search/text_pattern.h"
#include "tree/selection.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace quillon::search {

enum class SearchScope {
    Document,
    /// The selected node and everything below it.
    Selection,
    /// The nodes that the latest path query has found, and everything below them.
    QueryHits,
};

/// What the user has entered.
struct SearchRequest {
    QString what;
    QString with;
    PatternOptions pattern;
    /// A sum of xml::part_kind.
    unsigned parts = 0;
    SearchScope scope = SearchScope::Document;

    bool operator==(const SearchRequest &) const = default;
};

/// Searches a document for texts, and replaces them: one by one, or all that the user has ticked in
/// the list of hits. What has come of it, faults of the pattern included, is told as statusText.
class FindAndReplace : public QObject {
    Q_OBJECT

public:
    FindAndReplace(const state::DocumentState &state, tree::TreeBuilder &builder,
                   tree::Selection &selection, items::Tree &tree, Replacing &replacing,
                   HitList &hits, ui::LongWork &longWork);

    /// What is wrong with the pattern or with what is to take the place of what it finds; empty
    /// when nothing is. An empty pattern is not told here.
    QString fault(const SearchRequest &request) const;

    /// Selects the first hit in the selected node or behind it; of the latest one there, the next
    /// one. From the end of the scope it goes on at the start. True when there is one.
    bool findNext(const SearchRequest &request);
    /// Shows all hits in the list. One that finds nothing leaves the list as it is.
    void findAll(const SearchRequest &request);
    /// Replaces the hit that has been reached, if the selection is still there, and goes on to the
    /// next one; else that is all it does. A hit that cannot be replaced is told why, and stays.
    void replaceNext(const SearchRequest &request);

    /// Shows in the list what would become of all hits, with ticks and obstacles.
    void planAll(const SearchRequest &request);
    /// Whether such a list is shown.
    bool hasPlan() const;
    /// Makes the changes that are ticked, as one step to be undone. The list then shows where they
    /// are.
    void execute();
    /// Takes the list away.
    void discard();

    /// What has been looked for and put in its place in this run of the program, the latest first.
    const QStringList &whats() const { return whats_; }
    const QStringList &withs() const { return withs_; }

    /// Other hits are shown: those of a query are those to search in from now on.
    void takeShown();

    /// Asked before a document changes or another node is shown.
    std::function<bool()> mayLeavePane;

Q_SIGNALS:
    void statusText(const QString &text);
    /// The list of hits has what was asked for, and is to be seen.
    void listed();
    /// A hit to be selected in tree and pane.
    void hitReached(const quillon::search::Hit &hit);

private:
    /// Where the latest hit is and where the search goes on.
    struct Reached {
        SearchRequest request;
        Hit hit;
        Hit next;
    };

    /// Runs a command; what it raises is told.
    void told(const std::function<void()> &command);
    /// Forgets all nodes when the present document is not the one that they are of.
    void forgetOtherDocument();
    void remember(const SearchRequest &request, bool replaces);
    bool isAtLatestHit(const SearchRequest &request) const;
    std::vector<xml::Node> topsOf(const SearchRequest &request);
    std::vector<xml::Node> queryHits() const;
    void reach(const SearchRequest &request, const Hit &hit);
    bool goToNext(const SearchRequest &request);
    bool mayReplace();
    std::vector<Change> changesOf(const std::vector<Hit> &hits, const Replacement &replacement);
    void showPlan(const SearchRequest &request, const std::shared_ptr<const TextPattern> &pattern);
    void tellReplaced(const Replaced &result);

    const state::DocumentState &state_;
    tree::TreeBuilder &builder_;
    tree::Selection &selection_;
    items::Tree &tree_;
    Replacing &replacing_;
    HitList &hits_;
    ui::LongWork &longWork_;

    /// A state of the document that the numbers below belong to.
    xml::DOMDocument40 document_;
    std::optional<Reached> reached_;
    /// The node that a search below the selection is about, while hits are being walked through.
    quint32 anchor_ = 0;
    std::vector<quint32> queryHits_;
    QStringList whats_;
    QStringList withs_;
};

} // namespace quillon::search
