// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The editor's start-up, in the host's order: the second-copy question, the screen's
// constants, the folders and the definitions, then the main window on the command line.

#include <QString>

namespace paginox {

class GuardedApplication;

// Asks whether to start another copy while one is running; true to go on.
bool ConfirmSecondCopy();

// Where the lock that tells a running copy lives: the runtime folder, else the temporary one.
QString InstanceLockPath();

// Runs the editor until its window closes; the exit status.
int RunEditor(GuardedApplication& app);

}  // namespace paginox
