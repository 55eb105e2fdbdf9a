// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A fresh folder for one test, removed with everything in it afterwards.

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace paginox::test {

class TempDir {
public:
    TempDir() {
        std::random_device rd;
        path_ = std::filesystem::temp_directory_path() /
                ("paginox-test-" + std::to_string(rd()) + std::to_string(rd()));
        std::filesystem::create_directories(path_);
    }
    ~TempDir() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    // The folder, with a trailing separator, as the folder table keeps paths.
    std::string Folder() const { return path_.string() + "/"; }
    std::string operator/(const std::string& name) const { return (path_ / name).string(); }

    std::string Write(const std::string& name, const std::string& bytes) const {
        std::string p = *this / name;
        std::ofstream(p, std::ios::binary) << bytes;
        return p;
    }

private:
    std::filesystem::path path_;
};

inline std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace paginox::test
