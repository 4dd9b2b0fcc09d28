#pragma once

#include "document/text_fault.h"
#include "platform/ui/long_work.h"
#include "platform/xml/engine/background_child.h"
#include "state/document_state.h"
#include "tree/pane_content.h"

#include <QObject>
#include <QTimer>

#include <optional>
#include <string>
#include <vector>

namespace quillon::document {

/// The text of a file that is no document, in the edit pane, where it is mended. Whenever it has
/// not been edited for a moment it is judged in a child process, which is given up when editing
/// goes on.
class BrokenFile : public QObject {
    Q_OBJECT

public:
    BrokenFile(const state::DocumentState &state, tree::PaneContent &pane, ui::LongWork &longWork);

    /// Puts a text into the pane and judges it.
    void show(xml::FileText text);
    /// To be called when the window shows something else. The pane keeps its text.
    void leave();

    /// The bytes of the file with the text that is shown. Raises Fail for a character that its
    /// encoding does not have.
    std::string bytes() const;
    /// The same for a copy that is to keep it all: with such a character, in UTF-8.
    std::string bytesToKeep() const;

    /// The first fault; nothing before it is known, and none of a text that is edited.
    const std::optional<TextFault> &fault() const { return fault_; }
    /// Whether the text that is shown has been judged.
    bool isJudged() const { return !pause_.isActive() && !child_.isRunning(); }
    /// Selects the fault and gives the pane the keyboard; nothing without one.
    void goToFault();
    /// What may be done about the fault, the most likely first; nothing without one.
    /// Raises Cancelled when the user has the looking stopped.
    std::vector<xml::SyntaxMend> mends() const;
    /// Carries out one of them, if the text is still the one they are for.
    void mend(const xml::SyntaxMend &mend);

    /// To be called when the text in the pane has changed.
    void textChanged();

Q_SIGNALS:
    /// The text has been edited.
    void edited();
    /// fault() gives something else.
    void faultChanged();
    void statusText(const QString &text);
    /// The text can be loaded as a document.
    void mended();

private:
    void judge();
    void take(const QByteArray &result);
    /// Reads the bytes anew, by the encoding that the text now declares.
    void readAgain();
    void setFault(std::optional<TextFault> fault);

    const state::DocumentState &state_;
    tree::PaneContent &pane_;
    ui::LongWork &longWork_;
    std::optional<xml::FileText> file_;
    std::optional<TextFault> fault_;
    /// The first fault is gone to when it is found, unless the user has begun to type.
    bool goesToFault_ = false;
    QTimer pause_;
    xml::BackgroundChild child_;
};

} // namespace quillon::document
