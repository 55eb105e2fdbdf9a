#include <gtest/gtest.h>

#include <QImage>
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

// Every sample page reads and saves byte for byte, arrives in the demo pages folder as it is,
// and together they show every shape, several charts, lists, a picture, screens and printers.
TEST(SamplePages, RoundTripArriveInTheDemoFolderAndCoverEveryKind) {
    const std::string pages = std::string(PAGINOX_SAMPLE_DIR) + "/User Files/Pages/";
    test::TempDir dir;
    test::RecordingMessages messages;
    auto real = std::make_shared<test::FakeSpecialFolders>(dir / "home", '/');
    FolderEnvironment env = PrepareFolderEnvironment(real, PAGINOX_SAMPLE_DIR);
    ASSERT_TRUE(env.UsingDemoData);
    Folders folders;
    folders.FindFolders(2, *env.Special, '/');
    EXPECT_TRUE(fs::exists(folders.Path(kPagesFolder) + "Sunburst.bmp"));
    PageObjectClasses classes;
    LoadObjectClasses(std::string(PAGINOX_SAMPLE_DIR) + "/System/objects.dfn", classes);
    std::set<int16_t> shapes, charts;
    int files = 0, screens = 0, printers = 0, lists = 0, pictures = 0;
    for (const auto& entry : fs::directory_iterator(pages)) {
        const std::string file = entry.path().string(), name = entry.path().filename();
        if (entry.path().extension() != ".pag") continue;
        ++files;
        auto page = ReadPage(file, -1, true);
        ASSERT_TRUE(page) << file;
        EXPECT_EQ(page->ReadVersion(), 4);
        ASSERT_TRUE(SavePage(dir / "copy.pag", *page));
        EXPECT_EQ(test::ReadAll(dir / "copy.pag"), test::ReadAll(file)) << file;
        EXPECT_EQ(test::ReadAll(folders.Path(kPagesFolder) + name), test::ReadAll(file)) << name;
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
                QImage bmp(QString::fromStdString(pages + o.GenericFile()), "BMP");
                EXPECT_EQ(std::tuple(bmp.size(), bmp.depth()), std::tuple(QSize(64, 64), 32));
                EXPECT_EQ(fs::file_size(pages + o.GenericFile()), 54u + 64 * 64 * 3);
            }
        }
    }
    EXPECT_GE(files, 6);
    EXPECT_EQ(shapes, (std::set<int16_t>{0, 1, 2}));
    EXPECT_TRUE(charts.count(1) && *charts.rbegin() >= 2);
    EXPECT_TRUE(screens >= 2 && printers >= 1 && lists > 0 && pictures > 0);
    EXPECT_TRUE(messages.shown.empty());
}
