// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "persist/XMLOutput.h"
#include "support/TempDir.h"

using namespace paginox;

// (Indentation, line ends and the value writers show in every page translation,
// tests/data/xml/pages.xml.)
TEST(XMLOutput, EmptyValuesOnRequestAndAnUnbalancedTreeReportedOnClose) {
    test::TempDir dir;
    XMLOutput x;
    ASSERT_TRUE(x.OpenXML(dir / "a.xml"));
    x.CloseNode();  // at depth 0: nothing
    x.OpenNode("Root");
    x.WriteString("Empty", "");       // skipped
    x.WriteString("Kept", "", true);  // written on request
    x.OpenNode("Inner");
    x.CloseNode();
    EXPECT_FALSE(x.CloseXML());  // Root is still open
    EXPECT_EQ(test::ReadAll(dir / "a.xml"),
              "<Root>\r\n  <Kept></Kept>\r\n  <Inner>\r\n  </Inner>\r\n");
    EXPECT_FALSE(x.CloseXML());  // nothing open any more
}

TEST(XMLOutput, NameStackGrowsInStepsOfTenKeepingNames) {
    test::TempDir dir;
    XMLOutput x;
    ASSERT_TRUE(x.OpenXML(dir / "deep.xml"));
    for (int i = 1; i <= 21; ++i) x.OpenNode("E" + std::to_string(i));
    EXPECT_EQ(x.StackUpperBound(), 30u);
    for (int i = 1; i <= 21; ++i) x.CloseNode();
    EXPECT_TRUE(x.CloseXML());
    std::string text = test::ReadAll(dir / "deep.xml");
    EXPECT_NE(text.find(std::string(40, ' ') + "</E21>\r\n"), std::string::npos);
    EXPECT_TRUE(text.ends_with("  </E2>\r\n</E1>\r\n"));
}
