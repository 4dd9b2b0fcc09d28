#include "view/controls/text_box.h"

#include <QColor>

#include <algorithm>
#include <array>
#include <cmath>

namespace quillon::controls {

namespace {

constexpr QRgb ink = qRgb(0x1f, 0x1f, 0x1f);
constexpr QRgb paper = qRgb(0xff, 0xff, 0xff);
constexpr QRgb lockedPaper = qRgb(0xf2, 0xf2, 0xf2);
constexpr QRgb currentLine = qRgb(0xf3, 0xf7, 0xfd);
constexpr QRgb selection = qRgb(0xb4, 0xd5, 0xfe);
constexpr QRgb lineNumberInk = qRgb(0x70, 0x70, 0x70);
constexpr QRgb lineNumberPaper = qRgb(0xf6, 0xf6, 0xf6);

constexpr QRgb tag = qRgb(0x99, 0x00, 0x00);
constexpr QRgb attribute = qRgb(0xa8, 0x54, 0x00);
constexpr QRgb string = qRgb(0x0b, 0x4f, 0x9e);
constexpr QRgb comment = qRgb(0x70, 0x70, 0x70);
constexpr QRgb entity = qRgb(0x7a, 0x2e, 0x96);
constexpr QRgb cdata = qRgb(0x00, 0x69, 0x5c);
constexpr QRgb instruction = qRgb(0x3f, 0x55, 0x8c);

/// A range of Scintilla's XML styles. Its headers have numbers for them but no names.
struct StyleRange {
    int first;
    int last;
    QRgb colour;
};

constexpr std::array xmlStyles{
    StyleRange{1, 2, tag},             // name of an element, with its opening bracket
    StyleRange{3, 4, attribute},       // name of an attribute
    StyleRange{5, 5, string},          // value without quotes
    StyleRange{6, 7, string},          // value in double and in single quotes
    StyleRange{8, 8, tag},             // anything else in a tag
    StyleRange{9, 9, comment},         // comment
    StyleRange{10, 10, entity},        // entity and character reference
    StyleRange{11, 11, tag},           // end of an empty element
    StyleRange{12, 13, instruction},   // brackets of an instruction
    StyleRange{17, 17, cdata},         // CDATA section
    StyleRange{18, 18, instruction},   // content of an instruction
    StyleRange{19, 19, string},        // value without quotes
    StyleRange{21, 28, instruction},   // document type
    StyleRange{29, 30, comment},       // comment within it
    StyleRange{31, 31, instruction},   // internal subset
    StyleRange{118, 127, instruction}, // content of a "<?php" instruction
};

/// Scintilla's colours have their red in the lowest byte.
constexpr long scintillaColour(QRgb colour) {
    return qRed(colour) | qGreen(colour) << 8 | qBlue(colour) << 16;
}

int digitsOf(long number) {
    int digits = 1;
    for (; number >= 10; number /= 10)
        ++digits;
    return digits;
}

} // namespace

void TextBox::setUpView() {
    send(SCI_CLEARALLCMDKEYS);
    // Exactly a tab; in front of a line's first word it would else become an indent.
    send(SCI_SETTABINDENTS, false);
    send(SCI_USEPOPUP, SC_POPUP_NEVER);
    send(SCI_SETRECTANGULARSELECTIONMODIFIER, 0);
    send(SCI_SETSCROLLWIDTHTRACKING, true);
    send(SCI_SETSCROLLWIDTH, 1);
    send(SCI_SETMARGINTYPEN, LineNumberMargin, SC_MARGIN_NUMBER);
    send(SCI_SETMARGINLEFT, 0, 4);
    send(SCI_SETSELBACK, true, scintillaColour(selection));
    setUpMarks();
    setUpLayout();
}

void TextBox::setLanguage(Language language) {
    if (language_ == language)
        return;
    language_ = language;
    send(SCI_SETLEXER, language == Language::Xml ? SCLEX_XML : SCLEX_NULL);
    if (language == Language::Plain)
        send(SCI_CLEARDOCUMENTSTYLE);
    // What stands in a <script> is text like any other.
    SendScintilla(SCI_SETPROPERTY, "lexer.xml.allow.scripts", "0");
    layOutFor(send(SCI_GETLENGTH));
}

void TextBox::setTextFont(const QString &family, double size) {
    fontFamily_ = family.toUtf8();
    fontSize_ = size;
    applyStyles();
}

void TextBox::applyStyles() {
    const long back = scintillaColour(locked_ ? lockedPaper : paper);
    SendScintilla(SCI_STYLESETFONT, static_cast<unsigned long>(STYLE_DEFAULT),
                  fontFamily_.constData());
    send(SCI_STYLESETSIZEFRACTIONAL, STYLE_DEFAULT,
         std::lround(fontSize_ * int{SC_FONT_SIZE_MULTIPLIER}));
    send(SCI_STYLESETFORE, STYLE_DEFAULT, scintillaColour(ink));
    send(SCI_STYLESETBACK, STYLE_DEFAULT, back);
    send(SCI_STYLECLEARALL);
    for (const StyleRange &range : xmlStyles) {
        for (int style = range.first; style <= range.last; ++style)
            send(SCI_STYLESETFORE, style, scintillaColour(range.colour));
    }
    send(SCI_STYLESETFORE, STYLE_LINENUMBER, scintillaColour(lineNumberInk));
    send(SCI_STYLESETBACK, STYLE_LINENUMBER, scintillaColour(lineNumberPaper));
    send(SCI_SETCARETLINEBACK, scintillaColour(currentLine));
    send(SCI_SETCARETLINEVISIBLE, !locked_);
    colourLayout();
    lineNumberDigits_ = 0;
    fitLineNumbers();
}

void TextBox::fitLineNumbers() {
    // Where the numbers are not known yet there is room for those of the text alone.
    const long last = send(SCI_GETLINECOUNT) + long(firstLineNumber_.value_or(1)) - 1;
    const int digits = std::max(2, digitsOf(last));
    if (digits == lineNumberDigits_)
        return;
    lineNumberDigits_ = digits;
    // One more makes the distance to the text.
    const QByteArray sample(digits + 1, '9');
    const long width = SendScintilla(SCI_TEXTWIDTH, static_cast<unsigned long>(STYLE_LINENUMBER),
                                     sample.constData());
    send(SCI_SETMARGINWIDTHN, LineNumberMargin, width);
}

} // namespace quillon::controls
