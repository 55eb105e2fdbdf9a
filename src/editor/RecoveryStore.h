// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Recovery copies of the page being edited, kept in the user's "Recovery" folder: written
// every few minutes while there are unsaved changes, when a save at closing fails and when
// an unexpected error strikes; removed once the page is saved or closed cleanly. Copies an
// earlier run left behind are offered at the next start.

#include <string>
#include <vector>

namespace paginox {

class PageClass;

class RecoveryStore {
  public:
    // folder ends with the path separator, as the folder table gives it.
    explicit RecoveryStore(std::string folder);

    // Writes page as this run's copy, named after the page's file (or "New Page"); the
    // copy's path, or empty when it could not be written.
    std::string Keep(const PageClass& page, const std::string& currentFile);
    // Removes this run's copy, if there is one.
    void Discard();
    // This run's copy becomes path (a recovered page opened again).
    void Adopt(const std::string& path) { copy_ = path; }
    const std::string& CopyPath() const { return copy_; }

    // Copies left by runs that have ended, oldest first.
    std::vector<std::string> Leftovers() const;

  private:
    std::string folder_;
    std::string copy_;
};

}  // namespace paginox
