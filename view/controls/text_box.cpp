#include "view/controls/text_box.h"

#include "platform/runtime/strings.h"

#include <QAccessible>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace quillon::controls {

namespace {

constexpr unsigned long notifications =
    QsciScintillaBase::SC_MOD_INSERTTEXT | QsciScintillaBase::SC_MOD_DELETETEXT;

/// The text with each line end replaced. In one pass and into storage made once, since texts can
/// be large.
QByteArray withLineEnds(QByteArrayView text, QByteArrayView lineEnd) {
    QByteArray result;
    result.reserve(text.size() + std::ranges::count(text, '\n') * (lineEnd.size() - 1));
    while (!text.isEmpty()) {
        const auto end = std::ranges::find_if(text, [](char c) { return c == '\n' || c == '\r'; });
        const qsizetype length = end - text.begin();
        result.append(text.first(length));
        text = text.sliced(length);
        if (text.isEmpty())
            break;
        result.append(lineEnd);
        text = text.sliced(text.startsWith("\r\n") ? 2 : 1);
    }
    return result;
}

QByteArray withLf(const QByteArray &text) {
    return text.contains('\r') ? withLineEnds(text, "\n") : text;
}

bool startsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0) != 0x80;
}

/// How many places of Text() the character takes that starts with a byte: two for a line end and
/// for what UTF-16 writes as a pair.
int widthInText(char byte) {
    return byte == '\n' || static_cast<unsigned char>(byte) >= 0xf0 ? 2 : 1;
}

qsizetype lengthInText(QByteArrayView utf8) {
    qsizetype length = 0;
    for (const char byte : utf8)
        length += startsCharacter(byte) ? widthInText(byte) : 0;
    return length;
}

/// The number of bytes that make up the first `length` places of Text(), or all there are.
qsizetype bytesOf(qsizetype length, QByteArrayView utf8) {
    qsizetype at = 0;
    for (; at < utf8.size(); ++at) {
        if (!startsCharacter(utf8[at]))
            continue;
        if (length <= 0)
            break;
        length -= widthInText(utf8[at]);
    }
    return at;
}

} // namespace

TextBox::TextBox(QWidget *parent) : QsciScintillaBase(parent) {
    setUpText();
    send(SCI_SETMODEVENTMASK, notifications);
    connect(this, &TextBox::SCN_MODIFIED, this, &TextBox::textChanged);
    connect(this, &TextBox::SCN_MARGINCLICK, this,
            [this](int position, int, int margin) { clickSymbols(position, margin); });
    setUpView();
    setTextFont(font().family(), fontInfo().pointSizeF());
}

QByteArrayView TextBox::bytes() const {
    // Ahead of the length: this call puts the text into one piece.
    const void *text = SendScintillaPtrResult(SCI_GETCHARACTERPOINTER);
    return QByteArrayView(static_cast<const char *>(text), send(SCI_GETLENGTH));
}

QString TextBox::Text() const {
    return runtime::fromUtf8(withLineEnds(bytes(), "\r\n"));
}

QByteArray TextBox::utf8() const {
    return bytes().toByteArray();
}

void TextBox::setText(QByteArrayView utf8) {
    stopComposing();
    closeProposals();
    const QByteArray converted = utf8.contains('\r') ? withLineEnds(utf8, "\n") : QByteArray();
    const QByteArrayView text = converted.isNull() ? utf8 : QByteArrayView(converted);
    if (text == bytes()) {
        send(SCI_SETSEL, 0, 0);
        return;
    }
    asOneChange([&] { replaceText(text); });
    // Also in the midst of one of the user's actions: the caller has to know this for his own.
    announceChange();
}

void TextBox::replaceText(QByteArrayView text) {
    // A notification carries the text that it is about, in several copies.
    send(SCI_SETMODEVENTMASK, QAccessible::isActive() ? notifications : 0);
    send(SCI_SETREADONLY, false);
    send(SCI_SETUNDOCOLLECTION, false);
    send(SCI_EMPTYUNDOBUFFER);
    makeRoomFor(text.size());
    // Takes the caret back to the start. Setting the selection would do so, too, but measure the
    // whole first line, which can be all of the text.
    send(SCI_CLEARALL);
    // Symbols of lines that go pass on to the one that stays.
    send(SCI_MARKERDELETEALL, static_cast<unsigned long>(-1));
    marks_.clear();
    indentStep_.clear();
    send(SCI_SETXOFFSET, 0);
    layOutFor(text.size());
    // Forgets the longest line seen so far.
    send(SCI_SETSCROLLWIDTH, 1);
    SendScintilla(SCI_APPENDTEXT, static_cast<unsigned long>(text.size()), text.data());
    send(SCI_SETUNDOCOLLECTION, keepsUndo_);
    send(SCI_SETREADONLY, locked_);
    send(SCI_SETMODEVENTMASK, notifications);
    textChanged(0, 0);
}

