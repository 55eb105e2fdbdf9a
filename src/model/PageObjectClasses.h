// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The catalogue of object classes, 1-based; a page object names its class by position.

#include <cstdint>
#include <memory>
#include <vector>

#include "model/PageObjectClass.h"

namespace paginox {

class PageObjectClasses {
  public:
    int16_t Count() const { return count_; }
    // n > 0 makes the slots 1..n, keeping what they held; n <= 0 only changes Count, leaving
    // the storage as it was, so that a later positive count brings old entries back.
    void SetCount(int16_t n);

    // Index 1..Count, else a subscript error. A slot never filled holds nullptr.
    std::shared_ptr<PageObjectClass> Class(int16_t index) const;
    void SetClass(int16_t index, std::shared_ptr<PageObjectClass> c);

  private:
    int16_t count_ = 0;
    std::vector<std::shared_ptr<PageObjectClass>> classes_;
};

// The program's one catalogue, filled from "objects.dfn" at start-up.
PageObjectClasses& ObjectClasses();

// Whether the catalogue holds class classID (in range and filled).
bool IsKnownClass(int16_t classID);

// The class of an object whose number the catalogue does not hold (a page made with a larger
// catalogue, or a damaged file): a plain box without lines, flags or charts, named after the
// number, so that such an object can still be shown, listed, moved, resized and deleted.
// The same reference is returned for the same number for the life of the program.
const PageObjectClass& StandInClass(int16_t classID);

}  // namespace paginox
