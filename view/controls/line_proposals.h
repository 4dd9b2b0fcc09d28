#pragma once

#include "platform/ui/proposals.h"

#include <QObject>

class QKeyEvent;
class QLineEdit;

namespace quillon::controls {

class ProposalPopup;

/// Shows what can be typed into a line, on Ctrl+Space. It belongs to the line and goes with it.
class LineProposals : public QObject {
    Q_OBJECT

public:
    LineProposals(QLineEdit &line, ui::Proposer proposer);

    /// To be asked before the line, or whatever watches it, gets a key; true when it was for the
    /// list.
    bool takeKey(const QKeyEvent &event);

private:
    void propose();
    void follow();
    void take(const ui::Proposal &proposal);
    QByteArray aheadOfCaret() const;

    QLineEdit &line_;
    ui::Proposer proposer_;
    ProposalPopup *popup_ = nullptr;
};

} // namespace quillon::controls
