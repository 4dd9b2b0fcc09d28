#pragma once

#include "platform/runtime/strings.h"
#include "platform/ui/browser.h"
#include "platform/ui/clipboard.h"
#include "platform/ui/path_box.h"
#include "platform/ui/text_box.h"

#include <QMimeData>

#include <functional>

namespace quillon::test {

/// What a window has around the logic, without a screen: each remembers what it was given, and
/// tells of changes as its widget does.

class TextBoxFake : public ui::TextBox {
public:
    QString Text() const override {
        return runtime::fromUtf8(utf8_).replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    }
    QByteArray utf8() const override { return utf8_; }
    using ui::TextBox::setText;
    void setText(QByteArrayView utf8) override {
        note();
        utf8_ = utf8.toByteArray();
        utf8_.replace("\r\n", "\n").replace('\r', '\n');
        marks.clear();
        if (changed)
            changed();
    }
    bool Locked() const { return locked_; }
    void setLocked(bool locked) override { locked_ = locked; }
    void setLanguage(Language value) override { language = value; }
    void select(qsizetype start, qsizetype length) override {
        selected = Text().mid(start, length);
        selectedAt = start;
    }
    void selectBytes(qsizetype at, qsizetype length) override {
        selected = runtime::fromUtf8(utf8_.mid(at, length));
        caretAt = at + length;
    }
    qsizetype caret() const override { return caretAt; }
    void replace(const std::vector<ui::TextReplacement> &replacements) override {
        if (locked_)
            return;
        note();
        for (auto at = replacements.rbegin(); at != replacements.rend(); ++at)
            utf8_.replace(at->at, at->length, at->text);
        if (changed)
            changed();
    }
    void takeFocus() override { hasFocus = true; }
    bool isComposing() const override { return composing; }
    void setKeepsUndo(bool keeps) override {
        keepsUndo_ = keeps;
        past_.clear();
        future_.clear();
    }
    bool canUndo() const override { return !past_.empty(); }
    bool canRedo() const override { return !future_.empty(); }
    void undo() override { step(past_, future_); }
    void redo() override { step(future_, past_); }
    void setByteCharacters(char32_t first) override { firstByteCharacter = first; }
    void setMarks(const std::vector<ui::TextMark> &value) override { marks = value; }

    std::function<void()> changed;
    Language language = Language::Plain;
    bool hasFocus = false;
    QString selected;
    qsizetype selectedAt = -1;
    /// In bytes.
    qsizetype caretAt = 0;
    std::vector<ui::TextMark> marks;
    bool composing = false;
    char32_t firstByteCharacter = 0;

private:
    using Texts = std::vector<QByteArray>;

    /// Setting a text is what tests type with, so it can be undone here.
    void note() {
        if (keepsUndo_)
            past_.push_back(utf8_);
        future_.clear();
    }
    void step(Texts &from, Texts &to) {
        if (from.empty())
            return;
        to.push_back(utf8_);
        utf8_ = from.back();
        from.pop_back();
        if (changed)
            changed();
    }

    bool keepsUndo_ = false;
    Texts past_;
    Texts future_;
    QByteArray utf8_;
    bool locked_ = false;
};

class PathBoxFake : public ui::PathBox {
public:
    QString Text() const override { return text_; }
    void setText(const QString &text) override { text_ = text; }
    QStringList List() const override { return list_; }
    void AddItem(const QString &text) override { list_.append(text); }

private:
    QString text_;
    QStringList list_;
};

class BrowserFake : public ui::Browser {
public:
    void setFiles(const QStringList &names) override { files = names; }
    void Navigate(const QString &path, const QString &subject, Colours shownIn) override {
        pages.append(path);
        colours = shownIn;
        subjects.append(subject);
    }
    void takeIn(const QString &page) override { additions.append(page); }
    void reveal(const QList<quint32> &nodes) override { revealed.append(nodes); }
    void print(const QString &documentName) override { printed.append(documentName); }

    QStringList additions;
    QList<QList<quint32>> revealed;
    QStringList files;
    /// What was shown so far, oldest first, and what was printed.
    QStringList pages;
    QStringList subjects;
    /// Those of the latest page.
    Colours colours = Colours::OfItsAuthor;
    QStringList printed;
};

class ClipboardFake : public ui::Clipboard {
public:
    QString text() const override { return data_ ? data_->text() : QString(); }
    const QMimeData *mimeData() const override { return data_.get(); }
    void setMimeData(std::unique_ptr<QMimeData> data) override { data_ = std::move(data); }
    void setText(const QString &text) {
        data_ = std::make_unique<QMimeData>();
        data_->setText(text);
    }

private:
    std::unique_ptr<QMimeData> data_;
};

} // namespace quillon::test