void TextBox::setLocked(bool locked) {
    if (locked_ == locked)
        return;
    stopComposing();
    closeProposals();
    locked_ = locked;
    send(SCI_SETREADONLY, locked);
    setAttribute(Qt::WA_InputMethodEnabled, !locked);
    applyStyles();
}

qsizetype TextBox::SelStart() const {
    return lengthInText(bytes().first(send(SCI_GETSELECTIONSTART)));
}

void TextBox::setSelStart(qsizetype start) {
    const long at = bytesOf(start, bytes());
    setSelection(at, at);
}

qsizetype TextBox::SelLength() const {
    const long start = send(SCI_GETSELECTIONSTART);
    return lengthInText(bytes().sliced(start, send(SCI_GETSELECTIONEND) - start));
}

void TextBox::setSelLength(qsizetype length) {
    const long start = send(SCI_GETSELECTIONSTART);
    setSelection(start, start + bytesOf(length, bytes().sliced(start)));
}

void TextBox::select(qsizetype start, qsizetype length) {
    setSelStart(start);
    setSelLength(length);
}

void TextBox::selectBytes(qsizetype at, qsizetype length) {
    const long end = send(SCI_GETLENGTH);
    const long start = std::clamp<long>(at, 0, end);
    setSelection(start, std::clamp<long>(start + length, start, end));
}

void TextBox::replace(const std::vector<ui::TextReplacement> &replacements) {
    if (locked_)
        return;
    stopComposing();
    closeProposals();
    asOneChange([&] {
        send(SCI_BEGINUNDOACTION);
        send(SCI_BEGINUNDOACTION);
        // From the last one on, so that the places of the others hold.
        for (auto at = replacements.rbegin(); at != replacements.rend(); ++at) {
            SendScintilla(SCI_SETTARGETRANGE, at->at, at->at + at->length);
            SendScintilla(SCI_REPLACETARGET, static_cast<unsigned long>(at->text.size()),
                          at->text.constData());
        }
        send(SCI_ENDUNDOACTION);
    });
}

QString TextBox::selectedText() const {
    const long start = send(SCI_GETSELECTIONSTART);
    return runtime::fromUtf8(bytes().sliced(start, send(SCI_GETSELECTIONEND) - start));
}

void TextBox::unselect() {
    send(SCI_SETEMPTYSELECTION, send(SCI_GETSELECTIONSTART));
}

TextBox::Found TextBox::find(const QString &what, Direction direction, bool matchCase) {
    const bool forward = direction == Direction::Forward;
    const QByteArray text = what.toUtf8();
    const long from = send(forward ? SCI_GETSELECTIONEND : SCI_GETSELECTIONSTART);
    const long end = forward ? send(SCI_GETLENGTH) : 0;
    const long otherEnd = forward ? 0 : send(SCI_GETLENGTH);
    send(SCI_SETSEARCHFLAGS, matchCase ? SCFIND_MATCHCASE : 0);
    for (const auto &[start, found] :
         {std::pair(from, Found::There), std::pair(otherEnd, Found::FromOtherEnd)}) {
        send(SCI_SETTARGETSTART, start);
        send(SCI_SETTARGETEND, end);
        if (SendScintilla(SCI_SEARCHINTARGET, static_cast<unsigned long>(text.size()),
                          text.constData()) < 0)
            continue;
        setSelection(send(SCI_GETTARGETSTART), send(SCI_GETTARGETEND));
        return found;
    }
    return Found::Nowhere;
}

void TextBox::selectAll() {
    send(SCI_SELECTALL);
}

void TextBox::cut() {
    asOneChange([this] { send(SCI_CUT); });
}

void TextBox::copy() {
    send(SCI_COPY);
}

void TextBox::paste() {
    asOneChange([this] { send(SCI_PASTE); });
}

void TextBox::deleteSelection() {
    asOneChange([this] { send(SCI_CLEAR); });
}

QByteArray TextBox::fromMimeData(const QMimeData *source, bool &rectangular) const {
    const QByteArray text = QsciScintillaBase::fromMimeData(source, rectangular);
    rectangular = false;
    return withLf(text);
}

void TextBox::asOneChange(const std::function<void()> &action) {
    {
        const QScopedValueRollback deeper(actionDepth_, actionDepth_ + 1);
        action();
    }
    if (actionDepth_ == 0)
        announceChange();
}

void TextBox::announceChange() {
    if (std::exchange(changed_, false))
        Q_EMIT Change();
}

void TextBox::textChanged(int, int position) {
    if (proposer_.textChanged)
        proposer_.textChanged(position);
    if (structure_.textChanged)
        structure_.textChanged(position);
    closing_.reset();
    pairIsOld_ = true;
    fitLineNumbers();
    marksAreOld_ = true;
    coloured_ = {};
    if (writingUnfinished_)
        return;
    changed_ = true;
    if (actionDepth_ == 0)
        announceChange();
}

} // namespace quillon::controls
