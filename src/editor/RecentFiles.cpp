// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/RecentFiles.h"

#include <algorithm>
#include <filesystem>

#include "core/AnsiText.h"
#include "persist/BinaryFile.h"
#include "persist/Folders.h"

namespace paginox {

namespace {

constexpr const char* kSection = "Recent Files";

std::string Key(int i) {
    return "File" + std::to_string(i + 1);
}

}  // namespace

RecentFiles RecentFiles::Load() {
    RecentFiles recent;
    for (int i = 0; i < kMaxFiles; ++i) {
        // The settings file holds Windows-1252; paths are used as UTF-8.
        std::string path = Cp1252ToUtf8(ReadIni(kSection, Key(i), ""));
        if (!path.empty()) recent.files_.push_back(path);
    }
    return recent;
}

std::vector<std::string> RecentFiles::Labels() const {
    namespace fs = std::filesystem;
    auto repeated = [&](auto part, const std::string& of) {
        return std::count_if(files_.begin(), files_.end(),
                             [&](const std::string& f) { return part(f) == part(of); }) > 1;
    };
    auto name = [](const std::string& f) { return fs::path(f).stem().string(); };
    auto folderName = [](const std::string& f) {
        return fs::path(f).parent_path().filename().string();
    };
    std::vector<std::string> labels;
    for (const std::string& f : files_) {
        std::string label = name(f);
        if (repeated(name, f)) {
            bool sameFolders =
                repeated([&](const std::string& g) { return name(g) + "/" + folderName(g); }, f);
            label +=
                " (" + (sameFolders ? fs::path(f).parent_path().string() : folderName(f)) + ")";
        }
        labels.push_back(label);
    }
    return labels;
}

void RecentFiles::Add(const std::string& given) {
    // Kept whole, so that it opens from anywhere the program is started.
    std::error_code ec;
    std::string path = std::filesystem::absolute(given, ec).lexically_normal().string();
    if (ec) path = given;
    std::erase_if(files_, [&](const std::string& f) { return f == path; });
    files_.insert(files_.begin(), path);
    if (files_.size() > size_t(kMaxFiles)) files_.resize(kMaxFiles);
    Save();
}

std::vector<std::string> RecentFiles::DropMissing() {
    std::vector<std::string> dropped;
    std::erase_if(files_, [&](const std::string& f) {
        if (FileExists(f)) return false;
        dropped.push_back(f);
        return true;
    });
    if (!dropped.empty()) Save();
    return dropped;
}

void RecentFiles::Clear() {
    files_.clear();
    Save();
}

void RecentFiles::Save() const {
    WriteIni(kSection, "", "");  // the whole section, so that no old entry lingers
    for (size_t i = 0; i < files_.size(); ++i) {
        WriteIni(kSection, Key(int(i)), Utf8ToCp1252(files_[i]));
    }
}

}  // namespace paginox
