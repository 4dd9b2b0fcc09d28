#include "view/controls/progress_box.h"

#include "resources/texts.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QProgressDialog>

#include <memory>

namespace quillon::controls {

namespace texts = resources::texts;

namespace {

/// Milliseconds that work may take, or have left, without a box.
constexpr qint64 Short = 500;
/// Milliseconds between two looks at what has happened to the window.
constexpr qint64 Interval = 50;
/// Steps of the bar.
constexpr int Steps = 1000;

/// A box that leaves the screen before the work is done only if that stops the work.
class Box final : public QProgressDialog {
public:
    Box(QWidget &window, const QString &text, ui::LongWork::Stop stop)
        : QProgressDialog(
              text, stop == ui::LongWork::Stop::Offered ? texts::ButtonStop.toString() : QString(),
              0, 0, &window),
          canStop_(stop == ui::LongWork::Stop::Offered) {
        // The box stays until the work has really ended: nothing else may begin before.
        disconnect(this, SIGNAL(canceled()), this, SLOT(cancel()));
        connect(this, &QProgressDialog::canceled, this, &Box::reject);
    }

    void reject() override { isStopWanted_ = canStop_; }
    bool isStopWanted() const { return isStopWanted_; }

protected:
    void closeEvent(QCloseEvent *event) override {
        event->ignore();
        reject();
    }

private:
    const bool canStop_;
    bool isStopWanted_ = false;
};

/// Shows the box of the work under way when it is time, and keeps it up to date.
class WorkUnderWay {
public:
    WorkUnderWay(QWidget &window, const QString &text, ui::LongWork::Stop stop)
        : window_(window), text_(text), stop_(stop) {
        sinceStart_.start();
    }

    bool report(double done) {
        if (!dialog_ && isWorthIt(done))
            show();
        if (!dialog_ || sinceEvents_.elapsed() < Interval)
            return true;
        const bool known = done >= 0;
        dialog_->setMaximum(known ? Steps : 0);
        dialog_->setValue(known ? int(done * (Steps - 1)) : 0);
        QCoreApplication::processEvents();
        sinceEvents_.start();
        return !dialog_->isStopWanted();
    }

private:
    bool isWorthIt(double done) const {
        const qint64 elapsed = sinceStart_.elapsed();
        if (elapsed < Short || !window_.isVisible())
            return false;
        return done <= 0 || double(elapsed) * (1 - done) / done >= double(Short);
    }

    void show() {
        dialog_ = std::make_unique<Box>(window_, text_, stop_);
        dialog_->setWindowTitle(texts::ApplicationTitle.toString());
        dialog_->setWindowModality(Qt::ApplicationModal);
        dialog_->setAutoReset(false);
        dialog_->setMinimumWidth(dialog_->fontMetrics().averageCharWidth() * 60);
        dialog_->show();
        sinceEvents_.start();
    }

    QWidget &window_;
    const QString text_;
    const ui::LongWork::Stop stop_;
    QElapsedTimer sinceStart_;
    QElapsedTimer sinceEvents_;
    std::unique_ptr<Box> dialog_;
};

/// The window's events may bring more work, which must not be stopped by the same button.
bool isRunning = false;

} // namespace

void ProgressBox::run(const QString &text, Stop stop,
                      const std::function<void(const runtime::Progress &)> &work) {
    if (isRunning)
        return work({});
    struct Running {
        Running() { isRunning = true; }
        ~Running() { isRunning = false; }
        Running(const Running &) = delete;
        Running &operator=(const Running &) = delete;
    } const running;
    WorkUnderWay underWay(window_, text, stop);
    work([&underWay](double done) { return underWay.report(done); });
}

} // namespace quillon::controls
