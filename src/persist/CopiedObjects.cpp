// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/CopiedObjects.h"

#include <algorithm>
#include <cmath>

#include "core/RuntimeError.h"
#include "model/PageObject.h"
#include "persist/ByteStream.h"
#include "persist/FileIO_Page.h"

namespace paginox {

namespace {

constexpr std::string_view kSignature = "PaginoxObjects1\n";

[[noreturn]] void Unreadable(const std::string& why) {
    throw RuntimeError(kInvalidFileFormat,
                       "The objects on the clipboard cannot be read (" + why + ").");
}

}  // namespace

std::string CopiedObjectsBytes(const std::vector<std::shared_ptr<PageObject>>& objects) {
    ByteWriter count;
    count.Int16(static_cast<int16_t>(objects.size()));
    std::string bytes = std::string(kSignature) + count.Bytes();
    for (const std::shared_ptr<PageObject>& obj : objects) bytes += ObjectRecordBytes(*obj);
    return bytes;
}

std::vector<std::shared_ptr<PageObject>> ReadCopiedObjects(std::string_view bytes) {
    if (bytes.substr(0, kSignature.size()) != kSignature) Unreadable("not Paginox objects");
    bytes.remove_prefix(kSignature.size());
    if (bytes.size() < 2) Unreadable("cut short");
    int16_t count = ByteReader(bytes.substr(0, 2)).Int16();
    bytes.remove_prefix(2);
    size_t record = ObjectRecordLength(kPageFileVersion);
    size_t wanted = size_t(std::max<int16_t>(count, 0)) * record;
    if (count < 1) Unreadable("no objects");
    if (bytes.size() != wanted) Unreadable(bytes.size() < wanted ? "cut short" : "too long");
    std::vector<std::shared_ptr<PageObject>> objects;
    for (int16_t i = 0; i < count; ++i) {
        objects.push_back(ReadObjectRecord(bytes.substr(size_t(i) * record, record)));
        for (int16_t axis = 1; axis <= 2; ++axis) {
            const PageObject& obj = *objects.back();
            if (!std::isfinite(obj.Origin(axis)) || !std::isfinite(obj.Length(axis))) {
                Unreadable("a place or size that is not a number");
            }
        }
    }
    return objects;
}

}  // namespace paginox
