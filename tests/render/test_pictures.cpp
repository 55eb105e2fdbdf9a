// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QImage>
#include <QImageReader>
#include <filesystem>

#include "model/ModelState.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "persist/BinaryFile.h"
#include "render/ImageDraw.h"
#include "render/PageDraw.h"
#include "render/QtSurface.h"
#include "support/Golden.h"
#include "support/GuiApplication.h"
#include "support/RecordingSurface.h"
#include "support/ScopedAppFolders.h"

using namespace paginox;
using test::RecordingSurface;
using test::Rect;
namespace fs = std::filesystem;
using Calls = std::vector<std::string>;

namespace {

struct PictureTest : ::testing::Test {
    void SetUp() override {
        test::EnsureGuiApplication();
        ForgetPictures();
    }
    void TearDown() override { ForgetPictures(); }

    // A picture of red pixels (a transparent right half with half) saved in the format.
    std::string Save(const std::string& name, const char* format, int w = 4, int h = 2,
                     bool half = false) {
        QImage image(w, h, QImage::Format_ARGB32);
        image.fill(QColor(255, 0, 0));
        if (half) image.setPixelColor(1, 0, QColor(0, 0, 0, 0));
        std::string path = folders.Dir() / name;
        EXPECT_TRUE(image.save(QString::fromStdString(path), format)) << name;
        return path;
    }
    test::ScopedAppFolders folders;
};

}  // namespace

TEST_F(PictureTest, EveryReadableFormatIsConvertedOnceAndKept) {
    std::vector<std::pair<std::string, std::string>> pictures = {
        {Save("red.png", "PNG"), "4x2"},
        {Save("red.jpg", "JPEG"), "4x2"},
        {Save("red.ico", "ICO", 16, 16), "16x16"},
        {test::GoldenPath("render/red.gif"), "1x1"}};  // no GIF writer: made by hand
    ASSERT_TRUE(QImageReader::supportedImageFormats().contains("svg"));
    pictures.push_back({test::GoldenPath("render/red.svg"), "1024x512"});  // drawn large
    const RectClass r = Rect(10, 10, 40, 20);
    for (const auto& [file, size] : pictures) {
        PictureReads before = PictureReadCounts();
        for (int redraw = 0; redraw < 3; ++redraw) {
            RecordingSurface s;
            ASSERT_TRUE(DrawPictureFile(s, kStretchHalftone, file, r)) << file;
            EXPECT_EQ(s.calls,
                      (Calls{"Image " + size + " into (10,10)-(50,30) mode 4", "BackMode 1"}));
        }
        EXPECT_EQ(PictureReadCounts().Conversions, before.Conversions + 1) << file;
        EXPECT_EQ(PictureReadCounts().BitmapReads, before.BitmapReads + 1) << file;
    }
    EXPECT_EQ(TemporaryGraphicFile(), AppFolders().Path(kTemporaryFolder) + "~PaginoxGraphic.bmp");

    // A bitmap is read as it is; a vanished temporary bitmap is made again.
    PictureReads before = PictureReadCounts();
    RecordingSurface s;
    EXPECT_TRUE(DrawPictureFile(s, kStretchHalftone, Save("red.bmp", "BMP"), r));
    EXPECT_EQ(PictureReadCounts().Conversions, before.Conversions);
    fs::remove(TemporaryGraphicFile());
    EXPECT_TRUE(DrawPictureFile(s, kStretchHalftone, pictures.back().first, r));
    EXPECT_EQ(PictureReadCounts().Conversions, before.Conversions + 1);
    EXPECT_TRUE(FileExists(TemporaryGraphicFile()));

    // Nothing at all for a missing or unreadable file.
    RecordingSurface none;
    EXPECT_FALSE(DrawPictureFile(none, kStretchHalftone, folders.Dir() / "gone.png", r));
    EXPECT_FALSE(DrawPictureFile(none, kStretchHalftone,
                                 folders.Dir().Write("bad.png", "not a picture"), r));
    EXPECT_TRUE(none.calls.empty());
    // A pipe in place of a picture is never read: it would wait forever.
    std::string pipe = folders.Dir() / "pipe.png";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_TRUE(ReadPicture(pipe).isNull());
}

TEST_F(PictureTest, PicturePixelsAreStretchedOntoWhite) {
    QImage image(100, 50, QImage::Format_RGB32);
    image.fill(QColor(192, 192, 192));
    {
        QtSurface s(image);
        std::string file = Save("half.png", "PNG", 2, 1, true);
        EXPECT_TRUE(DrawPictureFile(s, kStretchColorOnColor, file, Rect(10, 10, 40, 20)));
    }
    EXPECT_EQ(image.pixelColor(15, 15), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(45, 25), QColor(255, 255, 255));  // the transparent half
    EXPECT_EQ(image.pixelColor(55, 15), QColor(192, 192, 192));
}

TEST_F(PictureTest, GraphicObjectShowsItsPictureOrFallsBackToItsOutline) {
    test::ScopedModelState state;
    auto graphic = state.AddClass(kOCUGraphicFile);
    graphic->SetObjectType(kGraphicObjectType), graphic->SetFullName("Picture");
    graphic->SetNumCharts(0);
    PageFormat format;
    auto obj = graphic->CreateInstance(nullptr);
    format.AddObject(obj);
    auto draw = [&](bool pictures = true) {
        RecordingSurface s;
        DrawFormat(s, nullptr, 1, format, true, false, pictures);
        return std::to_string(s.Matching("Image").size()) + " picture, " +
               std::to_string(s.Matching("Box (243,182)-(556,417)").size()) + " outline, " +
               std::to_string(s.Matching("Print 'Picture'").size()) + " name";
    };
    obj->SetGenericFile(Save("logo.png", "PNG"));
    EXPECT_EQ(draw(), "1 picture, 0 outline, 0 name");
    // A picture named without a folder is looked for beside the page being drawn, then in
    // the pages folder.
    obj->SetGenericFile("logo.png");
    for (const std::string& folder : {folders.Dir().Folder(), std::string()}) {
        if (folder.empty()) {
            fs::create_directories(AppFolders().Path(kPagesFolder));
            fs::copy_file(folders.Dir() / "logo.png", AppFolders().Path(kPagesFolder) + "logo.png");
        }
        ScopedPictureFolder beside(folder);
        EXPECT_EQ(draw(), "1 picture, 0 outline, 0 name") << folder;
    }
    EXPECT_EQ(draw(false), "0 picture, 1 outline, 1 name");
    obj->SetGenericFile(folders.Dir() / "deleted.png");
    EXPECT_EQ(draw(), "0 picture, 1 outline, 1 name");
}
