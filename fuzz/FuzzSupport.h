// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What every fuzz target needs: the readers take file names, so the input is written to a
// file of this process first; and they report damaged files in message boxes, which here
// are counted and not shown.

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "core/MessageService.h"

namespace paginox::fuzz {

// A folder of this process's own, made once.
inline const std::filesystem::path& WorkFolder() {
    static const std::filesystem::path folder = [] {
        auto p =
            std::filesystem::temp_directory_path() / ("paginox-fuzz-" + std::to_string(getpid()));
        std::filesystem::create_directories(p);
        std::atexit([] {
            std::error_code ec;
            std::filesystem::remove_all(WorkFolder(), ec);
        });
        return p;
    }();
    return folder;
}

inline std::string WriteInput(const std::string& name, const uint8_t* data, size_t size) {
    std::string path = (WorkFolder() / name).string();
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    out.close();
    if (!out) std::abort();
    return path;
}

class QuietMessages : public MessageService {
  public:
    QuietMessages() : scope_(*this) {}
    MsgAnswer Show(const std::string&, const std::string&, MsgButtons, MsgIcon) override {
        ++shown;
        return MsgAnswer::Ok;
    }
    int shown = 0;

  private:
    ScopedMessageService scope_;
};

// A failed property: stop with a crash report, so the input is kept.
inline void Require(bool condition) {
    if (!condition) __builtin_trap();
}

}  // namespace paginox::fuzz
