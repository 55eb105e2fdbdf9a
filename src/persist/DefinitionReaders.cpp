// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/DefinitionReaders.h"

#include <filesystem>

#include "core/AnsiText.h"
#include "core/Checked.h"
#include "core/MessageService.h"
#include "core/Rounding.h"
#include "core/RuntimeError.h"
#include "model/DefinitionTables.h"
#include "persist/BinaryFile.h"
#include "persist/ByteStream.h"
#include "persist/DelimitedReader.h"
#include "persist/Folders.h"

namespace paginox {

namespace {

constexpr size_t kRulershipRecordLength = 163;
constexpr int kSigns = 12;
constexpr size_t kSignGroupLength = 9;
// Counts are 16-bit, so no list holds more entries than this.
constexpr size_t kMaxListEntries = 32767;

void ReportReadError(const std::string& path, const RuntimeError& e) {
    ShowMessage(FileErrorText("Error whilst reading file ", path, e.Description()));
}

void ReadColumnList(const std::string& path, ColumnListTable& table) {
    table.Entries.clear();
    auto file = OpenFileByKind(path, FileKind::Read);
    if (!file) return;
    try {
        DelimitedReader in(file->Read(file->Length()));
        // The end is tested only after a record, so an empty file fails on its first field.
        do {
            CheckedAdd<int16_t>(table.Count(), 1);
            ColumnDef def;
            def.First = in.ReadInt16();
            def.Second = in.ReadInt16();
            def.Label = in.ReadText();
            def.DefaultFlag = in.ReadInt16();
            table.Entries.push_back(std::move(def));
        } while (!in.AtEnd());
    } catch (const RuntimeError& e) {
        ReportReadError(path, e);
    }
}

RulershipSet ParseRulership(const std::string& record) {
    ByteReader in(record);
    RulershipSet set;
    set.Name = TrimFixed(in.Text(40));
    set.Abbreviation = TrimFixed(in.Text(15));
    for (int s = 1; s <= kSigns; ++s) {
        std::string g = in.Text(kSignGroupLength);
        auto code = [&g](size_t b) { return static_cast<int16_t>(static_cast<uint8_t>(g[b])); };
        set.FirstCodes[s] = code(0);
        set.SecondCodes[s] = code(2);
        set.ThirdCodes[s] = code(5);
        set.TripleCodes[3 * (s - 1) + 1] = code(6);
        set.TripleCodes[3 * (s - 1) + 2] = code(7);
        set.TripleCodes[3 * (s - 1) + 3] = code(8);
    }
    return set;
}

}  // namespace

void ReadPointListDefs(const std::string& path) {
    ReadColumnList(path, Definitions().PointList);
}

void ReadAspectListDefs(const std::string& path) {
    ReadColumnList(path, Definitions().AspectList);
}

void ReadRulerships(const std::string& path) {
    auto& sets = Definitions().Rulerships;
    sets.clear();
    std::error_code ec;
    if (!std::filesystem::exists(path, ec)) return;
    auto file = OpenFileByKind(path, FileKind::Read);
    if (!file) return;
    try {
        int16_t count = ToInt16(static_cast<double>(file->Length()) /
                                static_cast<double>(kRulershipRecordLength));
        for (int16_t r = 1; r <= count; ++r) {
            file->Seek(static_cast<uint64_t>(r - 1) * kRulershipRecordLength);
            std::string record = file->ReadUpTo(kRulershipRecordLength);
            record.resize(kRulershipRecordLength, '\0');  // past the end reads blank and zero
            sets.push_back(ParseRulership(record));
        }
    } catch (const RuntimeError& e) {
        ReportReadError(path, e);
    }
}

std::vector<int32_t> ReadNumberListFile(const std::string& path) {
    std::vector<int32_t> numbers;
    std::string bytes;
    try {
        bytes = ReadWholeFile(path);
    } catch (const RuntimeError&) {
        return numbers;
    }
    DelimitedReader in(std::move(bytes));
    while (!in.AtEnd() && numbers.size() < kMaxListEntries) {
        try {
            numbers.push_back(in.ReadInt32());
        } catch (const RuntimeError& e) {
            // The bad item has been read past; only the end of the file stops the list.
            if (e.Number() == kInputPastEndOfFile) break;
        }
    }
    return numbers;
}

void InstallDefinitionReaders() {
    Definitions().ReadNumberList = ReadNumberListFile;
}

std::string DefinitionsFolderOf(const Folders& folders) {
    return folders.Path(kSystemDataFolder);
}

void LoadDefinitions(const Folders& folders,
                     const std::function<void(const std::string& path)>& loadObjectClasses) {
    Definitions().DefinitionsFolder = DefinitionsFolderOf(folders);
    InstallDefinitionReaders();
    ReadRulerships(folders.Path(kSystemDataFolder) + "rulers2.fil");
    if (loadObjectClasses) loadObjectClasses(Definitions().DefinitionsFolder + "objects.dfn");
    ReadAspectListDefs(folders.Path(kLocalDataFolder) + "Alist.dfn");
    ReadPointListDefs(folders.Path(kLocalDataFolder) + "plist.dfn");
}

}  // namespace paginox
