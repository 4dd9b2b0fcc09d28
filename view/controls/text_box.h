#pragma once

#include "platform/ui/proposals.h"
#include "platform/ui/text_box.h"
#include "platform/ui/text_structure.h"
#include "view/controls/text_box_scintilla.h"

#include <QByteArray>
#include <QString>
#include <QTimer>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

class QHelpEvent;

namespace quillon::controls {

class ProposalPopup;

/// The text box on the screen, with line numbers and colours for XML. Ctrl+Z and Ctrl+Y are left to
/// the window, also where the box undoes by itself. Tab and Shift+Tab leave the box; Ctrl+Tab types
/// a tab.
///
/// The text is kept with LF line ends, whatever was set, typed or pasted. While an input method is
/// composing, its unfinished text is part of the box's but not announced by Change().
class TextBox : public QsciScintillaBase, public ui::TextBox {
    Q_OBJECT

public:
    explicit TextBox(QWidget *parent = nullptr);

    QString Text() const override;
    QByteArray utf8() const override;
    using ui::TextBox::setText;
    void setText(QByteArrayView utf8) override;

    bool Locked() const { return locked_; }
    void setLocked(bool locked) override;

    /// The selection as 0-based position and length in Text(), so a line end counts two. Setting
    /// the position moves the caret there and selects nothing; setting the length then selects.
    /// Values beyond the text are cut to it. Both scroll to the caret.
    qsizetype SelStart() const;
    void setSelStart(qsizetype start);
    qsizetype SelLength() const;
    void setSelLength(qsizetype length);
    void select(qsizetype start, qsizetype length) override;
    void selectBytes(qsizetype at, qsizetype length) override;
    qsizetype caret() const override { return send(SCI_GETCURRENTPOS); }
    void replace(const std::vector<ui::TextReplacement> &replacements) override;

    /// With LF line ends.
    QString selectedText() const;
    /// Leaves the caret at the start of what was selected.
    void unselect();

    enum class Direction { Forward, Backward };
    enum class Found { Nowhere, There, FromOtherEnd };
    /// Selects the next (previous) place where a text stands, behind (ahead of) the selection or
    /// the caret, else from the other end of the text, and scrolls to it.
    Found find(const QString &what, Direction direction, bool matchCase);

    void selectAll();
    void cut();
    void copy();
    void paste();

    /// Who knows what can be typed here. A list of it is shown on Ctrl+Space and, as long as
    /// proposesUnasked() says so, behind characters after which something is to be chosen.
    void setProposer(ui::Proposer proposer);
    void setProposesUnasked(bool proposes) { proposesUnasked_ = proposes; }
    bool proposesUnasked() const { return proposesUnasked_; }
    /// Shows the list for the place of the caret, if there is anything to propose.
    void showProposals();
    /// The list; null until it has been shown for the first time.
    ProposalPopup *proposalPopup() const { return popup_; }
    /// Says in plain text what is known of the byte of the text that the pointer rests on.
    std::function<QString(QByteArrayView text, qsizetype at)> describe;

    /// Who knows what belongs together in the text. What belongs to the place of the caret is
    /// marked, and an element is closed when "</" is typed, unless that is switched off.
    void setStructure(ui::TextStructure structure);
    void setClosesElements(bool closes) { closesElements_ = closes; }
    /// Takes the caret to the bracket or tag that belongs to the one at the caret; false for none.
    bool goToPartner();
    /// Takes away what closing an element has put in, if that was the last thing to happen; false
    /// when it was not. Ctrl+Z does so, too.
    bool takeBackClosing();

    /// Has what is dragged in refused if it has a format; it can still be pasted.
    void refuseDropsOf(const QStringList &formats) { refusedFormats_ = formats; }

