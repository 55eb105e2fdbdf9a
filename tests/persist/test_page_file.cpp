#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstring>
#include <filesystem>

#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "persist/FileIO_Page.h"
#include "support/RecordingMessages.h"
#include "support/TempDir.h"

using namespace paginox;

namespace {
// Little-endian fields written by hand, independently of the program's own ByteWriter.
struct Rec {
    std::string b;
    Rec& I16(int v) {
        b += char(v & 0xFF);
        b += char((v >> 8) & 0xFF);
        return *this;
    }
    Rec& F32(float f) {
        uint32_t u;
        std::memcpy(&u, &f, 4);
        for (int i = 0; i < 4; ++i) b += char((u >> (8 * i)) & 0xFF);
        return *this;
    }
    Rec& Txt(std::string s, size_t width) {  // s no longer than width
        s.append(width - s.size(), ' ');
        b += s;
        return *this;
    }
    Rec& Raw(const std::string& s) {
        b += s;
        return *this;
    }
    Rec& Zero(size_t n) {
        b.append(n, '\0');
        return *this;
    }
};

std::string Header(int version, const std::string& description, int numCharts = 1) {
    Rec r;
    r.I16(version).Txt(description, 80).Txt("A Title", 20).Txt("Nat", 5).I16(numCharts);
    for (int c = 1; c <= 12; ++c) r.Txt("Slot " + std::to_string(c), 20);
    return r.b;
}

std::string FormatRecord(int numObjects, int x, int y, int logPixels = 96, bool printer = false) {
    Rec r;
    r.I16(numObjects).F32(0.75f).F32(0.5f).F32(0.01f).F32(0.02f).F32(0.03f).F32(0.04f);
    return r.I16(x).I16(y).I16(logPixels).I16(printer ? -1 : 0).b;
}

// The fields before offset 204 that every version shares; chart numbers at 4 for v2 and v3.
Rec CommonPrefix(int classID, int numCharts, std::array<int, 4> oldCharts = {}) {
    Rec r;
    r.I16(classID).I16(numCharts);
    for (int c : oldCharts) r.I16(c);
    r.F32(0.25f).F32(0.125f).F32(0.5f).F32(0.375f);  // Origin, Length
    r.I16(2).I16(-1).I16(14).I16(2).F32(1.5f).I16(
        2);  // justify, bottom-up, lines, blocks, ratio, frame
    return r;
}

std::string Columns() {
    std::string c(64, '\0');
    c[0] = 5, c[1] = char(200), c[63] = 9;
    return c;
}

Rec Middle(Rec r, const std::string& caption) {  // 102 .. 203
    r.Raw(Columns()).I16(3).F32(45).F32(2.5f).F32(10.5f).I16(-1).I16(0).Txt(caption, 20);
    return r;
}

// The object that Wheel() below builds, as version 4 writes it.
std::string WheelRecordV4() {
    Rec r = Middle(CommonPrefix(3, 2).Zero(60), "Natal & <Co>");
    r.Raw("\x01").Zero(15).I16(1).I16(12).Zero(236);
    r.Txt("Natal", 80).Txt("Gen", 255).Zero(320).Txt("Major", 80);
    r.I16(3).I16(1).Zero(6).Txt("Main", 80).Txt("Other", 80).Zero(240);
    return r.b;
}

std::shared_ptr<PageObject> Wheel() {
    auto o = std::make_shared<PageObject>();
    o->SetObjectClassID(3);
    o->SetNumCharts(2);
    o->SetOrigin(1, 0.25f), o->SetOrigin(2, 0.125f);
    o->SetLength(1, 0.5f), o->SetLength(2, 0.375f);
    o->SetTextJustify(2), o->SetTextBottomUp(-1), o->SetTextLines(14), o->SetHorzBlocks(2);
    o->SetYRatio(1.5f), o->SetFrameType(2);
    o->SetPL_Columns(1, 5), o->SetPL_Columns(2, 200), o->SetPL_Columns(64, 9);
    o->SetRulerships(3), o->SetModulus(45), o->SetOrb(2.5f), o->SetFontSize(10.5f);
    o->SetWeighted(true), o->SetTitleOn(false), o->SetUserCaption("Natal & <Co>");
    o->SetAnchorBottom(true), o->SetZodiac(1), o->SetForceLineColor(12);
    o->SetWheelFile("Natal"), o->SetGenericFile("Gen"), o->SetAspectsFile("Major");
    o->SetChartNum(1, 3), o->SetChartNum(2, 1);
    o->SetPointsFile(1, "Main"), o->SetPointsFile(2, "Other");
    return o;
}

std::shared_ptr<PageFormat> Format(int16_t x, int16_t y, int16_t logPixels, bool printer) {
    auto f = std::make_shared<PageFormat>();
    f->SetYRatio(0.75f), f->SetNoTextYRatio(0.5f);
    f->SetMargin(1, 1, 0.01f), f->SetMargin(2, 1, 0.02f), f->SetMargin(1, 2, 0.03f);
    f->SetMargin(2, 2, 0.04f);
    f->SetXPixels(x), f->SetYPixels(y), f->SetLogPixels(logPixels), f->SetForPrinter(printer);
    return f;
}

PageClass SamplePage() {
    PageClass page;
    page.SetDescription(std::string(80, 'D') + "X");  // one character too long
    page.SetTitle("A Title");
    page.SetListAbbreviation("Nat");
    page.SetNumCharts(2);
    for (int16_t c = 1; c <= 12; ++c) page.SetChartPlacementDesc(c, "Slot " + std::to_string(c));
    auto screen = Format(1024, 768, 96, false);
    screen->AddObject(Wheel());
    auto plain = std::make_shared<PageObject>();
    plain->SetNumCharts(0);
    screen->AddObject(plain);
    page.AddFormat(screen);
    page.AddFormat(Format(2400, 3300, 300, true));
    return page;
}

std::string PlainRecordV4() {  // a default object with no charts
    Rec r;
    r.I16(0).I16(0).Zero(8).F32(0.3f).F32(0.3f).F32(0.4f).F32(0.4f);
    r.I16(0).I16(0).I16(0).I16(1).F32(0).I16(1).Zero(60).Zero(64);
    r.I16(0).F32(90).F32(5).F32(9).I16(0).I16(-1).Txt("", 20).Zero(16).I16(0).I16(0).Zero(236);
    r.Txt("", 80).Txt("", 255).Zero(320).Txt("", 80).Zero(10).Zero(400);
    return r.b;
}

std::string SamplePageBytes() {
    return Header(4, std::string(80, 'D'), 2) + FormatRecord(2, 1024, 768) + WheelRecordV4() +
           PlainRecordV4() + FormatRecord(0, 2400, 3300, 300, true);
}

size_t FilesIn(const test::TempDir& dir) {
    size_t n = 0;
    for (auto& e : std::filesystem::directory_iterator(dir.Folder())) n += e.is_regular_file();
    return n;
}

const char* kReadPhrase = "Error whilst attempting to read page formats ";
}  // namespace

