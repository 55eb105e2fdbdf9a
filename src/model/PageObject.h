// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One object placed on a format: where it sits, as fractions of the frame, and the settings
// the host program uses when it fills the object with chart data.

#include <array>
#include <cstdint>
#include <memory>
#include <ostream>
#include <string>

#include "model/RectClass.h"

namespace paginox {

class PageFormat;
class PageObjectClass;

class PageObject {
  public:
    static constexpr int16_t kMaxColumns = 64;
    static constexpr int16_t kMaxCharts = 5;

    int16_t ObjectClassID() const { return objectClassID_; }
    void SetObjectClassID(int16_t v) { objectClassID_ = v; }
    int16_t NumCharts() const { return numCharts_; }
    void SetNumCharts(int16_t v) { numCharts_ = v; }
    // k = 1 across, 2 down; fractions of the frame's width and height.
    float Origin(int16_t k) const;
    void SetOrigin(int16_t k, float v);
    float Length(int16_t k) const;
    void SetLength(int16_t k, float v);
    int16_t TextJustify() const { return textJustify_; }
    void SetTextJustify(int16_t v) { textJustify_ = v; }
    int16_t TextBottomUp() const { return textBottomUp_; }  // a Boolean kept as stored
    void SetTextBottomUp(int16_t v) { textBottomUp_ = v; }
    int16_t TextLines() const { return textLines_; }
    void SetTextLines(int16_t v) { textLines_ = v; }
    int16_t HorzBlocks() const { return horzBlocks_; }
    void SetHorzBlocks(int16_t v) { horzBlocks_ = v; }
    float YRatio() const { return yRatio_; }
    void SetYRatio(float v) { yRatio_ = v; }
    int16_t FrameType() const { return frameType_; }
    void SetFrameType(int16_t v) { frameType_ = v; }
    // Column codes 1..64 of a flexible list; 0 ends the list.
    uint8_t PL_Columns(int16_t k) const;
    void SetPL_Columns(int16_t k, uint8_t v);
    int16_t Rulerships() const { return rulerships_; }
    void SetRulerships(int16_t v) { rulerships_ = v; }
    float Modulus() const { return modulus_; }
    void SetModulus(float v) { modulus_ = v; }
    float Orb() const { return orb_; }
    void SetOrb(float v) { orb_ = v; }
    float FontSize() const { return fontSize_; }
    void SetFontSize(float v) { fontSize_ = v; }
    bool Weighted() const { return weighted_; }
    void SetWeighted(bool v) { weighted_ = v; }
    bool TitleOn() const { return titleOn_; }
    void SetTitleOn(bool v) { titleOn_ = v; }
    const std::string& UserCaption() const { return userCaption_; }
    void SetUserCaption(const std::string& v) { userCaption_ = v; }
    bool AnchorBottom() const { return anchorBottom_; }
    void SetAnchorBottom(bool v) { anchorBottom_ = v; }
    int16_t Zodiac() const { return zodiac_; }
    void SetZodiac(int16_t v) { zodiac_ = v; }
    int16_t ForceLineColor() const { return forceLineColor_; }
    void SetForceLineColor(int16_t v) { forceLineColor_ = v; }
    const std::string& WheelFile() const { return wheelFile_; }
    void SetWheelFile(const std::string& v) { wheelFile_ = v; }
    const std::string& GenericFile() const { return genericFile_; }
    void SetGenericFile(const std::string& v) { genericFile_ = v; }
    const std::string& AspectsFile() const { return aspectsFile_; }
    void SetAspectsFile(const std::string& v) { aspectsFile_ = v; }
    // Per chart slot 1..5.
    int16_t ChartNum(int16_t k) const;
    void SetChartNum(int16_t k, int16_t v);
    const std::string& PointsFile(int16_t k) const;
    void SetPointsFile(int16_t k, const std::string& v);

    // The class at position ObjectClassID of the program's catalogue; for a number the
    // catalogue does not hold, its stand-in (StandInClass), so that a page made with another
    // catalogue still opens and can be repaired.
    const PageObjectClass& POClass() const;

    std::shared_ptr<PageObject> Clone() const;
    bool IsEqual(const PageObject& other) const;  // singles compared exactly
    bool IsSmallWheel() const;
    void ForceInsideFrame();
    // The object's rectangle in a frame given in pixels.
    RectClass GetRect(int32_t left, int32_t top, int32_t width, int32_t height) const;

    // Line counts; the forms taking a class use it instead of looking POClass up.
    int16_t ActualFixedLines() const;
    int16_t ActualFixedLines(const PageObjectClass& cls) const;
    // Deliberately the class's default text lines, not the object's own.
    int16_t TotalLines() const;
    int16_t BlockLines() const;
    int16_t BlockLines(const PageObjectClass& cls) const;

    // Pixel widths of a point-list and an aspect-list box on format (see ObjectSizing.h).
    int32_t GetPLBoxWidth(const PageFormat& format) const;
    int32_t GetALBoxWidth(const PageFormat& format) const;
    // The height-to-width ratio a list box of this object's lines and columns needs.
    float ListBoxYRatio(const PageObjectClass& cls) const;
    void FitObjectOnPage();
    void DebugPrint(std::ostream& out) const;

  private:
    int16_t objectClassID_ = 0;
    int16_t numCharts_ = 1;
    std::array<float, 2> origin_{0.3f, 0.3f};
    std::array<float, 2> length_{0.4f, 0.4f};
    int16_t textJustify_ = 0;
    int16_t textBottomUp_ = 0;
    int16_t textLines_ = 0;
    int16_t horzBlocks_ = 1;
    float yRatio_ = 0;
    int16_t frameType_ = 1;
    std::array<uint8_t, kMaxColumns> plColumns_{};
    int16_t rulerships_ = 0;
    float modulus_ = 90.0f;
    float orb_ = 5.0f;
    float fontSize_ = 9.0f;
    bool weighted_ = false;
    bool titleOn_ = true;
    std::string userCaption_;
    bool anchorBottom_ = false;
    int16_t zodiac_ = 0;
    int16_t forceLineColor_ = 0;
    std::string wheelFile_;
    std::string genericFile_;
    std::string aspectsFile_;
    std::array<int16_t, kMaxCharts> chartNum_{1, 0, 0, 0, 0};
    std::array<std::string, kMaxCharts> pointsFile_;
};

}  // namespace paginox
