#include "view/browser/pdf_pages.h"

#include "resources/print_texts.h"
#include "view/browser/browser.h"

#include <QPointer>
#include <QRegularExpression>

#include <sys/resource.h>

namespace quillon::browser {

namespace texts = resources::print_texts;

namespace {

constexpr int TimeLimitMs = 30'000;
constexpr rlim_t MemoryLimit = rlim_t(1) << 30;
constexpr rlim_t SecondsLimit = 30;
const QString Package = QStringLiteral("poppler-utils");

} // namespace

PdfPages::PdfPages(Browser &browser) : browser_(browser) {
    timeLimit_.setSingleShot(true);
    timeLimit_.setInterval(TimeLimitMs);
    connect(&timeLimit_, &QTimer::timeout, this, [this] {
        stop();
        Q_EMIT failed(texts::PageTooLong.toString());
    });
}

PdfPages::~PdfPages() {
    stop();
}

void PdfPages::layOut(const QPageLayout &paper) {
    stop();
    // It may come when the preview has been closed.
    browser_.makePdf(paper, [self = QPointer(this)](const QByteArray &pdf) {
        if (self)
            self->takePdf(pdf);
    });
}

void PdfPages::takePdf(const QByteArray &pdf) {
    const bool isOpen = pdf_.isOpen() || pdf_.open();
    if (pdf.isEmpty() || !isOpen || !pdf_.resize(0) || !pdf_.seek(0) ||
        pdf_.write(pdf) != pdf.size() || !pdf_.flush()) {
        Q_EMIT failed(texts::PageGone.toString());
        return;
    }
    run(QStringLiteral("pdfinfo"), {pdf_.fileName()}, [this](const QByteArray &output) {
        static const QRegularExpression pages(QStringLiteral(R"(^Pages:\s*(\d+))"),
                                              QRegularExpression::MultilineOption);
        const int count = pages.match(QString::fromUtf8(output)).captured(1).toInt();
        if (count > 0)
            Q_EMIT laidOut(count);
        else
            Q_EMIT failed(texts::PageGone.toString());
    });
}

void PdfPages::paint(int page, double dotsPerInch) {
    const QString number = QString::number(page + 1);
    run(QStringLiteral("pdftoppm"),
        {QStringLiteral("-f"), number, QStringLiteral("-l"), number, QStringLiteral("-r"),
         QString::number(dotsPerInch, 'f', 2), pdf_.fileName()},
        [this, page](const QByteArray &output) {
            const QImage sheet = QImage::fromData(output, "ppm");
            if (sheet.isNull())
                Q_EMIT failed(texts::PageTooLong.toString());
            else
                Q_EMIT painted(page, sheet);
        });
}

void PdfPages::run(const QString &program, const QStringList &options,
                   std::function<void(const QByteArray &)> take) {
    stop();
    process_ = std::make_unique<QProcess>();
    process_->setChildProcessModifier([] {
        for (const auto &[what, most] :
             {std::pair(RLIMIT_AS, MemoryLimit), std::pair(RLIMIT_CPU, SecondsLimit)}) {
            const rlimit limit{most, most};
            ::setrlimit(what, &limit);
        }
    });
    process_->setStandardErrorFile(QProcess::nullDevice());
    // Not at once: what is told may start the next one. It is not to be told of one that has been
    // stopped meanwhile.
    const int run = ++runs_;
    connect(
        process_.get(), &QProcess::finished, this,
        [this, run, take = std::move(take)] {
            if (run != runs_)
                return;
            timeLimit_.stop();
            take(process_->readAllStandardOutput());
        },
        Qt::QueuedConnection);
    connect(
        process_.get(), &QProcess::errorOccurred, this,
        [this, run, program](QProcess::ProcessError error) {
            if (run != runs_ || error != QProcess::FailedToStart)
                return;
            timeLimit_.stop();
            Q_EMIT failed(texts::NoProgram.toString().arg(program, Package));
        },
        Qt::QueuedConnection);
    timeLimit_.start();
    process_->start(program, options);
}

void PdfPages::stop() {
    timeLimit_.stop();
    ++runs_;
    if (!process_)
        return;
    process_->disconnect(this);
    process_->kill();
    process_->waitForFinished();
    process_.reset();
}

} // namespace quillon::browser
