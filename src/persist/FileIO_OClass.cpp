// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/FileIO_OClass.h"

#include <filesystem>
#include <memory>
#include <variant>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "core/Rounding.h"
#include "core/RuntimeError.h"
#include "model/PageObjectClasses.h"
#include "persist/BinaryFile.h"
#include "persist/ByteStream.h"

namespace paginox {

namespace {
struct Int16Field {
    void (PageObjectClass::*set)(int16_t);
};
struct Int32Field {
    void (PageObjectClass::*set)(int32_t);
};
struct SingleField {
    void (PageObjectClass::*set)(float);
};
struct TextField {
    size_t width;
    void (PageObjectClass::*set)(const std::string&);
};
using Field = std::variant<Int16Field, Int32Field, SingleField, TextField>;

// The record, field by field in file order; offsets follow from the widths.
constexpr Field kClassRecord[] = {
    Int16Field{&PageObjectClass::SetObjectType},               // 0
    TextField{8, &PageObjectClass::SetAbbreviation},           // 2
    TextField{40, &PageObjectClass::SetFullName},              // 10
    TextField{127, &PageObjectClass::SetDescription},          // 50
    TextField{20, &PageObjectClass::SetGroup},                 // 177
    Int16Field{&PageObjectClass::SetOrder},                    // 197
    Int16Field{&PageObjectClass::SetShape},                    // 199
    Int16Field{&PageObjectClass::SetDefaultFixedLines},        // 201
    Int16Field{&PageObjectClass::SetDefaultTextLines},         // 203
    Int16Field{&PageObjectClass::SetDefaultHorizontalBlocks},  // 205
    SingleField{&PageObjectClass::SetDefaultYRatio},           // 207
    Int16Field{&PageObjectClass::SetNumCharts},                // 211
    Int16Field{&PageObjectClass::SetDefaultFrameType},         // 213
    Int32Field{&PageObjectClass::SetOCUFlags},                 // 215
};

constexpr size_t Width(const Field& f) {
    if (const auto* text = std::get_if<TextField>(&f)) return text->width;
    return std::holds_alternative<Int16Field>(f) ? 2 : 4;
}

constexpr size_t RecordWidth() {
    size_t total = 0;
    for (const Field& f : kClassRecord) total += Width(f);
    return total;
}
static_assert(RecordWidth() == kObjectClassRecordLength);

// A short last record is read as far as it goes: what is missing reads as blank text and
// zero numbers.
std::string PadRecord(std::string bytes) {
    size_t offset = 0;
    for (const Field& f : kClassRecord) {
        size_t end = offset + Width(f);
        if (bytes.size() < end) {
            bytes.append(end - bytes.size(), std::holds_alternative<TextField>(f) ? ' ' : '\0');
        }
        offset = end;
    }
    return bytes;
}

PageObjectClass ParseRecord(const std::string& bytes) {
    std::string record = PadRecord(bytes);
    ByteReader in(record);
    PageObjectClass cls;
    for (const Field& f : kClassRecord) {
        if (const auto* i16 = std::get_if<Int16Field>(&f)) (cls.*(i16->set))(in.Int16());
        if (const auto* i32 = std::get_if<Int32Field>(&f)) (cls.*(i32->set))(in.Int32());
        if (const auto* single = std::get_if<SingleField>(&f)) (cls.*(single->set))(in.Single());
        if (const auto* text = std::get_if<TextField>(&f))
            (cls.*(text->set))(Trim(in.Text(text->width)));
    }
    return cls;
}

void ReportReadError(const std::string& path, const std::string& description) {
    ShowMessage(FileErrorText("Error whilst reading file ", path, description));
}
}  // namespace

void LoadObjectClasses(const std::string& path, PageObjectClasses& into) {
    std::unique_ptr<BinaryFile> file;
    try {
        // Record access creates a missing file, which then loads as an empty catalogue.
        file = std::make_unique<BinaryFile>(path, FileKind::Random);
    } catch (const RuntimeError& e) {
        into.SetCount(0);
        ReportReadError(path, e.Description());
        return;
    }

    int16_t count = 0;
    try {
        // More records than a 16-bit count holds is an overflow, reported like a read error.
        count = ToInt16(double(file->Length()) / double(kObjectClassRecordLength));
    } catch (const RuntimeError& e) {
        into.SetCount(0);
        ReportReadError(path, e.Description());
        return;
    }
    into.SetCount(count);

    int16_t last = 0;
    try {
        for (int i = 1; i <= count; ++i) {
            auto cls = std::make_shared<PageObjectClass>(
                ParseRecord(file->ReadUpTo(kObjectClassRecordLength)));
            cls->SetClassID(int16_t(i));
            into.SetClass(int16_t(i), cls);
            last = int16_t(i);
            if (file->AtEnd()) break;
        }
    } catch (const RuntimeError&) {
        // A failed read ends the loading; the classes read so far stay.
    }
    try {
        file->Close();
    } catch (const RuntimeError&) {
        // Nothing was written, so a failing close loses nothing.
    }
    if (last < count) into.SetCount(last);
}

namespace {
enum class CatalogueFile { Whole, Missing, Empty, CutShort };

// The file as found before loading, which creates a missing one.
CatalogueFile CheckObjectClassFile(const std::string& path) {
    std::error_code error;
    uintmax_t size = std::filesystem::file_size(path, error);
    if (error) return CatalogueFile::Missing;
    if (size == 0) return CatalogueFile::Empty;
    return size % kObjectClassRecordLength == 0 ? CatalogueFile::Whole : CatalogueFile::CutShort;
}

std::string CatalogueWarning(CatalogueFile found, const std::string& path, int16_t classes) {
    std::string state;
    switch (found) {
        case CatalogueFile::Whole:
            return std::string();
        case CatalogueFile::Missing:
            state = " was not found, so it";
            break;
        case CatalogueFile::Empty:
            state = " is empty: it";
            break;
        case CatalogueFile::CutShort:
            state = " is cut short: it";
            break;
    }
    return "The object class catalogue " + path + state + " holds " + std::to_string(classes) +
           (classes == 1 ? " class" : " classes") +
           "; pages that use others show them as unknown objects.";
}
}  // namespace

void LoadCatalogue(const std::string& path) {
    CatalogueFile found = CheckObjectClassFile(path);
    LoadObjectClasses(path, ObjectClasses());
    if (found != CatalogueFile::Whole) {
        ShowMessage(CatalogueWarning(found, path, ObjectClasses().Count()), "Object Classes",
                    MsgIcon::Exclamation);
    }
}

}  // namespace paginox
