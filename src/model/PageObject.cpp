// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PageObject.h"

#include <algorithm>
#include <tuple>

#include "core/Checked.h"
#include "core/NumberFormat.h"
#include "core/Rounding.h"
#include "core/RuntimeError.h"
#include "model/ObjectSizing.h"
#include "model/PageFormat.h"
#include "model/PageObjectClasses.h"

namespace paginox {

float PageObject::Origin(int16_t k) const {
    CheckIndex(k, 1, 2);
    return origin_[k - 1];
}

void PageObject::SetOrigin(int16_t k, float v) {
    CheckIndex(k, 1, 2);
    origin_[k - 1] = v;
}

float PageObject::Length(int16_t k) const {
    CheckIndex(k, 1, 2);
    return length_[k - 1];
}

void PageObject::SetLength(int16_t k, float v) {
    CheckIndex(k, 1, 2);
    length_[k - 1] = v;
}

uint8_t PageObject::PL_Columns(int16_t k) const {
    CheckIndex(k, 1, kMaxColumns);
    return plColumns_[k - 1];
}

void PageObject::SetPL_Columns(int16_t k, uint8_t v) {
    CheckIndex(k, 1, kMaxColumns);
    plColumns_[k - 1] = v;
}

int16_t PageObject::ChartNum(int16_t k) const {
    CheckIndex(k, 1, kMaxCharts);
    return chartNum_[k - 1];
}

void PageObject::SetChartNum(int16_t k, int16_t v) {
    CheckIndex(k, 1, kMaxCharts);
    chartNum_[k - 1] = v;
}

const std::string& PageObject::PointsFile(int16_t k) const {
    CheckIndex(k, 1, kMaxCharts);
    return pointsFile_[k - 1];
}

void PageObject::SetPointsFile(int16_t k, const std::string& v) {
    CheckIndex(k, 1, kMaxCharts);
    pointsFile_[k - 1] = v;
}

const PageObjectClass& PageObject::POClass() const {
    if (!IsKnownClass(objectClassID_)) return StandInClass(objectClassID_);
    return *ObjectClasses().Class(objectClassID_);
}

std::shared_ptr<PageObject> PageObject::Clone() const {
    return std::make_shared<PageObject>(*this);
}

bool PageObject::IsEqual(const PageObject& other) const {
    auto members = [](const PageObject& o) {
        return std::tie(o.objectClassID_, o.numCharts_, o.origin_, o.length_, o.textJustify_,
                        o.textBottomUp_, o.textLines_, o.horzBlocks_, o.yRatio_, o.frameType_,
                        o.plColumns_, o.rulerships_, o.modulus_, o.orb_, o.fontSize_, o.weighted_,
                        o.titleOn_, o.userCaption_, o.anchorBottom_, o.zodiac_, o.forceLineColor_,
                        o.wheelFile_, o.genericFile_, o.aspectsFile_, o.chartNum_, o.pointsFile_);
    };
    return members(*this) == members(other);
}

bool PageObject::IsSmallWheel() const {
    // Compared with the double 0.55, so a length stored as the single 0.55 is not small.
    return numCharts_ == 1 && length_[0] <= 0.55 && length_[1] <= 0.55;
}

void PageObject::ForceInsideFrame() {
    for (size_t k = 0; k < 2; ++k) {
        if (length_[k] > 1) length_[k] = 1;
        if (origin_[k] < 0) origin_[k] = 0;
        if (static_cast<float>(origin_[k] + length_[k]) > 1) origin_[k] = 1 - length_[k];
    }
}

RectClass PageObject::GetRect(int32_t left, int32_t top, int32_t width, int32_t height) const {
    RectClass r;
    r.InitTo(ToInt32(left + double(width) * origin_[0]), ToInt32(top + double(height) * origin_[1]),
             ToInt32(double(width) * length_[0]), ToInt32(double(height) * length_[1]));
    return r;
}

int16_t PageObject::ActualFixedLines() const {
    return ActualFixedLines(POClass());
}

int16_t PageObject::ActualFixedLines(const PageObjectClass& cls) const {
    int16_t lines = cls.DefaultFixedLines();
    if (cls.OCUFlag(kOCUTitleLine) && !titleOn_) lines = CheckedSub<int16_t>(lines, 1);
    return lines;
}

int16_t PageObject::TotalLines() const {
    const PageObjectClass& cls = POClass();
    return CheckedAdd(ActualFixedLines(cls), cls.DefaultTextLines());
}

int16_t PageObject::BlockLines() const {
    return BlockLines(POClass());
}

int16_t PageObject::BlockLines(const PageObjectClass& cls) const {
    double blocks = horzBlocks_ < 1 ? 1 : horzBlocks_;
    return ToInt16(ActualFixedLines(cls) + Int(textLines_ / blocks - 0.01) + 1);
}

namespace {
// A list box is its blocks of columns side by side, inside the frame and a pixel of space.
int32_t ListBoxWidth(const PageObject& obj, const PageFormat& format, bool aspectList) {
    RectClass page;
    page.InitTo(0, 0, format.XPixels(), format.YPixels());
    int32_t frame = format.GetFrameSize(&obj, nullptr, page, false);
    int32_t blocks = std::max<int32_t>(obj.HorzBlocks(), 1);
    double text = double(blocks) * ListBlockChars(obj, aspectList) *
                  CharPixels(obj.FontSize(), format.LogPixels());
    return CheckedAdd(ToInt32(text), CheckedMul<int32_t>(2, CheckedAdd(frame, 1)));
}
}  // namespace

int32_t PageObject::GetPLBoxWidth(const PageFormat& format) const {
    return ListBoxWidth(*this, format, false);
}

int32_t PageObject::GetALBoxWidth(const PageFormat& format) const {
    return ListBoxWidth(*this, format, true);
}

float PageObject::ListBoxYRatio(const PageObjectClass& cls) const {
    // Lines over columns in font-size units; the font size and the device cancel out, and the
    // frame is left out so that the ratio holds on every format.
    int16_t lines = BlockLines(cls);
    if (lines <= 0) return 0;
    double blocks = std::max<int16_t>(horzBlocks_, 1);
    double chars = ListBlockChars(*this, cls.ObjectType() == kTypeAspectList);
    return static_cast<float>(lines / kLineFill / (blocks * chars * kCharWidthPerSize));
}

void PageObject::FitObjectOnPage() {
    // Shrink both axes by the same factor, so the object keeps its proportions (and so its
    // YRatio), until neither is larger than the frame; then move it inside.
    float largest = std::max(length_[0], length_[1]);
    if (largest > 1) {
        length_[0] /= largest;
        length_[1] /= largest;
    }
    ForceInsideFrame();
}

void PageObject::DebugPrint(std::ostream& out) const {
    auto num = [](float v) { return ShortestDecimal(v); };
    out << "ObjectClassID=" << objectClassID_ << " NumCharts=" << numCharts_ << '\n'
        << "Origin=" << num(origin_[0]) << "," << num(origin_[1]) << " Length=" << num(length_[0])
        << "," << num(length_[1]) << '\n'
        << "TextJustify=" << textJustify_ << " TextBottomUp=" << textBottomUp_
        << " TextLines=" << textLines_ << " HorzBlocks=" << horzBlocks_
        << " YRatio=" << num(yRatio_) << " FrameType=" << frameType_ << '\n'
        << "PL_Columns=";
    for (int16_t k = 1; k <= kMaxColumns && plColumns_[k - 1] != 0; ++k) {
        out << (k > 1 ? "," : "") << int(plColumns_[k - 1]);
    }
    out << '\n'
        << "Rulerships=" << rulerships_ << " Modulus=" << num(modulus_) << " Orb=" << num(orb_)
        << " FontSize=" << num(fontSize_) << " Weighted=" << weighted_ << " TitleOn=" << titleOn_
        << " AnchorBottom=" << anchorBottom_ << '\n'
        << "UserCaption=" << userCaption_ << " Zodiac=" << zodiac_
        << " ForceLineColor=" << forceLineColor_ << '\n'
        << "WheelFile=" << wheelFile_ << " GenericFile=" << genericFile_
        << " AspectsFile=" << aspectsFile_ << '\n';
    for (int16_t k = 1; k <= kMaxCharts; ++k) {
        out << "Chart " << k << ": ChartNum=" << chartNum_[k - 1]
            << " PointsFile=" << pointsFile_[k - 1] << '\n';
    }
}

}  // namespace paginox
