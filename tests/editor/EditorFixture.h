// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// An editor state on a small page for tests: a catalogue of a few classes (box, wheel,
// triangle), one 800 by 600 format with one object of each, and their preview rectangles.

#include <memory>

#include "editor/EditorState.h"
#include "model/ModelState.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"

namespace paginox::test {

class EditorFixture {
  public:
    EditorFixture() {
        auto add = [&](int32_t flags, int16_t shape, const char* name, const char* group,
                       int16_t charts) {
            auto cls = model.AddClass(flags);
            cls->SetShape(shape), cls->SetFullName(name), cls->SetGroup(group);
            cls->SetNumCharts(charts);
            return cls;
        };
        // Text lines, angles, points file and title line; points and aspects files; nothing.
        box = add(1 + 4 + 8 + 2048, kShapeBox, "Point List", "Lists", 1);
        box->SetDefaultTextLines(10);
        wheel = add(8 + 16, kShapeCircle, "Bi-Wheel", "Wheels", 2);
        triangle = add(0, kShapeTriangle, "Aspect Grid", "Aspects", 1);

        state.Page = std::make_shared<PageClass>();
        state.Page->InitNewPage();
        state.SetCurrentFormat(1);
        for (auto& cls : {box, wheel, triangle}) {
            state.CurrentFormat->AddObject(cls->CreateInstance(state.CurrentFormat.get()));
        }
        state.Page->SetNumCharts(state.Page->MaxNumCharts());
        state.MarkSaved();
        // A margin rectangle of 400 by 300 pixels at (100, 50); objects side by side.
        state.Rects.Margin.InitTo(100, 50, 400, 300);
        state.Rects.Page.InitTo(96, 47, 408, 306);
        state.Rects.Objects.resize(3);
        state.Rects.Objects[0].InitTo(120, 60, 100, 80);    // box
        state.Rects.Objects[1].InitTo(200, 100, 120, 100);  // wheel, overlapping the box
        state.Rects.Objects[2].InitTo(350, 200, 100, 100);  // triangle
    }

    PageObject& Object(int16_t k) { return *state.CurrentFormat->Object(k); }

    ScopedModelState model;
    std::shared_ptr<PageObjectClass> box, wheel, triangle;
    EditorState state;
};

}  // namespace paginox::test
