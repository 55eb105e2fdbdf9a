#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>
#include <string>

#include "model/ModelState.h"
#include "model/PageObjectClasses.h"
#include "persist/ByteStream.h"
#include "persist/FileIO_OClass.h"
#include "support/RecordingMessages.h"
#include "support/TempDir.h"

using namespace paginox;

namespace {
// One record written field by field at the offsets the file format gives.
std::string Record(int16_t type, const std::string& fullName, int32_t flags = 0) {
    ByteWriter w;
    w.Int16(type);                  // 0
    w.Text("Abbr", 8);              // 2
    w.Text(fullName, 40);           // 10
    w.Text("  Describes it", 127);  // 50
    w.Text("Wheels", 20);           // 177
    w.Int16(7);                     // 197 Order
    w.Int16(1);                     // 199 Shape
    w.Int16(2);                     // 201 DefaultFixedLines
    w.Int16(12);                    // 203 DefaultTextLines
    w.Int16(3);                     // 205 DefaultHorizontalBlocks
    w.Single(0.75f);                // 207 DefaultYRatio
    w.Int16(5);                     // 211 NumCharts
    w.Int16(6);                     // 213 DefaultFrameType
    w.Int32(flags);                 // 215 OCUFlags
    return w.Bytes();
}

// Every field in file order, as text.
std::string Fields(const PageObjectClass& c) {
    std::ostringstream s;
    s << c.ObjectType() << '|' << c.Abbreviation() << '|' << c.FullName() << '|' << c.Description()
      << '|' << c.Group() << '|' << c.Order() << '|' << c.Shape() << '|' << c.DefaultFixedLines()
      << '|' << c.DefaultTextLines() << '|' << c.DefaultHorizontalBlocks() << '|'
      << c.DefaultYRatio() << '|' << c.NumCharts() << '|' << c.DefaultFrameType() << '|'
      << c.OCUFlags();
    return s.str();
}

std::string Records(int n) {
    std::string bytes;
    for (int i = 1; i <= n; ++i) bytes += Record(int16_t(i * 10), "Class " + std::to_string(i));
    return bytes;
}
}  // namespace

TEST(ObjectClassFile, RecordsBecomeClassesInFileOrder) {
    test::TempDir dir;
    std::string file = Records(2) + Record(27, "  Wheel" + std::string(33, ' '), -2147352576);
    PageObjectClasses classes;
    LoadObjectClasses(dir.Write("objects.dfn", file), classes);
    ASSERT_EQ(classes.Count(), 3);
    for (int16_t i = 1; i <= 3; ++i) EXPECT_EQ(classes.Class(i)->ClassID(), i);
    EXPECT_EQ(Fields(*classes.Class(3)),
              "27|Abbr|Wheel|Describes it|Wheels|7|1|2|12|3|0.75|5|6|-2147352576");
    EXPECT_EQ(classes.Class(2)->FullName(), "Class 2");
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

TEST(ObjectClassFile, RecordCountRoundsAndAPartialRecordReadsAsFarAsItGoes) {
    test::TempDir dir;
    PageObjectClasses classes;
    LoadObjectClasses(dir.Write("a.dfn", Records(3) + std::string(100, 'x')), classes);
    EXPECT_EQ(classes.Count(), 3);  // 3.46 records

    // 3.502 records: the fourth has its type, names and part of its description only.
    std::string partial = Record(44, "Partial", 255).substr(0, 110);
    LoadObjectClasses(dir.Write("b.dfn", Records(3) + partial), classes);
    ASSERT_EQ(classes.Count(), 4);
    EXPECT_EQ(classes.Class(4)->ClassID(), 4);
    EXPECT_EQ(Fields(*classes.Class(4)), "44|Abbr|Partial|Describes it||0|0|0|0|0|0|0|0|0");
}

TEST(ObjectClassFile, FileThatCannotBeOpenedIsReportedAndLeavesTheCatalogueEmpty) {
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
}

TEST(ObjectClassFile, MoreRecordsThanASixteenBitCountIsReportedNotLoaded) {
    test::TempDir dir;
    test::RecordingMessages messages;
    std::string path = dir.Write("huge.dfn", "");
    // 32767.5 records round to 32768, which no 16-bit count holds. Sparse: nothing is written.
    ASSERT_EQ(truncate(path.c_str(), off_t(219) * 32767 + 110), 0);
    PageObjectClasses classes;
    LoadObjectClasses(path, classes);
    EXPECT_EQ(classes.Count(), 0);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text, "Error whilst reading file " + path + "\r\n\r\nOverflow");
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
    dir.Write("whole.dfn", Records(2));
    dir.Write("empty.dfn", "");
    dir.Write("cut.dfn", Records(2) + "x");
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
