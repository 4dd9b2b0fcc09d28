#include "platform/ui/error_boundary.h"
#include "view/controls/proposal_list.h"
#include "view/controls/text_box.h"
#include "view/controls/tool_tip.h"

#include <QHelpEvent>
#include <QKeyEvent>

namespace quillon::controls {

using ui::guarded;

namespace {

/// A list closes when more than this has been typed for it: nothing that is proposed is so long.
constexpr qsizetype MaxTyped = 200;
/// So far back a start tag is looked for that what has been typed may stand in.
constexpr long TagLookBack = 4096;

} // namespace

void TextBox::setProposer(ui::Proposer proposer) {
    proposer_ = std::move(proposer);
    if (proposer_.textChanged)
        proposer_.textChanged(0);
}

void TextBox::showProposals() {
    if (proposer_ && !locked_ && !composing_)
        propose(true);
}

void TextBox::closeProposals() {
    if (popup_)
        popup_->hide();
}

bool TextBox::isKeyForProposals(const QKeyEvent &event) const {
    const bool asks = event.key() == Qt::Key_Space && event.modifiers() == Qt::ControlModifier;
    const bool ends = popup_ && popup_->isVisible() && event.key() == Qt::Key_Escape;
    return (asks && proposer_ && !locked_) || ends;
}

bool TextBox::takeKeyForProposals(const QKeyEvent &event) {
    if (popup_ && popup_->takeKey(event))
        return true;
    if (!isKeyForProposals(event))
        return false;
    showProposals();
    return true;
}

bool TextBox::callsForProposals() const {
    if (!proposesUnasked_ || !proposer_ || language_ != Language::Xml || composing_)
        return false;
    const long caret = send(SCI_GETCURRENTPOS);
    const auto typed = static_cast<char>(send(SCI_GETCHARAT, caret - 1));
    const auto before = static_cast<char>(caret > 1 ? send(SCI_GETCHARAT, caret - 2) : 0);
    switch (typed) {
    case '<':
        return true;
    case '/':
        return before == '<';
    case '"':
    case '\'':
        return before == '=';
    case ' ':
        // Whoever types text must not wait for anything.
        for (long at = caret - 2; at >= 0 && at > caret - TagLookBack; --at) {
            const auto c = static_cast<char>(send(SCI_GETCHARAT, at));
            if (c == '<' || c == '>')
                return c == '<';
        }
        return false;
    default:
        return false;
    }
}

void TextBox::propose(bool isAsked) {
    ui::ProposalList list;
    const long caret = send(SCI_GETCURRENTPOS);
    guarded([&] { list = proposer_.propose(bytes(), caret, isAsked); });
    if (list.proposals.empty()) {
        closeProposals();
        return;
    }
    if (!popup_) {
        popup_ = new ProposalPopup(*this);
        connect(popup_, &ProposalPopup::taken, this, &TextBox::takeProposal);
    }
    // What is replaced ends as far behind the caret as it does now, whatever is typed till then.
    list.end -= caret;
    const qsizetype start = list.start;
    const QString typed = QString::fromUtf8(bytes().sliced(start, caret - start));
    popup_->open(std::move(list), typed, caretOnScreen(start));
}

std::optional<QString> TextBox::typedOfWord() const {
    const long caret = send(SCI_GETCURRENTPOS);
    const qsizetype start = popup_->list().start;
    if (caret < start || caret - start > MaxTyped || !send(SCI_GETSELECTIONEMPTY))
        return std::nullopt;
    const QString typed = QString::fromUtf8(bytes().sliced(start, caret - start));
    // With these a name or a value is at its end, or another line has begun.
    static const QString Ends = QStringLiteral("<>\"'=\n");
    if (std::ranges::any_of(typed, [](QChar c) { return Ends.contains(c); }))
        return std::nullopt;
    return typed;
}

void TextBox::followCaret() {
    if (composing_)
        return closeProposals();
    if (popup_ && popup_->isVisible()) {
        if (const auto typed = typedOfWord())
            popup_->filter(*typed);
        else
            popup_->hide();
        if (popup_->isVisible())
            return;
    }
    if (std::exchange(hasTyped_, false) && callsForProposals())
        propose(false);
}

void TextBox::takeProposal(const ui::Proposal &proposal) {
    std::optional<ui::Insertion> insertion;
    // While a dialog asks for a value, another program may open another document.
    const QByteArray text = utf8();
    guarded([&] { insertion = proposer_.insertion(text, send(SCI_GETCURRENTPOS), proposal); });
    setFocus();
    if (!insertion || locked_ || text != bytes())
        return;
    asOneChange([&] {
        SendScintilla(SCI_SETTARGETRANGE, insertion->start, insertion->end);
        SendScintilla(SCI_REPLACETARGET, static_cast<unsigned long>(insertion->text.size()),
                      insertion->text.constData());
        send(SCI_GOTOPOS, insertion->start + insertion->caret);
    });
    if (insertion->goesOn && proposesUnasked_)
        propose(false);
}

QRect TextBox::caretOnScreen(long at) const {
    const long line = send(SCI_LINEFROMPOSITION, at);
    const QPoint top(int(SendScintilla(SCI_POINTXFROMPOSITION, 0UL, at)),
                     int(SendScintilla(SCI_POINTYFROMPOSITION, 0UL, at)));
    return {viewport()->mapToGlobal(top), QSize(1, int(send(SCI_TEXTHEIGHT, line)))};
}

void TextBox::showDescription(const QHelpEvent &event) {
    const long at = send(SCI_POSITIONFROMPOINTCLOSE, event.pos().x(), event.pos().y());
    QString text;
    if (describe && at >= 0)
        guarded([&] { text = describe(bytes(), at); });
    // What is wrong comes ahead of what it is.
    const QString reasons = at >= 0 ? reasonsAt(at) : reasonsAtSymbols(event.pos());
    if (!reasons.isEmpty())
        text = text.isEmpty() ? reasons : reasons + QStringLiteral("\n\n") + text;
    showPlainToolTip(event.globalPos(), text, *viewport());
}

} // namespace quillon::controls
