// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <filesystem>

#include "model/DefinitionTables.h"
#include "persist/DefinitionReaders.h"
#include "support/Golden.h"
#include "support/RecordingMessages.h"
#include "support/TempDir.h"

using namespace paginox;

TEST(DefinitionReaders, ColumnListsKeepCompleteRecordsAndReportErrorsOnce) {
    test::TempDir dir;
    test::RecordingMessages messages;
    const auto& points = Definitions().PointList;
    auto read = [&](const std::string& bytes) { ReadPointListDefs(dir.Write("plist.dfn", bytes)); };
    read("1,3,\"Point\",1\r\n2,8,Longitude,0\r\n");
    ASSERT_EQ(points.Count(), 2);
    const ColumnDef& second = points.Entry(2);
    EXPECT_EQ(second.Label + " " + std::to_string(second.Second), "Longitude 8");
    EXPECT_EQ(points.Entry(1).DefaultFlag, 1);
    read("");  // the first field meets the end of the file
    EXPECT_EQ(points.Count(), 0);
    read("1,3,\"Aspect\",1\r\n2,x,\"Orb\",1\r\n");
    EXPECT_EQ(points.Count(), 1);
    // 16-bit counts: the record after the 32767th is an overflow.
    std::string many;
    for (int i = 0; i < 32768; ++i) many += "1,2,a,0\n";
    read(many);
    EXPECT_EQ(points.Count(), 32767);
    // A missing file: the open reports it and the table is left empty.
    ReadAspectListDefs(dir.Write("Alist.dfn", "1,3,\"Aspect\",1"));
    EXPECT_EQ(Definitions().AspectList.Count(), 1);
    ReadAspectListDefs(dir / "none.dfn");
    EXPECT_EQ(Definitions().AspectList.Count(), 0);
    EXPECT_EQ(messages.Transcript({{dir.Folder(), "$DIR/"}}),
              test::GoldenText("persist/messages.txt", "column lists"));
}

TEST(DefinitionReaders, RulershipRecordsAndRoundedCount) {
    test::TempDir dir;
    test::RecordingMessages rec;
    const std::string rulers = test::GoldenBytes("persist/rulers.hex");
    auto& sets = Definitions().Rulerships;
    // 408 bytes = 2.5 records: three sets, the third read as far as the file goes.
    ReadRulerships(dir.Write("rulers2.fil", rulers));
    ASSERT_EQ(sets.size(), 3u);
    EXPECT_EQ(sets[0].Name + "|" + sets[0].Abbreviation, "Traditional|Trad");
    // Sign 12: b0, b2, b5, then slots 34, 35, 36 = b6, b7, b8.
    EXPECT_EQ(std::vector<int>({sets[1].FirstCodes[12], sets[1].SecondCodes[12],
                                sets[1].ThirdCodes[12], sets[1].TripleCodes[34],
                                sets[1].TripleCodes[35], sets[1].TripleCodes[36]}),
              std::vector<int>({120, 122, 125, 126, 127, 128}));
    EXPECT_EQ(sets[2].Name + sets[2].Abbreviation, "");
    EXPECT_EQ(sets[2].TripleCodes[9], 38);  // sign 3 is the last group in the file
    EXPECT_EQ(sets[2].FirstCodes[4], 0);

    ReadRulerships(dir.Write("short.fil", rulers.substr(0, 81)));  // 0.497 rounds to none
    EXPECT_TRUE(sets.empty());
    ReadRulerships(dir / "missing.fil");
    EXPECT_TRUE(sets.empty());
    EXPECT_FALSE(std::filesystem::exists(dir / "missing.fil"));  // nothing is created
    EXPECT_TRUE(rec.shown.empty());
}

TEST(DefinitionReaders, NumberListsSkipBadItems) {
    test::TempDir dir;
    InstallDefinitionReaders();
    auto read = Definitions().ReadNumberList;
    ASSERT_TRUE(read);
    EXPECT_EQ(read(dir.Write("partlist.dfn", "1,2,\r\n3, x ,4.0\r\n99999999999,5\r\n\r\n")),
              (std::vector<int32_t>{1, 2, 3, 4, 5}));
    EXPECT_TRUE(read(dir / "none.dfn").empty());
}
