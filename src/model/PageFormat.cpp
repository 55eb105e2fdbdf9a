// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PageFormat.h"

#include <algorithm>
#include <utility>

#include "core/Checked.h"
#include "core/Rounding.h"
#include "core/RuntimeError.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"

namespace paginox {

namespace {
bool pageValid = false;  // nothing validated yet

const PageObject& Present(const std::shared_ptr<PageObject>& obj) {
    if (!obj) Raise(kObjectNotSet);
    return *obj;
}

// The format drawn at its own size: the area frame sizes are measured on.
RectClass OwnArea(const PageFormat& format) {
    RectClass r;
    r.InitTo(0, 0, format.XPixels(), format.YPixels());
    return r;
}
}  // namespace

bool PageValid() {
    return pageValid;
}
void SetPageValid(bool valid) {
    pageValid = valid;
}

PageFormat::PageFormat() {
    InitNewFormat();
}

float PageFormat::Margin(int16_t i, int16_t j) const {
    CheckIndex(i, 1, 2);
    CheckIndex(j, 1, 2);
    return margin_[i - 1][j - 1];
}

void PageFormat::SetMargin(int16_t i, int16_t j, float v) {
    CheckIndex(i, 1, 2);
    CheckIndex(j, 1, 2);
    margin_[i - 1][j - 1] = v;
}

// k = 1 left (1,1), 2 top (2,1), 3 right (1,2), 4 bottom (2,2).
float PageFormat::NewMargin(int16_t k) const {
    CheckIndex(k, 1, 4);
    return margin_[(k - 1) % 2][(k - 1) / 2];
}

void PageFormat::SetNewMargin(int16_t k, float v) {
    CheckIndex(k, 1, 4);
    margin_[(k - 1) % 2][(k - 1) / 2] = v;
}

std::shared_ptr<PageObject> PageFormat::Object(int16_t k) const {
    CheckIndex(k, 1, count_);
    return objects_[k - 1];
}

void PageFormat::SetObject(int16_t k, std::shared_ptr<PageObject> obj) {
    CheckIndex(k, 1, count_);
    objects_[k - 1] = std::move(obj);
}

const PageObjectClass& PageFormat::POClass(int16_t k) const {
    return Present(Object(k)).POClass();
}

void PageFormat::InitNewFormat() {
    yRatio_ = 0.75f;
    noTextYRatio_ = 0;
    xPixels_ = 800;
    yPixels_ = 600;
    logPixels_ = 96;
    forPrinter_ = false;
    SetNumObjects(0, false);
    SetAllMargins(0.01f);
}

void PageFormat::SetAllMargins(float m) {
    for (auto& side : margin_) side.fill(m);
}

void PageFormat::SetNumObjects(int16_t n, bool createNew) {
    if (n == count_) return;
    if (n > count_) {
        if (n > ObjectCapacity()) objects_.resize(size_t(CheckedAdd<int16_t>(n, 5)));
        if (createNew) {
            for (int k = count_ + 1; k <= n; ++k) objects_[k - 1] = std::make_shared<PageObject>();
        }
        count_ = n;
        return;
    }
    CheckIndex(n, 0, count_);
    for (int k = std::max<int>(n, 1); k <= count_; ++k) objects_[k - 1] = nullptr;
    count_ = n;
}

void PageFormat::AddObject(std::shared_ptr<PageObject> obj) {
    SetNumObjects(CheckedAdd<int16_t>(count_, 1), false);
    objects_[count_ - 1] = std::move(obj);
}

void PageFormat::DeleteObject(int16_t k) {
    if (k < 1 || k > count_) return;
    std::move(objects_.begin() + k, objects_.begin() + count_, objects_.begin() + (k - 1));
    objects_[count_ - 1] = nullptr;
    --count_;
}

void PageFormat::MoveObject(int16_t from, int16_t to) {
    if (from == to) return;
    CheckIndex(from, 1, count_);
    CheckIndex(to, 1, count_);
    auto first = objects_.begin();
    if (from < to) {
        std::rotate(first + (from - 1), first + from, first + to);
    } else {
        std::rotate(first + (to - 1), first + (from - 1), first + from);
    }
}

std::shared_ptr<PageFormat> PageFormat::Clone() const {
    auto copy = std::make_shared<PageFormat>();
    copy->yRatio_ = yRatio_;
    copy->noTextYRatio_ = noTextYRatio_;
    copy->margin_ = margin_;
    copy->xPixels_ = xPixels_;
    copy->yPixels_ = yPixels_;
    copy->logPixels_ = logPixels_;
    copy->forPrinter_ = forPrinter_;
    copy->SetNumObjects(count_, false);
    for (int16_t k = 1; k <= count_; ++k) copy->objects_[k - 1] = Present(objects_[k - 1]).Clone();
    return copy;
}

bool PageFormat::IsEqual(const PageFormat& other) const {
    if (yRatio_ != other.yRatio_ || noTextYRatio_ != other.noTextYRatio_ ||
        margin_ != other.margin_ || !EqualSize(other) || logPixels_ != other.logPixels_ ||
        count_ != other.count_) {
        return false;
    }
    for (int16_t k = 1; k <= count_; ++k) {
        if (!Present(objects_[k - 1]).IsEqual(Present(other.objects_[k - 1]))) return false;
    }
    return true;
}

int16_t PageFormat::MaxNumCharts() const {
    int16_t highest = 0;
    for (int16_t k = 1; k <= count_; ++k) {
        const PageObject& obj = Present(objects_[k - 1]);
        for (int16_t c = 1; c <= obj.NumCharts(); ++c) highest = std::max(highest, obj.ChartNum(c));
    }
    return highest;
}

bool PageFormat::EqualSize(const PageFormat& other) const {
    return xPixels_ == other.xPixels_ && yPixels_ == other.yPixels_ &&
           forPrinter_ == other.forPrinter_;
}

void PageFormat::ValidatePage() {
    // The graphic file and the six kinds of generic file.
    constexpr int32_t kAnyGenericFile = kOCUGraphicFile | kOCUDignityFile | kOCUStarFile |
                                        kOCUArabicPartFile | kOCUAsteroidFile |
                                        kOCUBodyElementFile | kOCUExtraRingFile;
    SetPageValid(false);
    for (int16_t k = 1; k <= count_; ++k) {
        if (!objects_[k - 1]) Raise(kObjectNotSet);
        PageObject& obj = *objects_[k - 1];
        const PageObjectClass& cls = obj.POClass();
        if (!cls.OCUFlag(kOCUPointsFile)) {
            for (int16_t c = 1; c <= PageObject::kMaxCharts; ++c) obj.SetPointsFile(c, "");
        }
        if (!cls.OCUFlag(kOCUAspectsFile)) obj.SetAspectsFile("");
        if (!cls.ContainsAnyOCUFlag(kAnyGenericFile)) obj.SetGenericFile("");
        if (obj.HorzBlocks() < 1) obj.SetHorzBlocks(1);
        if (obj.FontSize() < 4.0f) obj.SetFontSize(9.0f);
    }
    SetPageValid(true);
}

PixelSize PageFormat::GetTextObjectPixels(const PageObject& obj) const {
    // Height: the lines of one block at the object's font size plus the frame and a pixel of
    // space on each side, the inverse of NearestFontSize. Width: a list's columns; else the
    // height over the object's own ratio; else a plain text block per horizontal block.
    const PageObjectClass& cls = obj.POClass();
    int32_t border =
        CheckedMul<int32_t>(2, CheckedAdd(GetFrameSize(&obj, nullptr, OwnArea(*this), false), 1));
    int32_t lines = std::max<int32_t>(obj.BlockLines(cls), 0);
    PixelSize size;
    size.Height = CheckedAdd(ToInt32(lines * LinePixels(obj.FontSize(), logPixels_)), border);
    if (cls.HasFlexibleListColumns()) {
        size.Width = cls.ObjectType() == kTypeAspectList ? obj.GetALBoxWidth(*this)
                                                         : obj.GetPLBoxWidth(*this);
    } else if (obj.YRatio() > 0) {
        size.Width = ToInt32(size.Height / double(obj.YRatio()));
    } else {
        double blocks = std::max<int16_t>(obj.HorzBlocks(), 1);
        size.Width = CheckedAdd(
            ToInt32(blocks * kTextBlockChars * CharPixels(obj.FontSize(), logPixels_)), border);
    }
    return size;
}

float PageFormat::NearestFontSize(const PageObject& obj, bool flag, float minSize,
                                  float maxSize) const {
    // Measured with the format drawn at its own size, like GetTextObjectPixels.
    int32_t h = ToInt32(double(yPixels_) * obj.Length(2));
    int32_t frame = GetFrameSize(&obj, nullptr, OwnArea(*this), flag);
    double available = double(h) - (double(frame) + 1) * 2;
    // An object without lines is sized as if it had one rather than dividing by zero.
    int16_t lines = std::max<int16_t>(obj.BlockLines(), 1);
    int32_t pixelsPerLine = ToInt32(available / lines);
    double size = CheckedFloatDiv(ToInt32(pixelsPerLine * kLineFill) * 72.0, logPixels_);
    if (size < minSize) size = minSize;
    if (size > maxSize) size = maxSize;
    return static_cast<float>(size);
}

int32_t PageFormat::GetFrameSize(const PageObject* obj, const PageObjectClass* cls,
                                 const RectClass& rect, bool flag) const {
    if (!obj && !cls) Raise(kObjectNotSet);
    int16_t frameType = obj ? obj->FrameType() : cls->DefaultFrameType();
    // The usable page; the frame keeps its proportion to it on every surface.
    double w = ToInt32((1.0 - margin_[0][0] - margin_[0][1]) * xPixels_);
    double h = ToInt32((1.0 - margin_[1][0] - margin_[1][1]) * yPixels_);
    switch (frameType) {
        case 2:
            if (w >= h) {
                double s = ToInt32(Int(h * 0.002 + 1) + 1.5);
                return ToInt32(CheckedFloatDiv(s * rect.Height(), h));
            } else {
                double s = ToInt32(Int(w * 0.002 + 1) + 1.5);
                return ToInt32(CheckedFloatDiv(s * rect.Width(), w));
            }
        case 1:
            return flag ? 0 : ToInt32(CheckedFloatDiv(rect.Width() * 2.0, w));
        default:
            return 0;
    }
}

}  // namespace paginox
