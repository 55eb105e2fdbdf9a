// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The folder table: where the host program keeps its system data, the user's files and the
// settings file shared with it; plus the small path routines and the settings access that go
// with it. Paths here are native (UTF-8) and every folder path ends with the separator.
// Routines that append, search or split on the separator take it as a parameter.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "persist/SpecialFolders.h"

namespace paginox {

#ifdef _WIN32
inline constexpr char kNativeSeparator = '\\';
#else
inline constexpr char kNativeSeparator = '/';
#endif

// Entries of the folder table.
enum FolderIndex : int16_t {
    kSystemDataFolder = 0,
    kSwissEphFolder = 1,
    kAsteroidFolder = 2,
    kRoamingDataFolder = 3,
    kLocalDataFolder = 4,
    kUserFolder = 5,
    kTemporaryFolder = 6,
    kChartsFolder = 7,
    kAspectsFolder = 8,
    kPointsFolder = 9,
    kPagesFolder = 10,
    kWheelsFolder = 11,
    kAlmutensFolder = 12,
    kTasksFolder = 13,
    kInterpretationsFolder = 14,
    kPlacesFolder = 15,
    kMapsFolder = 16,
    kUserRootFolder = 17,
    kSettingsFolder = 18,
    kRecoveryFolder = 19,
    kDatabasesFolder = 20,
};

// The bare name of the settings file, both the host's and the one in the user's "Settings".
inline constexpr const char* kSettingsFileName = "Veltrane9.ini";

class Folders {
  public:
    static constexpr int16_t kCount = 21;
    static constexpr int16_t kSubFolderCount = 14;

    // Sub-folder k (0..13) of the user folder that entries 7..20 are built from; the eleventh
    // is empty, so entry 17 repeats the user folder.
    static const std::string& SubFolderName(int16_t k);

    // Fills the table and the settings file path. Mode 1 takes the system data folder from
    // the program files folder, mode 2 from the host's settings, any other the program's own
    // folder; while start-up is under way (SetStartingUp) the mode is always 2. Nothing is
    // created or checked here.
    void FindFolders(int16_t mode, const SpecialFolders& special = ProcessSpecialFolders(),
                     char sep = kNativeSeparator);
    // The user folder when the host's settings name none: in the documents folder.
    static std::string DefaultUserFolder(const SpecialFolders& special,
                                         char sep = kNativeSeparator);

    const std::string& Path(int16_t i) const;         // 0..20, else "Subscript out of range"
    const std::string& DisplayName(int16_t i) const;  // 0..20
    // Entry 18 + "Veltrane9.ini".
    const std::string& SettingsFile() const { return settingsFile_; }

  private:
    std::array<std::string, kCount> paths_;
    std::array<std::string, kCount> names_;
    std::string settingsFile_;
};

// The folder table of this process.
Folders& AppFolders();

// Start-up raises this around its call of FindFolders so that the host's settings decide.
void SetStartingUp(bool on);
bool StartingUp();

// folder + separator (unless it ends with one) + name, less one trailing separator: so
// PathJoin(x, sep) is x with exactly one trailing separator.
std::string PathJoin(std::string_view folder, std::string_view name, char sep = kNativeSeparator);
inline std::string PathJoin(std::string_view folder, char sep) {
    return PathJoin(folder, std::string_view(&sep, 1), sep);
}

// Creates the folder and any missing parents (a trailing separator names the folder before
// it). False when there is no parent in the path or a folder cannot be made; a folder that
// already exists counts as made.
bool MakePath(const std::string& path, char sep = kNativeSeparator);

// True when something (file or folder) exists at the path; any error gives false.
bool DirExists(const std::string& path);

// True when the path names a file (not a folder); "*" and "?" in the last part of the path
// match any file of that folder, ignoring letter case.
bool FileListed(const std::string& path, char sep = kNativeSeparator);

// One entry of the settings file of AppFolders(), read trimmed of spaces; a missing entry
// gives the default, also trimmed. Texts are Windows-1252.
std::string ReadIni(std::string_view section, std::string_view key, std::string_view def);
// Writes key=value; an empty key removes the whole section instead.
void WriteIni(std::string_view section, std::string_view key, std::string_view value);
// ReadIni against a named file; a bare file name is looked up in the Windows folder.
std::string ReadHostIni(std::string_view section, std::string_view key, std::string_view def,
                        const std::string& fileName,
                        const SpecialFolders& special = ProcessSpecialFolders(),
                        char sep = kNativeSeparator);

}  // namespace paginox
