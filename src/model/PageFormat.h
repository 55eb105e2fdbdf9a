// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One size variant of a page (a screen resolution or a printer page) with its objects in
// drawing order.

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "model/ObjectSizing.h"
#include "model/RectClass.h"

namespace paginox {

class PageObject;
class PageObjectClass;

class PageFormat {
  public:
    // A new format already has the defaults of InitNewFormat.
    PageFormat();

    float YRatio() const { return yRatio_; }
    void SetYRatio(float v) { yRatio_ = v; }
    float NoTextYRatio() const { return noTextYRatio_; }
    void SetNoTextYRatio(float v) { noTextYRatio_ = v; }
    // i = 1 horizontal, 2 vertical; j = 1 the start side (left, top), 2 the end side.
    float Margin(int16_t i, int16_t j) const;
    void SetMargin(int16_t i, int16_t j, float v);
    // The same margins by one index: 1 left, 2 top, 3 right, 4 bottom (the page file order).
    float NewMargin(int16_t k) const;
    void SetNewMargin(int16_t k, float v);
    int16_t XPixels() const { return xPixels_; }
    void SetXPixels(int16_t v) { xPixels_ = v; }
    int16_t YPixels() const { return yPixels_; }
    void SetYPixels(int16_t v) { yPixels_ = v; }
    int16_t LogPixels() const { return logPixels_; }
    void SetLogPixels(int16_t v) { logPixels_ = v; }
    // Along axis i (1 across, 2 down): the page's own pixels, and the printable area's share
    // of them inside the margins, which object positions and sizes are fractions of.
    double AxisPixels(int16_t i) const { return i == 1 ? xPixels_ : yPixels_; }
    double PrintablePixels(int16_t i) const {
        return AxisPixels(i) * (1.0 - Margin(i, 1) - Margin(i, 2));
    }
    bool ForPrinter() const { return forPrinter_; }
    void SetForPrinter(bool v) { forPrinter_ = v; }

    int16_t NumObjects() const { return count_; }
    // Slots of storage; grows to the needed count plus 5 spare.
    int16_t ObjectCapacity() const { return static_cast<int16_t>(objects_.size()); }
    // k in 1..NumObjects; an emptied slot reads as nullptr.
    std::shared_ptr<PageObject> Object(int16_t k) const;
    void SetObject(int16_t k, std::shared_ptr<PageObject> obj);
    // The class of object k; an empty slot is "Object variable not set".
    const PageObjectClass& POClass(int16_t k) const;

    void InitNewFormat();
    void SetAllMargins(float m);
    // Growing fills the new slots with default objects when createNew, else leaves them
    // empty for the caller. Shrinking empties slot n too, deliberately: callers refill it.
    void SetNumObjects(int16_t n, bool createNew);
    // Keeps the caller's object itself, not a copy.
    void AddObject(std::shared_ptr<PageObject> obj);
    void DeleteObject(int16_t k);  // k outside 1..NumObjects: nothing
    // Takes the object at from out and puts it back at to: 1 is the back, NumObjects the front.
    void MoveObject(int16_t from, int16_t to);

    std::shared_ptr<PageFormat> Clone() const;
    bool IsEqual(const PageFormat& other) const;
    int16_t MaxNumCharts() const;
    // Same pixels and kind; ratios and margins are not compared.
    bool EqualSize(const PageFormat& other) const;
    // Clears settings each object's class does not use and repairs blocks and font sizes;
    // PageValid() is false while it runs and true once it has finished.
    void ValidatePage();

    // The pixel size a text object needs on this format for its font size, lines and
    // columns (see the .cpp for the rules).
    PixelSize GetTextObjectPixels(const PageObject& obj) const;
    // The font size that fills the object's lines on this format, within minSize..maxSize;
    // flag is passed on to GetFrameSize.
    float NearestFontSize(const PageObject& obj, bool flag, float minSize, float maxSize) const;
    // Thickness in pixels of the frame round obj (or, with obj null, round an object of cls)
    // when the format is drawn in rect; flag true makes a single frame take no room.
    int32_t GetFrameSize(const PageObject* obj, const PageObjectClass* cls, const RectClass& rect,
                         bool flag) const;

  private:
    float yRatio_ = 0;
    float noTextYRatio_ = 0;
    std::array<std::array<float, 2>, 2> margin_{};  // [i - 1][j - 1]
    int16_t xPixels_ = 0;
    int16_t yPixels_ = 0;
    int16_t logPixels_ = 0;
    bool forPrinter_ = false;
    int16_t count_ = 0;
    std::vector<std::shared_ptr<PageObject>> objects_;  // slot k is objects_[k - 1]
};

// Set by ValidatePage: false while a format is being validated.
bool PageValid();
void SetPageValid(bool valid);

}  // namespace paginox
