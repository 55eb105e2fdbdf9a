// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>

#include "model/ModelState.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "persist/FileIO_Page.h"
#include "persist/XMLOutPage.h"
#include "support/Golden.h"
#include "support/RecordingMessages.h"
#include "support/TempDir.h"

using namespace paginox;

namespace {
// The page's XML translation, written to a file and read back.
std::string Translation(const PageClass& page, char decimal = '.') {
    test::TempDir dir;
    EXPECT_TRUE(XMLOutPage(decimal).WriteToXML(dir / "a.xml", page));
    return test::ReadAll(dir / "a.xml");
}
}  // namespace

TEST(XMLOutPage, WritesTheElementTreeInOrderWithCrLf) {
    test::ScopedModelState state;
    for (int k = 0; k < 3; ++k) state.AddClass()->SetFullName("Point List");  // class 3 named
    test::RecordingMessages messages;
    EXPECT_EQ(Translation(PageClass()), test::GoldenText("xml/pages.xml", "no formats", "\r\n"));
    test::TempDir dir;
    auto page = ReadPage(dir.Write("a.pag", test::GoldenBytes("pages/sample_v4.hex")), -1, true);
    page->GetFormat(1)->Object(1)->SetPointsFile(2, "");  // a chart without a points file
    std::string translation = Translation(*page);
    EXPECT_EQ(translation, test::GoldenText("xml/pages.xml", "sample_v4.hex", "\r\n"));
    EXPECT_TRUE(messages.shown.empty());
    // A "," locale changes the singles and nothing else (no other text here holds a ".").
    std::replace(translation.begin(), translation.end(), '.', ',');
    EXPECT_EQ(Translation(*page, ','), translation);
}

TEST(XMLOutPage, OutputNameReplacesOnlyAnExactPagEnding) {
    std::string names;
    for (const char* page :
         {"/p/Natal.pag", "/p/Natal.Pag", "/p/Natal.PAG", "/p/N", "a.pag.b", ".pag"})
        names += XmlNameFor(page) + " ";
    EXPECT_EQ(names, "/p/Natal.xml /p/Natal.Pag.xml /p/Natal.PAG.xml /p/N.xml a.pag.b.xml .xml ");
}

TEST(XMLOutPage, TranslateShowsTheThreeMessages) {
    test::ScopedModelState state;
    test::TempDir dir;
    test::RecordingMessages messages;
    PageClass page;
    EXPECT_EQ(TranslateToXML(dir / "a.pag", nullptr), std::nullopt);
    EXPECT_EQ(TranslateToXML("", &page), std::nullopt);
    EXPECT_EQ(TranslateToXML(dir / "no/such/Natal.pag", &page), std::nullopt);
    // An existing translation is overwritten without asking.
    dir.Write("Natal.Pag.xml", std::string(5000, 'x'));
    EXPECT_EQ(TranslateToXML(dir / "Natal.Pag", &page), dir / "Natal.Pag.xml");
    EXPECT_EQ(test::ReadAll(dir / "Natal.Pag.xml").size(), 75u);
    EXPECT_EQ(messages.Transcript({{dir.Folder(), "$DIR/"}}),
              test::GoldenText("persist/messages.txt", "translations"));
}
