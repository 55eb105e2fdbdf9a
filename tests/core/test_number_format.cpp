// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <fstream>
#include <sstream>

#include "core/NumberFormat.h"
#include "support/CaseLines.h"

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

// The golden vectors' rules, also where the vectors are not present.
TEST(NumberFormat, HashDotHashFollowsTheClassicRules) {
    test::ExpectOutcomes("core/cases.txt", "hash dot hash",
                         [](const std::string& in) { return FormatHashDotHash(std::stof(in)); });
    EXPECT_EQ(FormatHashDotHash(1.5f, ','), "1,5");
}

TEST(NumberFormat, HashDotHashMatchesEveryGoldenVector) {
    auto rows = ReadOracle("format_hashdothash.tsv");
    ASSERT_FALSE(rows.empty()) << "golden vectors missing from tests/data/oracle";
    for (const auto& [bits, text] : rows) {
        EXPECT_EQ(FormatHashDotHash(std::bit_cast<float>(bits)), text) << "bits " << bits;
    }
}

TEST(NumberFormat, ZeroMatchesEveryGoldenVector) {
    auto rows = ReadOracle("format_zero.tsv");
    ASSERT_FALSE(rows.empty()) << "golden vectors missing from tests/data/oracle";
    for (const auto& [bits, text] : rows) EXPECT_EQ(FormatZero(int16_t(bits)), text) << bits;
}

TEST(NumberFormat, ShortestDecimalReadsBackAsTheSameSingle) {
    test::ExpectOutcomes("core/cases.txt", "shortest decimal",
                         [](const std::string& in) { return ShortestDecimal(std::stof(in)); });
    for (float f : {0.1f, 1.0f / 3.0f, 123456.789f, 1e-7f, -2.5f, 3e38f}) {
        EXPECT_EQ(std::stof(ShortestDecimal(f)), f);
    }
}
