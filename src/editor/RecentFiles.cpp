#include "editor/RecentFiles.h"

#include <algorithm>

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

void RecentFiles::Add(const std::string& path) {
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
