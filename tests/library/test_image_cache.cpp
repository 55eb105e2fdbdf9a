// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QImage>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <set>

#include "library/ImageCache.h"
#include "model/ModelState.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "persist/BinaryFile.h"
#include "persist/FakeSpecialFolders.h"
#include "persist/FileIO_Page.h"
#include "render/ImageDraw.h"
#include "render/PageDraw.h"
#include "render/PictureCache.h"
#include "support/GuiApplication.h"
#include "support/RecordingSurface.h"
#include "support/ScopedAppFolders.h"

using namespace paginox;
namespace fs = std::filesystem;
using std::chrono::seconds;

namespace {

void WriteFile(const std::string& path) {
    std::ofstream(path, std::ios::binary) << "BM";
}

// A maker that writes down what it is asked to make and writes a small file in its place.
BitmapMaker Recording(std::vector<std::string>& made) {
    return [&made](const std::string& source, int32_t w, int32_t h, const std::string& target) {
        made.push_back(source + " " + std::to_string(w) + "x" + std::to_string(h));
        WriteFile(target);
        return true;
    };
}

// Sets a file's time to a whole second plus a fraction, so that tests can put two files in
// the same second or in successive ones.
void SetTime(const std::string& path, int second, int millis = 0) {
    // Ahead of now: a file's status change time, which freshness counts too, is now.
    fs::file_time_type base = fs::file_time_type::clock::now();
    base = std::chrono::floor<seconds>(base) + seconds(10);
    fs::last_write_time(path, base + seconds(second) + std::chrono::milliseconds(millis));
}

// The names in the cache folder, in order, each followed by a space.
std::string CacheFiles(const ImageCache& cache) {
    std::set<std::string> names;
    for (const auto& e : fs::directory_iterator(cache.CacheDir()))
        names.insert(e.path().filename());
    std::string all;
    for (const std::string& name : names) all += name + " ";
    return all;
}

}  // namespace

TEST(ImageCache, NamesWithEitherSeparator) {
    test::ScopedAppFolders restored;  // put back afterwards
    AppFolders().FindFolders(0, test::FakeSpecialFolders("C:", '\\'), '\\');
    ImageCache windows(nullptr, '\\');
    EXPECT_EQ(windows.CacheDir(), "C:\\Local\\Quillon\\Veltrane\\v9\\ImageCache\\");
    EXPECT_EQ(windows.GetCacheName("C:\\Pages\\A.pag", 120, 90),
              windows.CacheDir() + "C__Pages_A.pag_120x90.bmp");
    AppFolders().FindFolders(0, test::FakeSpecialFolders("/home/u", '/'), '/');
    ImageCache native(nullptr, '/');
    EXPECT_EQ(native.CacheDir(), "/home/u/Local/Quillon/Veltrane/v9/ImageCache/");
    EXPECT_EQ(native.GetCacheName("/p/My Pages/B1.pag", 160, 120),
              native.CacheDir() + "_p_My Pages_B1.pag_160x120.bmp");
    // Where the escaped path could name another page too, or is too long for a file name, a
    // hash of the path tells them apart.
    std::string colon = native.GetCacheName("/p/a:b.pag", 10, 10);
    std::string underscore = native.GetCacheName("/p/a_b.pag", 10, 10);
    EXPECT_NE(colon, underscore);
    EXPECT_EQ(colon.rfind(native.CacheDir() + "_p_a_b.pag~", 0), 0u);
    EXPECT_NE(native.GetCacheName("/p/a/b.pag", 10, 10), colon);
    std::string longName = native.GetCacheName("/p/" + std::string(300, 'x') + ".pag", 10, 10);
    EXPECT_LE(fs::path(longName).filename().string().size(), 255u);
}

TEST(ImageCache, FreshOnlyWhenStrictlyNewerAndMadeOnlyWhereAllowed) {
    test::ScopedAppFolders folders;
    std::vector<std::string> made;
    ImageCache cache(Recording(made), '/');
    std::string page = folders.Dir().Write("A.pag", "page");

    // No folder yet: nothing is made, and CreateCache does not make the folder.
    EXPECT_FALSE(cache.CreateCache(page, 120, 90));
    EXPECT_FALSE(DirExists(cache.CacheDir()));
    EXPECT_TRUE(cache.PrepareForCaching());
    EXPECT_TRUE(DirExists(cache.CacheDir()));
    EXPECT_FALSE(cache.CreateCache(folders.Dir() / "missing.pag", 120, 90));
    EXPECT_TRUE(made.empty());

    EXPECT_FALSE(cache.Contains(page, 120, 90));
    EXPECT_TRUE(cache.CreateCache(page, 120, 90));
    EXPECT_EQ(made, std::vector<std::string>{page + " 120x90"});
    std::string name = cache.GetCacheName(page, 120, 90);

    SetTime(page, 10, 100);
    SetTime(name, 10, 900);  // later, but in the same second: stale
    EXPECT_FALSE(cache.Contains(page, 120, 90));
    SetTime(name, 11);
    EXPECT_TRUE(cache.Contains(page, 120, 90));
    EXPECT_FALSE(cache.Contains(page, 160, 120));  // another size is another file
    SetTime(page, 12);                             // the page was touched
    EXPECT_FALSE(cache.Contains(page, 120, 90));

    cache.ClearCache(page, 120, 90);
    EXPECT_FALSE(FileExists(name));
}

