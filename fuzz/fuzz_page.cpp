// SPDX-License-Identifier: GPL-3.0-or-later
// ReadPage on any bytes: no crash, no hang, no unbounded allocation; and whatever it reads
// saves to bytes that read back and save to the very same bytes.

#include "FuzzSupport.h"
#include "model/PageClass.h"
#include "persist/FileIO_Page.h"

using namespace paginox;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::QuietMessages messages;
    std::string in = fuzz::WriteInput("in.pag", data, size);
    for (int16_t formatIndex : {int16_t(2), int16_t(1)}) ReadPage(in, formatIndex, true);

    int before = messages.shown;
    auto page = ReadPage(in, -1, true);
    if (!page) {
        fuzz::Require(messages.shown > before);  // a failure is always reported
        return 0;
    }
    std::string once = (fuzz::WorkFolder() / "once.pag").string();
    std::string twice = (fuzz::WorkFolder() / "twice.pag").string();
    fuzz::Require(SavePage(once, *page));
    auto again = ReadPage(once, -1, true);
    fuzz::Require(again != nullptr);
    fuzz::Require(SavePage(twice, *again));
    std::ifstream a(once, std::ios::binary), b(twice, std::ios::binary);
    fuzz::Require(std::string(std::istreambuf_iterator<char>(a), {}) ==
                  std::string(std::istreambuf_iterator<char>(b), {}));
    return 0;
}
