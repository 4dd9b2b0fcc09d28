#include "view/controls/markup_colours.h"
#include "view/controls/scintilla_colour.h"
#include "view/controls/text_box.h"

#include <algorithm>
#include <array>

namespace quillon::controls {

namespace {

/// Both in bytes; lines can be very long.
constexpr long MostColoured = 64 * 1024;
constexpr long MostAhead = 64 * 1024;

struct ColourIndicator {
    Colour colour;
    /// Of the numbers that containers of the control may use.
    unsigned long number;
};

constexpr std::array Indicators{
    ColourIndicator{Colour::TagInk, 12},    ColourIndicator{Colour::AttributeInk, 13},
    ColourIndicator{Colour::StringInk, 14}, ColourIndicator{Colour::CommentInk, 15},
    ColourIndicator{Colour::EntityInk, 16}, ColourIndicator{Colour::InstructionInk, 17},
    ColourIndicator{Colour::CDataInk, 18},
};

} // namespace

void TextBox::setUpText() {
    send(SCI_SETCODEPAGE, SC_CP_UTF8);
    send(SCI_SETEOLMODE, SC_EOL_LF);
    send(SCI_SETUNDOCOLLECTION, false);
    // Exactly a tab; in front of a line's first word it would else become an indent.
    send(SCI_SETTABINDENTS, false);
    // What the control shows otherwise it forgets with the text.
    setByteCharacters(std::exchange(firstByteCharacter_, 0));
    chooseLexer();
}

void TextBox::makeRoomFor(qsizetype length) {
    const bool wasLong = std::exchange(isLong_, length > MostLaidOut);
    if (!wasLong && !isLong_)
        return;
    // Without a length: the library would make twice the room.
    const long options = isLong_ ? SC_DOCUMENTOPTION_STYLES_NONE : SC_DOCUMENTOPTION_DEFAULT;
    const long made = send(SCI_CREATEDOCUMENT, 0, options);
    send(SCI_SETDOCPOINTER, 0, made);
    send(SCI_RELEASEDOCUMENT, 0, made);
    setUpText();
}

void TextBox::chooseLexer() {
    const bool hasColours = language_ == Language::Xml && !isLong_;
    send(SCI_SETLEXER, hasColours ? SCLEX_XML : SCLEX_NULL);
    // What stands in a <script> is text like any other.
    SendScintilla(SCI_SETPROPERTY, "lexer.xml.allow.scripts", "0");
}

void TextBox::colourIndicators() {
    for (const ColourIndicator &indicator : Indicators) {
        send(SCI_INDICSETSTYLE, indicator.number, INDIC_TEXTFORE);
        send(SCI_INDICSETFORE, indicator.number, scintillaColour(indicator.colour));
    }
}

void TextBox::colourSight() {
    const bool hasColours = isLong_ && language_ == Language::Xml;
    if (!hasColours && coloured_ == std::pair(0L, 0L))
        return;
    const auto [first, last] = linesInSight();
    const long start = send(SCI_POSITIONFROMLINE, first);
    const long end = std::min(send(SCI_GETLINEENDPOSITION, last), start + MostColoured);
    const std::pair wanted = hasColours ? std::pair(start, end) : std::pair(0L, 0L);
    // Colouring is news of the text itself, which must come to an end.
    if (coloured_ == wanted)
        return;
    coloured_ = wanted;
    for (const ColourIndicator &indicator : Indicators) {
        send(SCI_SETINDICATORCURRENT, indicator.number);
        send(SCI_INDICATORCLEARRANGE, 0, send(SCI_GETLENGTH));
    }
    if (!hasColours)
        return;
    const long ahead = std::min(start, MostAhead);
    const auto *seen = reinterpret_cast<const char *>(
        send(SCI_GETRANGEPOINTER, start - ahead, end - start + ahead));
    // All of them, before an indicator moves the text.
    const std::vector<ColouredStretch> found =
        markupColours(QByteArrayView(seen, end - start + ahead), ahead, end - start + ahead);
    for (const ColouredStretch &stretch : found) {
        const auto *const indicator =
            std::ranges::find(Indicators, stretch.colour, &ColourIndicator::colour);
        send(SCI_SETINDICATORCURRENT, indicator->number);
        send(SCI_INDICATORFILLRANGE, start - ahead + stretch.at, stretch.length);
    }
}

} // namespace quillon::controls
