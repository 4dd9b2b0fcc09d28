#include "view/controls/scintilla_colour.h"
#include "view/controls/text_box.h"

#include <algorithm>

namespace quillon::controls {

namespace {

/// So many bytes of what is in sight are searched for wide blanks; lines can be very long.
constexpr long MostSearched = 64 * 1024;

constexpr unsigned long FoldMargin = 2;
constexpr long FoldMarginWidth = 14;
/// Of the numbers that containers of the control may use.
constexpr unsigned long BlankIndicator = 10;
/// The full-width blank of Japanese, in UTF-8.
constexpr char WideBlank[] = "\xe3\x80\x80";

constexpr std::pair<unsigned long, long> FoldSymbols[] = {
    {TextBox::SC_MARKNUM_FOLDEROPEN, TextBox::SC_MARK_BOXMINUS},
    {TextBox::SC_MARKNUM_FOLDER, TextBox::SC_MARK_BOXPLUS},
    {TextBox::SC_MARKNUM_FOLDERSUB, TextBox::SC_MARK_VLINE},
    {TextBox::SC_MARKNUM_FOLDERTAIL, TextBox::SC_MARK_LCORNER},
    {TextBox::SC_MARKNUM_FOLDEREND, TextBox::SC_MARK_BOXPLUSCONNECTED},
    {TextBox::SC_MARKNUM_FOLDEROPENMID, TextBox::SC_MARK_BOXMINUSCONNECTED},
    {TextBox::SC_MARKNUM_FOLDERMIDTAIL, TextBox::SC_MARK_TCORNER},
};

} // namespace

void TextBox::setUpLayout() {
    send(SCI_SETMARGINTYPEN, FoldMargin, SC_MARGIN_SYMBOL);
    send(SCI_SETMARGINMASKN, FoldMargin, long{SC_MASK_FOLDERS});
    send(SCI_SETMARGINSENSITIVEN, FoldMargin, true);
    send(SCI_SETMARGINWIDTHN, FoldMargin, 0);
    send(SCI_SETAUTOMATICFOLD,
         SC_AUTOMATICFOLD_SHOW | SC_AUTOMATICFOLD_CLICK | SC_AUTOMATICFOLD_CHANGE);
    for (const auto &[symbol, shape] : FoldSymbols)
        send(SCI_MARKERDEFINE, symbol, shape);
    send(SCI_SETWRAPVISUALFLAGS, SC_WRAPVISUALFLAG_END);
    send(SCI_SETWRAPINDENTMODE, SC_WRAPINDENT_SAME);
    send(SCI_INDICSETSTYLE, BlankIndicator, INDIC_STRAIGHTBOX);
    send(SCI_INDICSETALPHA, BlankIndicator, 0);
    send(SCI_INDICSETOUTLINEALPHA, BlankIndicator, 255);
    connect(this, &TextBox::SCN_UPDATEUI, this, &TextBox::sightChanged);
}

void TextBox::colourLayout() {
    const long paper = scintillaColour(Colour::FoldPaper);
    const long blanks = scintillaColour(Colour::BlankInk);
    send(SCI_SETFOLDMARGINCOLOUR, true, paper);
    send(SCI_SETFOLDMARGINHICOLOUR, true, paper);
    for (const auto &[symbol, shape] : FoldSymbols) {
        send(SCI_MARKERSETFORE, symbol, paper);
        send(SCI_MARKERSETBACK, symbol, scintillaColour(Colour::FoldInk));
    }
    send(SCI_SETWHITESPACEFORE, true, blanks);
    send(SCI_INDICSETFORE, BlankIndicator, blanks);
}

void TextBox::layOutFor(long length) {
    const bool isLaidOut = length <= MostLaidOut;
    canFold_ = isLaidOut && language_ == Language::Xml;
    // What a lexer is told about folding it forgets when another one takes its place.
    for (const char *property : {"fold", "fold.html"})
        SendScintilla(SCI_SETPROPERTY, property, canFold_ ? "1" : "0");
    SendScintilla(SCI_SETPROPERTY, "fold.compact", "0");
    send(SCI_SETMARGINWIDTHN, FoldMargin, canFold_ ? FoldMarginWidth : 0);
    // Within words, too: Japanese has no blanks to break lines at.
    send(SCI_SETWRAPMODE, wrapped_ && isLaidOut ? SC_WRAP_CHAR : SC_WRAP_NONE);
}

void TextBox::setWrapped(bool wrapped) {
    wrapped_ = wrapped;
    layOutFor(send(SCI_GETLENGTH));
}

void TextBox::setBlanksShown(bool shown) {
    blanksShown_ = shown;
    send(SCI_SETVIEWWS, shown ? SCWS_VISIBLEALWAYS : SCWS_INVISIBLE);
    boxWideBlanks();
}

void TextBox::setFirstLineNumber(std::optional<qsizetype> number) {
    if (firstLineNumber_ == number)
        return;
    firstLineNumber_ = number;
    numberLines();
}

// ---- Folding

void TextBox::foldAtCaret() {
    if (!canFold_)
        return;
    long line = send(SCI_LINEFROMPOSITION, send(SCI_GETCURRENTPOS));
    knowFoldsUpTo(line);
    const auto isOpenHead = [this](long at) {
        return (send(SCI_GETFOLDLEVEL, at) & SC_FOLDLEVELHEADERFLAG) != 0 &&
               send(SCI_GETFOLDEXPANDED, at) != 0;
    };
    while (line >= 0 && !isOpenHead(line))
        line = send(SCI_GETFOLDPARENT, line);
    if (line < 0)
        return;
    // Ahead of it: a caret in lines that are not to be seen would open them again.
    send(SCI_GOTOPOS, send(SCI_GETLINEINDENTPOSITION, line));
    send(SCI_FOLDLINE, line, SC_FOLDACTION_CONTRACT);
}

void TextBox::unfoldAtCaret() {
    const long line = send(SCI_LINEFROMPOSITION, send(SCI_GETCURRENTPOS));
    send(SCI_FOLDLINE, line, SC_FOLDACTION_EXPAND);
}

void TextBox::foldAll() {
    if (!canFold_)
        return;
    const long count = send(SCI_GETLINECOUNT);
    knowFoldsUpTo(count - 1);
    // The outermost element stays open: one line would be all that is left.
    constexpr long Outermost = SC_FOLDLEVELBASE;
    long caretLine = send(SCI_LINEFROMPOSITION, send(SCI_GETCURRENTPOS));
    for (long line = 0; line < count; ++line) {
        const long level = send(SCI_GETFOLDLEVEL, line);
        if ((level & SC_FOLDLEVELHEADERFLAG) == 0 || (level & SC_FOLDLEVELNUMBERMASK) <= Outermost)
            continue;
        const long last = send(SCI_GETLASTCHILD, line, -1);
        if (caretLine > line && caretLine <= last)
            send(SCI_GOTOPOS, send(SCI_GETLINEINDENTPOSITION, line));
        send(SCI_FOLDLINE, line, SC_FOLDACTION_CONTRACT);
        line = std::max(line, last);
    }
}

void TextBox::unfoldAll() {
    send(SCI_FOLDALL, SC_FOLDACTION_EXPAND);
}

void TextBox::unfoldLines(long first, long last) {
    if (send(SCI_GETALLLINESVISIBLE))
        return;
    for (long line = first; line <= last; ++line) {
        if (!send(SCI_GETLINEVISIBLE, line))
            send(SCI_ENSUREVISIBLE, line);
    }
}

void TextBox::setSelection(long anchor, long caret) {
    const auto [start, end] = std::minmax(anchor, caret);
    unfoldLines(send(SCI_LINEFROMPOSITION, start), send(SCI_LINEFROMPOSITION, end));
    send(SCI_SETSEL, anchor, caret);
}

void TextBox::knowFoldsUpTo(long line) {
    // What a line begins is known at its end.
    const bool isLast = line + 1 >= send(SCI_GETLINECOUNT);
    const long end = isLast ? send(SCI_GETLENGTH) : send(SCI_POSITIONFROMLINE, line + 1);
    const long styled = send(SCI_GETENDSTYLED);
    if (styled < end)
        send(SCI_COLOURISE, styled, end);
}

// ---- What is in sight

void TextBox::sightChanged(int what) {
    numberLines();
    boxWideBlanks();
    colourSight();
    if (structure_ && (what & (SC_UPDATE_SELECTION | SC_UPDATE_CONTENT)) != 0)
        pairTimer_.start();
}

std::pair<long, long> TextBox::linesInSight() const {
    const long first = send(SCI_GETFIRSTVISIBLELINE);
    const long last = first + send(SCI_LINESONSCREEN) + 1;
    return {send(SCI_DOCLINEFROMVISIBLE, first),
            std::min(send(SCI_DOCLINEFROMVISIBLE, last), send(SCI_GETLINECOUNT) - 1)};
}

void TextBox::boxWideBlanks() {
    if (!blanksShown_ && !hasBoxedBlanks_)
        return;
    send(SCI_SETINDICATORCURRENT, BlankIndicator);
    hasBoxedBlanks_ = blanksShown_;
    if (!blanksShown_) {
        send(SCI_INDICATORCLEARRANGE, 0, send(SCI_GETLENGTH));
        return;
    }
    const auto [first, last] = linesInSight();
    const long start = send(SCI_POSITIONFROMLINE, first);
    const long length = std::min(send(SCI_GETLINEENDPOSITION, last) - start, MostSearched);
    send(SCI_INDICATORCLEARRANGE, start, length);
    const auto *seen = reinterpret_cast<const char *>(send(SCI_GETRANGEPOINTER, start, length));
    // Copied, as setting an indicator may move the text.
    const QByteArray text(seen, length);
    for (qsizetype at = text.indexOf(WideBlank); at >= 0; at = text.indexOf(WideBlank, at + 3))
        send(SCI_INDICATORFILLRANGE, start + at, 3);
}

void TextBox::numberLines() {
    const bool isOwn = firstLineNumber_ == 1;
    const auto wanted = static_cast<long>(isOwn ? SC_MARGIN_NUMBER : SC_MARGIN_RTEXT);
    if (send(SCI_GETMARGINTYPEN, LineNumberMargin) != wanted) {
        send(SCI_MARGINTEXTCLEARALL);
        send(SCI_SETMARGINTYPEN, LineNumberMargin, wanted);
    }
    fitLineNumbers();
    if (isOwn)
        return;
    // Only of the lines in sight: numbers of lines go along with them when others come and go.
    const auto [first, last] = linesInSight();
    for (long line = first; line <= last; ++line) {
        const QByteArray number =
            firstLineNumber_ ? QByteArray::number(*firstLineNumber_ + line) : QByteArray();
        QByteArray present(send(SCI_MARGINGETTEXT, line), '\0');
        if (!present.isEmpty())
            SendScintilla(SCI_MARGINGETTEXT, static_cast<unsigned long>(line), present.data());
        if (present == number)
            continue;
        SendScintilla(SCI_MARGINSETTEXT, static_cast<unsigned long>(line), number.constData());
        send(SCI_MARGINSETSTYLE, line, STYLE_LINENUMBER);
    }
}

} // namespace quillon::controls
