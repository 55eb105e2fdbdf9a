// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/Folders.h"

#include <filesystem>

#include "core/AnsiText.h"
#include "core/Checked.h"
#include "persist/PrivateProfile.h"

namespace paginox {

namespace {

// The eleventh name is empty on purpose: entry 17 repeats the user folder.
const std::array<std::string, Folders::kSubFolderCount> kSubFolders = {
    "Charts",
    "Aspects",
    "Points & Colors",
    "Pages",
    "Wheels & Dials",
    "Almutens & Dignities",
    "Tasks",
    "Interpretations",
    "Places",
    "Maps",
    "",
    "Settings",
    "Recovery",
    "Databases",
};

const std::array<std::string, 7> kFirstNames = {"Program Files",   "Swiss Ephemeris", "Asteroids",
                                                "AppData Roaming", "AppData Local",   "User Files",
                                                "Temporary"};

bool gStartingUp = false;

// "\Quillon\Veltrane\v9\" with the separator in use.
std::string HostSubPath(char sep) {
    std::string s(1, sep);
    return s + "Quillon" + sep + "Veltrane" + sep + "v9" + sep;
}

// A bare file name lives in the Windows folder; anything with a separator is taken as given.
std::string HostIniPath(const std::string& fileName, const SpecialFolders& special, char sep) {
    if (fileName.find(sep) != std::string::npos) return fileName;
    return PathJoin(special.WindowsFolder(), fileName, sep);
}

// A folder named in a settings file: Windows-1252 there, a native path here (under Wine the
// host's Windows path mapped through the prefix).
std::string HostFolder(const std::string& file, std::string_view key, const std::string& def,
                       const SpecialFolders& special) {
    auto v = LookUpProfileString(file, "Veltrane", key);
    return v ? special.NativePath(Cp1252ToUtf8(Trim(*v))) : Trim(def);
}

}  // namespace

const std::string& Folders::SubFolderName(int16_t k) {
    CheckIndex(k, 0, kSubFolderCount - 1);
    return kSubFolders[k];
}

std::string Folders::DefaultUserFolder(const SpecialFolders& special, char sep) {
    return GetSpecialFolder(kDocumentsFolderId, special) + sep + "Veltrane User Files";
}

void Folders::FindFolders(int16_t mode, const SpecialFolders& special, char sep) {
    if (gStartingUp) mode = 2;
    const std::string hostIni = HostIniPath(kSettingsFileName, special, sep);
    const std::string sepText(1, sep);

    switch (mode) {
        case 1:
            paths_[kSystemDataFolder] =
                GetSpecialFolder(kProgramFilesFolderId, special) + HostSubPath(sep);
            break;
        case 2:
            paths_[kSystemDataFolder] =
                PathJoin(HostFolder(hostIni, "SystemDataPath", "", special), sep);
            break;
        default:
            paths_[kSystemDataFolder] = PathJoin(special.ProgramFolder(), sep);
            break;
    }
    paths_[kRoamingDataFolder] = GetSpecialFolder(kAppDataFolderId, special) + HostSubPath(sep);
    paths_[kLocalDataFolder] = GetSpecialFolder(kLocalAppDataFolderId, special) + HostSubPath(sep);

    // The host's setting wins; the documents folder is only the default.
    paths_[kUserFolder] =
        PathJoin(HostFolder(hostIni, "UserFolder", DefaultUserFolder(special, sep), special), sep);

    paths_[kAsteroidFolder] = paths_[kSystemDataFolder] + "Asteroid" + sep;
    paths_[kSwissEphFolder] =
        GetSpecialFolder(kCommonFilesFolderId, special) + sep + "Quillon" + sep + "SwissEph" + sep;
    paths_[kTemporaryFolder] = PathJoin(special.TemporaryFolder(), sep);

    for (int16_t k = 0; k < kSubFolderCount; ++k) {
        paths_[kChartsFolder + k] = PathJoin(paths_[kUserFolder] + kSubFolders[k], sep);
        names_[kChartsFolder + k] = kSubFolders[k];
    }
    settingsFile_ = paths_[kSettingsFolder] + kSettingsFileName;
    for (size_t i = 0; i < kFirstNames.size(); ++i) names_[i] = kFirstNames[i];
}

const std::string& Folders::Path(int16_t i) const {
    CheckIndex(i, 0, kCount - 1);
    return paths_[i];
}

const std::string& Folders::DisplayName(int16_t i) const {
    CheckIndex(i, 0, kCount - 1);
    return names_[i];
}

Folders& AppFolders() {
    static Folders folders;
    return folders;
}

void SetStartingUp(bool on) {
    gStartingUp = on;
}
bool StartingUp() {
    return gStartingUp;
}

std::string PathJoin(std::string_view folder, std::string_view name, char sep) {
    std::string r(folder);
    if (r.empty() || r.back() != sep) r += sep;
    r += name;
    if (r.back() == sep) r.pop_back();
    return r;
}

bool MakePath(const std::string& path, char sep) {
    size_t last = path.rfind(sep);
    std::string parent = last == std::string::npos ? std::string() : path.substr(0, last);
    if (parent.empty()) return false;
    if (!DirExists(parent) && !MakePath(parent, sep)) return false;
    if (!path.empty() && path.back() == sep) return true;
    std::error_code ec;
    std::filesystem::create_directory(path, ec);
    return !ec && std::filesystem::is_directory(path, ec);
}

bool DirExists(const std::string& path) {
    std::error_code ec;
    return !path.empty() && std::filesystem::exists(path, ec) && !ec;
}

bool FileListed(const std::string& path, char sep) {
    namespace fs = std::filesystem;
    std::error_code ec;
    size_t last = path.rfind(sep);
    std::string pattern = last == std::string::npos ? path : path.substr(last + 1);
    if (pattern.find_first_of("*?") == std::string::npos) {
        return !path.empty() && fs::exists(path, ec) && !fs::is_directory(path, ec);
    }
    std::string folder = last == std::string::npos ? "." : path.substr(0, last + 1);
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        if (!it->is_directory(ec) && MatchesWildcard(pattern, it->path().filename().string())) {
            return true;
        }
    }
    return false;
}

std::string ReadIni(std::string_view section, std::string_view key, std::string_view def) {
    return Trim(ReadProfileString(AppFolders().SettingsFile(), section, key, def));
}

void WriteIni(std::string_view section, std::string_view key, std::string_view value) {
    if (key.empty()) {
        WriteProfileString(AppFolders().SettingsFile(), section, std::nullopt, std::nullopt);
    } else {
        WriteProfileString(AppFolders().SettingsFile(), section, key, value);
    }
}

std::string ReadHostIni(std::string_view section, std::string_view key, std::string_view def,
                        const std::string& fileName, const SpecialFolders& special, char sep) {
    return Trim(ReadProfileString(HostIniPath(fileName, special, sep), section, key, def));
}

}  // namespace paginox
