// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/SpecialFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "core/RuntimeError.h"
#include "persist/BinaryFile.h"

namespace paginox {

namespace {

std::string Env(const char* name) {
    const char* v = std::getenv(name);
    return v ? std::string(v) : std::string();
}

// Trailing separators dropped, as the shell returns folders; the root becomes "" so that
// appending "/name" still gives "/name".
std::string WithoutTrailingSlash(std::string path) {
    while (!path.empty() && path.back() == '/') path.pop_back();
    return path;
}

std::string Home() {
    std::string home = Env("HOME");
    if (home.empty()) {
        if (const passwd* pw = getpwuid(getuid()); pw && pw->pw_dir) home = pw->pw_dir;
    }
    return WithoutTrailingSlash(home);
}

// An XDG base folder from its variable, which only counts when it is absolute.
std::string XdgFolder(const char* variable, const std::string& fallback) {
    std::string v = Env(variable);
    if (!v.empty() && v[0] == '/') return WithoutTrailingSlash(v);
    return fallback;
}

std::string ConfigFolder() {
    return XdgFolder("XDG_CONFIG_HOME", Home() + "/.config");
}

// XDG_DOCUMENTS_DIR from the user-dirs file: "$HOME/..." or an absolute path, in quotes.
std::string UserDirsDocuments() {
    std::istringstream in;
    try {
        in.str(ReadWholeFile(ConfigFolder() + "/user-dirs.dirs"));
    } catch (const RuntimeError&) {
        return "";
    }
    std::string line;
    const std::string key = "XDG_DOCUMENTS_DIR=";
    while (std::getline(in, line)) {
        if (line.rfind(key, 0) != 0) continue;
        std::string v = line.substr(key.size());
        if (v.size() < 2 || v.front() != '"' || v.back() != '"') return "";
        v = v.substr(1, v.size() - 2);
        if (v.rfind("$HOME", 0) == 0) return WithoutTrailingSlash(Home() + v.substr(5));
        return v.empty() || v[0] != '/' ? "" : WithoutTrailingSlash(v);
    }
    return "";
}

std::string DocumentsFolder() {
    std::string docs = XdgFolder("XDG_DOCUMENTS_DIR", "");
    if (docs.empty()) docs = UserDirsDocuments();
    return docs.empty() ? Home() + "/Documents" : docs;
}

std::shared_ptr<const SpecialFolders>& Current() {
    static std::shared_ptr<const SpecialFolders> current = std::make_shared<SystemSpecialFolders>();
    return current;
}

}  // namespace

std::string SystemSpecialFolders::Folder(int32_t id) const {
    switch (id) {
        case kDocumentsFolderId:
            return DocumentsFolder();
        case kAppDataFolderId:
            return ConfigFolder();
        case kLocalAppDataFolderId:
            return XdgFolder("XDG_DATA_HOME", Home() + "/.local/share");
        case kProgramFilesFolderId:
            return "/opt";
        case kCommonFilesFolderId:
            return "/usr/share";
        default:
            return "";
    }
}

std::string SystemSpecialFolders::TemporaryFolder() const {
    std::string tmp = WithoutTrailingSlash(Env("TMPDIR"));
    return tmp.empty() ? "/tmp" : tmp;
}

std::string SystemSpecialFolders::WindowsFolder() const {
    return ConfigFolder();
}

std::string SystemSpecialFolders::ProgramFolder() const {
    std::error_code ec;
    auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    return ec ? std::string() : exe.parent_path().string();
}

const SpecialFolders& ProcessSpecialFolders() {
    return *Current();
}

std::shared_ptr<const SpecialFolders> ProcessSpecialFoldersShared() {
    return Current();
}

void SetProcessSpecialFolders(std::shared_ptr<const SpecialFolders> folders) {
    if (folders) Current() = std::move(folders);
}

std::string HomeFolder() {
    return Home();
}

std::string GetSpecialFolder(int32_t id, const SpecialFolders& folders) {
    std::string path = folders.Folder(id);
    if (!path.empty()) return path;
#ifdef _WIN32
    if (id == kCommonFilesFolderId) return "C:\\Program Files\\Common Files";
    if (id == kLocalAppDataFolderId) return "C:\\Windows\\Local Settings\\Application Data";
#else
    // The nearest machine-wide equivalents here.
    if (id == kCommonFilesFolderId) return "/usr/share";
    if (id == kLocalAppDataFolderId) return "/var/tmp";
#endif
    return "";
}

}  // namespace paginox
