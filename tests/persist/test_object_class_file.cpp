// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>
#include <string>

#include "model/ModelState.h"
#include "model/PageObjectClasses.h"
#include "persist/FileIO_OClass.h"
#include "support/Golden.h"
#include "support/RecordingMessages.h"
#include "support/TempDir.h"

using namespace paginox;

namespace {
// The classes' ids and every field, in file order.
std::string Fields(const PageObjectClasses& all) {
    std::ostringstream s;
    for (int16_t i = 1; i <= all.Count(); ++i) {
        const PageObjectClass& c = *all.Class(i);
        s << c.ClassID() << ": " << c.ObjectType() << '|' << c.Abbreviation() << '|' << c.FullName()
          << '|' << c.Description() << '|' << c.Group() << '|' << c.Order() << '|' << c.Shape()
          << '|' << c.DefaultFixedLines() << '|' << c.DefaultTextLines() << '|'
          << c.DefaultHorizontalBlocks() << '|' << c.DefaultYRatio() << '|' << c.NumCharts() << '|'
          << c.DefaultFrameType() << '|' << c.OCUFlags() << "\n";
    }
    return s.str();
}

const std::string kRecords = test::GoldenBytes("classes/objects.hex");  // four of 219 bytes
}  // namespace

TEST(ObjectClassFile, RecordsBecomeClassesInFileOrderAndTheirCountRounds) {
    test::TempDir dir;
    PageObjectClasses classes;
    LoadObjectClasses(dir.Write("objects.dfn", kRecords), classes);
    EXPECT_EQ(Fields(classes), test::GoldenText("classes/objects.txt", "four records"));
    // The record count rounds; a partial record reads as far as it goes.
    LoadObjectClasses(dir.Write("a.dfn", kRecords.substr(0, 3 * 219) + std::string(100, 'x')),
                      classes);
    EXPECT_EQ(classes.Count(), 3);  // 3.46 records
    // 3.502 records: the fourth has its type, names and part of its description only.
    LoadObjectClasses(dir.Write("b.dfn", kRecords.substr(0, 3 * 219 + 110)), classes);
    EXPECT_EQ(Fields(classes), test::GoldenText("classes/objects.txt", "a partial fourth"));
}

struct ObjectClassMessages : ::testing::Test {
    test::TempDir dir;
    test::RecordingMessages messages;
    PageObjectClasses classes;
    // The messages shown match that section of persist/messages.txt.
    void ExpectShown(const char* section) {
        EXPECT_EQ(messages.Transcript({{dir.Folder(), "$DIR/"}}),
                  test::GoldenText("persist/messages.txt", section));
    }
};

TEST_F(ObjectClassMessages, MissingFileIsCreatedEmptyUnreadableFilesAreReported) {
    LoadObjectClasses(dir / "objects.dfn", classes);
    EXPECT_EQ(classes.Count(), 0);
    EXPECT_TRUE(std::filesystem::exists(dir / "objects.dfn"));
    // One box, not an "Open Error" before it; the catalogue is left empty.
    classes.SetCount(2);
    LoadObjectClasses(dir / "missing/objects.dfn", classes);
    EXPECT_EQ(classes.Count(), 0);
    // 32767.5 records round to 32768, which no 16-bit count holds. Sparse: nothing is written.
    std::string huge = dir.Write("huge.dfn", "");
    ASSERT_EQ(truncate(huge.c_str(), off_t(219) * 32767 + 110), 0);
    classes.SetCount(2);
    LoadObjectClasses(huge, classes);
    EXPECT_EQ(classes.Count(), 0);
    ExpectShown("unreadable catalogues");
}

TEST_F(ObjectClassMessages, StartUpSaysOnceWhenTheCatalogueIsNotWhole) {
    test::ScopedModelState state;
    dir.Write("whole.dfn", kRecords.substr(0, 2 * 219));
    dir.Write("empty.dfn", "");
    dir.Write("cut.dfn", kRecords.substr(0, 2 * 219) + "x");
    for (const char* name : {"whole.dfn", "missing.dfn", "empty.dfn", "cut.dfn"}) {
        LoadCatalogue(dir / name);
    }
    ExpectShown("catalogues at start-up");
}