TEST(PageFile, SavesVersionFourByteForByte) {
    test::TempDir dir;
    test::RecordingMessages messages;
    ASSERT_EQ(WheelRecordV4().size(), 1605u);
    ASSERT_EQ(PlainRecordV4().size(), 1605u);
    ASSERT_TRUE(SavePage(dir / "a.pag", SamplePage()));
    EXPECT_EQ(test::ReadAll(dir / "a.pag"), SamplePageBytes());
    EXPECT_TRUE(messages.shown.empty());

    PageClass empty;  // no formats: the header alone
    ASSERT_TRUE(SavePage(dir / "empty.pag", empty));
    EXPECT_EQ(test::ReadAll(dir / "empty.pag").size(), 349u);
    auto back = ReadPage(dir / "empty.pag", -1, true);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->NumFormats(), 0);
    EXPECT_EQ(back->ReadVersion(), 4);
}

TEST(PageFile, ReadsBackEveryFieldAndSavesTheSameBytes) {
    test::TempDir dir;
    test::RecordingMessages messages;
    std::string file = dir.Write("a.pag", SamplePageBytes());
    auto page = ReadPage(file, -1, true);
    ASSERT_TRUE(page);
    EXPECT_EQ(page->ReadVersion(), 4);
    EXPECT_EQ(page->Title(), "A Title");  // IsEqual leaves the title out
    PageClass expected = SamplePage();
    expected.SetDescription(std::string(80, 'D'));
    EXPECT_TRUE(page->IsEqual(&expected));  // every other member of page, formats and objects
    EXPECT_EQ(page->GetFormat(2)->Margin(1, 2), 0.03f);

    ASSERT_TRUE(SavePage(dir / "b.pag", *page));
    EXPECT_EQ(test::ReadAll(dir / "b.pag"), SamplePageBytes());
    EXPECT_TRUE(messages.shown.empty());
}

