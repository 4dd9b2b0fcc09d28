#include "validation/pane_syntax.h"

#include "platform/ui/error_boundary.h"
#include "resources/live_texts.h"
#include "resources/syntax_texts.h"

#include <QDataStream>
#include <QIODevice>

namespace quillon::validation {

namespace texts = resources::syntax_texts;
using ui::guarded;
using xml::SyntaxFault;
using xml::SyntaxMend;

namespace {

/// From the last key to looking at the text. Shorter than anybody waits, longer than quick
/// keystrokes are apart.
constexpr std::chrono::milliseconds Soon(100);
/// Looking at so much is not to be felt.
constexpr qsizetype LooksAtOnce = 1'000'000;

/// What is found out about a text, on its way from a child process.
QByteArray found(const QByteArray &text, const xml::SyntaxScope &scope) {
    QByteArray bytes;
    const std::optional<SyntaxFault> fault = xml::firstSyntaxFault(text, scope);
    if (!fault)
        return bytes;
    const xml::TextPlace place = xml::placeInText(text, fault->start);
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << quint8(fault->kind) << qint64(fault->start) << qint64(fault->length)
        << qint64(fault->noticedAt) << fault->sentence << place.line << place.column;
    return bytes;
}

} // namespace

PaneSyntax::PaneSyntax(const tree::PaneContent &pane, ui::LongWork &longWork)
    : pane_(pane), longWork_(longWork) {
    soon_.setSingleShot(true);
    connect(&soon_, &QTimer::timeout, this, [this] { guarded([this] { check(); }); });
    connect(&child_, &xml::BackgroundChild::finished, this, &PaneSyntax::take);
    // It may be too much for the child. The status bar tells that there is an error.
    connect(&child_, &xml::BackgroundChild::failed, this, [this] { take({}); });
}

void PaneSyntax::textChanged() {
    ++text_;
    child_.giveUp();
    if (scope && scope()) {
        soon_.start(Soon);
        return;
    }
    soon_.stop();
    if (fault_)
        take({});
}

void PaneSyntax::check() {
    const std::optional<xml::SyntaxScope> part = scope();
    if (!part)
        return take({});
    const QByteArray text = pane_.textBox().utf8();
    if (text.size() <= LooksAtOnce)
        take(found(text, *part));
    else
        child_.start([text, part] { return found(text, *part); });
}

void PaneSyntax::catchUp() {
    if (!soon_.isActive())
        return;
    soon_.stop();
    check();
}

void PaneSyntax::take(const QByteArray &found) {
    fault_.reset();
    if (!found.isEmpty()) {
        QDataStream in(found);
        quint8 kind = 0;
        qint64 start = 0;
        qint64 length = 0;
        qint64 noticedAt = 0;
        QString sentence;
        in >> kind >> start >> length >> noticedAt >> sentence >> place_.line >> place_.column;
        fault_ = {xml::SyntaxFaultKind(kind), start, length, noticedAt, sentence};
    }
    Q_EMIT checked();
}

QString PaneSyntax::told() const {
    return fault_ ? texts::FaultAt.toString().arg(QString::number(place_.line),
                                                  QString::number(place_.column), fault_->sentence)
                  : QString();
}

std::optional<ui::TextMark> PaneSyntax::mark(quint32 subject) const {
    if (!fault_)
        return std::nullopt;
    return ui::TextMark{
        fault_->start, fault_->length, subject, true,
        resources::live_texts::SyntaxAt.toString().arg(
            QString::number(place_.line), QString::number(place_.column), fault_->sentence)};
}

bool PaneSyntax::goTo() {
    catchUp();
    if (!fault_ || isChecking())
        return false;
    pane_.textBox().selectBytes(fault_->start, fault_->length);
    pane_.textBox().takeFocus();
    return true;
}

std::vector<SyntaxMend> PaneSyntax::mends() {
    catchUp();
    const std::optional<xml::SyntaxScope> part = scope();
    if (!part || !fault_ || isChecking())
        return {};
    mendedText_ = text_;
    const QByteArray text = pane_.textBox().utf8();
    std::vector<SyntaxMend> found;
    longWork_.run(texts::LookingForMends.toString(), ui::LongWork::Stop::Offered,
                  [&](const runtime::Progress &progress) {
                      found = xml::syntaxMends(text, *fault_, *part, progress);
                  });
    return found;
}

void PaneSyntax::mend(const SyntaxMend &mend) {
    if (mendedText_ != text_) {
        Q_EMIT statusText(resources::live_texts::Outdated.toString());
        return;
    }
    std::vector<ui::TextReplacement> replacements;
    for (const xml::Replacement &replacement : mend.replacements)
        replacements.push_back({replacement.start, replacement.length, replacement.text});
    pane_.textBox().takeFocus();
    pane_.textBox().replace(replacements);
    // Where something is left, the status bar says that there is.
    if (!scope())
        Q_EMIT statusText(resources::live_texts::Mended.toString().arg(mend.title));
}

} // namespace quillon::validation
