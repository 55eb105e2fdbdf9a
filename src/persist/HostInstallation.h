// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Where the host program is installed: its settings file "Veltrane9.ini" looked for in the
// folder the user chose, this system's Windows folder, and the Wine prefixes of
// $WINEPREFIX, ~/.wine and the usual Wine front-ends; the first found is used.

#include <memory>
#include <string>
#include <vector>

#include "persist/SpecialFolders.h"

namespace paginox {

struct HostInstallation {
    std::string Kind;    // "chosen", "native", "WINEPREFIX", "~/.wine", "Bottles", ...
    std::string Folder;  // the prefix, or the folder holding the settings file
    std::shared_ptr<const SpecialFolders> Special;  // the folders as the host sees them
};

// Every installation found, in the order they are looked for: chosen (a prefix or a folder
// holding the settings file; none when empty), then the system's Windows folder, the prefix of
// $WINEPREFIX, ~/.wine, and the prefixes of Bottles, Lutris, PlayOnLinux and CrossOver. home
// is the user's home folder.
std::vector<HostInstallation> FindHostInstallations(std::shared_ptr<const SpecialFolders> system,
                                                    const std::string& chosen,
                                                    const std::string& home);

// The installation the user chose (paginox-tool --host, the editor's setting); empty for none.
void SetChosenHost(const std::string& folder);
const std::string& ChosenHost();

// The editor's remembered choice, in Paginox's own settings file (not the host's):
// $XDG_CONFIG_HOME/Paginox/Paginox.ini, section "Installation", key "Folder".
std::string OwnSettingsFile();
std::string SavedHostChoice();
// Remembers folder (empty: none, the search decides); false when it could not be written.
bool SaveHostChoice(const std::string& folder);

// The installation the folders run on, once start-up has chosen; an empty kind for none.
const HostInstallation& CurrentHost();
void SetCurrentHost(HostInstallation host);

}  // namespace paginox
