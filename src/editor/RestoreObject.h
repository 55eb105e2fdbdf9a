// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One property change kept for undo: the property, its value before and after, and the three
// indices the property-setting routine was given. Undo and redo hand a value back to that
// routine, so the history holds values, never copies of objects.

#include <cstdint>
#include <functional>

#include "editor/Properties.h"

namespace paginox {

// How a stored value is put back: SetProperty of the editor, bound to its state.
using PropertySetter = std::function<void(int32_t id, const PropertyValue& value, int16_t first,
                                          int16_t second, int16_t third)>;

class RestoreObject {
  public:
    explicit RestoreObject(PropertySetter setter) : setter_(std::move(setter)) {}

    void SetValues(int32_t id, const PropertyValue& oldValue, const PropertyValue& newValue,
                   int16_t first, int16_t second, int16_t third);
    void Undo() const;
    void Redo() const;

    int32_t Id() const { return id_; }
    const PropertyValue& OldValue() const { return oldValue_; }
    const PropertyValue& NewValue() const { return newValue_; }

  private:
    PropertySetter setter_;
    int32_t id_ = 0;
    PropertyValue oldValue_;
    PropertyValue newValue_;
    int16_t first_ = 0;
    int16_t second_ = 0;
    int16_t third_ = 0;
};

}  // namespace paginox
