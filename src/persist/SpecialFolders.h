// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The system's well-known folders, behind one interface so that tests and the demo
// environment can put their own in place of the user's real ones.

#include <cstdint>
#include <memory>
#include <string>

namespace paginox {

// Shell special-folder ids the folder table asks for.
enum SpecialFolderId : int32_t {
    kDocumentsFolderId = 5,
    kAppDataFolderId = 26,
    kLocalAppDataFolderId = 28,
    kProgramFilesFolderId = 38,
    kCommonFilesFolderId = 43,
};

class SpecialFolders {
  public:
    virtual ~SpecialFolders() = default;
    // A special folder by id, without a trailing separator; empty when unknown.
    virtual std::string Folder(int32_t id) const = 0;
    // The folder for temporary files.
    virtual std::string TemporaryFolder() const = 0;
    // Where a settings file given by bare name is looked up.
    virtual std::string WindowsFolder() const = 0;
    // The folder of the running program.
    virtual std::string ProgramFolder() const = 0;
    // A path the host stored (its settings, a page) as a file here, and a file here as the
    // host would store it. The same path on this system; mapped under Wine.
    virtual std::string NativePath(const std::string& stored) const { return stored; }
    virtual std::string HostPath(const std::string& native) const { return native; }
};

// This desktop's folders: AppData = $XDG_CONFIG_HOME or ~/.config, LocalAppData =
// $XDG_DATA_HOME or ~/.local/share, Documents = the XDG documents folder or ~/Documents,
// ProgramFiles = /opt, CommonFiles = /usr/share, temporary = $TMPDIR or /tmp, and the
// Windows folder = AppData.
class SystemSpecialFolders : public SpecialFolders {
  public:
    std::string Folder(int32_t id) const override;
    std::string TemporaryFolder() const override;
    std::string WindowsFolder() const override;
    std::string ProgramFolder() const override;
};

// The folders this process runs on: the system's until start-up chooses others (a demo
// environment, say).
const SpecialFolders& ProcessSpecialFolders();
std::shared_ptr<const SpecialFolders> ProcessSpecialFoldersShared();
void SetProcessSpecialFolders(std::shared_ptr<const SpecialFolders> folders);

// The user's home folder: $HOME, else the account's.
std::string HomeFolder();

// The special folder by id, with the fixed fallbacks for common program files (43) and local
// application data (28) when the lookup finds nothing; other unknown ids give "".
std::string GetSpecialFolder(int32_t id, const SpecialFolders& folders = ProcessSpecialFolders());

}  // namespace paginox
