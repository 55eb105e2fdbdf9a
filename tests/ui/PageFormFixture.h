// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The real main window on the offscreen platform, on a copy of a sample page, with the
// sample catalogue, messages recorded and file dialogs answered from a script.

#include <QApplication>
#include <QTest>
#include <deque>
#include <filesystem>
#include <optional>
#include <string>

#include "editor/EditorState.h"
#include "model/ModelState.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"
#include "persist/DefinitionReaders.h"
#include "persist/FileIO_OClass.h"
#include "support/GuiApplication.h"
#include "support/RecordingMessages.h"
#include "support/ScopedAppFolders.h"
#include "support/ScriptedPrinter.h"
#include "ui/EditorDialogs.h"
#include "ui/PageForm.h"
#include "ui/PreviewWidget.h"

namespace paginox::test {

// Runs what the last events queued, and what that queued in turn (an item view commits an
// edit through a queued call, and the list applies it through another).
inline void SettleEvents() {
    for (int i = 0; i < 4; ++i) QApplication::processEvents();
}

// Dialogs answer in order: a file path or a choice, or nothing for Cancel. File dialogs are
// remembered.
class ScriptedDialogs : public EditorDialogs {
  public:
    std::deque<std::optional<std::string>> Answers;
    std::deque<std::optional<int>> Choices;
    std::vector<FileDialogSpec> Shown;
    ScriptedPrinter Printers;

    std::optional<std::string> OpenFile(QWidget*, const FileDialogSpec& request) override {
        Shown.push_back(request);
        return Next(Answers);
    }
    std::optional<std::string> SaveFile(QWidget* w, const FileDialogSpec& request) override {
        return OpenFile(w, request);
    }
    std::optional<int> ChooseItem(QWidget*, const QString&, const QString&,
                                  const QStringList&) override {
        return Next(Choices);
    }
    PrinterAccess& Printer() override { return Printers; }
    std::optional<int> ChooseNumber(QWidget*, const QString&, const QString&, int, int,
                                    int) override {
        return Next(Choices);
    }
    // The layout preview: what it showed, answered with ApproveLayouts.
    bool ApproveLayouts = true;
    std::vector<LayoutView> LayoutShown;
    bool ApproveLayout(QWidget*, const QString&, const QString&,
                       const std::vector<LayoutView>& views) override {
        LayoutShown = views;
        return ApproveLayouts;
    }

  private:
    template <class T>
    static std::optional<T> Next(std::deque<std::optional<T>>& answers) {
        if (answers.empty()) return std::nullopt;
        std::optional<T> a = answers.front();
        answers.pop_front();
        return a;
    }
};

class PageFormFixture {
  public:
    // The sample page "Birth Chart.pag": a wheel, a point list, an aspect grid (a triangle)
    // and a chart data box, on four formats.
    explicit PageFormFixture(const std::string& commandLineExtra = "", bool withFile = true) {
        EnsureGuiApplication<QApplication>();
        const std::string sample = PAGINOX_SAMPLE_DIR;
        Definitions().DefinitionsFolder = sample + "/System/";
        InstallDefinitionReaders();
        LoadObjectClasses(sample + "/System/objects.dfn", ObjectClasses());
        page = folders.Dir() / "Birth Chart.pag";
        std::filesystem::copy_file(sample + "/User Files/Pages/Birth Chart.pag", page);
        form = std::make_unique<PageForm>(state, dialogs);
        form->resize(1200, 860);
        form->Load(commandLineExtra + (withFile ? " \"" + page + "\"" : ""));
        form->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(form.get()));
        QApplication::processEvents();
    }
    ~PageFormFixture() {
        form->hide();
        form.reset();
    }

    template <class T = QAction>
    T* Child(const char* name) {
        return form->findChild<T*>(name);
    }
    PreviewWidget* Preview() { return form->Preview(); }
    PageObject& Object(int16_t k) { return *state.CurrentFormat->Object(k); }
    const PageObjectClass& Class(int16_t k) { return state.CurrentFormat->POClass(k); }
    // The first object of the current format whose class has that shape.
    int16_t FirstOfShape(int16_t shape) {
        for (int16_t k = 1; k <= state.CurrentFormat->NumObjects(); ++k) {
            if (Class(k).Shape() == shape) return k;
        }
        return 0;
    }
    const RectClass& Rect(int16_t k) { return state.Rects.Object(k); }
    // A point inside object k that no later object covers: its shape's inner corner area.
    QPoint Inside(int16_t k) {
        const RectClass& r = Rect(k);
        if (Class(k).Shape() == kShapeTriangle) return {r.Left() + 4, r.Bottom() - 4};
        return {r.CenterX(), r.CenterY()};
    }
    // A click on object k (0: on the grey around the page).
    void Click(int16_t k, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(Preview(), button, {}, k ? Inside(k) : QPoint(3, 3));
    }
    void Trigger(const char* action) {
        if (QAction* a = Child(action)) a->trigger();
        QApplication::processEvents();
    }
    // A press, a move in two steps and a release with the left button, keys held throughout
    // (Alt: no snapping).
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QTest::mousePress(Preview(), Qt::LeftButton, keys, from);
        MoveHeld((from + to) / 2, keys);
        MoveHeld(to, keys);
        QTest::mouseRelease(Preview(), Qt::LeftButton, keys, to);
        QApplication::processEvents();
    }
    void MoveHeld(QPoint at, Qt::KeyboardModifiers keys) {
        QMouseEvent move(QEvent::MouseMove, QPointF(at), Preview()->mapToGlobal(QPointF(at)),
                         Qt::NoButton, Qt::LeftButton, keys);
        QApplication::sendEvent(Preview(), &move);
    }
    // Hovers with no button held, as the pointer passing over the preview does.
    void Hover(QPoint at) {
        QMouseEvent move(QEvent::MouseMove, QPointF(at), Preview()->mapToGlobal(QPointF(at)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(Preview(), &move);
    }

    ScopedModelState model;
    ScopedAppFolders folders;
    RecordingMessages messages;
    ScriptedDialogs dialogs;
    EditorState state;
    std::string page;
    std::unique_ptr<PageForm> form;
};

}  // namespace paginox::test
