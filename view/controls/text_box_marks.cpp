#include "view/controls/fault_mark.h"
#include "view/controls/scintilla_colour.h"
#include "view/controls/text_box.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace quillon::controls {

namespace {

// Of the numbers that containers of the control may use.
constexpr unsigned long InvalidIndicator = 8;
constexpr unsigned long BrokenIndicator = 9;
constexpr std::array Indicators{BrokenIndicator, InvalidIndicator};
// The later one covers the other.
constexpr unsigned long InvalidSymbol = 1;
constexpr unsigned long BrokenSymbol = 2;

constexpr int SymbolMargin = 1;
constexpr int SymbolSize = 12;

QString reasonsOf(const std::vector<ui::TextMark> &marks) {
    QStringList reasons;
    for (const ui::TextMark &mark : marks) {
        if (!reasons.contains(mark.reason))
            reasons += mark.reason;
    }
    return reasons.join(u'\n');
}

} // namespace

void TextBox::colourMarks() {
    // Different in shape as well as in colour.
    send(SCI_INDICSETSTYLE, InvalidIndicator, INDIC_SQUIGGLE);
    send(SCI_INDICSETSTYLE, BrokenIndicator, INDIC_DIAGONAL);
    send(SCI_INDICSETFORE, InvalidIndicator, scintillaColour(Colour::InvalidMark));
    send(SCI_INDICSETFORE, BrokenIndicator, scintillaColour(Colour::BrokenMark));
    for (const unsigned long indicator : Indicators)
        send(SCI_INDICSETUNDER, indicator, true);
    // Always there, so that the text keeps its place when marks come and go.
    send(SCI_SETMARGINTYPEN, SymbolMargin, SC_MARGIN_SYMBOL);
    send(SCI_SETMARGINMASKN, SymbolMargin, 1L << InvalidSymbol | 1L << BrokenSymbol);
    send(SCI_SETMARGINWIDTHN, SymbolMargin, SymbolSize + 2);
    send(SCI_SETMARGINSENSITIVEN, SymbolMargin, true);
    for (const auto &[symbol, mark] : {std::pair(InvalidSymbol, items::Mark::Invalid),
                                       std::pair(BrokenSymbol, items::Mark::Broken)}) {
        send(SCI_RGBAIMAGESETWIDTH, SymbolSize);
        send(SCI_RGBAIMAGESETHEIGHT, SymbolSize);
        SendScintilla(SCI_MARKERDEFINERGBAIMAGE, symbol, faultImage(mark, SymbolSize));
    }
}

void TextBox::setMarks(const std::vector<ui::TextMark> &marks) {
    if (marks_ == marks && !marksAreOld_)
        return;
    marks_ = marks;
    marksAreOld_ = false;
    for (const unsigned long indicator : Indicators) {
        send(SCI_SETINDICATORCURRENT, indicator);
        send(SCI_INDICATORCLEARRANGE, 0, send(SCI_GETLENGTH));
    }
    send(SCI_MARKERDELETEALL, static_cast<unsigned long>(-1));
    for (std::size_t at = 0; at < marks_.size(); ++at) {
        const ui::TextMark &mark = marks_[at];
        send(SCI_SETINDICATORCURRENT, mark.isBroken ? BrokenIndicator : InvalidIndicator);
        // The value says which mark it is.
        send(SCI_SETINDICATORVALUE, at + 1);
        send(SCI_INDICATORFILLRANGE, mark.at, mark.length);
        const long line = send(SCI_LINEFROMPOSITION, mark.at);
        const unsigned long symbol = mark.isBroken ? BrokenSymbol : InvalidSymbol;
        if ((send(SCI_MARKERGET, line) & (1L << symbol)) == 0)
            send(SCI_MARKERADD, line, symbol);
    }
}

std::vector<ui::TextMark> TextBox::marksAt(long position) const {
    std::vector<ui::TextMark> found;
    for (const unsigned long indicator : Indicators) {
        const auto value = std::size_t(send(SCI_INDICATORVALUEAT, indicator, position));
        if (value == 0 || value > marks_.size())
            continue;
        // Where several marks stand at one place only the last one has left its value.
        const ui::TextMark &last = marks_[value - 1];
        for (const ui::TextMark &mark : marks_) {
            if (mark.isBroken == last.isBroken && mark.at == last.at)
                found.push_back(mark);
        }
    }
    return found;
}

std::vector<ui::TextMark> TextBox::marksAtCaret() const {
    const long caret = send(SCI_GETCURRENTPOS);
    std::vector<ui::TextMark> found = marksAt(caret);
    return found.empty() && caret > 0 ? marksAt(caret - 1) : found;
}

QPoint TextBox::caretPoint() const {
    return caretOnScreen(send(SCI_GETCURRENTPOS)).bottomLeft();
}

std::vector<ui::TextMark> TextBox::marksInLine(long line) const {
    std::vector<ui::TextMark> found;
    const long end = send(SCI_GETLINEENDPOSITION, line);
    for (const unsigned long indicator : Indicators) {
        // From where a stretch begins or ends to where the next one does.
        for (long at = send(SCI_POSITIONFROMLINE, line), next = at; at <= end; at = next) {
            if (send(SCI_INDICATORVALUEAT, indicator, at) != 0) {
                for (const ui::TextMark &mark : marksAt(at)) {
                    if (std::ranges::find(found, mark) == found.end())
                        found.push_back(mark);
                }
            }
            next = send(SCI_INDICATOREND, indicator, at);
            if (next <= at)
                break;
        }
    }
    return found;
}

void TextBox::clickSymbols(int position, int margin) {
    const std::vector<ui::TextMark> marks = marksInLine(send(SCI_LINEFROMPOSITION, position));
    if (margin == SymbolMargin && !marks.empty())
        Q_EMIT marksClicked(marks, caretOnScreen(position).bottomLeft());
}

QString TextBox::reasonsAt(long position) const {
    return reasonsOf(marksAt(position));
}

QString TextBox::reasonsAtSymbols(const QPoint &pointer) const {
    const long start = send(SCI_GETMARGINWIDTHN, LineNumberMargin);
    if (pointer.x() < start || pointer.x() >= start + send(SCI_GETMARGINWIDTHN, SymbolMargin))
        return {};
    const long position = send(SCI_POSITIONFROMPOINT, pointer.x(), pointer.y());
    return reasonsOf(marksInLine(send(SCI_LINEFROMPOSITION, position)));
}

} // namespace quillon::controls
