#pragma once

#include "platform/ui/proposals.h"

#include <QAbstractListModel>
#include <QFrame>
#include <QStyledItemDelegate>

class QKeyEvent;
class QLabel;
class QListView;

namespace quillon::controls {

/// Those of some proposals that go with what has been typed: first what begins with it, then what
/// has it anywhere.
class ProposalModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    void set(std::vector<ui::Proposal> proposals);
    void filter(const QString &typed);
    const ui::Proposal &at(int row) const { return proposals_[shown_[std::size_t(row)]]; }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    std::vector<ui::Proposal> proposals_;
    std::vector<std::size_t> shown_;
};

/// A list of what can be typed into a widget, shown at its caret. The widget keeps the keyboard and
/// passes on what the list has a use for. Beside the list stands what is known of the chosen entry.
class ProposalPopup : public QFrame {
    Q_OBJECT

public:
    explicit ProposalPopup(QWidget &owner);

    /// Shows what goes with `typed`, below or above a rectangle of the screen; hides when that is
    /// nothing.
    void open(ui::ProposalList list, const QString &typed, const QRect &caret);
    /// Keeps to what goes with a text that has been typed since.
    void filter(const QString &typed);
    /// Whether it has taken a key: for going up and down, for taking the chosen entry (Enter, Tab)
    /// and for closing (Escape).
    bool takeKey(const QKeyEvent &event);

    const ui::ProposalList &list() const { return list_; }
    int shownCount() const { return model_.rowCount(); }
    QListView &view() const { return *view_; }

Q_SIGNALS:
    /// An entry that fits has been chosen. The list is closed by then.
    void taken(const ui::Proposal &proposal);

protected:
    void hideEvent(QHideEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void choose(int row);
    bool take(const QModelIndex &index);
    void describe(const QModelIndex &index);
    void place();

    QWidget &owner_;
    ui::ProposalList list_;
    QRect caret_;
    ProposalModel model_;
    QListView *view_;
    QLabel *description_;
};

} // namespace quillon::controls
