#include <gtest/gtest.h>

#include "persist/XMLOutput.h"
#include "support/TempDir.h"

using namespace paginox;

TEST(XMLOutput, IndentsTwoSpacesPerOpenElementWithCrLf) {
    test::TempDir dir;
    XMLOutput x;
    ASSERT_TRUE(x.OpenXML(dir / "a.xml"));
    x.CloseNode();  // at depth 0: nothing
    x.OpenNode("Root");
    x.WriteNumber("N", -3, "0");
    x.WriteSingle("F", 0.5f, "#.##");
    x.WriteBoolean("B", false);
    x.WriteString("Empty", "");       // skipped
    x.WriteString("Kept", "", true);  // written on request
    x.WriteString("Raw", "a & <b>");  // never escaped
    x.OpenNode("Inner");
    x.CloseNode();
    x.CloseNode();
    EXPECT_TRUE(x.CloseXML());
    EXPECT_EQ(test::ReadAll(dir / "a.xml"),
              "<Root>\r\n  <N>-3</N>\r\n  <F>.5</F>\r\n  <B>False</B>\r\n  <Kept></Kept>\r\n"
              "  <Raw>a & <b></Raw>\r\n  <Inner>\r\n  </Inner>\r\n</Root>\r\n");
}

TEST(XMLOutput, UnbalancedTreeIsReportedOnClose) {
    test::TempDir dir;
    XMLOutput x;
    ASSERT_TRUE(x.OpenXML(dir / "a.xml"));
    x.OpenNode("Root");
    EXPECT_FALSE(x.CloseXML());
    EXPECT_EQ(test::ReadAll(dir / "a.xml"), "<Root>\r\n");
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
