#include "model/PageObjectClasses.h"

#include <utility>

#include "core/Checked.h"

namespace paginox {

void PageObjectClasses::SetCount(int16_t n) {
    if (n > 0) classes_.resize(static_cast<size_t>(n));
    count_ = n;
}

std::shared_ptr<PageObjectClass> PageObjectClasses::Class(int16_t index) const {
    CheckIndex(index, 1, count_);
    return classes_[index - 1];
}

void PageObjectClasses::SetClass(int16_t index, std::shared_ptr<PageObjectClass> c) {
    CheckIndex(index, 1, count_);
    classes_[index - 1] = std::move(c);
}

PageObjectClasses& ObjectClasses() {
    static PageObjectClasses catalogue;
    return catalogue;
}

}  // namespace paginox