// A page that can no longer be drawn loses its old picture; thumbnails of pages gone go.
TEST(ImageCache, ThumbnailsTellTheTruth) {
    test::ScopedAppFolders folders;
    bool drawable = true;
    ImageCache cache(
        [&](const std::string&, int32_t, int32_t, const std::string& target) {
            if (drawable) WriteFile(target);
            return drawable;
        },
        '/');
    ASSERT_TRUE(cache.PrepareForCaching());
    std::string page = folders.Dir().Write("A.pag", "page");
    std::string other = folders.Dir().Write("B.pag", "page");
    ASSERT_TRUE(cache.CreateCache(page, 10, 10));
    ASSERT_TRUE(cache.CreateCache(other, 10, 10));
    WriteFile(cache.GetCacheName(folders.Dir() / "logo.png", 10, 10));  // a picture, kept
    drawable = false;
    EXPECT_FALSE(cache.CreateCache(page, 10, 10));
    EXPECT_FALSE(FileExists(cache.GetCacheName(page, 10, 10)));
    EXPECT_EQ(cache.RemoveOrphans({page}, 10, 10), 1);
    EXPECT_FALSE(FileExists(cache.GetCacheName(other, 10, 10)));
    EXPECT_TRUE(FileExists(cache.GetCacheName(folders.Dir() / "logo.png", 10, 10)));
}

TEST(ImageCache, ClearCachesKeepsTheColonWhileClearAllTakesEveryBitmap) {
    test::ScopedAppFolders folders;
    std::vector<std::string> made;
    ImageCache cache(Recording(made), '/');
    ASSERT_TRUE(cache.PrepareForCaching());
    // B.pag's escaped names begin like A.pag's.
    for (const char* page : {"/p/A.pag", "/p/A.pag_old/B.pag", "/p/AB.pag", "d:/p/C.pag"}) {
        for (int w : {10, 20}) WriteFile(cache.GetCacheName(page, w, w));
    }
    WriteFile(cache.CacheDir() + "notes.txt");

    cache.ClearCaches("/p/A.pag");    // every size, and the page whose name merely begins alike
    cache.ClearCaches("d:/p/C.pag");  // the drive's colon stays in the pattern: nothing matches
    EXPECT_EQ(CacheFiles(cache),
              "_p_AB.pag_10x10.bmp _p_AB.pag_20x20.bmp d__p_C.pag_10x10.bmp d__p_C.pag_20x20.bmp "
              "notes.txt ");
    cache.ClearAllCaches();
    EXPECT_EQ(CacheFiles(cache), "notes.txt ");
}

TEST(ImageCache, ThumbnailsOfPagesAndPicturesAndGraphicsDrawnFromThem) {
    test::EnsureGuiApplication();
    test::ScopedAppFolders folders;
    test::ScopedModelState state;
    ForgetPictures();
    auto graphic = state.AddClass(kOCUGraphicFile);
    graphic->SetObjectType(kGraphicObjectType);

    QImage red(8, 8, QImage::Format_RGB32);
    red.fill(QColor(255, 0, 0));
    std::string picture = folders.Dir() / "logo.png";
    ASSERT_TRUE(red.save(QString::fromStdString(picture), "PNG"));

    PageClass page;
    page.InitNewPage();
    auto obj = graphic->CreateInstance(nullptr);
    obj->SetGenericFile(picture);
    page.GetFormat(1)->AddObject(obj);
    std::string pageFile = folders.Dir() / "P.pag";
    ASSERT_TRUE(SavePage(pageFile, page));

    ImageCache cache;
    ASSERT_TRUE(cache.PrepareForCaching());
    ScopedPictureCache installed(&cache);
    ASSERT_TRUE(cache.CreateCache(pageFile, 160, 120));
    QImage thumb(QString::fromStdString(cache.GetCacheName(pageFile, 160, 120)), "BMP");
    ASSERT_EQ(thumb.size(), QSize(160, 120));
    EXPECT_EQ(thumb.pixelColor(80, 60), QColor(255, 0, 0));  // the picture, not its outline
    EXPECT_EQ(thumb.pixelColor(150, 110), QColor(255, 255, 255));
    // On the way the graphic was cached at its size on the thumbnail, 62 x 47.
    std::string cached = cache.GetCacheName(picture, 62, 47);
    ASSERT_TRUE(FileExists(cached));

    // Drawn again at that size, the graphic comes from its cached bitmap.
    SetTime(picture, 0);
    SetTime(cached, 1);
    PictureReads before = PictureReadCounts();
    test::RecordingSurface s(160, 120);
    for (int redraw = 0; redraw < 2; ++redraw) {
        EXPECT_TRUE(DrawGraphicObject(s, *obj, test::Rect(49, 36, 62, 47)));
    }
    EXPECT_EQ(s.calls.front(), "Image 62x47 into (49,36)-(111,83) mode 4");
    PictureReads after = PictureReadCounts();
    EXPECT_EQ(std::tuple(after.Conversions, after.BitmapReads),
              std::tuple(before.Conversions, before.BitmapReads + 1));
    ForgetPictures();
}
