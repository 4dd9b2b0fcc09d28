#include "view/controls/installed_font.h"
#include "view/controls/scintilla_colour.h"
#include "view/controls/text_box.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quillon::controls {

namespace {

/// A range of Scintilla's XML styles. Its headers have numbers for them but no names.
struct StyleRange {
    int first;
    int last;
    Colour colour;
};

constexpr std::array xmlStyles{
    StyleRange{1, 2, Colour::TagInk},             // name of an element, with its opening bracket
    StyleRange{3, 4, Colour::AttributeInk},       // name of an attribute
    StyleRange{5, 5, Colour::StringInk},          // value without quotes
    StyleRange{6, 7, Colour::StringInk},          // value in double and in single quotes
    StyleRange{8, 8, Colour::TagInk},             // anything else in a tag
    StyleRange{9, 9, Colour::CommentInk},         // comment
    StyleRange{10, 10, Colour::EntityInk},        // entity and character reference
    StyleRange{11, 11, Colour::TagInk},           // end of an empty element
    StyleRange{12, 13, Colour::InstructionInk},   // brackets of an instruction
    StyleRange{17, 17, Colour::CDataInk},         // CDATA section
    StyleRange{18, 18, Colour::InstructionInk},   // content of an instruction
    StyleRange{19, 19, Colour::StringInk},        // value without quotes
    StyleRange{21, 28, Colour::InstructionInk},   // document type
    StyleRange{29, 30, Colour::CommentInk},       // comment within it
    StyleRange{31, 31, Colour::InstructionInk},   // internal subset
    StyleRange{118, 127, Colour::InstructionInk}, // content of a "<?php" instruction
};

int digitsOf(long number) {
    int digits = 1;
    for (; number >= 10; number /= 10)
        ++digits;
    return digits;
}

} // namespace

void TextBox::setUpView() {
    send(SCI_CLEARALLCMDKEYS);
    send(SCI_USEPOPUP, SC_POPUP_NEVER);
    send(SCI_SETRECTANGULARSELECTIONMODIFIER, 0);
    send(SCI_SETSCROLLWIDTHTRACKING, true);
    send(SCI_SETSCROLLWIDTH, 1);
    send(SCI_SETMARGINTYPEN, LineNumberMargin, SC_MARGIN_NUMBER);
    send(SCI_SETMARGINLEFT, 0, 4);
    setUpLayout();
    connect(&theme(), &Theme::changed, this, &TextBox::applyStyles);
}

void TextBox::setLanguage(Language language) {
    if (language_ == language)
        return;
    language_ = language;
    chooseLexer();
    if (language == Language::Plain)
        send(SCI_CLEARDOCUMENTSTYLE);
    layOutFor(send(SCI_GETLENGTH));
}

void TextBox::setTextFont(const QString &family, double size) {
    fontFamily_ = installedFamily(family).toUtf8();
    fontSize_ = size;
    applyStyles();
}

void TextBox::applyStyles() {
    const long back = scintillaColour(locked_ ? Colour::LockedPaper : Colour::Paper);
    SendScintilla(SCI_STYLESETFONT, static_cast<unsigned long>(STYLE_DEFAULT),
                  fontFamily_.constData());
    send(SCI_STYLESETSIZEFRACTIONAL, STYLE_DEFAULT,
         std::lround(fontSize_ * int{SC_FONT_SIZE_MULTIPLIER}));
    send(SCI_STYLESETFORE, STYLE_DEFAULT, scintillaColour(Colour::Ink));
    send(SCI_STYLESETBACK, STYLE_DEFAULT, back);
    send(SCI_STYLECLEARALL);
    for (const StyleRange &range : xmlStyles) {
        for (int style = range.first; style <= range.last; ++style)
            send(SCI_STYLESETFORE, style, scintillaColour(range.colour));
    }
    send(SCI_STYLESETFORE, STYLE_LINENUMBER, scintillaColour(Colour::LineNumberInk));
    send(SCI_STYLESETBACK, STYLE_LINENUMBER, scintillaColour(Colour::LineNumberPaper));
    send(SCI_SETSELBACK, true, scintillaColour(Colour::SelectionPaper));
    send(SCI_SETCARETFORE, scintillaColour(Colour::Caret));
    send(SCI_SETCARETLINEBACK, scintillaColour(Colour::CurrentLine));
    send(SCI_SETCARETLINEVISIBLE, !locked_);
    colourMarks();
    colourLayout();
    colourPairs();
    colourIndicators();
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
