#include "platform/system/termination_signals.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace quillon::system {

namespace {

constexpr int Signals[] = {SIGTERM, SIGHUP, SIGINT};

/// A handler may do no more than write into this pipe.
int pipeEnds[2] = {-1, -1};

void onSignal(int) {
    const char byte = 0;
    // Nothing can be done about a full pipe, which says the same already.
    [[maybe_unused]] const ssize_t written = ::write(pipeEnds[1], &byte, 1);
}

void handleBy(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : Signals) {
        struct sigaction before {};
        // What the program was started to ignore, it goes on ignoring.
        if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
            ::sigaction(signal, &action, nullptr);
    }
}

} // namespace

TerminationSignals::TerminationSignals() {
    if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [this] {
        notifier_->setEnabled(false);
        Q_EMIT received();
    });
    handleBy(onSignal);
}

TerminationSignals::~TerminationSignals() {
    handleBy(SIG_DFL);
    notifier_.reset();
    for (int &end : pipeEnds)
        ::close(std::exchange(end, -1));
}

} // namespace quillon::system
