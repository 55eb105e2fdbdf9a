// SPDX-License-Identifier: GPL-3.0-or-later
// A page read with a catalogue of a few classes, both taken from the input, and every format
// drawn as the preview and as a thumbnail: whatever the bytes, drawing ends without a crash,
// a hang or a run-time error escaping it.
//   input: byte 0 = how many class records follow (0..7), then those 219-byte records, then
//   the page file.

#include <algorithm>

#include "FuzzSupport.h"
#include "core/RuntimeError.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObjectClasses.h"
#include "persist/FileIO_OClass.h"
#include "persist/FileIO_Page.h"
#include "render/PreviewRefresh.h"
#include "render/SelectionMarkSet.h"

using namespace paginox;

namespace {

// Draws nothing; text is measured as the recording surface of the tests measures it.
class NullSurface : public DrawingSurface {
  public:
    RectClass Scale() const override {
        RectClass r;
        r.InitTo(0, 0, 640, 480);
        return r;
    }
    void Clear() override {}
    float TextWidth(const std::string& text) override { return 6.0f * float(text.size()); }
    float TextHeight(const std::string&) override { return 10.0f; }
    void Print(const std::string&) override {}
    void Line(int32_t, int32_t, int32_t, int32_t, int32_t) override {}
    void DrawBox(int32_t, int32_t, int32_t, int32_t, int32_t, BoxFill) override {}
    void DrawCircle(int32_t, int32_t, double, int32_t, bool) override {}
    void Polygon(const std::vector<SurfacePoint>&) override {}
    void StretchImage(const QImage&, const RectClass&, int16_t) override {}
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::QuietMessages messages;
    if (size < 1) return 0;
    size_t classBytes = std::min<size_t>(data[0] % 8 * kObjectClassRecordLength, size - 1);
    std::string catalogue = fuzz::WriteInput("objects.dfn", data + 1, classBytes);
    std::string in = fuzz::WriteInput("in.pag", data + 1 + classBytes, size - 1 - classBytes);
    LoadObjectClasses(catalogue, ObjectClasses());

    auto page = ReadPage(in, -1, true);
    if (!page) return 0;
    NullSurface surface;
    for (int16_t k = 1; k <= page->NumFormats(); ++k) {
        std::shared_ptr<PageFormat> format = page->GetFormat(k);
        if (!format) continue;
        PreviewRects rects;
        SelectionMarkSet marks;
        for (int16_t selected = 0; selected <= std::min<int16_t>(format->NumObjects(), 2);
             ++selected) {
            RefreshPreview(surface, page->NumCharts(), format.get(), true, selected, rects, marks);
        }
        DrawFormat(surface, nullptr, page->NumCharts(), *format, true, false, false);
        try {
            format->ValidatePage();  // may refuse a format, as when the editor shows it
        } catch (const RuntimeError&) {
        }
    }
    return 0;
}
