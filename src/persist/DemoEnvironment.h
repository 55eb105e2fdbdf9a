// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Running without an installed host: when the host's settings file is missing from the
// Windows folder, the program runs on a demo environment, a writable copy of the bundled
// sample data under its own data folder, laid out like a real installation and found through
// the very same folder rules.
//
// The sample folder holds System/ (the system data folder's files), LocalAppData/ (the files
// of the host's local application data folder) and User Files/ (the user folder tree).

#include <memory>
#include <string>

#include "persist/SpecialFolders.h"

namespace paginox {

struct FolderEnvironment {
    std::shared_ptr<const SpecialFolders> Special;  // the folders to run on
    bool UsingDemoData = false;
    std::string DemoRoot;  // the demo environment's folder, with a trailing "/", when in use
};

// The real folders when the host's "Veltrane9.ini" exists in their Windows folder; otherwise
// the demo environment under LocalAppData/Paginox/Demo/, seeded from sampleFolder once, on
// first use, when seed is set; after that the user's deletions, renames and permissions in it
// stand. Its settings are kept pointing into its own folder, wherever that has been moved.
// When there is no demo environment and none can be made, the real folders are kept.
FolderEnvironment PrepareFolderEnvironment(std::shared_ptr<const SpecialFolders> real,
                                           const std::string& sampleFolder, bool seed = true);

// The sample data shipped with the program: share/paginox/sample of its installation prefix,
// or "sample" beside it, one or two levels up (a build tree). Empty when none is found.
std::string FindSampleFolder(const std::string& programFolder);

// Start-up's folder step: chooses the environment, makes it the process's, and fills
// AppFolders() in start-up mode. True when demo data is in use.
bool InitFolders(const std::string& sampleFolder, bool seed = true);

}  // namespace paginox
