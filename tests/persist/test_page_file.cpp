#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "PageText.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "persist/FileIO_Page.h"
#include "support/Golden.h"
#include "support/RecordingMessages.h"
#include "support/TempDir.h"

using namespace paginox;
using test::GoldenBytes;
using test::GoldenText;
using test::PageText;

namespace {
// Where records start in pages/sample_v4.hex: formats 1, 2 and 3 and their first objects.
constexpr size_t kFormat1 = 349, kObject1 = kFormat1 + 34, kFormat2 = kObject1 + 2 * 1605;
constexpr size_t kFormat3 = kFormat2 + 34 + 1605, kObject3 = kFormat3 + 34;
const std::string kReadError = "Open Error: Error whilst attempting to read page formats ";

void Set16(std::string& bytes, size_t at, int v) {
    bytes[at] = char(v & 0xFF);
    bytes[at + 1] = char((v >> 8) & 0xFF);
}

struct PageFile : ::testing::Test {
    test::TempDir dir;
    test::RecordingMessages messages;
    const std::string sample = GoldenBytes("pages/sample_v4.hex");
    std::string file = dir / "a.pag";

    std::shared_ptr<PageClass> Read(const std::string& bytes, int16_t index = -1) {
        return ReadPage(dir.Write("a.pag", bytes), index, true);
    }
    size_t FilesInDir() const {
        auto all = std::filesystem::directory_iterator(dir.Folder());
        return size_t(std::distance(all, {}));
    }
};
}  // namespace

TEST_F(PageFile, ReadsEveryFieldAndSavesVersionFourByteForByte) {
    auto page = Read(sample);
    ASSERT_TRUE(page);
    EXPECT_EQ(PageText(*page), GoldenText("pages/sample_v4.txt", "every format"));
    page->SetDescription(std::string(80, 'D') + "X");  // one character too long
    ASSERT_TRUE(SavePage(dir / "b.pag", *page));
    EXPECT_EQ(test::ReadAll(dir / "b.pag"), sample);

    PageClass empty;  // no formats: the header alone
    ASSERT_TRUE(SavePage(dir / "empty.pag", empty));
    EXPECT_EQ(test::ReadAll(dir / "empty.pag").size(), 349u);
    auto back = ReadPage(dir / "empty.pag", -1, true);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->ReadVersion(), 4);
    EXPECT_EQ(back->NumFormats(), 0);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(PageFile, CleansTextsAndNormalisesFlagsOnReading) {
    auto page = Read(GoldenBytes("pages/untidy_v4.hex"));
    ASSERT_TRUE(page);
    EXPECT_EQ(PageText(*page), GoldenText("pages/untidy_v4.txt"));
}

TEST_F(PageFile, SelectedFormatAloneIsLoadedOthersAreSkippedBySeeking) {
    // Objects of formats 1 and 3 with seven charts cannot be read: only a skip gets past them.
    std::string bytes = sample;
    Set16(bytes, kObject1 + 2, 7);
    Set16(bytes, kObject3 + 2, 7);
    auto page = Read(bytes, 2);
    ASSERT_TRUE(page);
    EXPECT_EQ(PageText(*page), GoldenText("pages/sample_v4.txt", "format 2 alone"));
    EXPECT_TRUE(messages.shown.empty());

    // Loading everything meets the seventh chart: a subscript error.
    EXPECT_EQ(Read(bytes), nullptr);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.Last(), kReadError + file + "\r\n\r\nSubscript out of range");
    EXPECT_EQ(messages.shown[0].icon, MsgIcon::Critical);
}

