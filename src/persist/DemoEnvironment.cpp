// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/DemoEnvironment.h"

#include <filesystem>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "persist/BinaryFile.h"
#include "persist/Folders.h"
#include "persist/HostInstallation.h"
#include "persist/PrivateProfile.h"

namespace paginox {

namespace fs = std::filesystem;

namespace {

// The special folders of a demo environment: all inside its root, except the temporary and
// program folders, which stay the system's.
class DemoSpecialFolders : public SpecialFolders {
  public:
    DemoSpecialFolders(std::string root, std::shared_ptr<const SpecialFolders> real)
        : root_(std::move(root)), real_(std::move(real)) {}

    std::string Folder(int32_t id) const override {
        switch (id) {
            case kDocumentsFolderId:
                return root_ + "/Documents";
            case kAppDataFolderId:
                return root_ + "/AppData";
            case kLocalAppDataFolderId:
                return root_ + "/LocalAppData";
            case kProgramFilesFolderId:
                return root_ + "/Program Files";
            case kCommonFilesFolderId:
                return root_ + "/Common Files";
            default:
                return "";
        }
    }
    std::string TemporaryFolder() const override { return real_->TemporaryFolder(); }
    std::string WindowsFolder() const override { return root_ + "/Windows"; }
    std::string ProgramFolder() const override { return real_->ProgramFolder(); }

  private:
    std::string root_;
    std::shared_ptr<const SpecialFolders> real_;
};

// Folder rules evaluated outside start-up mode while the environment is laid out.
class NotStartingUp {
  public:
    NotStartingUp() : was_(StartingUp()) { SetStartingUp(false); }
    ~NotStartingUp() { SetStartingUp(was_); }

  private:
    bool was_;
};

std::string HostIniIn(const SpecialFolders& special) {
    return PathJoin(special.WindowsFolder(), kSettingsFileName);
}

// Copies a sample folder's tree, keeping files already there, and leaves the copy writable
// even when the installed sample data is read-only.
bool CopyTree(const fs::path& from, const std::string& to) {
    std::error_code ec;
    fs::create_directories(to, ec);
    if (ec) return false;
    if (!fs::is_directory(from, ec)) return true;
    fs::copy(from, to, fs::copy_options::recursive | fs::copy_options::skip_existing, ec);
    if (ec) return false;
    for (fs::recursive_directory_iterator it(to, ec), end; !ec && it != end; it.increment(ec)) {
        fs::permissions(it->path(), fs::perms::owner_read | fs::perms::owner_write,
                        fs::perm_options::add, ec);
    }
    return !ec;
}

// Where the folder table of the demo folders looks for each folder.
Folders DemoLayout(const SpecialFolders& demo) {
    Folders layout;
    NotStartingUp guard;
    layout.FindFolders(1, demo, '/');  // no settings file yet: program files, documents
    return layout;
}

// The demo's settings name its system and user folders: where they are now.
bool PointSettingsAt(const Folders& layout, const SpecialFolders& demo) {
    const std::string ini = HostIniIn(demo);
    const std::string user = PathJoin(Folders::DefaultUserFolder(demo, '/'), '/');
    for (auto [key, folder] : {std::pair{"SystemDataPath", layout.Path(kSystemDataFolder)},
                               std::pair{"UserFolder", user}}) {
        std::string wanted = Utf8ToCp1252(folder);
        if (ReadProfileString(ini, "Veltrane", key, "") == wanted) continue;
        if (!WriteProfileString(ini, "Veltrane", key, wanted)) return false;
    }
    return true;
}

// Lays the sample data out where the folder table of the demo folders will look for it and
// writes the host settings file last, so that an interrupted seeding is redone next time.
bool Seed(const fs::path& sample, const SpecialFolders& demo) {
    Folders layout = DemoLayout(demo);
    const std::string& system = layout.Path(kSystemDataFolder);
    const std::string& user = layout.Path(kUserFolder);
    if (!CopyTree(sample / "System", system) ||
        !CopyTree(sample / "LocalAppData", layout.Path(kLocalDataFolder)) ||
        !CopyTree(sample / "User Files", user)) {
        return false;
    }
    std::error_code ec;
    for (int16_t i : {kRoamingDataFolder, kSettingsFolder}) {
        fs::create_directories(layout.Path(i), ec);
    }
    for (int16_t k = 0; k < Folders::kSubFolderCount; ++k) {
        fs::create_directories(layout.Path(kChartsFolder + k), ec);
    }
    fs::create_directories(demo.WindowsFolder(), ec);
    if (ec) return false;
    return PointSettingsAt(layout, demo);
}

}  // namespace

FolderEnvironment PrepareFolderEnvironment(std::shared_ptr<const SpecialFolders> real,
                                           const std::string& sampleFolder, bool seed) {
    if (FileExists(HostIniIn(*real))) return {real, false, ""};
    std::string root = GetSpecialFolder(kLocalAppDataFolderId, *real) + "/Paginox/Demo";
    auto demo = std::make_shared<DemoSpecialFolders>(root, real);
    if (FileExists(HostIniIn(*demo))) {
        // Made before: only its settings follow a demo folder that was copied or moved.
        if (seed) PointSettingsAt(DemoLayout(*demo), *demo);
        return {demo, true, root + "/"};
    }
    std::error_code ec;
    bool haveSample =
        !sampleFolder.empty() && fs::is_directory(fs::path(sampleFolder) / "System", ec);
    if (!seed || !haveSample || !Seed(sampleFolder, *demo)) return {real, false, ""};
    return {demo, true, root + "/"};
}

std::string FindSampleFolder(const std::string& programFolder) {
    if (programFolder.empty()) return "";
    const fs::path prog(programFolder);
    for (const fs::path& candidate : {prog / ".." / "share" / "paginox" / "sample", prog / "sample",
                                      prog / ".." / "sample", prog / ".." / ".." / "sample"}) {
        std::error_code ec;
        if (fs::is_directory(candidate / "System", ec)) return candidate.lexically_normal();
    }
    return "";
}

bool InitFolders(const std::string& sampleFolder, bool seed) {
    std::shared_ptr<const SpecialFolders> system = ProcessSpecialFoldersShared();
    std::vector<HostInstallation> hosts = FindHostInstallations(system, ChosenHost(), HomeFolder());
    if (!ChosenHost().empty() && (hosts.empty() || hosts.front().Kind != "chosen")) {
        ShowMessage("The Veltrane installation chosen, " + Utf8ToCp1252(ChosenHost()) +
                        ", holds no " + kSettingsFileName + " any more; another is looked for.",
                    "Veltrane Installation", MsgIcon::Exclamation);
    }
    FolderEnvironment env;
    if (!hosts.empty()) {
        env = {hosts.front().Special, false, ""};
        SetCurrentHost(hosts.front());
    } else {
        env = PrepareFolderEnvironment(system, sampleFolder, seed);
        SetCurrentHost({env.UsingDemoData ? "demo" : "none",
                        env.UsingDemoData ? env.DemoRoot : std::string(), env.Special});
    }
    SetProcessSpecialFolders(env.Special);
    SetStartingUp(true);
    AppFolders().FindFolders(2, *env.Special);
    SetStartingUp(false);
    return env.UsingDemoData;
}

}  // namespace paginox
