#include "view/controls/text_box.h"

namespace quillon::controls {

namespace {

constexpr char32_t ByteCount = 256;

} // namespace

void TextBox::setKeepsUndo(bool keeps) {
    stopComposing();
    forgetUndo();
    keepsUndo_ = keeps;
    send(SCI_SETUNDOCOLLECTION, keeps);
}

void TextBox::forgetUndo() {
    send(SCI_SETUNDOCOLLECTION, false);
    send(SCI_EMPTYUNDOBUFFER);
}

void TextBox::undo() {
    stopComposing();
    closeProposals();
    if (!locked_ && canUndo())
        asOneChange([this] { send(SCI_UNDO); });
}

void TextBox::redo() {
    stopComposing();
    closeProposals();
    if (!locked_ && canRedo())
        asOneChange([this] { send(SCI_REDO); });
}

void TextBox::setByteCharacters(char32_t first) {
    if (firstByteCharacter_ == first)
        return;
    for (const char32_t start : {firstByteCharacter_, first}) {
        for (char32_t byte = 0; start != 0 && byte < ByteCount; ++byte) {
            const char32_t character = start + byte;
            const QByteArray utf8 = QString::fromUcs4(&character, 1).toUtf8();
            const QByteArray number = QByteArray::number(byte, 16).toUpper().rightJustified(2, '0');
            if (start == first)
                SendScintilla(SCI_SETREPRESENTATION, utf8.constData(), number.constData());
            else
                SendScintilla(SCI_CLEARREPRESENTATION, utf8.constData(), nullptr);
        }
    }
    firstByteCharacter_ = first;
}

} // namespace quillon::controls
