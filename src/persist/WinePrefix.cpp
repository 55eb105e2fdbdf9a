// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/WinePrefix.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "core/AnsiText.h"
#include "core/RuntimeError.h"
#include "persist/BinaryFile.h"

namespace paginox {

namespace fs = std::filesystem;

namespace {

constexpr const char* kUserShellFolders =
    "Software\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\Explorer\\\\User Shell Folders";
constexpr const char* kShellFolders =
    "Software\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\Explorer\\\\Shell Folders";

std::string Lower(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

// A registry file's quoted text: \\ and \" escaped, \x followed by hex digits a character.
std::string Unescaped(const std::string& quoted) {
    std::string out;
    for (size_t i = 0; i < quoted.size(); ++i) {
        if (quoted[i] != '\\' || i + 1 == quoted.size()) {
            out += quoted[i];
            continue;
        }
        char next = quoted[++i];
        if (next != 'x') {
            out += next;
            continue;
        }
        if (i + 1 >= quoted.size() || !std::isxdigit(static_cast<unsigned char>(quoted[i + 1]))) {
            out += next;  // a lone \x: kept as it stands
            continue;
        }
        size_t end = i + 1;
        while (end < quoted.size() && end < i + 5 &&
               std::isxdigit(static_cast<unsigned char>(quoted[end])))
            ++end;
        unsigned code =
            static_cast<unsigned>(std::stoul(quoted.substr(i + 1, end - i - 1), nullptr, 16));
        // UTF-8 of the code point.
        if (code < 0x80) {
            out += char(code);
        } else if (code < 0x800) {
            out += char(0xC0 | (code >> 6)), out += char(0x80 | (code & 0x3F));
        } else {
            out += char(0xE0 | (code >> 12)), out += char(0x80 | ((code >> 6) & 0x3F)),
                out += char(0x80 | (code & 0x3F));
        }
        i = end - 1;
    }
    return out;
}

// The values of one key of a registry file: "name"=... lines until the next key.
std::vector<std::pair<std::string, std::string>> KeyValues(const std::string& text,
                                                           const std::string& key) {
    std::vector<std::pair<std::string, std::string>> values;
    const std::string header = "[" + key + "]";
    size_t at = 0;
    while ((at = text.find(header, at)) != std::string::npos) {
        if (at == 0 || text[at - 1] == '\n') break;
        at += header.size();
    }
    if (at == std::string::npos) return values;
    size_t line = text.find('\n', at);
    while (line != std::string::npos && line + 1 < text.size() && text[line + 1] != '[') {
        size_t end = text.find('\n', line + 1);
        std::string row =
            text.substr(line + 1, (end == std::string::npos ? text.size() : end) - line - 1);
        if (!row.empty() && row.back() == '\r') row.pop_back();
        line = end;
        if (row.size() < 4 || row.front() != '"') continue;
        size_t close = row.find("\"=");
        if (close == std::string::npos) continue;
        std::string name = Unescaped(row.substr(1, close - 1));
        std::string value = row.substr(close + 2);
        if (value.starts_with("str(2):")) value = value.substr(7);
        if (value.size() < 2 || value.front() != '"' || value.back() != '"') continue;
        values.emplace_back(name, Unescaped(value.substr(1, value.size() - 2)));
    }
    return values;
}

std::optional<std::string> Lookup(const std::vector<std::pair<std::string, std::string>>& values,
                                  const std::string& name) {
    for (const auto& [n, v] : values) {
        if (Lower(n) == Lower(name)) return v;
    }
    return std::nullopt;
}

// The entry of folder named like wanted, exactly if it is there, else without letter case.
std::string Component(const fs::path& folder, const std::string& wanted) {
    std::error_code ec;
    if (fs::exists(folder / wanted, ec)) return wanted;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        std::string name = it->path().filename().string();
        if (Lower(name) == Lower(wanted)) return name;
    }
    return wanted;
}

}  // namespace

WinePrefix::WinePrefix(std::string root) : root_(std::move(root)) {
    while (root_.size() > 1 && root_.back() == '/') root_.pop_back();
    std::string text;
    try {
        text = ReadWholeFile(root_ + "/user.reg");
    } catch (const RuntimeError&) {
        return;  // a prefix without a registry yet: the usual folders are used
    }
    userFolders_ = KeyValues(text, kUserShellFolders);
    shellFolders_ = KeyValues(text, kShellFolders);
    environment_ = KeyValues(text, "Environment");
}

std::string WinePrefix::TemporaryFolder() const {
    if (auto temp = Lookup(environment_, "TEMP")) return Expand(*temp);
    return UserProfile() + "\\AppData\\Local\\Temp";
}

bool WinePrefix::IsPrefix(const std::string& dir) {
    std::error_code ec;
    return fs::is_directory(fs::path(dir) / "drive_c", ec) ||
           fs::is_directory(fs::path(dir) / "dosdevices", ec);
}

std::string WinePrefix::UserProfile() const {
    // The profile of this system's user, as Wine makes it; else the one profile there is.
    std::error_code ec;
    const fs::path users = fs::path(root_) / "drive_c" / "users";
    const char* user = std::getenv("USER");
    if (user && fs::is_directory(users / user, ec)) return std::string("C:\\users\\") + user;
    for (fs::directory_iterator it(users, ec), end; !ec && it != end; it.increment(ec)) {
        std::string name = it->path().filename().string();
        if (Lower(name) != "public" && it->is_directory(ec)) return "C:\\users\\" + name;
    }
    return std::string("C:\\users\\") + (user ? user : "user");
}

std::string WinePrefix::Expand(const std::string& value) const {
    const std::string profile = UserProfile();
    const std::pair<const char*, std::string> variables[] = {
        {"%userprofile%", profile},
        {"%appdata%", profile + "\\AppData\\Roaming"},
        {"%localappdata%", profile + "\\AppData\\Local"},
        {"%public%", "C:\\users\\Public"},
        {"%systemdrive%", "C:"},
        {"%systemroot%", "C:\\windows"},
        {"%windir%", "C:\\windows"},
    };
    std::string out = value;
    for (const auto& [name, replacement] : variables) {
        for (size_t at; (at = Lower(out).find(name)) != std::string::npos;) {
            out.replace(at, std::string(name).size(), replacement);
        }
    }
    return out;
}

std::optional<std::string> WinePrefix::ShellFolder(const std::string& name) const {
    if (auto v = Lookup(userFolders_, name)) return Expand(*v);
    if (auto v = Lookup(shellFolders_, name)) return *v;
    return std::nullopt;
}

std::optional<std::string> WinePrefix::ToUnix(const std::string& windowsPath) const {
    std::string path = windowsPath;
    // A file no drive holds, as ToWindows names it.
    const std::string unixMark = "\\\\?\\unix";
    if (path.starts_with(unixMark)) {
        std::string unix = path.substr(unixMark.size());
        std::replace(unix.begin(), unix.end(), '\\', '/');
        return unix;
    }
    std::replace(path.begin(), path.end(), '/', '\\');
    if (path.size() < 2 || path[1] != ':' || !std::isalpha(static_cast<unsigned char>(path[0])))
        return std::nullopt;
    const std::string drive = std::string(1, char(std::tolower(path[0]))) + ":";
    fs::path current = fs::path(root_) / "dosdevices" / drive;
    std::error_code ec;
    if (!fs::exists(current, ec)) return std::nullopt;
    std::vector<std::string> parts;
    size_t start = 2;
    while (start <= path.size()) {
        size_t end = path.find('\\', start);
        if (end == std::string::npos) end = path.size();
        std::string part = path.substr(start, end - start);
        if (part == "..") {
            if (!parts.empty()) parts.pop_back();
        } else if (!part.empty() && part != ".") {
            parts.push_back(part);
        }
        start = end + 1;
    }
    for (const std::string& part : parts) current /= Component(current, part);
    return current.string();
}

std::string WinePrefix::ToWindows(const std::string& unixPath) const {
    std::error_code ec;
    fs::path target = fs::weakly_canonical(fs::absolute(unixPath, ec), ec);
    std::string best;
    fs::path bestRoot;
    for (fs::directory_iterator it(fs::path(root_) / "dosdevices", ec), end; !ec && it != end;
         it.increment(ec)) {
        std::string name = it->path().filename().string();
        if (name.size() != 2 || name[1] != ':') continue;  // a drive, not a device (c::)
        std::error_code rc;
        fs::path root = fs::canonical(it->path(), rc);
        if (rc) continue;
        auto [r, t] = std::mismatch(root.begin(), root.end(), target.begin(), target.end());
        if (r != root.end()) continue;
        // The drive whose folder lies deepest wins (C: over Z: for the prefix's own files).
        if (!best.empty() && std::distance(root.begin(), root.end()) <=
                                 std::distance(bestRoot.begin(), bestRoot.end())) {
            continue;
        }
        best = std::string(1, char(std::toupper(static_cast<unsigned char>(name[0])))) + ":";
        bestRoot = root;
    }
    if (best.empty()) {
        std::string path = target.string();
        std::replace(path.begin(), path.end(), '/', '\\');
        return "\\\\?\\unix" + path;
    }
    std::string rest = target.lexically_relative(bestRoot).string();
    if (rest == ".") rest.clear();
    std::replace(rest.begin(), rest.end(), '/', '\\');
    return best + "\\" + rest;
}

WineSpecialFolders::WineSpecialFolders(WinePrefix prefix,
                                       std::shared_ptr<const SpecialFolders> system)
    : prefix_(std::move(prefix)), system_(std::move(system)) {}

std::string WineSpecialFolders::Mapped(const std::string& windowsPath) const {
    std::string unix = prefix_.ToUnix(windowsPath).value_or("");
    while (unix.size() > 1 && unix.back() == '/') unix.pop_back();
    return unix;
}

std::string WineSpecialFolders::Folder(int32_t id) const {
    const std::string profile = prefix_.UserProfile();
    auto shell = [&](const char* name, const std::string& fallback) {
        return Mapped(prefix_.ShellFolder(name).value_or(fallback));
    };
    auto programFiles = [&](const char* sub) {
        // A 32-bit program of a 64-bit prefix lives in Program Files (x86).
        std::string x86 = Mapped(std::string("C:\\Program Files (x86)") + sub);
        std::error_code ec;
        return fs::exists(x86, ec) ? x86 : Mapped(std::string("C:\\Program Files") + sub);
    };
    switch (id) {
        case kDocumentsFolderId:
            return shell("Personal", profile + "\\Documents");
        case kAppDataFolderId:
            return shell("AppData", profile + "\\AppData\\Roaming");
        case kLocalAppDataFolderId:
            return shell("Local AppData", profile + "\\AppData\\Local");
        case kProgramFilesFolderId:
            return programFiles("");
        case kCommonFilesFolderId:
            return programFiles("\\Common Files");
        default:
            return "";
    }
}

std::string WineSpecialFolders::TemporaryFolder() const {
    return Mapped(prefix_.TemporaryFolder());
}

std::string WineSpecialFolders::WindowsFolder() const {
    return Mapped("C:\\windows");
}

std::string WineSpecialFolders::ProgramFolder() const {
    return system_->ProgramFolder();
}

std::string WineSpecialFolders::NativePath(const std::string& stored) const {
    std::optional<std::string> unix = prefix_.ToUnix(stored);
    return unix ? *unix : stored;
}

std::string WineSpecialFolders::HostPath(const std::string& native) const {
    return prefix_.ToWindows(native);
}

}  // namespace paginox
