// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/FileIO_Page.h"

#include <algorithm>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "core/RuntimeError.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "persist/AtomicSave.h"
#include "persist/BinaryFile.h"
#include "persist/ByteStream.h"
#include "persist/FileStatus.h"
#include "persist/RecordTable.h"

namespace paginox {

namespace {
using namespace record;

// Header and format records start with a 16-bit number that the reader and writer handle
// themselves (the version, the object count); the tables describe what follows it.

// Header texts are only trimmed: a NUL inside stays part of the text.
constexpr Field<PageClass> kHeaderFields[] = {
    Text<PageClass>{80, &PageClass::Description, &PageClass::SetDescription, Trim},           // 2
    Text<PageClass>{20, &PageClass::Title, &PageClass::SetTitle, Trim},                       // 82
    Text<PageClass>{5, &PageClass::ListAbbreviation, &PageClass::SetListAbbreviation, Trim},  // 102
    Int16<PageClass>{&PageClass::NumCharts, &PageClass::SetNumCharts},                        // 107
    Texts<PageClass>{PageClass::kMaxCharts, 20, &PageClass::ChartPlacementDesc,
                     &PageClass::SetChartPlacementDesc, Trim},  // 109
};
static_assert(2 + Width(kHeaderFields) == kPageHeaderLength);

// NewMargin's order is the file's: (1,1), (2,1), (1,2), (2,2).
constexpr Field<PageFormat> kFormatFields[] = {
    Single<PageFormat>{&PageFormat::YRatio, &PageFormat::SetYRatio},              // 2
    Single<PageFormat>{&PageFormat::NoTextYRatio, &PageFormat::SetNoTextYRatio},  // 6
    Singles<PageFormat>{4, &PageFormat::NewMargin, &PageFormat::SetNewMargin},    // 10
    Int16<PageFormat>{&PageFormat::XPixels, &PageFormat::SetXPixels},             // 26
    Int16<PageFormat>{&PageFormat::YPixels, &PageFormat::SetYPixels},             // 28
    Int16<PageFormat>{&PageFormat::LogPixels, &PageFormat::SetLogPixels},         // 30
    Boolean<PageFormat>{&PageFormat::ForPrinter, &PageFormat::SetForPrinter},     // 32
};
static_assert(2 + Width(kFormatFields) == kFormatRecordLength);

using Obj = PageObject;
// The version-4 object record, whole. Only the first NumCharts chart slots are written and
// read; a sixth is a subscript error both ways.
constexpr Field<Obj> kObjectFields[] = {
    Int16<Obj>{&Obj::ObjectClassID, &Obj::SetObjectClassID},              // 0
    Int16<Obj>{&Obj::NumCharts, &Obj::SetNumCharts},                      // 2
    Reserved{8},                                                          // 4 old chart numbers
    Singles<Obj>{2, &Obj::Origin, &Obj::SetOrigin},                       // 12
    Singles<Obj>{2, &Obj::Length, &Obj::SetLength},                       // 20
    Int16<Obj>{&Obj::TextJustify, &Obj::SetTextJustify},                  // 28
    Int16<Obj>{&Obj::TextBottomUp, &Obj::SetTextBottomUp},                // 30
    Int16<Obj>{&Obj::TextLines, &Obj::SetTextLines},                      // 32
    Int16<Obj>{&Obj::HorzBlocks, &Obj::SetHorzBlocks},                    // 34
    Single<Obj>{&Obj::YRatio, &Obj::SetYRatio},                           // 36
    Int16<Obj>{&Obj::FrameType, &Obj::SetFrameType},                      // 40
    Reserved{60},                                                         // 42 old short names
    Bytes<Obj>{Obj::kMaxColumns, &Obj::PL_Columns, &Obj::SetPL_Columns},  // 102
    Int16<Obj>{&Obj::Rulerships, &Obj::SetRulerships},                    // 166
    Single<Obj>{&Obj::Modulus, &Obj::SetModulus},                         // 168
    Single<Obj>{&Obj::Orb, &Obj::SetOrb},                                 // 172
    Single<Obj>{&Obj::FontSize, &Obj::SetFontSize},                       // 176
    Boolean<Obj>{&Obj::Weighted, &Obj::SetWeighted},                      // 180
    Boolean<Obj>{&Obj::TitleOn, &Obj::SetTitleOn},                        // 182
    Text<Obj>{20, &Obj::UserCaption, &Obj::SetUserCaption, TrimFixed},    // 184
    FlagBytes<Obj>{16, &Obj::AnchorBottom, &Obj::SetAnchorBottom},        // 204
    Int16<Obj>{&Obj::Zodiac, &Obj::SetZodiac},                            // 220
    Int16<Obj>{&Obj::ForceLineColor, &Obj::SetForceLineColor},            // 222
    Reserved{236},                                                        // 224
    Text<Obj>{80, &Obj::WheelFile, &Obj::SetWheelFile, TrimFixed},        // 460
    Text<Obj>{255, &Obj::GenericFile, &Obj::SetGenericFile, TrimFixed},   // 540
    Reserved{320},                                                        // 795 old points
    Text<Obj>{80, &Obj::AspectsFile, &Obj::SetAspectsFile, TrimFixed},    // 1115
    Int16s<Obj>{Obj::kMaxCharts, &Obj::ChartNum, &Obj::SetChartNum, &Obj::NumCharts},  // 1195
    Texts<Obj>{Obj::kMaxCharts, 80, &Obj::PointsFile, &Obj::SetPointsFile, TrimFixed,
               &Obj::NumCharts},  // 1205
};
constexpr size_t kObjectV4Length = 1605;
constexpr size_t kObjectV3Length = 1195;
constexpr size_t kObjectV2Length = 212;
static_assert(Width(kObjectFields) == kObjectV4Length);

// Where the older records keep what version 4 moved: offset and width.
struct Span {
    size_t offset;
    size_t width;
};
constexpr size_t kSharedPrefix = 204;  // bytes 0..203 mean the same in every version
constexpr size_t kFlagBytes = 204;
constexpr size_t kV2TrailingText = 204;  // text 8, promoted to the flag bytes
constexpr size_t kZodiacEnd = 222;       // end of the fields up to Zodiac
constexpr size_t kV3Reserved = 222;      // text 238; its first byte is ForceLineColor's
constexpr size_t kV4ForceLineColor = 222;

// A version-2 short name and the version-3 field it is promoted to.
struct Promoted {
    Span v2;
    Span v3;
};
constexpr Promoted kV2Texts[] = {
    {{42, 8}, {460, 80}},    // wheel file
    {{50, 12}, {540, 255}},  // generic file
    {{62, 8}, {795, 80}},    // points file 1
    {{70, 8}, {875, 80}},    // points file 2
    {{78, 8}, {955, 80}},    // points file 3
    {{86, 8}, {1035, 80}},   // points file 4
    {{94, 8}, {1115, 80}},   // aspects file
};

// A version-4 text and the version-3 field it is made from, one character late: the last
// character of the field before it, then its own first width - 1 characters.
struct Lagged {
    size_t v4Offset;
    Span v3;
};
constexpr Lagged kV3Texts[] = {
    {460, {460, 80}},    // WheelFile, after the reserved text
    {540, {540, 255}},   // GenericFile, after the wheel file
    {1115, {1115, 80}},  // AspectsFile, after points file 4
    {1205, {795, 80}},   // PointsFile(1), after the generic file
    {1285, {875, 80}},   // PointsFile(2), after points file 1
    {1365, {955, 80}},   // PointsFile(3), after points file 2
    {1445, {1035, 80}},  // PointsFile(4), after points file 3
};
constexpr size_t kV4ChartNums = 1195;
constexpr Span kV3ChartNums = {4, 8};

std::string PromoteV2ToV3(const std::string& v2) {
    std::string v3(kObjectV3Length, '\0');
    v3.replace(0, kSharedPrefix, v2, 0, kSharedPrefix);
    // The trailing text's characters as two-byte units, low byte first.
    for (size_t i = 0; i < 8; ++i) v3[kFlagBytes + 2 * i] = v2[kV2TrailingText + i];
    for (const Promoted& t : kV2Texts) {
        v3.replace(
            t.v3.offset, t.v3.width,
            FixLength(Trim(std::string_view(v2).substr(t.v2.offset, t.v2.width)), t.v3.width));
    }
    return v3;
}

std::string PromoteV3ToV4(const std::string& v3) {
    std::string v4(kObjectV4Length, '\0');
    v4.replace(0, kZodiacEnd, v3, 0, kZodiacEnd);
    v4[kV4ForceLineColor] = v3[kV3Reserved];  // the low byte; the high one stays 0
    for (const Lagged& t : kV3Texts) {
        v4.replace(t.v4Offset, t.v3.width,
                   v3.substr(t.v3.offset - 1, 1) + v3.substr(t.v3.offset, t.v3.width - 1));
    }
    // ChartNum(5) and PointsFile(5) stay zero: empty.
    v4.replace(kV4ChartNums, kV3ChartNums.width, v3, kV3ChartNums.offset, kV3ChartNums.width);
    return v4;
}

std::shared_ptr<PageObject> ReadObject(std::string_view bytes, int16_t version) {
    std::string promoted;
    if (version == 2) promoted = PromoteV3ToV4(PromoteV2ToV3(std::string(bytes)));
    if (version == 3) promoted = PromoteV3ToV4(std::string(bytes));
    ByteReader in(version <= 3 ? std::string_view(promoted) : bytes);
    auto obj = std::make_shared<PageObject>();
    Read<Obj>(in, kObjectFields, *obj);
    return obj;
}

template <typename T>
const T& Present(const std::shared_ptr<T>& p) {
    if (!p) Raise(kObjectNotSet);
    return *p;
}

std::shared_ptr<PageClass> ReadOpenPage(BinaryFile& file, int16_t formatIndex) {
    const std::string headerBytes = file.Read(kPageHeaderLength);
    ByteReader header(headerBytes);
    int16_t version = header.Int16();
    size_t objectLength = ObjectRecordLength(version);
    if (objectLength == 0) Raise(kInvalidFileFormat);

    auto page = std::make_shared<PageClass>();
    page->SetReadVersion(version);
    Read<PageClass>(header, kHeaderFields, *page);

    const uint64_t length = file.Length();
    // Counted here rather than asked of the file, which would cost a system call each time.
    uint64_t position = kPageHeaderLength;
    // A single stray byte after the last record is never taken for a record.
    while (position + 1 < length) {
        const uint64_t start = position;
        const std::string recordBytes = file.Read(kFormatRecordLength);
        position += kFormatRecordLength;
        ByteReader record(recordBytes);
        int16_t numObjects = record.Int16();
        auto format = std::make_shared<PageFormat>();
        page->AddFormat(format);
        bool selected = formatIndex < 0 || formatIndex == page->NumFormats();
        Read<PageFormat>(record, kFormatFields, *format);

        uint64_t objectsEnd =
            start + kFormatRecordLength + uint64_t(std::max<int16_t>(numObjects, 0)) * objectLength;
        // A damaged count must not make room for objects the file cannot hold.
        if (selected && objectsEnd > length) Raise(kInputPastEndOfFile);
        format->SetNumObjects(numObjects, selected);
        const uint64_t objectsStart = position;
        position = objectsEnd;
        if (!selected) {
            // Skipped past the end, the loop's condition ends the reading: the page keeps
            // this format's frame, without objects.
            if (objectsEnd < length) file.Seek(objectsEnd);
            continue;
        }
        // The format's objects in one read, checked above to lie inside the file.
        const std::string objects = file.Read(size_t(objectsEnd - objectsStart));
        for (int16_t i = 1; i <= numObjects; ++i) {
            std::string_view bytes(objects.data() + size_t(i - 1) * objectLength, objectLength);
            format->SetObject(i, ReadObject(bytes, version));
        }
    }
    return page;
}

}  // namespace

size_t ObjectRecordLength(int16_t version) {
    switch (version) {
        case 2:
            return kObjectV2Length;
        case 3:
            return kObjectV3Length;
        case 4:
            return kObjectV4Length;
        default:
            return 0;
    }
}

std::shared_ptr<PageClass> ReadPage(const std::string& fileName, int16_t formatIndex,
                                    bool reportErrors) {
    auto report = [&](const RuntimeError& e) {
        if (!reportErrors) return;
        ShowMessage(FileErrorText("Error whilst attempting to read page formats ", fileName,
                                  e.Description()),
                    "Open Error", MsgIcon::Critical);
    };
    // A file that cannot be opened for reading is taken as missing: nothing, and no message.
    // Opening it once here is the same test FileExists makes, without a second open. A pipe
    // or a device is refused aloud, though: the user named something that is there.
    std::unique_ptr<BinaryFile> file;
    try {
        file = std::make_unique<BinaryFile>(fileName, FileKind::Read);
    } catch (const RuntimeError& e) {
        if (TypeOfFile(fileName) == FileType::Special) report(e);
        return nullptr;
    }
    try {
        auto page = ReadOpenPage(*file, formatIndex);
        file->Close();
        return page;
    } catch (const RuntimeError& e) {
        file.reset();
        report(e);
        return nullptr;
    }
}

std::string PageFileBytes(const PageClass& page) {
    ByteWriter out;
    out.Int16(kPageFileVersion);
    Write<PageClass>(out, kHeaderFields, page);
    for (int16_t k = 1; k <= page.NumFormats(); ++k) {
        const PageFormat& format = Present(page.GetFormat(k));
        out.Int16(format.NumObjects());
        Write<PageFormat>(out, kFormatFields, format);
        for (int16_t i = 1; i <= format.NumObjects(); ++i) {
            Write<Obj>(out, kObjectFields, Present(format.Object(i)));
        }
    }
    return out.Bytes();
}

std::string ObjectRecordBytes(const PageObject& obj) {
    ByteWriter out;
    Write<Obj>(out, kObjectFields, obj);
    return out.Bytes();
}

std::shared_ptr<PageObject> ReadObjectRecord(std::string_view bytes) {
    if (bytes.size() != kObjectV4Length) Raise(kInvalidFileFormat);
    return ReadObject(bytes, kPageFileVersion);
}

void WritePageFile(const std::string& fileName, const PageClass& page) {
    SaveFileAtomically(fileName, PageFileBytes(page));
}

bool SavePage(const std::string& fileName, const PageClass& page) {
    try {
        WritePageFile(fileName, page);
        return true;
    } catch (const RuntimeError& e) {
        ShowMessage(
            FileErrorText("Error whilst attempting to save page ", fileName, e.Description()),
            "Save Error", MsgIcon::Critical);
        return false;
    }
}

}  // namespace paginox
