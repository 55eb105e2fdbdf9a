// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Special folders under a chosen root, spelt with a chosen separator.

#include <map>
#include <string>

#include "persist/SpecialFolders.h"

namespace paginox::test {

class FakeSpecialFolders : public SpecialFolders {
  public:
    FakeSpecialFolders(std::string root, char sep) : root_(std::move(root)), sep_(sep) {}

    std::string Folder(int32_t id) const override {
        static const std::map<int32_t, std::string> names = {{kDocumentsFolderId, "Docs"},
                                                             {kAppDataFolderId, "Roaming"},
                                                             {kLocalAppDataFolderId, "Local"},
                                                             {kProgramFilesFolderId, "Programs"},
                                                             {kCommonFilesFolderId, "Common"}};
        return names.count(id) ? In(names.at(id)) : "";
    }
    std::string TemporaryFolder() const override { return In("Temp") + sep_; }
    std::string WindowsFolder() const override { return In("Windows"); }
    std::string ProgramFolder() const override { return In("Bin"); }
    std::string In(const std::string& name) const { return root_ + sep_ + name; }

  private:
    std::string root_;
    char sep_;
};

}  // namespace paginox::test
