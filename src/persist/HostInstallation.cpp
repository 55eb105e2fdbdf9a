// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/HostInstallation.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "core/AnsiText.h"
#include "persist/BinaryFile.h"
#include "persist/Folders.h"
#include "persist/PrivateProfile.h"
#include "persist/WinePrefix.h"

namespace paginox {

namespace fs = std::filesystem;

namespace {

// The system's folders with the Windows folder where the user's settings file lies.
class ChosenFolder : public SpecialFolders {
  public:
    ChosenFolder(std::string folder, std::shared_ptr<const SpecialFolders> system)
        : folder_(std::move(folder)), system_(std::move(system)) {}
    std::string Folder(int32_t id) const override { return system_->Folder(id); }
    std::string TemporaryFolder() const override { return system_->TemporaryFolder(); }
    std::string WindowsFolder() const override { return folder_; }
    std::string ProgramFolder() const override { return system_->ProgramFolder(); }

  private:
    std::string folder_;
    std::shared_ptr<const SpecialFolders> system_;
};

bool HoldsSettings(const SpecialFolders& special) {
    return FileExists(PathJoin(special.WindowsFolder(), kSettingsFileName, '/'));
}

// The prefixes a front-end keeps, each a folder of folderOfPrefixes.
std::vector<std::string> PrefixesIn(const fs::path& folderOfPrefixes) {
    std::vector<std::string> prefixes;
    std::error_code ec;
    for (fs::directory_iterator it(folderOfPrefixes, ec), end; !ec && it != end; it.increment(ec)) {
        if (WinePrefix::IsPrefix(it->path().string())) prefixes.push_back(it->path().string());
    }
    std::sort(prefixes.begin(), prefixes.end());
    return prefixes;
}

std::string& Chosen() {
    static std::string chosen;
    return chosen;
}

HostInstallation& Current() {
    static HostInstallation current;
    return current;
}

}  // namespace

std::vector<HostInstallation> FindHostInstallations(std::shared_ptr<const SpecialFolders> system,
                                                    const std::string& chosen,
                                                    const std::string& home) {
    std::vector<std::pair<std::string, std::string>> prefixes;  // kind, folder
    std::vector<HostInstallation> found;
    auto tryPrefix = [&](const std::string& kind, const std::string& folder) {
        if (folder.empty() || !WinePrefix::IsPrefix(folder)) return;
        auto special = std::make_shared<WineSpecialFolders>(WinePrefix(folder), system);
        if (HoldsSettings(*special)) found.push_back({kind, folder, special});
    };
    if (!chosen.empty()) {
        auto folder = std::make_shared<ChosenFolder>(chosen, system);
        if (HoldsSettings(*folder)) {
            found.push_back({"chosen", chosen, folder});
        } else {
            tryPrefix("chosen", chosen);
        }
    }
    if (HoldsSettings(*system)) found.push_back({"native", system->WindowsFolder(), system});
    if (const char* prefix = std::getenv("WINEPREFIX")) tryPrefix("WINEPREFIX", prefix);
    tryPrefix("~/.wine", home + "/.wine");
    const std::pair<const char*, fs::path> frontEnds[] = {
        {"Bottles", fs::path(home) / ".local/share/bottles/bottles"},
        {"Bottles", fs::path(home) / ".var/app/com.usebottles.bottles/data/bottles/bottles"},
        {"Lutris", fs::path(home) / "Games"},
        {"PlayOnLinux", fs::path(home) / ".PlayOnLinux/wineprefix"},
        {"CrossOver", fs::path(home) / ".cxoffice"},
    };
    for (const auto& [kind, folder] : frontEnds) {
        for (const std::string& prefix : PrefixesIn(folder)) tryPrefix(kind, prefix);
    }
    return found;
}

std::string OwnSettingsFile() {
    return SystemSpecialFolders().Folder(kAppDataFolderId) + "/Paginox/Paginox.ini";
}

std::string SavedHostChoice() {
    return Cp1252ToUtf8(ReadProfileString(OwnSettingsFile(), "Installation", "Folder", ""));
}

bool SaveHostChoice(const std::string& folder) {
    std::error_code ec;
    fs::create_directories(fs::path(OwnSettingsFile()).parent_path(), ec);
    if (folder.empty())
        return WriteProfileString(OwnSettingsFile(), "Installation", "Folder", std::nullopt);
    return WriteProfileString(OwnSettingsFile(), "Installation", "Folder", Utf8ToCp1252(folder));
}

void SetChosenHost(const std::string& folder) {
    Chosen() = folder;
}

const std::string& ChosenHost() {
    return Chosen();
}

const HostInstallation& CurrentHost() {
    return Current();
}

void SetCurrentHost(HostInstallation host) {
    Current() = std::move(host);
}

}  // namespace paginox