TEST(PageFile, CleansTextsAndNormalisesFlagsOnReading) {
    test::TempDir dir;
    Rec r = CommonPrefix(7, 1);
    r.Zero(60).Raw(Columns()).I16(0).F32(0).F32(0).F32(0).I16(5).I16(0);
    r.Raw(std::string("  Cap\0tion", 10)).Zero(10);  // cut at the NUL
    r.Raw("\x07").Zero(15).I16(-3).I16(300).Zero(236);
    r.Raw(std::string("\0Wheel", 6)).Zero(74);  // NUL first: empty
    r.Txt("  Generic  ", 255).Zero(320).Txt("Asp", 80);
    r.I16(4).Zero(8).Txt(" Pts ", 80).Zero(320);
    std::string header = Header(4, std::string("  Spaced out\0x  ", 16));
    std::string file = dir.Write("a.pag", header + FormatRecord(1, 800, 600) + r.b);

    auto page = ReadPage(file, -1, true);
    ASSERT_TRUE(page);
    EXPECT_EQ(page->Description(), std::string("Spaced out\0x", 12));  // header: only trimmed
    const PageObject& o = *page->GetFormat(1)->Object(1);
    EXPECT_EQ(o.UserCaption(), "Cap");
    EXPECT_EQ(o.WheelFile(), "");
    EXPECT_EQ(o.GenericFile(), "Generic");
    EXPECT_EQ(o.PointsFile(1), "Pts");
    EXPECT_TRUE(o.Weighted());  // 5 is true
    EXPECT_TRUE(o.AnchorBottom());
    EXPECT_EQ(o.Zodiac(), -3);
    EXPECT_EQ(o.ForceLineColor(), 300);
    EXPECT_EQ(o.ChartNum(1), 4);
}

TEST(PageFile, SelectedFormatAloneIsLoadedOthersAreSkippedBySeeking) {
    test::TempDir dir;
    test::RecordingMessages messages;
    // Formats 1 and 3 hold records that cannot be read (seven charts): only a skip gets past.
    std::string bad = WheelRecordV4();
    bad[2] = 7;
    std::string file =
        dir.Write("three.pag", Header(4, "Three") + FormatRecord(2, 640, 480) + bad + bad +
                                   FormatRecord(1, 800, 600) + WheelRecordV4() +
                                   FormatRecord(1, 1024, 768, 120, true) + bad);
    auto page = ReadPage(file, 2, true);
    ASSERT_TRUE(page);
    ASSERT_EQ(page->NumFormats(), 3);
    EXPECT_EQ(page->GetFormat(1)->XPixels(), 640);
    EXPECT_EQ(page->GetFormat(1)->NumObjects(), 2);
    EXPECT_EQ(page->GetFormat(1)->Object(2), nullptr);
    EXPECT_TRUE(page->GetFormat(2)->Object(1)->IsEqual(*Wheel()));
    EXPECT_EQ(page->GetFormat(3)->LogPixels(), 120);
    EXPECT_TRUE(page->GetFormat(3)->ForPrinter());
    EXPECT_EQ(page->GetFormat(3)->Object(1), nullptr);
    EXPECT_TRUE(messages.shown.empty());

    // Loading everything meets the seventh chart: a subscript error.
    EXPECT_EQ(ReadPage(file, -1, true), nullptr);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text, kReadPhrase + file + "\r\n\r\nSubscript out of range");
    EXPECT_EQ(messages.shown[0].title, "Open Error");
    EXPECT_EQ(messages.shown[0].icon, MsgIcon::Critical);
}

