// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/PageSizes.h"

#include <charconv>

#include "core/AnsiText.h"
#include "core/Checked.h"
#include "core/NumberFormat.h"
#include "core/Rounding.h"
#include "editor/EditorState.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"

namespace paginox {

const std::array<ScreenResolution, 11>& ScreenResolutions() {
    static const std::array<ScreenResolution, 11> table{{
        {"VGA", 640, 480},
        {"SVGA", 800, 600},
        {"XGA", 1024, 768},
        {"SXGA", 1152, 864},
        {"SXGA", 1280, 1024},
        {"SXGA", 1400, 1050},
        {"UXGA", 1600, 1200},
        {"WXGA", 1366, 768},
        {"WSXGA", 1600, 900},
        {"WSXGA", 1600, 1024},
        {"WUXGA", 1920, 1200},
    }};
    return table;
}

int ScreenEntryForWidth(int16_t xPixels) {
    const auto& table = ScreenResolutions();
    for (size_t i = 0; i < table.size(); ++i) {
        if (table[i].Width - kScreenWidthMargin == xPixels) return static_cast<int>(i);
    }
    return -1;
}

std::string FormatDisplayName(const PageFormat& format) {
    auto name = [](const char* kind, long long w, long long h) {
        return std::string(kind) + "\t(" + FormatZero(w) + "x" + FormatZero(h) + ")";
    };
    if (format.ForPrinter()) return name("Printer", format.XPixels(), format.YPixels());
    int i = ScreenEntryForWidth(format.XPixels());
    if (i >= 0) {
        const ScreenResolution& r = ScreenResolutions()[static_cast<size_t>(i)];
        return name("Screen", r.Width, r.Height);
    }
    return name("User", format.XPixels(), format.YPixels());
}

std::optional<int16_t> ParsePixels(const std::string& text) {
    std::string t = Trim(text);
    int16_t v = 0;
    auto [end, ec] = std::from_chars(t.data(), t.data() + t.size(), v);
    if (t.empty() || ec != std::errc() || end != t.data() + t.size() || v < 1) return std::nullopt;
    return v;
}

void ResizeFormat(PageFormat& format, FormatSize size) {
    format.SetXPixels(size.Width);
    format.SetYPixels(size.Height);
    if (size.Width <= 0) return;
    float ratio = static_cast<float>(double(size.Height) / size.Width);
    format.SetYRatio(ratio);
    if (format.NoTextYRatio() != 0) format.SetNoTextYRatio(ratio);
}

void SizeFormatForScreen(PageFormat& format, int screenWidth, int screenHeight, int logPixels) {
    ResizeFormat(format,
                 {CheckedNarrow<int16_t>(CheckedSub(screenWidth, int(kScreenWidthMargin))),
                  CheckedNarrow<int16_t>(CheckedSub(screenHeight, int(kScreenHeightMargin)))});
    format.SetLogPixels(CheckedNarrow<int16_t>(logPixels));
    format.SetForPrinter(false);
}

namespace {
// A text object takes the room its text needs on the new size, as a share of the page; one
// that would not fit shrinks on both axes alike, keeping its proportions.
void SizeTextObjects(PageFormat& format) {
    for (int16_t k = 1; k <= format.NumObjects(); ++k) {
        if (!format.POClass(k).OCUFlag(kOCUTextObject)) continue;
        PageObject& obj = *format.Object(k);
        PixelSize need = format.GetTextObjectPixels(obj);
        obj.SetLength(1, static_cast<float>(CheckedFloatDiv(need.Width, format.XPixels())));
        obj.SetLength(2, static_cast<float>(CheckedFloatDiv(need.Height, format.YPixels())));
        obj.FitObjectOnPage();
    }
}
}  // namespace

AddedSize AddFormatOfSize(PageClass& page, const PageFormat& working, FormatSize size) {
    std::shared_ptr<PageFormat> format = working.Clone();
    ResizeFormat(*format, size);
    for (int16_t k = 1; k <= page.NumFormats(); ++k) {
        std::shared_ptr<PageFormat> existing = page.GetFormat(k);
        if (existing && existing->EqualSize(*format)) return {k, false};
    }
    SizeTextObjects(*format);
    page.AddFormat(format);
    return {page.NumFormats(), true};
}

AddedSize AddPageSize(EditorState& state, const PageFormat& working, FormatSize size) {
    AddedSize added = AddFormatOfSize(*state.Page, working, size);
    if (!added.Added) return added;
    state.SetCurrentFormat(added.Index);
    state.SelectOnly(0);
    state.PageChanged = true;
    return added;
}

bool FormatFitsScreen(const PageFormat& format, int screenWidth, int screenHeight) {
    return !format.ForPrinter() && format.XPixels() <= screenWidth &&
           format.YPixels() <= screenHeight;
}

}  // namespace paginox
