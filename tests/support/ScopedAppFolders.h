// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Points the process's folder table at a fresh folder for one test (with its temporary and
// local data folders made), and puts the old table back afterwards.

#include <filesystem>

#include "persist/FakeSpecialFolders.h"
#include "persist/Folders.h"
#include "support/TempDir.h"

namespace paginox::test {

class ScopedAppFolders {
  public:
    ScopedAppFolders() : saved_(AppFolders()), special_(root_.Folder() + "root", '/') {
        AppFolders().FindFolders(0, special_, '/');
        std::filesystem::create_directories(AppFolders().Path(kTemporaryFolder));
        std::filesystem::create_directories(AppFolders().Path(kLocalDataFolder));
    }
    ~ScopedAppFolders() { AppFolders() = saved_; }
    ScopedAppFolders(const ScopedAppFolders&) = delete;
    ScopedAppFolders& operator=(const ScopedAppFolders&) = delete;

    // A folder of the test's own for files it makes.
    const TempDir& Dir() const { return root_; }

  private:
    TempDir root_;
    Folders saved_;
    FakeSpecialFolders special_;
};

}  // namespace paginox::test
