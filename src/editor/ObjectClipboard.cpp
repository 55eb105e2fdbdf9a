// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ObjectClipboard.h"

#include <algorithm>

#include "core/MessageService.h"
#include "core/RuntimeError.h"
#include "editor/EditorState.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClasses.h"
#include "persist/ByteStream.h"
#include "persist/FileIO_Page.h"
#include "persist/PageJson.h"

namespace paginox {

namespace {

// Our form: this signature, the object count (16-bit), then one record per object.
constexpr std::string_view kSignature = "PaginoxObjects1\n";

[[noreturn]] void Unreadable(const std::string& why) {
    throw RuntimeError(kInvalidFileFormat,
                       "The objects on the clipboard cannot be read (" + why + ").");
}

}  // namespace

CopiedObjects CopySelectedObjects(const EditorState& state) {
    std::vector<std::shared_ptr<PageObject>> objects;
    for (int16_t k : state.SelectedObjects()) objects.push_back(state.CurrentFormat->Object(k));
    if (objects.empty()) return {};
    ByteWriter count;
    count.Int16(static_cast<int16_t>(objects.size()));
    std::string bytes = std::string(kSignature) + count.Bytes();
    for (const std::shared_ptr<PageObject>& obj : objects) bytes += ObjectRecordBytes(*obj);
    return {bytes, ObjectsJson(objects)};
}

std::vector<std::shared_ptr<PageObject>> ReadCopiedObjects(std::string_view bytes) {
    if (bytes.substr(0, kSignature.size()) != kSignature) Unreadable("not Paginox objects");
    bytes.remove_prefix(kSignature.size());
    if (bytes.size() < 2) Unreadable("cut short");
    int16_t count = ByteReader(bytes.substr(0, 2)).Int16();
    bytes.remove_prefix(2);
    size_t record = ObjectRecordLength(kPageFileVersion);
    if (count < 1 || bytes.size() != size_t(count) * record) {
        Unreadable(bytes.size() < size_t(std::max<int16_t>(count, 0)) * record ? "cut short"
                                                                                : "a wrong length");
    }
    std::vector<std::shared_ptr<PageObject>> objects;
    for (int16_t i = 0; i < count; ++i) {
        objects.push_back(ReadObjectRecord(bytes.substr(size_t(i) * record, record)));
    }
    return objects;
}

bool PasteObjects(EditorState& state, const std::vector<std::shared_ptr<PageObject>>& objects) {
    if (!state.CurrentFormat || !state.Page || objects.empty()) return false;
    for (const std::shared_ptr<PageObject>& obj : objects) {
        if (!IsKnownClass(obj->ObjectClassID())) {
            ShowMessage("The clipboard holds an object of class " +
                            std::to_string(obj->ObjectClassID()) +
                            ", which is not in this installation's object catalogue. Nothing "
                            "was pasted.",
                        "Paste", MsgIcon::Exclamation);
            return false;
        }
    }
    if (state.CurrentFormat->NumObjects() + objects.size() > size_t(INT16_MAX)) {
        ShowMessage("The page size cannot hold that many more objects. Nothing was pasted.",
                    "Paste", MsgIcon::Exclamation);
        return false;
    }
    ObjectSelection pasted;
    for (const std::shared_ptr<PageObject>& obj : objects) {
        state.CurrentFormat->AddObject(obj->Clone());
        if (obj->NumCharts() > state.Page->NumCharts()) state.Page->SetNumCharts(obj->NumCharts());
        int16_t added = state.CurrentFormat->NumObjects();
        if (pasted.Primary == 0) {
            pasted.Primary = added;
        } else {
            pasted.Others.push_back(added);
        }
    }
    state.GrowObjectRects();
    state.Select(pasted);
    return true;
}

}  // namespace paginox
