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

TEST(ObjectClassFile, RecordsBecomeClassesInFileOrder) {
    test::TempDir dir;
    PageObjectClasses classes;
    LoadObjectClasses(dir.Write("objects.dfn", kRecords), classes);
    EXPECT_EQ(Fields(classes),
              "1: 10|Abbr|Class 1|Describes it|Wheels|7|1|2|12|3|0.75|5|6|0\n"
              "2: 20|Abbr|Class 2|Describes it|Wheels|7|1|2|12|3|0.75|5|6|0\n"
              "3: 27|Abbr|Wheel|Describes it|Wheels|7|1|2|12|3|0.75|5|6|-2147352576\n"
              "4: 44|Abbr|Partial|Describes it|Wheels|7|1|2|12|3|0.75|5|6|255\n");
}

TEST(ObjectClassFile, RecordCountRoundsAndAPartialRecordReadsAsFarAsItGoes) {
    test::TempDir dir;
    PageObjectClasses classes;
    LoadObjectClasses(dir.Write("a.dfn", kRecords.substr(0, 3 * 219) + std::string(100, 'x')),
                      classes);
    EXPECT_EQ(classes.Count(), 3);  // 3.46 records
    // 3.502 records: the fourth has its type, names and part of its description only.
    LoadObjectClasses(dir.Write("b.dfn", kRecords.substr(0, 3 * 219 + 110)), classes);
    ASSERT_EQ(classes.Count(), 4);
    EXPECT_TRUE(
        Fields(classes).ends_with("\n4: 44|Abbr|Partial|Describes it||0|0|0|0|0|0|0|0|0\n"));
}

TEST(ObjectClassFile, MissingFileIsCreatedEmptyWithoutAMessage) {
    test::TempDir dir;
    test::RecordingMessages messages;
    PageObjectClasses classes;
    LoadObjectClasses(dir / "objects.dfn", classes);
    EXPECT_EQ(classes.Count(), 0);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(std::filesystem::exists(dir / "objects.dfn"));
}

TEST(ObjectClassFile, UnreadableFilesAreReportedAndLeaveTheCatalogueEmpty) {
    test::TempDir dir;
    test::RecordingMessages messages;
    PageObjectClasses classes;
    classes.SetCount(2);
    std::string path = dir / "missing/objects.dfn";
    LoadObjectClasses(path, classes);
    EXPECT_EQ(classes.Count(), 0);
    ASSERT_EQ(messages.shown.size(), 1u);  // one box, not an "Open Error" before it
    EXPECT_EQ(messages.shown[0].text,
              "Error whilst reading file " + path + "\r\n\r\nPath not found");
    EXPECT_EQ(messages.shown[0].buttons, MsgButtons::Ok);

    // 32767.5 records round to 32768, which no 16-bit count holds. Sparse: nothing is written.
    path = dir.Write("huge.dfn", "");
    ASSERT_EQ(truncate(path.c_str(), off_t(219) * 32767 + 110), 0);
    classes.SetCount(2);
    LoadObjectClasses(path, classes);
    EXPECT_EQ(classes.Count(), 0);
    EXPECT_EQ(messages.shown.back().text, "Error whilst reading file " + path + "\r\n\r\nOverflow");
}

TEST(ObjectClassFile, StartUpSaysOnceWhenTheCatalogueIsNotWhole) {
    test::TempDir dir;
    test::ScopedModelState state;
    const std::string tail = "; pages that use others show them as unknown objects.";
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"whole.dfn", ""},
        {"missing.dfn", " was not found, so it holds 0 classes"},
        {"empty.dfn", " is empty: it holds 0 classes"},
        {"cut.dfn", " is cut short: it holds 2 classes"},
    };
    dir.Write("whole.dfn", kRecords.substr(0, 2 * 219));
    dir.Write("empty.dfn", "");
    dir.Write("cut.dfn", kRecords.substr(0, 2 * 219) + "x");
    for (const auto& [name, said] : cases) {
        SCOPED_TRACE(name);
        test::RecordingMessages messages;
        LoadCatalogue(dir / name);
        if (said.empty()) {
            EXPECT_TRUE(messages.shown.empty());
            continue;
        }
        ASSERT_EQ(messages.shown.size(), 1u);
        EXPECT_EQ(messages.shown[0].text,
                  "The object class catalogue " + (dir / name) + said + tail);
        EXPECT_EQ(messages.shown[0].title, "Object Classes");
    }
}
