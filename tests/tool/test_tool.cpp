#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <sstream>

#include "tool/Tool.h"

using namespace paginox;

namespace {
struct ToolRun {
    int status;
    std::string out, err;
};

ToolRun Tool(std::vector<std::string> args) {
    std::ostringstream out, err;
    int status = RunTool(args, out, err);
    return {status, out.str(), err.str()};
}

const std::string kSampleSystem = std::string(PAGINOX_SAMPLE_DIR) + "/System";
}  // namespace

TEST(ToolClasses, PrintsEveryClassOfTheSampleCatalogueWithExactKeysAndShortSingles) {
    ToolRun r = Tool({"--data", kSampleSystem, "classes"});
    ASSERT_EQ(r.status, kExitOk) << r.err;
    EXPECT_EQ(r.err, "");
    QJsonArray all = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).array();
    ASSERT_GE(all.size(), 24);
    QStringList keys = all[0].toObject().keys();
    keys.sort();
    QStringList expected = {"ClassID", "ObjectType", "Abbreviation", "FullName", "Description",
                            "Group", "Order", "Shape", "DefaultFixedLines", "DefaultTextLines",
                            "DefaultHorizontalBlocks", "DefaultYRatio", "NumCharts",
                            "DefaultFrameType", "OCUFlags"};
    expected.sort();
    EXPECT_EQ(keys, expected);
    for (int i = 0; i < all.size(); ++i) EXPECT_EQ(all[i].toObject()["ClassID"].toInt(), i + 1);
    // Singles print as their shortest decimal: 1.2f widened to double would print as 1.2000000476837158.
    EXPECT_NE(r.out.find("\"DefaultYRatio\": 1.2,"), std::string::npos);
    EXPECT_EQ(r.out.find("1.20000"), std::string::npos);
}

TEST(ToolUsage, BadCommandLinesExitWithTwo) {
    EXPECT_EQ(Tool({}).status, kExitUsage);
    EXPECT_EQ(Tool({"frobnicate"}).status, kExitUsage);
    EXPECT_EQ(Tool({"--colour", "classes"}).status, kExitUsage);
    EXPECT_EQ(Tool({"classes", "extra"}).status, kExitUsage);
    EXPECT_EQ(Tool({"--data", "/no/such/folder", "classes"}).status, kExitUsage);
    ToolRun help = Tool({"--help"});
    EXPECT_EQ(help.status, kExitOk);
    EXPECT_NE(help.out.find("Usage: paginox-tool"), std::string::npos);
    EXPECT_EQ(Tool({"--version"}).out.rfind("paginox-tool ", 0), 0u);
}
