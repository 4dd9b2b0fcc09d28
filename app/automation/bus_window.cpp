#include "app/automation/bus_window.h"

#include "platform/ui/error_boundary.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QEventLoopLocker>

namespace quillon::app {

namespace {

constexpr int RetryMs = 100;

/// The bus has no empty variant.
QDBusVariant emptyVariant() {
    return QDBusVariant(QString());
}

/// Keeps the program running while the form lives, shown or not. The connection owns the locker
/// and goes with the form.
void keepRunningFor(const frmMain &form) {
    QObject::connect(&form, &QObject::destroyed,
                     [locker = std::make_shared<QEventLoopLocker>()] {});
}

} // namespace

BusWindow::BusWindow(std::unique_ptr<Window> window, int graceMs) : window_(std::move(window)) {
    grace_.setSingleShot(true);
    grace_.setInterval(graceMs);
    connect(&grace_, &QTimer::timeout, this, [this] {
        release();
        runInTurn([this] { Q_EMIT abandoned(); });
    });
    retry_.setSingleShot(true);
    retry_.setInterval(RetryMs);
    connect(&retry_, &QTimer::timeout, this, &BusWindow::runJobs);
    connect(window_.get(), &Window::unloaded, this, &BusWindow::reconsider);
    keepRunningFor(*window_->form());
}

void BusWindow::setVisible(bool visible) {
    ui::guarded([&] { window_->setVisible(visible); });
    reconsider();
}

void BusWindow::addClient(const QString &busName) {
    clients_.insert(busName);
    reconsider();
}

void BusWindow::removeClient(const QString &busName) {
    if (clients_.remove(busName))
        reconsider();
}

QDBusVariant BusWindow::OpenFile(const QString &path) {
    noteCaller();
    if (calledFromDBus()) {
        setDelayedReply(true);
        connection().send(message().createReply(QVariant::fromValue(emptyVariant())));
    }
    runInTurn([this, path] { window_->OpenFile(path); });
    return emptyVariant();
}

QDBusVariant BusWindow::Save() {
    noteCaller();
    window_->Save();
    return emptyVariant();
}

QDBusVariant BusWindow::SaveAs(const QDBusVariant &argument) {
    noteCaller();
    window_->SaveAs(argument.variant());
    return emptyVariant();
}

QDBusVariant BusWindow::Quit() {
    noteCaller();
    window_->Quit();
    return emptyVariant();
}

void BusWindow::CloseWindow() {
    noteCaller();
    release();
}

void BusWindow::noteCaller() {
    if (calledFromDBus())
        Q_EMIT called(message().service());
}

void BusWindow::release() {
    frmMain *const released = window_->form();
    window_->CloseWindow();
    if (!released || released->isVisible())
        return;
    runInTurn([form = QPointer<frmMain>(released)] {
        // Whoever does not let it go, because of changes that are not saved, gets to see it.
        if (form && !form->close())
            form->show();
    });
}

void BusWindow::reconsider() {
    if (!clients_.isEmpty() || window_->Visible())
        grace_.stop();
    else if (!grace_.isActive())
        grace_.start();
}

void BusWindow::runInTurn(std::function<void()> job) {
    jobs_.push_back(std::move(job));
    runJobs();
}

void BusWindow::runJobs() {
    if (running_)
        return;
    running_ = true;
    while (!jobs_.empty() && !QApplication::activeModalWidget()) {
        const std::function<void()> job = std::move(jobs_.front());
        jobs_.pop_front();
        ui::guarded(job);
    }
    running_ = false;
    if (!jobs_.empty())
        retry_.start();
    reconsider();
}

} // namespace quillon::app
