#pragma once

#include "platform/ui/long_work.h"
#include "platform/xml/engine/background_child.h"
#include "platform/xml/syntax/syntax_mends.h"
#include "tree/pane_content.h"

#include <QTimer>

namespace quillon::validation {

/// What keeps text from being well-formed that the pane alone has, and mending it there.
///
/// A change of the text only starts a timer. Soon after the last one the text is looked at: at once
/// where it is not long, else in a child process, which is given up when typing goes on.
class PaneSyntax : public QObject {
    Q_OBJECT

public:
    PaneSyntax(const tree::PaneContent &pane, ui::LongWork &longWork);

    /// What the text in the pane is a part of; nothing where there is no such text, or none to be
    /// looked at.
    std::function<std::optional<xml::SyntaxScope>()> scope;

    /// To be called when the pane has another text than before, or none of that kind any more.
    void textChanged();
    /// Whether what is known is yet to be looked at anew.
    bool isChecking() const { return soon_.isActive() || child_.isRunning(); }

    /// The first fault of the text, where it is known; that of the text as it is now unless
    /// isChecking().
    const std::optional<xml::SyntaxFault> &fault() const { return fault_; }
    /// Where it is.
    const xml::TextPlace &place() const { return place_; }
    /// Where it is, and what it is; empty when there is none.
    QString told() const;
    /// What is to be marked of it.
    std::optional<ui::TextMark> mark(quint32 subject) const;

    /// Selects it in the pane, which gets the focus. False when there is none, or none is known.
    bool goTo();
    /// What may be done about it. Raises Cancelled when the user has the search stopped.
    std::vector<xml::SyntaxMend> mends();
    /// Does one of these, as if it had been typed. Nothing happens when the text has changed.
    void mend(const xml::SyntaxMend &mend);

Q_SIGNALS:
    /// The text has been looked at, or there is none any more.
    void checked();
    void statusText(const QString &text);

private:
    void check();
    /// Looks at once at what is yet to be looked at, where that takes no time.
    void catchUp();
    void take(const QByteArray &found);

    const tree::PaneContent &pane_;
    ui::LongWork &longWork_;
    std::optional<xml::SyntaxFault> fault_;
    xml::TextPlace place_;
    /// Counts the texts, and which of them mends() was about.
    unsigned text_ = 0;
    unsigned mendedText_ = 0;
    QTimer soon_;
    xml::BackgroundChild child_;
};

} // namespace quillon::validation
