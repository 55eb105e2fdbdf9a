#include "editor/PageSizes.h"

#include "core/Checked.h"
#include "core/NumberFormat.h"
#include "model/PageFormat.h"

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

void SizeFormatForScreen(PageFormat& format, int screenWidth, int screenHeight, int logPixels) {
    int16_t width = CheckedNarrow<int16_t>(CheckedSub(screenWidth, int(kScreenWidthMargin)));
    int16_t height = CheckedNarrow<int16_t>(CheckedSub(screenHeight, int(kScreenHeightMargin)));
    format.SetXPixels(width);
    format.SetYPixels(height);
    format.SetLogPixels(CheckedNarrow<int16_t>(logPixels));
    format.SetForPrinter(false);
    if (width > 0) format.SetYRatio(static_cast<float>(double(height) / width));
}

bool FormatFitsScreen(const PageFormat& format, int screenWidth, int screenHeight) {
    return !format.ForPrinter() && format.XPixels() <= screenWidth &&
           format.YPixels() <= screenHeight;
}

}  // namespace paginox
