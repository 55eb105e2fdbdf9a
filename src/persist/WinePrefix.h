// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The host under Wine: a prefix folder with its drives (dosdevices), its Windows folder
// (drive_c/windows) and its registry's shell folders; Windows paths mapped to files here and
// back, each component found without regard to letter case, as Windows does.

#include <optional>
#include <string>
#include <vector>

#include "persist/SpecialFolders.h"

namespace paginox {

class WinePrefix {
  public:
    explicit WinePrefix(std::string root);

    // Whether dir looks like a prefix: it holds drive_c or dosdevices.
    static bool IsPrefix(const std::string& dir);
    const std::string& Root() const { return root_; }

    // A Windows path (C:\..., with "\" or "/") as a file here: the drive through dosdevices
    // (any letter), "." and ".." resolved, each component matched without letter case where
    // the exact one is missing. Nothing for a drive the prefix lacks or a path with no drive.
    std::optional<std::string> ToUnix(const std::string& windowsPath) const;
    // A path here as the host sees it, in the form Wine's winepath -w gives: the drive whose
    // folder holds it most closely, else \\?\unix followed by the path.
    std::string ToWindows(const std::string& unixPath) const;

    // A shell folder of the user's registry ("Personal", "AppData", "Local AppData"), from
    // "User Shell Folders" with %USERPROFILE% and the like expanded, else "Shell Folders"; as
    // a Windows path.
    std::optional<std::string> ShellFolder(const std::string& name) const;
    // The user's profile folder, C:\users\NAME, as a Windows path.
    std::string UserProfile() const;
    // The user's temporary folder (the registry's TEMP), as a Windows path.
    std::string TemporaryFolder() const;

  private:
    std::string Expand(const std::string& value) const;
    std::string root_;
    std::vector<std::pair<std::string, std::string>> userFolders_;   // User Shell Folders
    std::vector<std::pair<std::string, std::string>> shellFolders_;  // Shell Folders
    std::vector<std::pair<std::string, std::string>> environment_;   // the user's variables
};

// The special folders as the host under Wine sees them; paths in its settings and pages map
// through the prefix.
class WineSpecialFolders : public SpecialFolders {
  public:
    WineSpecialFolders(WinePrefix prefix, std::shared_ptr<const SpecialFolders> system);

    std::string Folder(int32_t id) const override;
    std::string TemporaryFolder() const override;
    std::string WindowsFolder() const override;
    std::string ProgramFolder() const override;
    std::string NativePath(const std::string& stored) const override;
    std::string HostPath(const std::string& native) const override;
    const WinePrefix& Prefix() const { return prefix_; }

  private:
    std::string Mapped(const std::string& windowsPath) const;
    WinePrefix prefix_;
    std::shared_ptr<const SpecialFolders> system_;
};

}  // namespace paginox
