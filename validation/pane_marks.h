#pragma once

#include "state/document_state.h"
#include "tree/selection.h"
#include "validation/live_validation.h"
#include "validation/pane_syntax.h"

#include <QTimer>

namespace quillon::validation {

/// Marks the faults in the edit pane, at the elements and attributes that its text shows, and the
/// place where the text cannot be read.
class PaneMarks : public QObject {
    Q_OBJECT

public:
    PaneMarks(const LiveValidation &live, const PaneSyntax &syntax,
              const state::DocumentState &state, const tree::Selection &selection,
              const tree::PaneContent &pane);

    /// To be called when there are other faults, when an edit has been looked at, and when the pane
    /// shows another node. Marks soon after.
    void markSoon() { soon_.start(0); }
    /// Marks at once.
    void mark();

private:
    std::vector<ui::TextMark> marksInMarkup(const xml::Node &shown) const;
    std::vector<ui::TextMark> marksOfValue(const xml::Node &shown) const;

    const LiveValidation &live_;
    const PaneSyntax &syntax_;
    const state::DocumentState &state_;
    const tree::Selection &selection_;
    const tree::PaneContent &pane_;
    bool hasMarks_ = false;
    QTimer soon_;
};

} // namespace quillon::validation
