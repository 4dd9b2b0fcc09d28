#include "document/broken_file.h"

#include "platform/runtime/error.h"
#include "platform/ui/error_boundary.h"
#include "resources/live_texts.h"
#include "resources/syntax_texts.h"

#include <chrono>
#include <utility>

namespace quillon::document {

using Outcome = TextCheck::Outcome;

namespace {

constexpr std::chrono::milliseconds Pause(100);

std::string_view viewOf(const QByteArray &text) {
    return {text.constData(), std::size_t(text.size())};
}

} // namespace

BrokenFile::BrokenFile(const state::DocumentState &state, tree::PaneContent &pane,
                       ui::LongWork &longWork)
    : state_(state), pane_(pane), longWork_(longWork) {
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, &BrokenFile::judge);
    connect(&child_, &xml::BackgroundChild::finished, this,
            [this](const QByteArray &result) { ui::guarded([&] { take(result); }); });
    connect(&child_, &xml::BackgroundChild::failed, this,
            [this](const runtime::Error &error) { Q_EMIT statusText(error.description()); });
}

void BrokenFile::show(xml::FileText text) {
    leave();
    file_ = std::move(text);
    ui::TextBox &box = pane_.textBox();
    box.setByteCharacters(file_->byteCharacters().first());
    box.setLocked(state_.m_ReadOnly);
    const std::string shown = file_->shown();
    pane_.fillMarkup(QByteArrayView(shown.data(), qsizetype(shown.size())));
    box.setKeepsUndo(true);
    goesToFault_ = true;
    judge();
}

void BrokenFile::leave() {
    if (!file_)
        return;
    pause_.stop();
    child_.giveUp();
    file_.reset();
    pane_.textBox().setKeepsUndo(false);
    pane_.textBox().setByteCharacters(0);
    setFault({});
}

std::string BrokenFile::bytes() const {
    return file_->bytesOf(viewOf(pane_.textBox().utf8()));
}

std::string BrokenFile::bytesToKeep() const {
    const QByteArray text = pane_.textBox().utf8();
    try {
        return file_->bytesOf(viewOf(text));
    } catch (const runtime::Error &) {
        return file_->bytesAsUtf8(viewOf(text));
    }
}

void BrokenFile::textChanged() {
    goesToFault_ = false;
    child_.giveUp();
    pause_.start(Pause);
    // Where it stands is known only until something is typed.
    fault_.reset();
    Q_EMIT edited();
}

void BrokenFile::judge() {
    // What an input method has not finished is no text yet.
    if (pane_.textBox().isComposing())
        return pause_.start(Pause);
    child_.start([this] { return toBytes(checkText(*file_, pane_.textBox().utf8())); });
}

void BrokenFile::take(const QByteArray &result) {
    if (pane_.textBox().isComposing())
        return pause_.start(Pause);
    TextCheck check = textCheckFrom(result);
    switch (check.outcome) {
    case Outcome::WellFormed:
        Q_EMIT mended();
        break;
    case Outcome::ReadsOtherwise:
        readAgain();
        break;
    case Outcome::Faulty:
        setFault(std::move(check.fault));
        if (std::exchange(goesToFault_, false))
            goToFault();
        break;
    }
}

void BrokenFile::readAgain() {
    std::optional<xml::FileText> text = xml::FileText::of(bytes());
    if (!text)
        return;
    const qsizetype caret = pane_.textBox().caret();
    show(std::move(*text));
    // The declaration, which has been typed, stands ahead of whatever reads otherwise.
    pane_.textBox().selectBytes(caret, 0);
    goesToFault_ = false;
}

void BrokenFile::setFault(std::optional<TextFault> fault) {
    fault_ = std::move(fault);
    std::vector<ui::TextMark> marks;
    QString text;
    if (fault_) {
        text = resources::syntax_texts::FaultAt.toString().arg(
            QString::number(fault_->place.line), QString::number(fault_->place.column),
            fault_->at.sentence);
        marks.push_back({fault_->at.start, fault_->at.length, 0, true, fault_->at.sentence});
    }
    pane_.textBox().setMarks(marks);
    Q_EMIT faultChanged();
    Q_EMIT statusText(text);
}

void BrokenFile::goToFault() {
    if (!fault_)
        return;
    pane_.textBox().selectBytes(fault_->at.start, fault_->at.length);
    pane_.textBox().takeFocus();
}

std::vector<xml::SyntaxMend> BrokenFile::mends() const {
    if (!fault_)
        return {};
    std::vector<xml::SyntaxMend> found;
    longWork_.run(resources::syntax_texts::LookingForMends.toString(), ui::LongWork::Stop::Offered,
                  [&](const runtime::Progress &progress) {
                      found = textMends(*file_, pane_.textBox().utf8(), *fault_, progress);
                  });
    return found;
}

void BrokenFile::mend(const xml::SyntaxMend &mend) {
    if (!fault_)
        return;
    std::vector<ui::TextReplacement> replacements;
    for (const xml::Replacement &replacement : mend.replacements)
        replacements.push_back({replacement.start, replacement.length, replacement.text});
    pane_.textBox().replace(replacements);
    Q_EMIT statusText(resources::live_texts::Mended.toString().arg(mend.title));
}

} // namespace quillon::document
