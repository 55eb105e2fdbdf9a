// SPDX-License-Identifier: GPL-3.0-or-later
#include "BenchWorld.h"

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <random>

#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"
#include "model/PageObjectClasses.h"
#include "persist/FileIO_Page.h"
#include "persist/Folders.h"
#include "persist/SpecialFolders.h"

namespace paginox::bench {

namespace fs = std::filesystem;

namespace {

// Every special folder inside the benchmark's own folder.
class BenchFolders : public SpecialFolders {
  public:
    explicit BenchFolders(std::string root) : root_(std::move(root)) {}
    std::string Folder(int32_t id) const override {
        return root_ + "/special" + std::to_string(id);
    }
    std::string TemporaryFolder() const override { return root_ + "/temp/"; }
    std::string WindowsFolder() const override { return root_ + "/windows"; }
    std::string ProgramFolder() const override { return root_ + "/program"; }

  private:
    std::string root_;
};

struct ClassSpec {
    int16_t shape;
    const char* name;
    int16_t charts, fixedLines, textLines, blocks, frame;
};

// Wheels of one to three charts, lists with rows and columns, a grid, a caption.
const ClassSpec kClasses[] = {
    {kShapeCircle, "Single Chart Wheel", 1, 0, 0, 1, 0},
    {kShapeCircle, "Bi-Wheel", 2, 0, 0, 1, 0},
    {kShapeCircle, "Tri-Wheel", 3, 0, 0, 1, 0},
    {kShapeBox, "Point List", 1, 2, 14, 1, 1},
    {kShapeBox, "Aspect List", 1, 2, 20, 2, 1},
    {kShapeTriangle, "Aspect Grid", 1, 0, 0, 1, 1},
    {kShapeBox, "User Caption", 0, 0, 1, 1, 0},
};

void MakeCatalogue() {
    PageObjectClasses& all = ObjectClasses();
    all.SetCount(static_cast<int16_t>(std::size(kClasses)));
    int16_t id = 1;
    for (const ClassSpec& row : kClasses) {
        auto cls = std::make_shared<PageObjectClass>();
        cls->SetClassID(id);
        cls->SetObjectType(id);
        cls->SetShape(row.shape);
        cls->SetFullName(row.name);
        cls->SetNumCharts(row.charts);
        cls->SetDefaultFixedLines(row.fixedLines);
        cls->SetDefaultTextLines(row.textLines);
        cls->SetDefaultHorizontalBlocks(row.blocks);
        cls->SetDefaultFrameType(row.frame);
        cls->SetOCUFlags(kOCUTitleLine);
        all.SetClass(id++, cls);
    }
}

// A page of the library: 1 to 4 formats of the screen's proportions, 5 to 40 objects each.
PageClass LibraryPage(std::mt19937& random) {
    PageClass page;
    page.InitNewPage();
    page.SetNumCharts(2);
    int formats = std::uniform_int_distribution<int>(1, 4)(random);
    std::uniform_int_distribution<int> objects(5, 40);
    page.SetFormat(1, MixedFormat(objects(random), random));
    for (int k = 2; k <= formats; ++k) page.AddFormat(MixedFormat(objects(random), random));
    return page;
}

std::string gRootToRemove;

void RemoveRoot() {
    std::error_code ec;
    if (!gRootToRemove.empty()) fs::remove_all(gRootToRemove, ec);
}

}  // namespace

std::shared_ptr<PageFormat> MixedFormat(int count, std::mt19937& random) {
    auto format = std::make_shared<PageFormat>();
    format->SetXPixels(kDrawWidth);
    format->SetYPixels(kDrawHeight);
    format->SetYRatio(float(kDrawHeight) / kDrawWidth);
    int side = 1;
    while (side * side < count) ++side;
    std::uniform_real_distribution<float> jitter(0.0f, 0.01f);
    for (int i = 0; i < count; ++i) {
        int16_t id = static_cast<int16_t>(1 + i % std::size(kClasses));
        auto obj = ObjectClasses().Class(id)->CreateInstance(nullptr);
        float cell = 1.0f / side;
        obj->SetOrigin(1, (i % side) * cell + jitter(random));
        obj->SetOrigin(2, (i / side) * cell + jitter(random));
        obj->SetLength(1, cell * 0.85f);
        obj->SetLength(2, cell * 0.85f);
        format->AddObject(obj);
    }
    return format;
}

BenchWorld& World() {
    static BenchWorld* world = [] {
        auto* w = new BenchWorld;
        w->root =
            fs::temp_directory_path() / ("paginox-bench-" + std::to_string(std::random_device{}()));
        fs::create_directories(w->root / "pages");
        fs::create_directories(w->root / "copies");
        fs::create_directories(w->root / "temp");
        gRootToRemove = w->root.string();
        std::atexit(RemoveRoot);

        static BenchFolders folders(w->root.string());
        AppFolders().FindFolders(0, folders, '/');
        MakeCatalogue();

        std::mt19937 random(4);
        for (int i = 0; i < kPageFiles; ++i) {
            PageClass page;
            page.InitNewPage();
            page.SetNumCharts(2);
            page.SetFormat(1, MixedFormat(kObjectsPerPage, random));
            std::string name = "page" + std::to_string(i) + ".pag";
            w->pageFiles.push_back((w->root / "pages" / name).string());
            w->copyFiles.push_back((w->root / "copies" / name).string());
            if (!SavePage(w->pageFiles.back(), page)) std::abort();
        }
        const std::string library = AppFolders().Path(kPagesFolder);
        fs::create_directories(library);
        for (int i = 0; i < kPageFiles; ++i) {
            w->library.push_back(library + "library" + std::to_string(i) + ".pag");
            if (!SavePage(w->library.back(), LibraryPage(random))) std::abort();
        }
        w->mixed = MixedFormat(kDrawnObjects, random);
        return w;
    }();
    return *world;
}

double RunLoopUntil(const std::function<bool()>& done, const std::function<void()>& measure) {
    QElapsedTimer clock;
    clock.start();
    qint64 last = clock.nsecsElapsed(), longest = 0;
    for (int round = 0; !done(); ++round) {
        QApplication::processEvents(QEventLoop::AllEvents);
        qint64 now = clock.nsecsElapsed();
        longest = std::max(longest, now - last);
        last = now;
        if (measure && round % 200 == 0) measure();
    }
    return longest / 1e6;
}

double ResidentMegabytes() {
    std::ifstream status("/proc/self/status");
    std::string key;
    while (status >> key) {
        if (key == "VmRSS:") {
            double kb = 0;
            status >> kb;
            return kb / 1024;
        }
    }
    return 0;
}

}  // namespace paginox::bench
