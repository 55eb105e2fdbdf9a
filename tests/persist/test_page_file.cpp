// SPDX-License-Identifier: GPL-3.0-or-later
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

using namespace paginox;
using test::GoldenBytes;
using test::GoldenText;
using test::PageText;
namespace fs = std::filesystem;

namespace {
// Where records start in pages/sample_v4.hex: format 1 and the first objects of formats 1 and 3
// (after the three objects and two format records before it).
constexpr size_t kFormat1 = 349, kObject1 = kFormat1 + 34, kObject3 = kObject1 + 3 * 1605 + 68;

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
    // The messages shown match that section of persist/messages.txt.
    void ExpectShown(const char* section) {
        EXPECT_EQ(messages.Transcript({{dir.Folder(), "$DIR/"}}),
                  GoldenText("persist/messages.txt", section));
    }
};
}  // namespace

TEST_F(PageFile, EachVersionReadsAsItsGoldenTextSays) {
    const struct {
        const char *bytes, *text, *section;
        int16_t index;
    } cases[] = {
        {"pages/sample_v4.hex", "pages/sample_v4.txt", "every format", -1},
        {"pages/untidy_v4.hex", "pages/untidy_v4.txt", "", -1},  // texts cleaned, flags normalised
        {"pages/v3.hex", "pages/v3.txt", "", -1},                // promoted one character late
        // Version 2 loses its wheel file, deliberately; reading format 2 alone skips 212-byte
        // records.
        {"pages/v2.hex", "pages/v2.txt", "every format", -1},
        {"pages/v2.hex", "pages/v2.txt", "format 2 alone", 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bytes);
        auto page = Read(GoldenBytes(c.bytes), c.index);
        ASSERT_TRUE(page);
        EXPECT_EQ(PageText(*page), GoldenText(c.text, c.section));
    }
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(PageFile, SavesVersionFourByteForByte) {
    auto page = Read(sample);
    page->SetDescription(std::string(80, 'D') + "X");  // one character too long
    ASSERT_TRUE(SavePage(dir / "b.pag", *page));
    EXPECT_EQ(test::ReadAll(dir / "b.pag"), sample);
    PageClass empty;  // no formats: the header alone
    ASSERT_TRUE(SavePage(dir / "empty.pag", empty));
    EXPECT_EQ(test::ReadAll(dir / "empty.pag").size(), 349u);
    auto back = ReadPage(dir / "empty.pag", -1, true);
    EXPECT_EQ(std::pair(back->ReadVersion(), back->NumFormats()),
              std::pair(int16_t(4), int16_t(0)));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(PageFile, SelectedFormatAloneIsLoadedOthersAreSkippedBySeeking) {
    // Objects of formats 1 and 3 with seven charts cannot be read: only a skip gets past them.
    std::string bytes = sample;
    Set16(bytes, kObject1 + 2, 7);
    Set16(bytes, kObject3 + 2, 7);
    auto page = Read(bytes, 2);
    ASSERT_TRUE(page);
    EXPECT_EQ(PageText(*page), GoldenText("pages/sample_v4.txt", "format 2 alone"));
    EXPECT_EQ(Read(bytes), nullptr);  // loading everything meets the seventh chart
    ExpectShown("seventh chart");
}

TEST_F(PageFile, EndOfFileRules) {
    auto stray = Read(sample + "\x01");  // ignored
    ASSERT_TRUE(stray);
    EXPECT_EQ(stray->NumFormats(), 3);
    // Two bytes start a format record that is not there; a short object record; a short header.
    for (const std::string& bytes :
         {sample + "\x01\x02", sample.substr(0, sample.size() - 1), sample.substr(0, 348)}) {
        EXPECT_EQ(Read(bytes), nullptr);
    }
    EXPECT_EQ(ReadPage(file, -1, false), nullptr);                // quietly
    EXPECT_EQ(ReadPage(dir / "missing.pag", -1, true), nullptr);  // no message for a missing file
    EXPECT_EQ(ReadPage(dir.Folder(), -1, true), nullptr);         // nor for a folder
    ExpectShown("three short files");
}

TEST_F(PageFile, UnknownVersionsAndHostileCountsFailFastWithTheMessage) {
    // Versions 1, 5, 0 and -4, then format 1 claiming 32767 and -2 objects, read whole and
    // format 1 alone.
    for (auto [at, value] :
         {std::pair{size_t(0), 1}, {0, 5}, {0, 0}, {0, -4}, {kFormat1, 32767}, {kFormat1, -2}}) {
        std::string bytes = sample;
        Set16(bytes, at, value);
        for (int16_t index : {-1, 1})
            EXPECT_EQ(Read(bytes, index), nullptr) << value << " at " << at;
    }
    ExpectShown("versions and counts");
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
    page->GetFormat(1)->Object(1)->SetNumCharts(6);  // more charts than a record holds
    EXPECT_FALSE(SavePage(dir / "keep.pag", *page));
    page->GetFormat(1)->Object(1)->SetNumCharts(2);
    EXPECT_FALSE(SavePage(dir / "no/such/folder.pag", *page));
    fs::create_directory(dir / "folder.pag");
    EXPECT_FALSE(SavePage(dir / "folder.pag", *page));
    // Read-only is the user's word that the file stays as it is, though the folder allows it.
    fs::permissions(dir / "keep.pag", fs::perms::owner_read);
    EXPECT_FALSE(SavePage(dir / "keep.pag", *page));
    EXPECT_EQ(test::ReadAll(dir / "keep.pag"), "old contents");
    fs::permissions(dir / "keep.pag", fs::perms::owner_all);
    ASSERT_TRUE(SavePage(dir / "keep.pag", *page));  // an existing file is replaced
    EXPECT_EQ(test::ReadAll(dir / "keep.pag"), sample);
    // A pipe is neither read, which would wait forever, nor replaced.
    std::string pipe = dir / "pipe.pag";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(ReadPage(pipe, -1, true), nullptr);
    EXPECT_FALSE(SavePage(pipe, *page));
    ExpectShown("failed saves");
    // No temporary file is left: a.pag, read above, keep.pag, the folder and the pipe.
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.Folder()), {}), 4);
}
