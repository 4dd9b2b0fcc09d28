#pragma once

#include "view/controls/print_preview.h"

#include <QByteArray>
#include <QProcess>
#include <QTemporaryFile>
#include <QTimer>

#include <functional>
#include <memory>

namespace quillon::browser {

class Browser;

/// The page of a browser, as it will be printed. What it looks like is a stranger's doing, so its
/// PDF is painted by a program of its own, which is bounded in time and memory.
class PdfPages : public controls::PreviewPages {
    Q_OBJECT

public:
    /// The browser must outlive it.
    explicit PdfPages(Browser &browser);
    ~PdfPages() override;

    void layOut(const QPageLayout &paper) override;
    void paint(int page, double dotsPerInch) override;

private:
    void takePdf(const QByteArray &pdf);
    /// Starts a program about the PDF, in place of the one that is running, and gives what it puts
    /// out to a function.
    void run(const QString &program, const QStringList &options,
             std::function<void(const QByteArray &output)> take);
    void stop();

    Browser &browser_;
    QTemporaryFile pdf_;
    std::unique_ptr<QProcess> process_;
    /// Counts what has been started and stopped.
    int runs_ = 0;
    QTimer timeLimit_;
};

} // namespace quillon::browser