TEST(PageFile, EndOfFileRules) {
    test::TempDir dir;
    test::RecordingMessages messages;
    std::string whole = Header(4, "x") + FormatRecord(1, 800, 600) + WheelRecordV4();
    auto exact = ReadPage(dir.Write("exact.pag", whole), -1, true);
    ASSERT_TRUE(exact);
    EXPECT_EQ(exact->NumFormats(), 1);
    auto stray = ReadPage(dir.Write("stray.pag", whole + "\x01"), -1, true);  // ignored
    ASSERT_TRUE(stray);
    EXPECT_EQ(stray->NumFormats(), 1);
    EXPECT_TRUE(messages.shown.empty());

    // Two bytes start a format record that is not there; a short object record; a short header.
    for (const std::string& bytes :
         {whole + "\x01\x02", whole.substr(0, whole.size() - 1), whole.substr(0, 348)}) {
        std::string file = dir.Write("short.pag", bytes);
        messages.shown.clear();
        EXPECT_EQ(ReadPage(file, -1, true), nullptr);
        ASSERT_EQ(messages.shown.size(), 1u);
        EXPECT_EQ(messages.shown[0].text, kReadPhrase + file + "\r\n\r\nInput past end of file");
    }
    messages.shown.clear();
    EXPECT_EQ(ReadPage(dir / "short.pag", -1, false), nullptr);   // quietly
    EXPECT_EQ(ReadPage(dir / "missing.pag", -1, true), nullptr);  // no message for a missing file
    EXPECT_EQ(ReadPage(dir.Folder(), -1, true), nullptr);         // nor for a folder
    EXPECT_TRUE(messages.shown.empty());
}

TEST(PageFile, UnknownVersionsAndHostileCountsFailFastWithTheMessage) {
    test::TempDir dir;
    test::RecordingMessages messages;
    for (int version : {1, 5, 0, -4}) {
        std::string file = dir.Write("v.pag", Header(version, "x"));
        EXPECT_EQ(ReadPage(file, -1, true), nullptr);
        ASSERT_FALSE(messages.shown.empty());
        EXPECT_EQ(messages.shown.back().text, kReadPhrase + file + "\r\n\r\nInvalid file format");
    }
    messages.shown.clear();
    // 32767 objects announced in a file that holds one: refused before room is made for them
    // when the format is to be loaded...
    std::string file =
        dir.Write("huge.pag", Header(4, "x") + FormatRecord(32767, 800, 600) + WheelRecordV4());
    for (int16_t index : {-1, 1}) EXPECT_EQ(ReadPage(file, index, true), nullptr);
    ASSERT_EQ(messages.shown.size(), 2u);
    EXPECT_EQ(messages.shown[1].text, kReadPhrase + file + "\r\n\r\nInput past end of file");
    // ...and skipped when it is not: the skip reaches the file's end, which ends the reading.
    file = dir.Write("many.pag", Header(4, "x") + FormatRecord(1000, 800, 600) + WheelRecordV4());
    auto skipped = ReadPage(file, 2, true);
    ASSERT_TRUE(skipped);
    ASSERT_EQ(skipped->NumFormats(), 1);
    EXPECT_EQ(skipped->GetFormat(1)->XPixels(), 800);
    EXPECT_EQ(skipped->GetFormat(1)->NumObjects(), 1000);
    EXPECT_EQ(skipped->GetFormat(1)->Object(1), nullptr);

    messages.shown.clear();
    file = dir.Write("negative.pag", Header(4, "x") + FormatRecord(-2, 800, 600));
    EXPECT_EQ(ReadPage(file, -1, true), nullptr);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text, kReadPhrase + file + "\r\n\r\nSubscript out of range");
}

