// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The editor's application object, with the last-resort handler: an error that escapes every
// command's own safety net is caught where Qt delivers the event, handed to OnEscapedError
// (which keeps a recovery copy and tells the user) and the program goes on.

#include <QApplication>
#include <functional>
#include <string>

namespace paginox {

class GuardedApplication : public QApplication {
  public:
    GuardedApplication(int& argc, char** argv) : QApplication(argc, argv) {}

    bool notify(QObject* receiver, QEvent* event) override;

    // Told the error's description; set by start-up once the window exists.
    std::function<void(const std::string& description)> OnEscapedError;

  private:
    void Escaped(const std::string& description);
    bool handling_ = false;  // an error while the last one is being reported is only logged
};

}  // namespace paginox
