#include "platform/xml/engine/background_child.h"

#include <QSocketNotifier>

#include <utility>

namespace quillon::xml {

namespace {

/// How often the child's time is looked at.
constexpr std::chrono::milliseconds LookEvery(100);

} // namespace

BackgroundChild::BackgroundChild(QObject *parent) : QObject(parent) {
    connect(&clock_, &QTimer::timeout, this, &BackgroundChild::look);
}

BackgroundChild::~BackgroundChild() = default;

void BackgroundChild::start(const std::function<QByteArray()> &work, const ChildLimits &limits) {
    giveUp();
    try {
        child_ = std::make_unique<ForkedChild>(work, limits);
    } catch (const runtime::Error &error) {
        // Whoever starts it expects no answer before it returns.
        unstarted_ = error;
        clock_.start(0);
        return;
    }
    reader_ = new QSocketNotifier(child_->pipe(), QSocketNotifier::Read, this);
    connect(reader_, &QSocketNotifier::activated, this, &BackgroundChild::read);
    clock_.start(LookEvery);
}

void BackgroundChild::giveUp() {
    clock_.stop();
    unstarted_.reset();
    if (reader_) {
        // It may be the one whose signal has led here.
        reader_->setEnabled(false);
        std::exchange(reader_, nullptr)->deleteLater();
    }
    child_.reset();
}

void BackgroundChild::read() {
    if (child_->read())
        return;
    QByteArray result;
    try {
        result = child_->result();
    } catch (const runtime::Error &error) {
        return tell(error);
    }
    giveUp();
    Q_EMIT finished(result);
}

void BackgroundChild::look() {
    try {
        if (unstarted_)
            throw runtime::Error(*unstarted_);
        child_->checkTime();
    } catch (const runtime::Error &error) {
        tell(error);
    }
}

void BackgroundChild::tell(const runtime::Error &error) {
    giveUp();
    Q_EMIT failed(error);
}

} // namespace quillon::xml
