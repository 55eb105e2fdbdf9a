// SPDX-License-Identifier: GPL-3.0-or-later
// The sample pages: made through the page model, as the editor would make them, and written
// with the program's own SavePage, so that they are real version-4 files.

#include "SamplePages.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <numbers>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/MessageService.h"
#include "model/DefinitionTables.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClasses.h"
#include "persist/ByteStream.h"
#include "persist/DefinitionReaders.h"
#include "persist/FileIO_OClass.h"
#include "persist/FileIO_Page.h"

namespace fs = std::filesystem;

namespace paginox::sample {

namespace {

constexpr const char* kPicture = "Sunburst.bmp";

struct Size {
    int16_t x, y, logPixels;
    bool printer;
};
// Screen formats are the screen less the editor's 95 pixels across and 19 down, which is how
// the editor recognises and names them; 1280 x 800 at 120 dpi is a user-defined size.
constexpr Size kScreen800{705, 581, 96, false};
constexpr Size kScreen1024{929, 749, 96, false};
constexpr Size kScreen1280{1185, 1005, 96, false};
constexpr Size kWide1366{1271, 749, 96, false};
constexpr Size kWide1600{1505, 881, 96, false};
constexpr Size kWide1920{1825, 1181, 96, false};
constexpr Size kWide1280{1280, 800, 120, false};
constexpr Size kA4Portrait{2480, 3508, 300, true};
constexpr Size kA4Landscape{3508, 2480, 300, true};
constexpr Size kLetterPortrait{2550, 3300, 300, true};

const PageObjectClass& ClassNamed(const std::string& abbreviation) {
    const PageObjectClasses& all = ObjectClasses();
    for (int16_t i = 1; i <= all.Count(); ++i) {
        auto c = all.Class(i);
        if (c && c->Abbreviation() == abbreviation) return *c;
    }
    throw std::runtime_error("no object class " + abbreviation + " in the catalogue");
}

// Places a new object of the class at left, top with the given width and height (fractions
// of the frame).
PageObject& Add(PageFormat& format, const std::string& abbreviation, float left, float top,
                float width, float height) {
    auto obj = ClassNamed(abbreviation).CreateInstance(&format);
    obj->SetOrigin(1, left), obj->SetOrigin(2, top);
    obj->SetLength(1, width), obj->SetLength(2, height);
    obj->FitObjectOnPage();
    format.AddObject(obj);
    return *obj;
}

// The largest square (in pixels of this format) that fits the box, at its top-left corner:
// wheels and grids stay round and square, and inside their box, on every page shape.
PageObject& AddSquare(PageFormat& format, const std::string& abbreviation, float left, float top,
                      float boxWidth, float boxHeight) {
    float side = std::min(boxWidth * float(format.XPixels()), boxHeight * float(format.YPixels()));
    return Add(format, abbreviation, left, top, side / float(format.XPixels()),
               side / float(format.YPixels()));
}

void Columns(PageObject& obj, std::initializer_list<uint8_t> codes) {
    int16_t k = 1;
    for (uint8_t c : codes) obj.SetPL_Columns(k++, c);
    for (; k <= PageObject::kMaxColumns; ++k) obj.SetPL_Columns(k, 0);
}

struct SamplePage {
    const char* file;
    const char* description;
    const char* title;
    const char* abbreviation;
    std::vector<const char*> charts;  // what each chart slot shows
    std::vector<Size> sizes;
    std::function<void(PageFormat&)> layout;
};

std::shared_ptr<PageClass> Build(const SamplePage& s) {
    auto page = std::make_shared<PageClass>();
    page->InitNewPage();
    page->ClearFormats();
    page->SetDescription(s.description);
    page->SetTitle(s.title);
    page->SetListAbbreviation(s.abbreviation);
    page->SetNumCharts(int16_t(s.charts.size()));
    for (size_t c = 0; c < s.charts.size(); ++c) {
        page->SetChartPlacementDesc(int16_t(c + 1), s.charts[c]);
    }
    for (const Size& size : s.sizes) {
        auto format = std::make_shared<PageFormat>();
        format->SetXPixels(size.x), format->SetYPixels(size.y);
        format->SetLogPixels(size.logPixels), format->SetForPrinter(size.printer);
        format->SetYRatio(float(size.y) / float(size.x));
        if (size.printer) format->SetAllMargins(0.04f);
        s.layout(*format);
        format->ValidatePage();
        page->AddFormat(format);
    }
    return page;
}

void BirthChart(PageFormat& f) {
    PageObject& wheel = AddSquare(f, "Wheel1", 0.02f, 0.04f, 0.5f, 0.72f);
    wheel.SetWheelFile("Standard");
    wheel.SetAspectsFile("Major");
    wheel.SetPointsFile(1, "Planets");
    PageObject& points = Add(f, "PtList", 0.6f, 0.04f, 0.38f, 0.5f);
    Columns(points, {1, 2, 4});
    points.SetPointsFile(1, "Planets");
    AddSquare(f, "AspGrid", 0.6f, 0.58f, 0.38f, 0.38f);
    PageObject& data = Add(f, "ChData", 0.02f, 0.8f, 0.45f, 0.16f);
    data.SetUserCaption("Birth details");
}

void Relationship(PageFormat& f) {
    PageObject& wheel = AddSquare(f, "Wheel2", 0.02f, 0.04f, 0.48f, 0.62f);
    wheel.SetWheelFile("Standard");
    wheel.SetAspectsFile("Major");
    wheel.SetPointsFile(1, "Planets"), wheel.SetPointsFile(2, "Planets");
    for (int16_t c = 1; c <= 2; ++c) {
        PageObject& list = Add(f, "PtList", 0.52f + 0.24f * float(c - 1), 0.04f, 0.22f, 0.45f);
        list.SetChartNum(1, c);
        list.SetPointsFile(1, "Planets");
        list.SetUserCaption(c == 1 ? "First partner" : "Second partner");
        Columns(list, {1, 2, 3});
    }
    PageObject& grid = Add(f, "SynGrid", 0.52f, 0.52f, 0.46f, 0.44f);
    grid.SetAspectsFile("Synastry");
    grid.SetOrb(3.5f);
    PageObject& both = Add(f, "PtList2", 0.02f, 0.7f, 0.46f, 0.26f);
    both.SetTextBottomUp(-1);
}

void Transits(PageFormat& f) {
    PageObject& wheel = AddSquare(f, "Wheel3", 0.02f, 0.04f, 0.45f, 0.92f);
    wheel.SetWheelFile("Outer Ring");
    wheel.SetAspectsFile("Transits");
    PageObject& list = Add(f, "Transits", 0.5f, 0.04f, 0.48f, 0.6f);
    list.SetAspectsFile("Transits");
    list.SetOrb(1.5f);
    list.SetAnchorBottom(true);
    PageObject& dial = AddSquare(f, "Dial90", 0.6f, 0.68f, 0.18f, 0.28f);
    dial.SetModulus(90);
    dial.SetChartNum(1, 3);
}

void DataTables(PageFormat& f) {
    PageObject& asteroids = Add(f, "AstList", 0.02f, 0.04f, 0.3f, 0.44f);
    asteroids.SetGenericFile("Main Asteroids");
    PageObject& parts = Add(f, "Parts", 0.35f, 0.04f, 0.3f, 0.44f);
    parts.SetGenericFile("Classic Parts");
    PageObject& stars = Add(f, "Stars", 0.68f, 0.04f, 0.3f, 0.44f);
    stars.SetGenericFile("Bright Stars");
    stars.SetOrb(1);
    PageObject& aspects = Add(f, "AspList", 0.02f, 0.52f, 0.46f, 0.44f);
    aspects.SetAspectsFile("Major");
    aspects.SetTextJustify(1);
    PageObject& dignity = Add(f, "Dignity", 0.52f, 0.52f, 0.22f, 0.44f);
    dignity.SetGenericFile("Traditional");
    dignity.SetWeighted(true);
    dignity.SetRulerships(2);
    PageObject& rings = Add(f, "Rings", 0.76f, 0.52f, 0.22f, 0.44f);
    rings.SetGenericFile("Extra Ring");
    rings.SetFrameType(2);
}

void Poster(PageFormat& f) {
    PageObject& caption = Add(f, "Caption", 0.1f, 0.02f, 0.8f, 0.08f);
    caption.SetUserCaption("Your Sky Tonight");
    caption.SetFontSize(18);
    caption.SetTextJustify(2);
    PageObject& picture = AddSquare(f, "Picture", 0.05f, 0.14f, 0.3f, 0.72f);
    picture.SetGenericFile(kPicture);
    picture.SetFrameType(0);
    PageObject& wheel = AddSquare(f, "Wheel1", 0.4f, 0.14f, 0.55f, 0.72f);
    wheel.SetWheelFile("Decorative");
    Add(f, "Rule", 0.05f, 0.9f, 0.9f, 0.02f);
    Add(f, "Corner", 0.0f, 0.9f, 0.1f, 0.1f);
    PageObject& corner = Add(f, "Corner", 0.9f, 0.9f, 0.1f, 0.1f);
    corner.SetForceLineColor(12);
}

void Harmonics(PageFormat& f) {
    PageObject& harmonic = AddSquare(f, "HarmWhl", 0.02f, 0.04f, 0.3f, 0.54f);
    harmonic.SetModulus(7);
    harmonic.SetZodiac(1);
    PageObject& dial = AddSquare(f, "Dial90", 0.34f, 0.04f, 0.3f, 0.54f);
    dial.SetModulus(45);
    dial.SetOrb(1.25f);
    PageObject& tree = Add(f, "MidTree", 0.66f, 0.04f, 0.32f, 0.9f);
    tree.SetHorzBlocks(2);
    PageObject& scores = Add(f, "Scores", 0.02f, 0.62f, 0.3f, 0.34f);
    scores.SetWeighted(true);
    PageObject& elements = Add(f, "Elements", 0.34f, 0.62f, 0.3f, 0.34f);
    elements.SetGenericFile("Elements");
}

std::vector<SamplePage> Pages() {
    return {
        {"Birth Chart.pag",
         "One birth chart: the wheel, its positions, aspect grid and details",
         "Birth Chart",
         "Birth",
         {"Birth chart"},
         {kScreen800, kScreen1024, kWide1920, kA4Portrait},
         BirthChart},
        {"Relationship.pag",
         "Two charts side by side with a synastry grid",
         "Relationship",
         "Pair",
         {"First partner", "Second partner"},
         {kScreen1024, kScreen1280, kLetterPortrait},
         Relationship},
        {"Transits.pag",
         "Birth chart, progressions and transits in three rings",
         "Transits",
         "Trans",
         {"Birth chart", "Progressed", "Transits"},
         {kWide1280, kWide1920},
         Transits},
        {"Data Tables.pag",
         "Asteroids, parts, fixed stars, aspects and dignities as lists",
         "Data Tables",
         "Lists",
         {"Birth chart"},
         {kScreen1024, kA4Landscape},
         DataTables},
        {"Poster.pag",
         "A decorated single wheel with a picture and a large caption",
         "Poster",
         "Art",
         {"Birth chart"},
         {kScreen800, kA4Portrait},
         Poster},
        {"Harmonics.pag",
         "Harmonic wheel, 45-degree dial, midpoints and weighted scores",
         "Harmonics",
         "Harm",
         {"Birth chart"},
         {kWide1366, kWide1600, kWide1920},
         Harmonics},
    };
}

// Fails the build instead of asking anyone.
struct ThrowingMessages : MessageService {
    MsgAnswer Show(const std::string& text, const std::string& title, MsgButtons,
                   MsgIcon) override {
        throw std::runtime_error(title + ": " + text);
    }
};

}  // namespace

std::string SunburstBitmap() {
    constexpr int32_t kSide = 64;
    constexpr int32_t kRow = kSide * 3;  // already a multiple of 4: no row padding
    ByteWriter w;
    w.Byte('B'), w.Byte('M');
    w.Int32(54 + kRow * kSide);                   // file size
    w.Int32(0);                                   // reserved
    w.Int32(54);                                  // where the pixels start
    w.Int32(40), w.Int32(kSide), w.Int32(kSide);  // info header: size, width, height
    w.Int16(1), w.Int16(24);                      // planes, bits per pixel
    w.Int32(0), w.Int32(kRow * kSide);            // no compression, pixel bytes
    w.Int32(2835), w.Int32(2835);                 // 72 dots per inch
    w.Int32(0), w.Int32(0);                       // no palette
    for (int32_t y = 0; y < kSide; ++y) {         // bottom row first
        for (int32_t x = 0; x < kSide; ++x) {
            double dx = x - 31.5, dy = y - 31.5;
            double r = std::hypot(dx, dy);
            constexpr double kPi = std::numbers::pi;
            int ray = int(std::floor((std::atan2(dy, dx) + kPi) / (kPi / 8)));
            uint8_t red = 110, green = 170, blue = 230;  // sky
            if (r < 11) {
                red = 255, green = 215, blue = 40;  // sun
            } else if (r < 28 && ray % 2 == 0) {
                red = 250, green = 140, blue = 20;  // ray
            }
            w.Byte(blue), w.Byte(green), w.Byte(red);
        }
    }
    return w.Bytes();
}

void WriteSamplePages(const fs::path& systemFolder, const fs::path& pagesFolder) {
    ThrowingMessages messages;
    ScopedMessageService scope(messages);
    std::string system = systemFolder.string() + "/";
    Definitions().DefinitionsFolder = system;
    InstallDefinitionReaders();
    ReadAspectListDefs(system + "Alist.dfn");
    ReadPointListDefs(system + "plist.dfn");
    LoadObjectClasses(system + "objects.dfn", ObjectClasses());

    fs::create_directories(pagesFolder);
    std::ofstream(pagesFolder / kPicture, std::ios::binary) << SunburstBitmap();
    for (const SamplePage& s : Pages()) {
        if (!SavePage((pagesFolder / s.file).string(), *Build(s))) {
            throw std::runtime_error(std::string("cannot save ") + s.file);
        }
    }
}

}  // namespace paginox::sample