TEST(PageFile, FailedSaveKeepsTheOldFileAndLeavesNoTemporary) {
    test::TempDir dir;
    test::RecordingMessages messages;
    std::string file = dir.Write("keep.pag", "old contents");
    PageClass page = SamplePage();
    page.GetFormat(1)->Object(1)->SetNumCharts(6);  // more charts than a record holds
    EXPECT_FALSE(SavePage(file, page));
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text,
              "Error whilst attempting to save page " + file + "\r\n\r\nSubscript out of range");
    EXPECT_EQ(messages.shown[0].title, "Save Error");
    EXPECT_EQ(messages.shown[0].icon, MsgIcon::Critical);
    EXPECT_EQ(test::ReadAll(file), "old contents");
    EXPECT_EQ(FilesIn(dir), 1u);

    messages.shown.clear();
    EXPECT_FALSE(SavePage(dir / "no/such/folder.pag", SamplePage()));
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_TRUE(messages.shown[0].text.ends_with("\r\n\r\nPath not found"));
    std::filesystem::create_directory(dir / "folder.pag");
    EXPECT_FALSE(SavePage(dir / "folder.pag", SamplePage()));

    // Read-only is the user's word that the file stays as it is, though the folder allows it.
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    messages.shown.clear();
    EXPECT_FALSE(SavePage(file, SamplePage()));
    EXPECT_EQ(messages.shown.at(0).text,
              "Error whilst attempting to save page " + file + "\r\n\r\nPermission denied");
    EXPECT_EQ(test::ReadAll(file), "old contents");
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);

    messages.shown.clear();
    ASSERT_TRUE(SavePage(file, SamplePage()));  // an existing file is replaced
    EXPECT_EQ(test::ReadAll(file), SamplePageBytes());
    EXPECT_EQ(FilesIn(dir), 1u);
    EXPECT_TRUE(messages.shown.empty());

    // A pipe is neither read, which would wait forever, nor replaced.
    std::string pipe = dir / "pipe.pag";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(ReadPage(pipe, -1, true), nullptr);
    EXPECT_FALSE(SavePage(pipe, SamplePage()));
    EXPECT_EQ(messages.shown.at(0).text, kReadPhrase + pipe + "\r\n\r\nBad file name");
    EXPECT_EQ(messages.shown.at(1).title, "Save Error");
}

// Version 3: bytes 204.. hold the flag bytes, Zodiac, a 238-byte reserved text, then the
// file names at their version-4 offsets; chart numbers 1 to 4 at offset 4.
TEST(PageFile, VersionThreeIsPromotedOneCharacterLate) {
    test::TempDir dir;
    test::RecordingMessages messages;
    auto v3 = [](int numCharts, char reservedFirst, char reservedLast, const std::string& points1) {
        Rec r = Middle(CommonPrefix(3, numCharts, {4, 3, 2, 1}).Zero(60), "Cap");
        r.Raw("\x01").Zero(15).I16(2);
        r.Raw(std::string(1, reservedFirst)).Txt("", 236).Raw(std::string(1, reservedLast));
        r.Txt("Natal", 80).Txt("Generic", 255);
        r.Raw(points1).Txt("Solar", 80).Txt("", 80).Txt("Lunar", 80).Txt("Major", 80);
        return r.b;
    };
    std::string full80 = std::string(79, 'P') + "Q";  // a points file filling its field
    std::string one = v3(4, 'A', ' ', full80), two = v3(1, ' ', '\0', std::string(80, ' '));
    ASSERT_EQ(one.size(), 1195u);
    std::string file =
        dir.Write("v3.pag", Header(3, "Three") + FormatRecord(2, 800, 600) + one + two);

    auto page = ReadPage(file, -1, true);
    ASSERT_TRUE(page);
    EXPECT_EQ(page->ReadVersion(), 3);
    const PageObject& a = *page->GetFormat(1)->Object(1);
    EXPECT_EQ(a.ForceLineColor(), 'A');  // the reserved text's first character
    EXPECT_EQ(a.Zodiac(), 2);
    EXPECT_TRUE(a.AnchorBottom());
    EXPECT_EQ(a.UserCaption(), "Cap");
    EXPECT_EQ(a.WheelFile(), "Natal");
    EXPECT_EQ(a.GenericFile(), "Generic");
    EXPECT_EQ(a.AspectsFile(), "Major");
    EXPECT_EQ(a.PointsFile(1), std::string(79, 'P'));  // its last character is lost...
    EXPECT_EQ(a.PointsFile(2), "QSolar");              // ...and leads the next one
    EXPECT_EQ(a.PointsFile(3), "");
    EXPECT_EQ(a.PointsFile(4), "Lunar");
    for (int16_t c = 1; c <= 4; ++c) EXPECT_EQ(a.ChartNum(c), 5 - c);
    EXPECT_EQ(a.PL_Columns(64), 9);

    // A NUL at the end of the reserved text takes the wheel file with it.
    const PageObject& b = *page->GetFormat(1)->Object(2);
    EXPECT_EQ(b.WheelFile(), "");
    EXPECT_EQ(b.GenericFile(), "Generic");
    EXPECT_EQ(b.ForceLineColor(), ' ');
    EXPECT_EQ(b.ChartNum(1), 4);
    EXPECT_TRUE(messages.shown.empty());

    // Five charts in an old record: the fifth has no slot of its own there and stays empty.
    std::string five = v3(5, ' ', ' ', full80);
    auto p5 = ReadPage(dir.Write("five.pag", Header(3, "x") + FormatRecord(1, 800, 600) + five), -1,
                       true);
    ASSERT_TRUE(p5);
    EXPECT_EQ(p5->GetFormat(1)->Object(1)->ChartNum(5), 0);
    EXPECT_EQ(p5->GetFormat(1)->Object(1)->PointsFile(5), "");
}

