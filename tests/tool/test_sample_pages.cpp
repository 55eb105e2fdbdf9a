#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <set>

#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClasses.h"
#include "persist/DemoEnvironment.h"
#include "persist/FakeSpecialFolders.h"
#include "persist/FileIO_OClass.h"
#include "persist/FileIO_Page.h"
#include "persist/Folders.h"
#include "support/RecordingMessages.h"
#include "support/TempDir.h"

using namespace paginox;
namespace fs = std::filesystem;

namespace {
const std::string kPages = std::string(PAGINOX_SAMPLE_DIR) + "/User Files/Pages/";

std::set<std::string> SamplePageFiles() {
    std::set<std::string> files;
    for (const auto& e : fs::directory_iterator(kPages)) {
        if (e.path().extension() == ".pag") files.insert(e.path().string());
    }
    return files;
}
}  // namespace

TEST(SamplePages, RoundTripByteForByteAndArriveInTheDemoPagesFolder) {
    test::TempDir dir;
    test::RecordingMessages messages;
    auto real = std::make_shared<test::FakeSpecialFolders>(dir / "home", '/');
    FolderEnvironment env = PrepareFolderEnvironment(real, PAGINOX_SAMPLE_DIR);
    ASSERT_TRUE(env.UsingDemoData);
    Folders folders;
    folders.FindFolders(2, *env.Special, '/');
    ASSERT_GE(SamplePageFiles().size(), 6u);
    for (const std::string& file : SamplePageFiles()) {
        auto page = ReadPage(file, -1, true);
        ASSERT_TRUE(page) << file;
        EXPECT_EQ(page->ReadVersion(), 4);
        ASSERT_TRUE(SavePage(dir / "copy.pag", *page));
        EXPECT_EQ(test::ReadAll(dir / "copy.pag"), test::ReadAll(file)) << file;
        std::string copy = folders.Path(kPagesFolder) + fs::path(file).filename().string();
        EXPECT_EQ(test::ReadAll(copy), test::ReadAll(file)) << copy;
    }
    EXPECT_TRUE(fs::exists(folders.Path(kPagesFolder) + "Sunburst.bmp"));
    EXPECT_TRUE(messages.shown.empty());
}

TEST(SamplePages, CoverChartsShapesListsPicturesAndFormats) {
    PageObjectClasses classes;
    LoadObjectClasses(std::string(PAGINOX_SAMPLE_DIR) + "/System/objects.dfn", classes);
    std::set<int16_t> shapes, charts;
    int screens = 0, printers = 0, lists = 0, pictures = 0;
    for (const std::string& file : SamplePageFiles()) {
        auto page = ReadPage(file, -1, false);
        ASSERT_TRUE(page);
        charts.insert(page->NumCharts());
        for (int16_t k = 1; k <= page->NumFormats(); ++k) {
            const PageFormat& f = *page->GetFormat(k);
            ++(f.ForPrinter() ? printers : screens);
            for (int16_t i = 1; i <= f.NumObjects(); ++i) {
                const PageObject& o = *f.Object(i);
                const PageObjectClass& c = *classes.Class(o.ObjectClassID());
                shapes.insert(c.Shape());
                lists += o.PL_Columns(1) != 0 && o.PL_Columns(2) != 0;
                if (c.ObjectType() != 18) continue;
                ++pictures;
                // The picture sits beside the page: a 64 x 64, 24-bit bitmap.
                std::string bmp = test::ReadAll(kPages + o.GenericFile());
                ASSERT_EQ(bmp.size(), 54u + 64 * 64 * 3) << o.GenericFile();
                uint32_t size, offset, width;  // the file's size, where pixels start, width
                uint16_t bits;
                std::memcpy(&size, &bmp[2], 4), std::memcpy(&offset, &bmp[10], 4);
                std::memcpy(&width, &bmp[18], 4), std::memcpy(&bits, &bmp[28], 2);
                EXPECT_EQ(std::tuple(bmp.substr(0, 2), size, offset, width, bits),
                          std::tuple("BM", bmp.size(), 54u, 64u, 24));
            }
        }
    }
    EXPECT_EQ(shapes, (std::set<int16_t>{0, 1, 2}));
    EXPECT_TRUE(charts.count(1) && *charts.rbegin() >= 2);
    EXPECT_TRUE(screens >= 2 && printers >= 1 && lists > 0 && pictures > 0);
}
