#include "view/controls/line_proposals.h"

#include "platform/ui/error_boundary.h"
#include "view/controls/proposal_list.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>

namespace quillon::controls {

using ui::guarded;

LineProposals::LineProposals(QLineEdit &line, ui::Proposer proposer)
    : QObject(&line), line_(line), proposer_(std::move(proposer)) {
    connect(&line_, &QLineEdit::textEdited, this, &LineProposals::follow);
    connect(&line_, &QLineEdit::cursorPositionChanged, this, &LineProposals::follow);
}

bool LineProposals::takeKey(const QKeyEvent &event) {
    const bool asks = event.key() == Qt::Key_Space && event.modifiers() == Qt::ControlModifier;
    if (event.type() == QEvent::ShortcutOverride)
        return asks;
    if (popup_ && popup_->takeKey(event))
        return true;
    if (asks)
        propose();
    return asks;
}

QByteArray LineProposals::aheadOfCaret() const {
    return line_.text().left(line_.cursorPosition()).toUtf8();
}

void LineProposals::propose() {
    ui::ProposalList list;
    guarded([&] { list = proposer_.propose(line_.text().toUtf8(), aheadOfCaret().size(), true); });
    if (list.proposals.empty())
        return;
    if (!popup_) {
        popup_ = new ProposalPopup(line_);
        connect(popup_, &ProposalPopup::taken, this, &LineProposals::take);
    }
    // Nothing of the name that is there has been typed to find another one.
    const QString typed =
        line_.hasSelectedText() ? QString() : QString::fromUtf8(aheadOfCaret().sliced(list.start));
    popup_->open(std::move(list), typed,
                 {line_.mapToGlobal(QPoint(0, 0)), QSize(1, line_.height())});
}

void LineProposals::follow() {
    if (!popup_ || !popup_->isVisible())
        return;
    const QByteArray ahead = aheadOfCaret();
    if (ahead.size() < popup_->list().start)
        popup_->hide();
    else
        popup_->filter(QString::fromUtf8(ahead.sliced(popup_->list().start)));
}

void LineProposals::take(const ui::Proposal &proposal) {
    QByteArray text = line_.text().toUtf8();
    std::optional<ui::Insertion> insertion;
    // A dialog may ask for the value, and the line be gone when it is closed.
    const QPointer<LineProposals> self(this);
    const ui::Proposer proposer = proposer_;
    const qsizetype caret = aheadOfCaret().size();
    guarded([&] { insertion = proposer.insertion(text, caret, proposal); });
    if (!insertion || !self)
        return;
    const QByteArray ahead = text.first(insertion->start);
    const QByteArray behind = text.sliced(insertion->end);
    line_.setText(QString::fromUtf8(ahead + insertion->text + behind));
    line_.setCursorPosition(
        int(QString::fromUtf8(ahead + insertion->text.first(insertion->caret)).size()));
}

} // namespace quillon::controls
