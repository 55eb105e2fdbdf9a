// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/TerminationSignal.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <cerrno>
#include <csignal>

namespace paginox {

namespace {

int gPipe[2] = {-1, -1};

void Signalled(int) {
    const int saved = errno;  // the interrupted code's
    char byte = 1;
    [[maybe_unused]] ssize_t written = ::write(gPipe[0], &byte, 1);
    errno = saved;
}

}  // namespace

TerminationSignal::TerminationSignal(std::function<void()> react, QObject* parent)
    : QObject(parent), react_(std::move(react)) {
    // Neither end ever blocks (a signal arriving often must not stop the handler), nor goes
    // to programs started from here.
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, gPipe) != 0) return;
    notifier_ = new QSocketNotifier(gPipe[1], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        [[maybe_unused]] ssize_t read = ::read(gPipe[1], &byte, 1);
        if (react_) react_();
    });
    struct sigaction action = {};
    action.sa_handler = Signalled;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGHUP, &action, nullptr);
}

TerminationSignal::~TerminationSignal() {
    std::signal(SIGTERM, SIG_DFL);
    std::signal(SIGHUP, SIG_DFL);
    if (gPipe[0] >= 0) ::close(gPipe[0]), ::close(gPipe[1]);
    gPipe[0] = gPipe[1] = -1;
}

}  // namespace paginox
