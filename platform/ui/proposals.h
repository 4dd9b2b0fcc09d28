#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace quillon::ui {

/// Helps to enter a value of a kind.
enum class ValueEditor { None, Date, DateTime, Time, Colour };

enum class ProposalKind { Element, Attribute, Value, EndTag };

/// One of the things that can be typed at a place.
struct Proposal {
    ProposalKind kind = ProposalKind::Value;
    /// What is shown, and what is compared with what has been typed.
    QString text = {};
    /// In few words what it is, such as its type.
    QString detail = {};
    QString documentation = {};
    /// Why it does not fit here; empty when it does. It is shown all the same, but not taken.
    QString reason = {};
    /// Something is missing without it.
    bool isNeeded = false;
    /// Its value comes from there.
    ValueEditor editor = ValueEditor::None;
    /// What it is to whoever has made the list.
    quint32 id = 0;
};

struct ProposalList {
    std::vector<Proposal> proposals;
    /// What takes the place of which bytes of the text. Up to the caret it is compared with the
    /// proposals.
    qsizetype start = 0;
    qsizetype end = 0;
    /// Where all of them come from; empty when nothing is to be said.
    QString origin = {};
};

/// What becomes of a text when a proposal is taken.
struct Insertion {
    /// The bytes that go.
    qsizetype start = 0;
    qsizetype end = 0;
    QByteArray text;
    /// Where the caret is to stand in the new text, in bytes.
    qsizetype caret = 0;
    /// There is more to be proposed where the caret is then.
    bool goesOn = false;
};

/// Knows what can be typed into a text. Texts are UTF-8, places are bytes.
struct Proposer {
    /// `isAsked`: the user wants to see a list. Else it is because of what was typed last.
    std::function<ProposalList(QByteArrayView text, qsizetype caret, bool isAsked)> propose;
    /// Asks for the value first where the proposal has an editor; nothing when that was cancelled.
    std::function<std::optional<Insertion>(QByteArrayView text, qsizetype caret,
                                           const Proposal &proposal)>
        insertion;
    /// The text is another one from a place on.
    std::function<void(qsizetype from)> textChanged;

    explicit operator bool() const { return bool(propose); }
};

} // namespace quillon::ui