// Version 2: 212 bytes, the file names as short texts at 42..101 and a text 8 at 204.
TEST(PageFile, VersionTwoIsPromotedAndLosesItsWheelFile) {
    test::TempDir dir;
    test::RecordingMessages messages;
    auto v2 = [](const std::string& trailing) {
        Rec r = CommonPrefix(3, 2, {7, 6, 0, 0});
        r.Txt("Natal", 8).Txt(" Dignity", 12).Txt("Pts1", 8).Txt("Pts2", 8).Txt("", 8);
        r.Txt("Pts4", 8).Txt("Asp", 8);
        r = Middle(r, "Cap");
        return r.Raw(trailing).b;
    };
    std::string anchored = v2("X       "), free = v2(std::string(8, '\0'));
    ASSERT_EQ(anchored.size(), 212u);
    // Two formats, so that reading format 2 alone must skip 212-byte records.
    std::string file = dir.Write("v2.pag", Header(2, "Two") + FormatRecord(1, 640, 480) + anchored +
                                               FormatRecord(2, 800, 600) + anchored + free);
    for (int16_t index : {-1, 2}) {
        auto page = ReadPage(file, index, true);
        ASSERT_TRUE(page);
        ASSERT_EQ(page->NumFormats(), 2);
        EXPECT_EQ(page->GetFormat(2)->XPixels(), 800);
        const PageObject& a = *page->GetFormat(2)->Object(1);
        EXPECT_EQ(a.WheelFile(), "");  // lost, deliberately
        EXPECT_EQ(a.ForceLineColor(), 0);
        EXPECT_EQ(a.Zodiac(), 0);
        EXPECT_TRUE(a.AnchorBottom());
        EXPECT_EQ(a.GenericFile(), "Dignity");
        EXPECT_EQ(a.PointsFile(1), "Pts1");
        EXPECT_EQ(a.PointsFile(2), "Pts2");
        EXPECT_EQ(a.AspectsFile(), "Asp");
        EXPECT_EQ(a.ChartNum(1), 7);
        EXPECT_EQ(a.ChartNum(2), 6);
        EXPECT_EQ(a.UserCaption(), "Cap");
        EXPECT_EQ(a.FontSize(), 10.5f);
        EXPECT_FALSE(page->GetFormat(2)->Object(2)->AnchorBottom());
        EXPECT_EQ(page->GetFormat(1)->Object(1) == nullptr, index == 2);
    }
    EXPECT_TRUE(messages.shown.empty());
}
