// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/RestoreObject.h"

namespace paginox {

void RestoreObject::SetValues(int32_t id, const PropertyValue& oldValue,
                              const PropertyValue& newValue, int16_t first, int16_t second,
                              int16_t third) {
    id_ = id;
    oldValue_ = oldValue;
    newValue_ = newValue;
    first_ = first;
    second_ = second;
    third_ = third;
}

// The indices go to the setter as copies: filling in defaults must not change what is kept.
void RestoreObject::Undo() const {
    if (setter_) setter_(id_, oldValue_, first_, second_, third_);
}

void RestoreObject::Redo() const {
    if (setter_) setter_(id_, newValue_, first_, second_, third_);
}

}  // namespace paginox
