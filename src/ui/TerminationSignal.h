// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// SIGTERM and SIGHUP (logout, shutdown, a closed terminal) reach the program as an ordinary
// event: the handler itself only writes a byte, and the event loop calls the reaction.

#include <QObject>
#include <functional>

class QSocketNotifier;

namespace paginox {

class TerminationSignal : public QObject {
  public:
    // Installs the handlers; react runs on the event loop when a signal arrives.
    explicit TerminationSignal(std::function<void()> react, QObject* parent = nullptr);
    ~TerminationSignal() override;

  private:
    std::function<void()> react_;
    QSocketNotifier* notifier_ = nullptr;
};

}  // namespace paginox
