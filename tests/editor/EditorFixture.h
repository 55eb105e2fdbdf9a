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
        box = model.AddClass(1 + 4 + 8 + 2048);  // text lines, angles, points file, title line
        box->SetShape(kShapeBox);
        box->SetFullName("Point List");
        box->SetGroup("Lists");
        box->SetNumCharts(1);
        box->SetDefaultTextLines(10);
        wheel = model.AddClass(8 + 16);
        wheel->SetShape(kShapeCircle);
        wheel->SetFullName("Bi-Wheel");
        wheel->SetGroup("Wheels");
        wheel->SetNumCharts(2);
        triangle = model.AddClass(0);
        triangle->SetShape(kShapeTriangle);
        triangle->SetFullName("Aspect Grid");
        triangle->SetGroup("Aspects");
        triangle->SetNumCharts(1);

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
