#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <fstream>
#include <sstream>

#include "core/NumberFormat.h"

using namespace paginox;

namespace {
// Rows of "bits<TAB>value<TAB>result" after a header line as (bits, result); none when the
// file is absent.
std::vector<std::pair<uint32_t, std::string>> ReadOracle(const std::string& name) {
    std::ifstream in(std::string(PAGINOX_ORACLE_DIR) + "/" + name);
    std::vector<std::pair<uint32_t, std::string>> rows;
    std::string line, bits, value, result;
    std::getline(in, line);
    while (std::getline(in, bits, '\t') && std::getline(in, value, '\t') &&
           std::getline(in, result))
        rows.push_back({uint32_t(std::stoul(bits, nullptr, 16)), result});
    return rows;
}
}  // namespace

// The golden vectors' rules, also where the vectors are not present: 2.675f's 7-digit text is
// 2.675, 7 significant digits only, "-" kept on what rounds to nothing.
TEST(NumberFormat, HashDotHashFollowsTheClassicRules) {
    for (auto [value, text] : {std::pair{0.5f, ".5"},
                               {1.0f, "1."},
                               {0.0f, "."},
                               {-0.0f, "."},
                               {12.345f, "12.35"},
                               {2.675f, "2.68"},
                               {-0.001f, "-."},
                               {16777216.0f, "16777220."},
                               {99.995f, "100."}}) {
        EXPECT_EQ(FormatHashDotHash(value), text) << value;
    }
    EXPECT_EQ(FormatHashDotHash(1.5f, ','), "1,5");
}

TEST(NumberFormat, HashDotHashMatchesEveryGoldenVector) {
    auto rows = ReadOracle("format_hashdothash.tsv");
    if (rows.empty()) GTEST_SKIP() << "golden vectors not present";
    for (const auto& [bits, text] : rows) {
        EXPECT_EQ(FormatHashDotHash(std::bit_cast<float>(bits)), text) << "bits " << bits;
    }
}

TEST(NumberFormat, ZeroMatchesEveryGoldenVector) {
    auto rows = ReadOracle("format_zero.tsv");
    if (rows.empty()) GTEST_SKIP() << "golden vectors not present";
    for (const auto& [bits, text] : rows) EXPECT_EQ(FormatZero(int16_t(bits)), text) << bits;
}

TEST(NumberFormat, ShortestDecimalReadsBackAsTheSameSingle) {
    EXPECT_EQ(ShortestDecimal(0.3f), "0.3");
    EXPECT_EQ(ShortestDecimal(0.75f), "0.75");
    EXPECT_EQ(ShortestDecimal(90.0f), "90");
    // Large whole singles: no more digits than the single holds.
    EXPECT_EQ(ShortestDecimal(16777216.0f), "16777216");
    EXPECT_EQ(ShortestDecimal(131984208.0f), "1.3198421e+08");
    EXPECT_EQ(ShortestDecimal(-579141566464.0f), "-5.7914157e+11");
    for (float f : {0.1f, 1.0f / 3.0f, 123456.789f, 1e-7f, -2.5f, 3e38f}) {
        EXPECT_EQ(std::stof(ShortestDecimal(f)), f);
    }
}
