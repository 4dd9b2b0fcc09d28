#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/dom/document_states.h"
#include "search/hit.h"
#include "search/hit_rows.h"
#include "state/document_state.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>

namespace quillon::search {

/// The hits that the user sees and walks through: those of the latest search of whatever kind that
/// has found anything. Fit for millions: a hit takes some 20 bytes, and rows are made when asked
/// for.
///
/// The list follows the document. What has been removed from it is no row any more, and is one
/// again when the removal is undone; what has changed is searched anew. Edits only make a note of
/// that; they are followed in slices, soon after the last one, when nothing else is to be done.
/// Until then a row may be one whose node is gone.
class HitList : public QObject {
    Q_OBJECT

public:
    explicit HitList(const state::DocumentState &state);

    /// Takes the hits of a search of the present document in place of those that were there. They
    /// come in document order, all of them ticked, none of them the current one.
    void show(Hits hits);
    /// Takes others of the same source in their place, as what has been found anew: the rows keep
    /// their order as far as there are not too many of them, and the current one stays where it is.
    void refresh(Hits hits);
    void clear();

    bool isEmpty() const { return rows_.empty(); }
    int rowCount() const { return static_cast<int>(rows_.size()); }
    HitSource source() const { return list_.source; }
    const QString &title() const { return list_.title; }
    /// What the column of the texts is called.
    QString nameOfTexts() const;
    /// Whether the hits are to be changed: rows then have a change and a tick.
    bool hasChanges() const { return !list_.changes.empty(); }
    /// The 0-based place, among the hits shown, of the one in a row.
    std::size_t place(int row) const { return rows_[std::size_t(row)]; }

    // Rows are 0-based.

    const Hit &hit(int row) const { return list_.hits[rows_[std::size_t(row)]]; }
    /// The node of the hit; empty when the present document does not have it.
    xml::Node node(int row) const { return nodeAt(rows_[std::size_t(row)]); }
    /// Only for a list with changes.
    const Change &change(int row) const { return list_.changes[rows_[std::size_t(row)]]; }
    /// What is to be read in a row.
    HitRow row(int row) const;

    /// Whether a change is to be made. One that cannot be made never is.
    bool isTicked(int row) const { return isTickedHit(rows_[std::size_t(row)]); }
    void setTicked(int row, bool on);
    void setAllTicked(bool on);
    /// Calls f(hit, change) for all ticked rows, in document order whatever the order of the rows.
    template <typename F>
    void forEachTicked(F &&f) const {
        for (std::size_t at = 0; at < list_.hits.size(); ++at) {
            if ((marks_[at] & NoRow) == 0 && isTickedHit(at))
                f(list_.hits[at], list_.changes[at]);
        }
    }

    /// Puts the rows in order; equal ones stay in document order. Raises Cancelled when the
    /// progress function says so, or the list has changed meanwhile; the order is then what it was.
    void sort(HitOrder by, Qt::SortOrder direction, const runtime::Progress &progress = {});
    HitOrder order() const { return order_; }
    Qt::SortOrder direction() const { return direction_; }

    /// The row that the user is at; -1 for none. While its hit is gone it is the one that took its
    /// place.
    int currentRow() const { return currentRow_; }
    void setCurrentRow(int row);
    /// The row after (before) the current one; the first (last) one when there is none. -1 at the
    /// end.
    int rowAfter() const;
    int rowBefore() const;

    /// To be called after every change of the document, and when it has gone a step back or forth.
    void documentChanged();
    void documentRestored();

    /// Another number after whatever may have changed the rows. Long work that lets events in sees
    /// by it that it has to stop.
    quint32 revision() const { return revision_; }

    /// Whether the document has changed since the rows were last compared with it.
    bool isStale() const { return isStale_; }
    /// Compares the rows with the document at once.
    void sweepAll();

Q_SIGNALS:
    /// There are other hits, or none any more.
    void shown();
    /// Rows have come, gone or changed places.
    void rowsChanged();
    /// Rows may read otherwise than before.
    void rowTextsChanged();
    void currentRowChanged(int row);

private:
    // What is noted of each hit.
    static constexpr quint8 Removed = 1;
    static constexpr quint8 Unmatched = 2;
    /// Its node was made in a state of the document that nothing leads to any more.
    static constexpr quint8 Abandoned = 4;
    static constexpr quint8 NoRow = Removed | Unmatched | Abandoned;
    static constexpr quint8 Unticked = 8;

    /// What a sweep has found out about one hit.
    struct Finding {
        quint32 at;
        quint8 marks;
        Hit hit;
        std::optional<Change> change;
    };
    struct Sweep {
        bool isOfThisDocument;
        xml::StandingNodes standing;
        std::size_t next = 0;
        std::vector<Finding> findings;
    };

    bool isTickedHit(std::size_t at) const {
        return (marks_[at] & Unticked) == 0 && list_.changes[at].obstacle.isEmpty();
    }
    /// Compares some of the rows with the document, for about the time given. False when there is
    /// no more to do.
    bool sweep(std::chrono::microseconds time);
    void sweepWhenIdle();
    /// Whether the number of a hit can mean another node in the present document.
    bool isBeyondReach(std::size_t at) const;
    xml::Node nodeAt(std::size_t at) const;
    /// Whether what the hit stands in reads as it did when it was last looked at.
    bool isUnchanged(const Hit &hit) const;
    /// Looks at the hits from sweep_->next on that are in the same part of the same node.
    void lookAtGroup();
    void lookAgain(std::size_t from, std::size_t to, quint8 removed);
    void note(Finding finding);
    void take(Hits hits);
    void sortAnew();
    void finishSweep();
    void makeRows();

    const state::DocumentState &state_;
    HitRowReader reader_;
    Hits list_;
    std::vector<quint8> marks_;
    /// Places in the list, in the order of the rows.
    std::vector<quint32> rows_;
    /// The same for all hits, those without a row as well; empty for document order.
    std::vector<quint32> sorted_;
    HitOrder order_ = HitOrder::Document;
    Qt::SortOrder direction_ = Qt::AscendingOrder;
    int currentRow_ = -1;
    bool currentIsGone_ = false;

    /// The state of their document that the hits were last compared with.
    xml::DOMDocument40 compared_;
    bool isStale_ = false;
    quint32 revision_ = 0;
    std::optional<Sweep> sweep_;
    QTimer idle_;
    /// While what has been undone can still be redone: no node of the present state has a number
    /// from here on.
    std::optional<quint32> endOfNumbers_;
};

} // namespace quillon::search
