// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/RecoveryStore.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <exception>
#include <filesystem>

#include "persist/FileIO_Page.h"

namespace paginox {

namespace fs = std::filesystem;

namespace {

// "<page> ~<pid>-<yyyymmdd-hhmmss>.pag": unique per run and moment, and the process that
// wrote it can be told from the name.
constexpr const char* kMarker = " ~";

std::string Stamp() {
    std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y%m%d-%H%M%S", &local);
    return text;
}

// The process id in a copy's name; 0 when the name is not one of ours.
long WriterOf(const std::string& stem) {
    size_t at = stem.rfind(kMarker);
    if (at == std::string::npos) return 0;
    try {
        return std::stol(stem.substr(at + 2));
    } catch (const std::exception&) {
        return 0;
    }
}

bool IsRunning(long pid) {
    return pid == getpid() || kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM;
}

}  // namespace

RecoveryStore::RecoveryStore(std::string folder) : folder_(std::move(folder)) {}

std::string RecoveryStore::Keep(const PageClass& page, const std::string& currentFile) {
    std::string stem = currentFile.empty() ? "New Page" : fs::path(currentFile).stem().string();
    std::string path = copy_;
    if (path.empty()) {
        path = folder_ + stem + kMarker + std::to_string(getpid()) + "-" + Stamp() + ".pag";
    }
    try {
        std::error_code ignored;
        fs::create_directories(folder_, ignored);
        WritePageFile(path, page);
    } catch (const std::exception&) {
        return std::string();
    }
    copy_ = path;
    return path;
}

void RecoveryStore::Discard() {
    if (copy_.empty()) return;
    std::error_code ignored;
    fs::remove(copy_, ignored);
    copy_.clear();
}

std::vector<std::string> RecoveryStore::Leftovers() const {
    std::vector<std::pair<fs::file_time_type, std::string>> found;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_, error)) {
        const fs::path& p = entry.path();
        if (p.extension() != ".pag" || !entry.is_regular_file(error)) continue;
        long pid = WriterOf(p.stem().string());
        if (pid <= 0 || p.string() == copy_ || IsRunning(pid)) continue;
        found.emplace_back(entry.last_write_time(error), p.string());
    }
    std::sort(found.begin(), found.end());
    std::vector<std::string> paths;
    for (auto& [time, path] : found) paths.push_back(std::move(path));
    return paths;
}

}  // namespace paginox
