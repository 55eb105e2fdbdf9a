// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Gives a test its own object class catalogue and definition tables, restored afterwards.

#include <memory>

#include "model/DefinitionTables.h"
#include "model/PageObjectClasses.h"
#include "model/RectClass.h"
#include "support/Errors.h"

namespace paginox::test {

class ScopedModelState {
  public:
    ScopedModelState() : classes_(ObjectClasses()), tables_(Definitions()) {
        ObjectClasses() = PageObjectClasses{};
        Definitions() = DefinitionTables{};
    }
    ~ScopedModelState() {
        ObjectClasses() = classes_;
        Definitions() = tables_;
    }
    // Appends a class to the catalogue with the next ClassID.
    std::shared_ptr<PageObjectClass> AddClass(int32_t ocuFlags = 0) {
        auto cls = std::make_shared<PageObjectClass>();
        PageObjectClasses& all = ObjectClasses();
        all.SetCount(int16_t(all.Count() + 1));
        cls->SetClassID(all.Count());
        cls->SetOCUFlags(ocuFlags);
        all.SetClass(all.Count(), cls);
        return cls;
    }

  private:
    PageObjectClasses classes_;
    DefinitionTables tables_;
};

// A rectangle from its left, top, width and height.
inline RectClass Rect(int32_t left, int32_t top, int32_t width, int32_t height) {
    RectClass r;
    r.InitTo(left, top, width, height);
    return r;
}

}  // namespace paginox::test