    void setLanguage(Language language) override;
    void takeFocus() override { setFocus(); }
    bool isComposing() const override { return composing_; }
    void setKeepsUndo(bool keeps) override;
    bool canUndo() const override { return keepsUndo_ && send(SCI_CANUNDO); }
    bool canRedo() const override { return keepsUndo_ && send(SCI_CANREDO); }
    void undo() override;
    void redo() override;
    void setByteCharacters(char32_t first) override;
    void setMarks(const std::vector<ui::TextMark> &marks) override;
    /// The marks at the caret or right ahead of it.
    std::vector<ui::TextMark> marksAtCaret() const;
    /// Those that start or go on in a line, 0-based.
    std::vector<ui::TextMark> marksInLine(long line) const;
    /// Below the caret, on the screen.
    QPoint caretPoint() const;
    /// The font of the text and the line numbers; `size` in points. In place of a family that is
    /// not installed a monospaced one with Japanese characters is used, or the desktop's. Glyphs
    /// that the font lacks come from others.
    void setTextFont(const QString &family, double size);

    // How the text is laid out: text_box_layout.cpp. Texts that are set with more than 4 MB are
    // neither wrapped nor folded, and have no styles, which would take as much memory again: only
    // what is in sight is coloured (text_box_long.cpp).

    /// Lines that are longer than the box is wide go on below.
    void setWrapped(bool wrapped);
    /// Blanks, tabs and full-width blanks are to be seen.
    void setBlanksShown(bool shown);
    /// The number of the first line, 1 to begin with; none: no line has a number.
    void setFirstLineNumber(std::optional<qsizetype> number);
    /// Whether the text can be folded, which only markup can.
    bool canFold() const { return canFold_; }
    /// Hides what is in the innermost element around the caret that is not folded, as far as it
    /// stands on lines of its own, and takes the caret there.
    void foldAtCaret();
    /// Shows what is hidden behind the line of the caret.
    void unfoldAtCaret();
    /// Folds all elements in the outermost one.
    void foldAll();
    void unfoldAll();

Q_SIGNALS:
    /// The text is no longer what it was: once for each of the user's actions and for each call
    /// that changes it.
    void Change();
    /// The symbol of a line with marks has been clicked; `below` is a place below that, on the
    /// screen.
    void marksClicked(const std::vector<ui::TextMark> &marks, const QPoint &below);

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    QByteArray fromMimeData(const QMimeData *source, bool &rectangular) const override;

private:
    static constexpr int LineNumberMargin = 0;
    /// Longer texts are neither folded nor wrapped: both need all of the text to be looked at.
    static constexpr long MostLaidOut = 4'000'000;

    long send(unsigned message, unsigned long wParam = 0, long lParam = 0) const {
        return SendScintilla(message, wParam, lParam);
    }
    /// The text; good until it changes.
    QByteArrayView bytes() const;
    void deleteSelection();

    /// Has the changes of the text that an action makes announced as one.
    void asOneChange(const std::function<void()> &action);
    void announceChange();
    void textChanged(int type, int position);
    void replaceText(QByteArrayView text);

    void compose(QInputMethodEvent &event);
    void stopComposing();
    /// Switches undoing off.
    void forgetUndo();

    void setUpView();
    /// The shapes and colours of marks.
    void colourMarks();
    /// The marks at a position of the control.
    std::vector<ui::TextMark> marksAt(long position) const;
    /// Why the text there is marked, a line for each reason; empty when it is not.
    QString reasonsAt(long position) const;
    /// The same of the line whose symbols the pointer rests on; empty where it is elsewhere.
    QString reasonsAtSymbols(const QPoint &pointer) const;
    void clickSymbols(int position, int margin);
    void applyStyles();
    void fitLineNumbers();

    void setUpLayout();
    void colourLayout();
    /// Settles whether a text of that length is wrapped and folded.
    void layOutFor(long length);
    void knowFoldsUpTo(long line);
    void unfoldLines(long first, long last);
    /// Shows the lines of a selection if they are folded, selects it and scrolls to the caret.
    void setSelection(long anchor, long caret);
    void sightChanged(int what);

    // Long texts: text_box_long.cpp.

