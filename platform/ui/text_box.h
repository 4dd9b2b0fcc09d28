#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace quillon::ui {

/// A stretch of a text that something is wrong with.
struct TextMark {
    /// In bytes of TextBox::utf8().
    qsizetype at = 0;
    qsizetype length = 0;
    /// What it is about, for whoever has set it.
    quint32 subject = 0;
    /// The text cannot be read there; else it only breaks a rule.
    bool isBroken = false;
    /// To be read where the pointer rests.
    QString reason;

    bool operator==(const TextMark &) const = default;
};

/// A stretch of a text that is to become another one.
struct TextReplacement {
    /// In bytes of TextBox::utf8().
    qsizetype at = 0;
    qsizetype length = 0;
    QByteArray text;
};

/// A multi-line text box. The text is kept with LF line ends, whatever was set or typed. Whoever
/// puts it on the screen tells of every change of the text, also of those made here.
class TextBox {
public:
    enum class Language { Plain, Xml };

    TextBox() = default;
    TextBox(const TextBox &) = delete;
    TextBox &operator=(const TextBox &) = delete;
    virtual ~TextBox() = default;

    /// The text with CR LF line ends.
    virtual QString Text() const = 0;
    /// The text in UTF-8 with LF line ends.
    virtual QByteArray utf8() const = 0;
    /// Replaces the text, also while the box is locked, and puts the caret at its start. This is
    /// the quick way for large texts.
    virtual void setText(QByteArrayView utf8) = 0;
    void setText(const QByteArray &utf8) { setText(QByteArrayView(utf8)); }
    void setText(const QString &text) { setText(text.toUtf8()); }

    /// A locked box is greyed; its text can be selected and copied but not edited.
    virtual void setLocked(bool locked) = 0;
    /// What the text is coloured as.
    virtual void setLanguage(Language language) = 0;
    /// Selects a piece of Text() and scrolls to it: 0-based, so a line end counts two. What is
    /// beyond the text is left out.
    virtual void select(qsizetype start, qsizetype length) = 0;
    /// The same in bytes of utf8().
    virtual void selectBytes(qsizetype at, qsizetype length) = 0;
    /// Where what is typed goes, in bytes of utf8().
    virtual qsizetype caret() const = 0;
    /// Makes some replacements as one change of the text; nothing in a locked box. They are in
    /// order and do not overlap. The caret stays with what it stands at.
    virtual void replace(const std::vector<TextReplacement> &replacements) = 0;
    /// What is typed goes here from now on.
    virtual void takeFocus() = 0;
    /// Whether an input method has unfinished text in the box.
    virtual bool isComposing() const = 0;

    /// Whether the box itself can undo what is done to its text from now on. Text that is set
    /// cannot be undone, nor what was done before.
    virtual void setKeepsUndo(bool keeps) = 0;
    virtual bool canUndo() const = 0;
    virtual bool canRedo() const = 0;
    /// One step back or forth; nothing where there is none.
    virtual void undo() = 0;
    virtual void redo() = 0;
    /// From now on, 256 characters stand for bytes, from that one on for the byte 0, and are shown
    /// as hexadecimal numbers; 0 for none.
    virtual void setByteCharacters(char32_t first) = 0;
    /// Marks stretches of the text in place of those that were marked before. They move with the
    /// text, and go when it is set anew.
    virtual void setMarks(const std::vector<TextMark> &marks) = 0;
};

} // namespace quillon::ui
