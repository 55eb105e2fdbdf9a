// SPDX-License-Identifier: GPL-3.0-or-later
// The object class catalogue loader on any bytes.

#include "FuzzSupport.h"
#include "model/PageObjectClasses.h"
#include "persist/FileIO_OClass.h"

using namespace paginox;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::QuietMessages messages;
    PageObjectClasses classes;
    LoadObjectClasses(fuzz::WriteInput("objects.dfn", data, size), classes);
    for (int16_t i = 1; i <= classes.Count(); ++i) fuzz::Require(classes.Class(i) != nullptr);
    return 0;
}
