// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One kind of page object from the catalogue file: how it is named and grouped, its shape,
// which object properties it uses (OCUFlags) and the defaults of a new object of the kind.

#include <cstdint>
#include <memory>
#include <string>

#include "model/RectClass.h"

namespace paginox {

class PageFormat;
class PageObject;

// OCUFlags bits that the model itself tests.
enum OCUBit : int32_t {
    kOCUPointsFile = 8,
    kOCUAspectsFile = 16,
    kOCUTextObject = 256,  // sized afresh from its text when a page size is added
    kOCUGraphicFile = 512,
    kOCUTitleLine = 2048,
    kOCUDignityFile = 4096,
    kOCUStarFile = 8192,
    kOCUArabicPartFile = 16384,
    kOCUAsteroidFile = 32768,
    kOCUBodyElementFile = 65536,
    kOCUExtraRingFile = 131072,
};

// Object types the model treats specially.
enum ObjectTypeCode : int16_t {
    kTypePointList = 10,
    kTypeAspectList = 27,
    kTypeAsteroidList = 60,
    kTypeArabicPartList = 61,
    kTypeFixedStarList = 62,
    kTypePointTableList = 63,
    kTypeExtraRingList = 64,
    kTypeOneColumn = 82,  // gets one default column (see CreateInstance)
};

class PageObjectClass {
  public:
    int16_t ObjectType() const { return objectType_; }
    int16_t ClassID() const { return classID_; }
    const std::string& Abbreviation() const { return abbreviation_; }
    const std::string& FullName() const { return fullName_; }
    const std::string& Description() const { return description_; }
    const std::string& Group() const { return group_; }
    int16_t Order() const { return order_; }
    int16_t Shape() const { return shape_; }
    int16_t DefaultFixedLines() const { return defaultFixedLines_; }
    int16_t DefaultTextLines() const { return defaultTextLines_; }
    int16_t DefaultHorizontalBlocks() const { return defaultHorizontalBlocks_; }
    float DefaultYRatio() const { return defaultYRatio_; }
    int16_t NumCharts() const { return numCharts_; }
    int16_t DefaultFrameType() const { return defaultFrameType_; }
    int32_t OCUFlags() const { return ocuFlags_; }

    void SetObjectType(int16_t v) { objectType_ = v; }
    void SetClassID(int16_t v) { classID_ = v; }
    void SetAbbreviation(const std::string& v) { abbreviation_ = v; }
    void SetFullName(const std::string& v) { fullName_ = v; }
    void SetDescription(const std::string& v) { description_ = v; }
    void SetGroup(const std::string& v) { group_ = v; }
    void SetOrder(int16_t v) { order_ = v; }
    void SetShape(int16_t v) { shape_ = v; }
    void SetDefaultFixedLines(int16_t v) { defaultFixedLines_ = v; }
    void SetDefaultTextLines(int16_t v) { defaultTextLines_ = v; }
    void SetDefaultHorizontalBlocks(int16_t v) { defaultHorizontalBlocks_ = v; }
    void SetDefaultYRatio(float v) { defaultYRatio_ = v; }
    void SetNumCharts(int16_t v) { numCharts_ = v; }
    void SetDefaultFrameType(int16_t v) { defaultFrameType_ = v; }
    void SetOCUFlags(int32_t v) { ocuFlags_ = v; }

    // Every bit of mask is set (a mask of 0 always is).
    bool OCUFlag(int32_t mask) const { return (ocuFlags_ & mask) == mask; }
    // Some bit of mask is set, judged as a signed number: bit 31 alone does not count.
    bool ContainsAnyOCUFlag(int32_t mask) const { return (ocuFlags_ & mask) > 0; }

    // A new object of this class with its defaults, sized for format when one is given and
    // centred on the page.
    std::shared_ptr<PageObject> CreateInstance(const PageFormat* format) const;
    int16_t DefaultBlockLines() const;
    // The list objects whose columns the user chooses.
    bool HasFlexibleListColumns() const;
    // Where an object of this class sits in a frame when nothing places it (the insert
    // dialog's preview, drawing a class without an object); obj may be null.
    RectClass GetObjectRect(const RectClass& frame, const PageObject* obj = nullptr) const;

  private:
    int16_t objectType_ = 0;
    int16_t classID_ = 0;
    std::string abbreviation_;
    std::string fullName_;
    std::string description_;
    std::string group_;
    int16_t order_ = 0;
    int16_t shape_ = 0;
    int16_t defaultFixedLines_ = 0;
    int16_t defaultTextLines_ = 0;
    int16_t defaultHorizontalBlocks_ = 0;
    float defaultYRatio_ = 0;
    int16_t numCharts_ = 0;
    int16_t defaultFrameType_ = 0;
    int32_t ocuFlags_ = 0;
};

}  // namespace paginox
