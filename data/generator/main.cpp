// SPDX-License-Identifier: GPL-3.0-or-later
// Builds the bundled sample data from the readable sources in data/sources:
//   paginox-sample-gen SOURCES OUT
// writes OUT/System (system data folder), OUT/LocalAppData and OUT/User Files (with the
// sample pages), laid out the way the demo environment copies them.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "SamplePages.h"
#include "core/AnsiText.h"
#include "persist/ByteStream.h"

namespace fs = std::filesystem;
using namespace paginox;

namespace {

std::string ReadText(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + p.string());
    return std::string(std::istreambuf_iterator<char>(in), {});
}

void WriteBytes(const fs::path& p, const std::string& bytes) {
    fs::create_directories(p.parent_path());
    std::ofstream out(p, std::ios::binary);
    out << bytes;
    if (!out) throw std::runtime_error("cannot write " + p.string());
}

// Lines without comments ("#" at the start) and without surrounding spaces.
std::vector<std::string> ContentLines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        line = Trim(line);
        if (!line.empty() && line[0] != '#') lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> Split(const std::string& s, char sep) {
    std::vector<std::string> parts;
    std::istringstream in(s);
    for (std::string part; std::getline(in, part, sep);) parts.push_back(Trim(part));
    return parts;
}

// A text field of the source, in Windows-1252, checked against its width.
std::string Field(const std::map<std::string, std::string>& c, const std::string& key,
                  size_t width) {
    auto it = c.find(key);
    if (it == c.end()) throw std::runtime_error("class without " + key);
    std::string ansi = Utf8ToCp1252(it->second);
    if (ansi.size() > width) throw std::runtime_error(key + " too long: " + it->second);
    return ansi;
}

long Number(const std::map<std::string, std::string>& c, const std::string& key) {
    long sum = 0;
    for (const auto& term : Split(Field(c, key, 200), '+')) sum += std::stol(term);
    return sum;
}

// objects.dfn: one 219-byte record per class, in source order.
std::string ObjectClassFile(const std::string& source) {
    std::vector<std::map<std::string, std::string>> classes;
    for (const auto& line : ContentLines(source)) {
        if (line == "[Class]") {
            classes.emplace_back();
            continue;
        }
        auto eq = line.find('=');
        if (classes.empty() || eq == std::string::npos) throw std::runtime_error("bad line: " + line);
        classes.back()[Trim(line.substr(0, eq))] = Trim(line.substr(eq + 1));
    }
    ByteWriter w;
    for (const auto& c : classes) {
        w.Int16(int16_t(Number(c, "Type")));
        w.Text(Field(c, "Abbreviation", 8), 8);
        w.Text(Field(c, "FullName", 40), 40);
        w.Text(Field(c, "Description", 127), 127);
        w.Text(Field(c, "Group", 20), 20);
        w.Int16(int16_t(Number(c, "Order")));
        w.Int16(int16_t(Number(c, "Shape")));
        w.Int16(int16_t(Number(c, "FixedLines")));
        w.Int16(int16_t(Number(c, "TextLines")));
        w.Int16(int16_t(Number(c, "Blocks")));
        w.Single(std::stof(Field(c, "YRatio", 20)));
        w.Int16(int16_t(Number(c, "Charts")));
        w.Int16(int16_t(Number(c, "Frame")));
        w.Int32(int32_t(Number(c, "Flags")));
    }
    return w.Bytes();
}

// rulers2.fil: one 163-byte record per set: name, abbreviation, 9 bytes per sign.
std::string RulershipFile(const std::string& source) {
    ByteWriter w;
    for (const auto& line : ContentLines(source)) {
        auto parts = Split(line, '|');
        auto signs = parts.size() == 3 ? Split(parts[2], ';') : std::vector<std::string>{};
        if (signs.size() != 12) throw std::runtime_error("bad rulership set: " + line);
        w.Text(parts[0], 40);
        w.Text(parts[1], 15);
        for (const auto& sign : signs) {
            std::istringstream in(sign);
            int code[6];
            for (int& k : code) in >> k;
            if (!in) throw std::runtime_error("bad sign group: " + sign);
            // Bytes 1, 3 and 4 of a group are unused by the editor.
            for (int b : {code[0], 0, code[1], 0, 0, code[2], code[3], code[4], code[5]}) {
                w.Byte(uint8_t(b));
            }
        }
    }
    return w.Bytes();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: paginox-sample-gen SOURCES OUT\n";
        return 2;
    }
    try {
        fs::path src = argv[1], out = argv[2];
        fs::path system = out / "System", local = out / "LocalAppData";
        WriteBytes(system / "objects.dfn", ObjectClassFile(ReadText(src / "objects.txt")));
        WriteBytes(system / "rulers2.fil", RulershipFile(ReadText(src / "rulers.txt")));
        for (const char* list : {"astrlist.dfn", "partlist.dfn", "starlist.dfn", "ringlist.dfn"}) {
            WriteBytes(system / list, ReadText(src / list));
        }
        // The column lists belong to the local application data folder; a copy also sits in
        // System so that one folder holds every definition file for --data.
        for (const char* list : {"plist.dfn", "Alist.dfn"}) {
            WriteBytes(local / list, ReadText(src / list));
            WriteBytes(system / list, ReadText(src / list));
        }
        sample::WriteSamplePages(system, out / "User Files" / "Pages");
    } catch (const std::exception& e) {
        std::cerr << "paginox-sample-gen: " << e.what() << '\n';
        return 1;
    }
    return 0;
}
