// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// File > Open Recent: the last pages opened or saved, newest first, kept in the settings
// file's "Recent Files" section as File1 to File8.

#include <string>
#include <vector>

namespace paginox {

class RecentFiles {
  public:
    static constexpr int kMaxFiles = 8;

    // Reads the list from the settings file.
    static RecentFiles Load();

    const std::vector<std::string>& Files() const { return files_; }
    // What the menu shows of each file: its name, and where names repeat the folder it is in
    // (the folder's whole path where those repeat too).
    std::vector<std::string> Labels() const;
    // Puts path (native, made absolute) first, once, and saves the list.
    void Add(const std::string& path);
    // Drops the files that are no longer there and saves the list; returns those dropped.
    std::vector<std::string> DropMissing();
    void Clear();

  private:
    void Save() const;
    std::vector<std::string> files_;
};

}  // namespace paginox