    /// What belongs to the text, and so has to be said again of another one.
    void setUpText();
    /// Has the control ready for a text of a length, with an empty one in it or the one before.
    void makeRoomFor(qsizetype length);
    void chooseLexer();
    void colourIndicators();
    /// Colours what is in sight of a long text.
    void colourSight();

    /// The first and the last line in sight.
    std::pair<long, long> linesInSight() const;
    void boxWideBlanks();
    void numberLines();

    // What belongs together in the text: text_box_structure.cpp.

    std::optional<ui::TextPair> pairAtCaret() const;
    void showPair();
    void colourPairs();
    /// Makes an end tag of a "</" that has just been typed.
    void closeElement();
    bool canTakeBackClosing() const;
    /// Whether a key takes back the closing of an element.
    bool isTakingBack(const QKeyEvent &event) const;
    /// Whether a key moves the lines of a selection further in or out.
    bool isIndentKey(const QKeyEvent &event) const;
    void indentSelection(bool inward);
    /// How the text is indented around some lines: by a tab or by so many blanks.
    QByteArray foundIndentStep(long first, long last) const;
    /// Good until the text changes.
    QByteArrayView lineAt(long line) const;

    bool isRefused(const QMimeData &offered) const;

    // What can be typed here: text_box_proposals.cpp.

    void propose(bool isAsked);
    /// Whether a list may be wanted behind what has been typed last.
    bool callsForProposals() const;
    bool takeKeyForProposals(const QKeyEvent &event);
    void closeProposals();
    bool isKeyForProposals(const QKeyEvent &event) const;
    /// What the list shows follows what has been typed, and it closes where the caret leaves its
    /// place.
    void followCaret();
    /// What has been typed of the word that the list is for; nothing where the caret is elsewhere.
    std::optional<QString> typedOfWord() const;
    void takeProposal(const ui::Proposal &proposal);
    QRect caretOnScreen(long at) const;
    void showDescription(const QHelpEvent &event);

    bool locked_ = false;
    bool keepsUndo_ = false;
    char32_t firstByteCharacter_ = 0;
    /// Known by the values of the indicators, which move with the text.
    std::vector<ui::TextMark> marks_;
    /// The text has changed since, so the control has them at other places or not at all.
    bool marksAreOld_ = false;
    QStringList refusedFormats_;
    Language language_ = Language::Plain;
    QByteArray fontFamily_;
    double fontSize_ = 0;
    /// How many digits the line numbers' margin has room for.
    int lineNumberDigits_ = 0;
    std::optional<qsizetype> firstLineNumber_ = 1;
    bool wrapped_ = false;
    bool canFold_ = false;
    /// The text was set as a long one.
    bool isLong_ = false;
    /// What of a long text is coloured, as it now stands.
    std::pair<long, long> coloured_;
    bool blanksShown_ = false;
    bool hasBoxedBlanks_ = false;

    ui::TextStructure structure_;
    std::optional<ui::TextPair> shownPair_;
    /// The text has changed since, so the control has it at other places or not at all.
    bool pairIsOld_ = false;
    QTimer pairTimer_;
    bool closesElements_ = true;
    /// What has closed an element, while nothing has been typed since.
    std::optional<ui::TextStretch> closing_;
    /// What the text is indented by, once that has been looked for; what is indented here looks as
    /// if it were by more.
    QByteArray indentStep_;

    /// The text holds some that an input method has not finished.
    bool composing_ = false;
    /// It stands for what was selected before.
    bool composedOverSelection_ = false;
    /// Such text is being written or taken back.
    bool writingUnfinished_ = false;
    /// The text has changed and this has not been announced yet.
    bool changed_ = false;
    ui::Proposer proposer_;
    ProposalPopup *popup_ = nullptr;
    bool proposesUnasked_ = false;
    /// The key that is being handled has typed something.
    bool hasTyped_ = false;

    /// How many actions, each started by the one before, are changing the text.
    int actionDepth_ = 0;
};

} // namespace quillon::controls
