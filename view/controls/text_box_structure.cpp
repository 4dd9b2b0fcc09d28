#include "platform/ui/error_boundary.h"
#include "view/controls/scintilla_colour.h"
#include "view/controls/text_box.h"

#include <QKeyEvent>

#include <algorithm>
#include <limits>

namespace quillon::controls {

using ui::guarded;

namespace {

/// Of the numbers that containers of the control may use.
constexpr unsigned long PairIndicator = 11;
/// A caret that is on its way is not followed.
constexpr int PairDelayMs = 50;
/// How far from the selected lines it is looked for how deep a text is indented.
constexpr long LinesAround = 50;
constexpr qsizetype UsualStep = 2;

/// The blanks, but no tabs, that a line begins with; -1 where nothing else is on the line.
qsizetype blanksAhead(QByteArrayView line) {
    const auto end = std::ranges::find_if(line, [](char c) { return c != ' '; });
    return end == line.end() ? -1 : end - line.begin();
}

/// A line one step further in or out.
QByteArray indented(QByteArrayView line, const QByteArray &step, bool inward) {
    if (line.trimmed().isEmpty())
        return line.toByteArray();
    if (inward)
        return step + line.toByteArray();
    if (line.startsWith('\t'))
        return line.sliced(1).toByteArray();
    return line.sliced(std::clamp<qsizetype>(blanksAhead(line), 0, step.size())).toByteArray();
}

} // namespace

void TextBox::setStructure(ui::TextStructure structure) {
    structure_ = std::move(structure);
    if (structure_.textChanged)
        structure_.textChanged(0);
    pairTimer_.setSingleShot(true);
    pairTimer_.setInterval(PairDelayMs);
    connect(&pairTimer_, &QTimer::timeout, this, &TextBox::showPair);
    send(SCI_INDICSETSTYLE, PairIndicator, INDIC_FULLBOX);
    send(SCI_INDICSETALPHA, PairIndicator, 255);
    send(SCI_INDICSETOUTLINEALPHA, PairIndicator, 255);
    send(SCI_INDICSETUNDER, PairIndicator, true);
}

void TextBox::colourPairs() {
    send(SCI_INDICSETFORE, PairIndicator, scintillaColour(Colour::MatchPaper));
}

// ---- Pairs

std::optional<ui::TextPair> TextBox::pairAtCaret() const {
    std::optional<ui::TextPair> pair;
    if (structure_ && !composing_)
        guarded([&] { pair = structure_.pairAt(bytes(), caret(), language_); });
    return pair;
}

void TextBox::showPair() {
    const std::optional<ui::TextPair> pair = pairAtCaret();
    if (pair == shownPair_ && !pairIsOld_)
        return;
    shownPair_ = pair;
    pairIsOld_ = false;
    send(SCI_SETINDICATORCURRENT, PairIndicator);
    send(SCI_INDICATORCLEARRANGE, 0, send(SCI_GETLENGTH));
    if (!pair)
        return;
    for (const ui::TextStretch &stretch : {pair->here, pair->partner})
        send(SCI_INDICATORFILLRANGE, stretch.at, stretch.length);
}

bool TextBox::goToPartner() {
    const std::optional<ui::TextPair> pair = pairAtCaret();
    if (!pair)
        return false;
    setSelection(pair->partner.at, pair->partner.at);
    return true;
}

// ---- Closing elements

void TextBox::closeElement() {
    if (!closesElements_ || !structure_ || locked_ || language_ != Language::Xml || composing_)
        return;
    const long at = send(SCI_GETCURRENTPOS);
    if (at < 2 || send(SCI_GETCHARAT, at - 2) != '<')
        return;
    QByteArray text;
    guarded([&] { text = structure_.closing(bytes(), at); });
    if (text.isEmpty())
        return;
    SendScintilla(SCI_ADDTEXT, static_cast<unsigned long>(text.size()), text.constData());
    closing_ = {at, text.size()};
}

bool TextBox::canTakeBackClosing() const {
    return closing_ && !keepsUndo_ && caret() == closing_->at + closing_->length;
}

bool TextBox::takeBackClosing() {
    if (!canTakeBackClosing())
        return false;
    replace({{closing_->at, closing_->length, {}}});
    return true;
}

// ---- Indenting

bool TextBox::isIndentKey(const QKeyEvent &event) const {
    const bool isKey = (event.key() == Qt::Key_Tab && event.modifiers() == Qt::NoModifier) ||
                       (event.key() == Qt::Key_Backtab && event.modifiers() == Qt::ShiftModifier);
    return isKey && !locked_ && !composing_ &&
           send(SCI_LINEFROMPOSITION, send(SCI_GETSELECTIONSTART)) !=
               send(SCI_LINEFROMPOSITION, send(SCI_GETSELECTIONEND));
}

QByteArrayView TextBox::lineAt(long line) const {
    const long start = send(SCI_POSITIONFROMLINE, line);
    return bytes().sliced(start, send(SCI_GETLINEENDPOSITION, line) - start);
}

QByteArray TextBox::foundIndentStep(long first, long last) const {
    const long from = std::max(1L, first - LinesAround);
    const long to =
        std::min({last + LinesAround, first + 2 * LinesAround, send(SCI_GETLINECOUNT) - 1});
    constexpr qsizetype None = std::numeric_limits<qsizetype>::max();
    qsizetype step = None;
    // The first line of an element's source has none of the indent that it has in the file.
    qsizetype previous = -1;
    for (long line = from; line <= to; ++line) {
        const QByteArrayView text = lineAt(line);
        if (text.startsWith('\t'))
            return "\t";
        const qsizetype blanks = blanksAhead(text);
        if (blanks < 0)
            continue;
        if (previous >= 0 && blanks != previous)
            step = std::min(step, std::abs(blanks - previous));
        previous = blanks;
    }
    return QByteArray(step == None ? UsualStep : step, ' ');
}

void TextBox::indentSelection(bool inward) {
    const long first = send(SCI_LINEFROMPOSITION, send(SCI_GETSELECTIONSTART));
    const long selectionEnd = send(SCI_GETSELECTIONEND);
    long last = send(SCI_LINEFROMPOSITION, selectionEnd);
    // Of a line at whose start the selection ends nothing is selected.
    if (selectionEnd == send(SCI_POSITIONFROMLINE, last))
        --last;
    if (indentStep_.isEmpty())
        indentStep_ = foundIndentStep(first, last);
    QByteArrayList lines;
    for (long line = first; line <= last; ++line)
        lines.append(indented(lineAt(line), indentStep_, inward));
    const QByteArray text = lines.join('\n');
    const long start = send(SCI_POSITIONFROMLINE, first);
    const long end = send(SCI_GETLINEENDPOSITION, last);
    if (text == bytes().sliced(start, end - start))
        return;
    closeProposals();
    replace({{start, end - start, text}});
    setSelection(start, start + text.size());
}

} // namespace quillon::controls