TEST_F(PageFile, EndOfFileRules) {
    auto stray = Read(sample + "\x01");  // ignored
    ASSERT_TRUE(stray);
    EXPECT_EQ(stray->NumFormats(), 3);
    EXPECT_TRUE(messages.shown.empty());

    // Two bytes start a format record that is not there; a short object record; a short header.
    for (const std::string& bytes :
         {sample + "\x01\x02", sample.substr(0, sample.size() - 1), sample.substr(0, 348)}) {
        messages.shown.clear();
        EXPECT_EQ(Read(bytes), nullptr);
        ASSERT_EQ(messages.shown.size(), 1u);
        EXPECT_EQ(messages.Last(), kReadError + file + "\r\n\r\nInput past end of file");
    }
    messages.shown.clear();
    EXPECT_EQ(ReadPage(file, -1, false), nullptr);                // quietly
    EXPECT_EQ(ReadPage(dir / "missing.pag", -1, true), nullptr);  // no message for a missing file
    EXPECT_EQ(ReadPage(dir.Folder(), -1, true), nullptr);         // nor for a folder
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(PageFile, UnknownVersionsAndHostileCountsFailFastWithTheMessage) {
    struct {
        size_t at;
        int value;
        const char* error;
    } const cases[] = {{0, 1, "Invalid file format"},
                       {0, 5, "Invalid file format"},
                       {0, 0, "Invalid file format"},
                       {0, -4, "Invalid file format"},
                       // Refused before room is made for the objects it is to load.
                       {kFormat1, 32767, "Input past end of file"},
                       {kFormat1, -2, "Subscript out of range"}};
    for (const auto& c : cases) {
        std::string bytes = sample;
        Set16(bytes, c.at, c.value);
        for (int16_t index : {-1, 1}) {
            SCOPED_TRACE(std::to_string(c.value) + " at " + std::to_string(c.at));
            messages.shown.clear();
            EXPECT_EQ(Read(bytes, index), nullptr);
            ASSERT_EQ(messages.shown.size(), 1u);
            EXPECT_EQ(messages.Last(), kReadError + file + "\r\n\r\n" + c.error);
        }
    }
    // A format that is not loaded is skipped: past the file's end, which ends the reading.
    std::string many = sample;
    Set16(many, kFormat1, 1000);
    auto page = Read(many, 2);
    ASSERT_TRUE(page);
    ASSERT_EQ(page->NumFormats(), 1);
    EXPECT_EQ(page->GetFormat(1)->NumObjects(), 1000);
    EXPECT_EQ(page->GetFormat(1)->Object(1), nullptr);
}

TEST_F(PageFile, FailedSaveKeepsTheOldFileAndLeavesNoTemporary) {
    dir.Write("keep.pag", "old contents");
    auto page = Read(sample);
    ASSERT_TRUE(page);
    page->GetFormat(1)->Object(1)->SetNumCharts(6);  // more charts than a record holds
    EXPECT_FALSE(SavePage(dir / "keep.pag", *page));
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.Last(), "Save Error: Error whilst attempting to save page " +
                                   (dir / "keep.pag") + "\r\n\r\nSubscript out of range");
    EXPECT_EQ(messages.shown[0].icon, MsgIcon::Critical);
    EXPECT_EQ(test::ReadAll(dir / "keep.pag"), "old contents");
    EXPECT_EQ(FilesInDir(), 2u);  // a.pag, read above, and keep.pag

    page->GetFormat(1)->Object(1)->SetNumCharts(2);
    EXPECT_FALSE(SavePage(dir / "no/such/folder.pag", *page));
    EXPECT_TRUE(messages.Last().ends_with("\r\n\r\nPath not found"));
    std::filesystem::create_directory(dir / "folder.pag");
    EXPECT_FALSE(SavePage(dir / "folder.pag", *page));
    EXPECT_EQ(messages.shown.size(), 3u);

    // Read-only is the user's word that the file stays as it is, though the folder allows it.
    std::filesystem::permissions(dir / "keep.pag", std::filesystem::perms::owner_read);
    EXPECT_FALSE(SavePage(dir / "keep.pag", *page));
    EXPECT_TRUE(messages.Last().ends_with("\r\n\r\nPermission denied"));
    EXPECT_EQ(test::ReadAll(dir / "keep.pag"), "old contents");
    std::filesystem::permissions(dir / "keep.pag", std::filesystem::perms::owner_all);

    ASSERT_TRUE(SavePage(dir / "keep.pag", *page));  // an existing file is replaced
    EXPECT_EQ(test::ReadAll(dir / "keep.pag"), sample);
    EXPECT_EQ(FilesInDir(), 3u);  // and the folder
    EXPECT_EQ(messages.shown.size(), 4u);

    // A pipe is neither read, which would wait forever, nor replaced.
    std::string pipe = dir / "pipe.pag";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(ReadPage(pipe, -1, true), nullptr);
    EXPECT_EQ(messages.Last(), kReadError + pipe + "\r\n\r\nBad file name");
    EXPECT_FALSE(SavePage(pipe, *page));
    EXPECT_EQ(messages.shown.back().title, "Save Error");
}

// Version 3 is promoted one character late: v3.txt says what that does to each text.
TEST_F(PageFile, VersionThreeIsPromotedOneCharacterLate) {
    auto page = Read(GoldenBytes("pages/v3.hex"));
    ASSERT_TRUE(page);
    EXPECT_EQ(PageText(*page), GoldenText("pages/v3.txt"));
    EXPECT_TRUE(messages.shown.empty());
}

// Version 2 loses its wheel file, deliberately; reading format 2 alone skips 212-byte records.
TEST_F(PageFile, VersionTwoIsPromotedAndLosesItsWheelFile) {
    const std::string bytes = GoldenBytes("pages/v2.hex");
    for (int16_t index : {-1, 2}) {
        auto page = Read(bytes, index);
        ASSERT_TRUE(page);
        EXPECT_EQ(PageText(*page),
                  GoldenText("pages/v2.txt", index < 0 ? "every format" : "format 2 alone"));
    }
    EXPECT_TRUE(messages.shown.empty());
}
