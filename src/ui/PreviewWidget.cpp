// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PreviewWidget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>

#include "core/Rounding.h"
#include "editor/EditorState.h"
#include "editor/Manipulation.h"
#include "editor/QtText.h"
#include "editor/Selection.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"
#include "render/PreviewRefresh.h"
#include "render/QtSurface.h"

namespace paginox {

namespace {

// The margin frame leaves this colour in force; the marks are drawn in it.
constexpr int32_t kMarkColour = Rgb(192, 192, 192);

Qt::CursorShape CursorFor(int16_t pointer) {
    switch (pointer) {
        case kPointerSizeAll:
            return Qt::SizeAllCursor;
        case kPointerSizeNESW:
            return Qt::SizeBDiagCursor;
        case kPointerSizeNS:
            return Qt::SizeVerCursor;
        case kPointerSizeWE:
            return Qt::SizeHorCursor;
        default:
            return Qt::ArrowCursor;
    }
}

}  // namespace

PreviewWidget::PreviewWidget(EditorState& state, QWidget* parent) : QWidget(parent), state_(state) {
    setObjectName("Preview");
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(200, 150);
}

QColor PreviewWidget::BackColour() {
    return QColor(RedOf(kPreviewBackColour), GreenOf(kPreviewBackColour),
                  BlueOf(kPreviewBackColour));
}

RectClass PreviewWidget::WidgetScale() const {
    RectClass scale;
    scale.InitTo(0, 0, width(), height());
    return scale;
}

QRect PreviewWidget::InView() const {
    QWidget* viewport = parentWidget();
    if (!viewport) return rect();
    return rect() & QRect(-pos(), viewport->size());
}

void PreviewWidget::Redraw() {
    DrawPage();
    outline_.reset();
    moveOutlines_.clear();
    update();
}

void PreviewWidget::DrawPage() {
    qreal ratio = devicePixelRatioF();
    QRect shown = InView();
    QPixmap pixmap(shown.size() * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(BackColour());
    std::string note;
    bool marksShown = false;
    if (state_.Page && state_.CurrentFormat && !shown.isEmpty()) {
        try {
            // Drawn on the whole widget's scale, of which the pixmap keeps the part in view.
            QPainter painter(&pixmap);
            painter.translate(-shown.topLeft());
            QtSurface surface(painter, WidgetScale());
            PreviewDrawing drawing =
                RefreshPreview(surface, state_.Page->NumCharts(), state_.CurrentFormat.get(), true,
                               state_.SelectedObject, state_.Rects, state_.SelectionMarks);
            note = PreviewNote(drawing.Problems);
            marksShown = drawing.MarksDrawn;
        } catch (const std::exception& e) {
            // Whatever else goes wrong, the preview stays empty and says why.
            pixmap.fill(BackColour());
            state_.Rects = PreviewRects{};
            note = std::string("The page cannot be drawn: ") + e.what();
        }
    }
    pageOrigin_ = shown.topLeft();
    page_ = pixmap;
    state_.MarksShown = marksShown;
    if (!marksShown && !mouseIsDown_) dragMode_ = kDragNone;
    if (FromAnsi(note) != drawNote_) {
        drawNote_ = FromAnsi(note);
        emit drawNoteChanged(drawNote_);
    }
}

void PreviewWidget::DrawMarksDirectly() {
    std::shared_ptr<PageObject> obj = state_.Selected();
    if (!obj || state_.SelectedObject > state_.Rects.ObjectCount() ||
        !state_.Rects.IsPlaced(state_.SelectedObject)) {
        return;
    }
    state_.SelectionMarks.PlaceFor(state_.Rects.Object(state_.SelectedObject),
                                   obj->POClass().Shape());
    QPainter painter(&page_);
    painter.translate(-pageOrigin_);
    QtSurface surface(painter, WidgetScale());
    surface.SetForeColor(kMarkColour);
    state_.SelectionMarks.Draw(surface);
    state_.MarksShown = true;
    update();
}

void PreviewWidget::AbandonDrag() {
    EndDrag();
    Redraw();
    SetPointer(kPointerDefault);
}

void PreviewWidget::EndDrag() {
    downX_ = 0;
    downY_ = 0;
    dragMode_ = kDragNone;
    mouseIsDown_ = false;
    outline_.reset();
    moveOutlines_.clear();
    band_.reset();
    banding_ = false;
    targets_.reset();
    choiceOnRelease_ = 0;
}

void PreviewWidget::SetPointer(int16_t pointer) {
    setCursor(CursorFor(pointer));
}

void PreviewWidget::resizeEvent(QResizeEvent*) {
    Redraw();
}

bool PreviewWidget::event(QEvent* event) {
    // Tab steps through the objects here instead of moving the focus on.
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        bool tab = key->key() == Qt::Key_Tab;
        if (tab || key->key() == Qt::Key_Backtab) {
            // Ctrl+Tab leaves the preview, as it leaves a text box.
            if (key->modifiers() & Qt::ControlModifier) {
                focusNextPrevChild(tab && !(key->modifiers() & Qt::ShiftModifier));
            } else {
                emit neighbourRequested(tab);
            }
            return true;
        }
    }
    return QWidget::event(event);
}

bool PreviewWidget::FollowAlt(QKeyEvent* event, bool held) {
    if (event->key() != Qt::Key_Alt || !mouseIsDown_ || !targets_) return false;
    Qt::KeyboardModifiers keys = event->modifiers() & ~Qt::AltModifier;
    FollowDrag(float(dragAt_.x()), float(dragAt_.y()), held ? keys | Qt::AltModifier : keys);
    update();
    return true;
}

void PreviewWidget::keyReleaseEvent(QKeyEvent* event) {
    if (!FollowAlt(event, false)) QWidget::keyReleaseEvent(event);
}

void PreviewWidget::keyPressEvent(QKeyEvent* event) {
    if (FollowAlt(event, true)) return;
    if (event->key() == Qt::Key_Escape && mouseIsDown_) {
        AbandonDrag();  // the drag or band is let go; nothing changes
        return;
    }
    int step = event->modifiers() & Qt::ShiftModifier ? 10 : 1;
    int dx = 0;
    int dy = 0;
    switch (event->key()) {
        case Qt::Key_Left:
            dx = -step;
            break;
        case Qt::Key_Right:
            dx = step;
            break;
        case Qt::Key_Up:
            dy = -step;
            break;
        case Qt::Key_Down:
            dy = step;
            break;
        default:
            break;
    }
    // Without a selection the arrows go on to the scroll area, which scrolls.
    if ((dx || dy) && state_.Selected() && !mouseIsDown_) {
        emit nudgeRequested(dx, dy);
        return;
    }
    QWidget::keyPressEvent(event);
}

void PreviewWidget::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier) || event->angleDelta().y() == 0) {
        event->ignore();  // the scroll area scrolls
        return;
    }
    emit zoomRequested(event->angleDelta().y() > 0, event->position());
}

void PreviewWidget::leaveEvent(QEvent*) {
    emit pointerMoved(QPointF(-1, -1));
}

void PreviewWidget::focusOutEvent(QFocusEvent* event) {
    emit focusLost();
    QWidget::focusOutEvent(event);
}

void PreviewWidget::mousePressEvent(QMouseEvent* event) {
    if (mouseIsDown_ && event->button() != Qt::LeftButton) {
        AbandonDrag();  // another button during a drag or band lets go of it
        return;
    }
    if (event->button() == Qt::MiddleButton) {
        panFrom_ = event->globalPosition().toPoint();
        setCursor(Qt::ClosedHandCursor);
        return;
    }
    float x = static_cast<float>(event->position().x());
    float y = static_cast<float>(event->position().y());
    bool right = event->button() == Qt::RightButton;
    if (dragMode_ >= 2 && !right) {
        // A handle was under the pointer: the press starts a resize of the selection.
        downX_ = x;
        downY_ = y;
        mouseIsDown_ = true;
        return;
    }
    emit pressed();
    if (!right) {
        PressLeft(x, y, event->modifiers());
        return;
    }
    int16_t hit = HitTestObjects(state_, x, y);
    if (hit == 0) return;
    // The menu acts on the selection the object is in, led by it, or on the object alone.
    MakePrimary(state_, hit);
    emit selectionMade();
    emit popupRequested(event->globalPosition().toPoint());
}

void PreviewWidget::PressLeft(float x, float y, Qt::KeyboardModifiers modifiers) {
    int16_t hit = HitTestObjects(state_, x, y);
    bool adding = modifiers & (Qt::ShiftModifier | Qt::ControlModifier);
    if (adding && hit != 0) {
        ToggleSelected(state_, hit);
    } else if (hit != 0 && state_.IsSelected(hit) && state_.SelectedObjects().size() > 1) {
        choiceOnRelease_ = hit;  // the press may start a move of them all
    } else if (!adding) {
        state_.SelectOnly(hit);
    }
    if (hit == 0) {
        if (!adding) state_.PreviousSelectedObject = 0;
        dragMode_ = kDragNone;
        banding_ = true;
    } else {
        dragMode_ = state_.IsSelected(hit) ? int16_t(kDragMove) : int16_t(kDragNone);
    }
    downX_ = x;
    downY_ = y;
    // Marked down before the selection is shown: the refresh it causes keeps the drag.
    mouseIsDown_ = true;
    emit selectionMade();
}

RectClass PreviewWidget::Band(float x, float y) const {
    RectClass band;
    band.InitTo(ToInt32(std::min(x, downX_)), ToInt32(std::min(y, downY_)),
                ToInt32(std::fabs(x - downX_)), ToInt32(std::fabs(y - downY_)));
    return band;
}

void PreviewWidget::FollowDrag(float x, float y, Qt::KeyboardModifiers modifiers) {
    dragAt_ = QPointF(x, y);
    if (!targets_) targets_.emplace(state_, dragMode_);
    SnapSettings settings = snapping_;
    if (modifiers & Qt::AltModifier) settings.Objects = settings.ToGrid = false;
    snap_ =
        SnapDrag(state_, *targets_, settings, dragMode_, ToInt32(x - downX_), ToInt32(y - downY_));
    if (dragMode_ == kDragMove) {
        std::vector<MovedObject> moved =
            MovedSelection(state_, float(snap_.Dx), float(snap_.Dy), &snap_);
        std::vector<RectClass> outlines = MovedOutlines(state_, moved);
        moveOutlines_.clear();
        for (size_t i = 0; i < moved.size(); ++i) {
            moveOutlines_.emplace_back(outlines[i],
                                       state_.CurrentFormat->POClass(moved[i].Object).Shape());
        }
    } else {
        outlineShape_ = state_.Selected()->POClass().Shape();
        outline_ = LandedOutline(state_, dragMode_, float(snap_.Dx), float(snap_.Dy), &snap_);
    }
}

void PreviewWidget::mouseMoveEvent(QMouseEvent* event) {
    emit pointerMoved(event->position());
    if (panFrom_) {
        QPoint now = event->globalPosition().toPoint();
        emit panRequested(*panFrom_ - now);
        panFrom_ = now;
        return;
    }
    float x = static_cast<float>(event->position().x());
    float y = static_cast<float>(event->position().y());
    if (banding_ && mouseIsDown_ && (event->buttons() & Qt::LeftButton)) {
        band_ = Band(x, y);
        update();
        return;
    }
    std::shared_ptr<PageObject> obj = state_.Selected();
    if (!obj) return;
    if (event->buttons() == Qt::NoButton) {
        int16_t mark = state_.MarksShown ? MarkAt(state_.SelectionMarks, x, y) : int16_t(kDragNone);
        dragMode_ = mark;
        SetPointer(mark >= 2 ? PointerFor(mark) : int16_t(kPointerDefault));
        return;
    }
    if (!(event->buttons() & Qt::LeftButton) || !mouseIsDown_ || dragMode_ == kDragNone) return;
    if (state_.SelectedObject > state_.Rects.ObjectCount()) return;
    if (dragMode_ == kDragMove) SetPointer(kPointerSizeAll);
    FollowDrag(x, y, event->modifiers());
    update();
}

void PreviewWidget::FinishBand(float x, float y, Qt::KeyboardModifiers modifiers) {
    bool adding = modifiers & (Qt::ShiftModifier | Qt::ControlModifier);
    bool dragged = !IsClick(x - downX_, y - downY_);
    RectClass band = Band(x, y);
    EndDrag();
    if (dragged) {
        SelectTouching(state_, band, adding);
        emit selectionMade();
    }
    update();
}

void PreviewWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton && panFrom_) {
        panFrom_.reset();
        SetPointer(kPointerDefault);
        return;
    }
    float x = static_cast<float>(event->position().x());
    float y = static_cast<float>(event->position().y());
    if (event->button() == Qt::LeftButton && banding_) {
        FinishBand(x, y, event->modifiers());
        return;
    }
    if (event->button() != Qt::LeftButton || state_.SelectedObject < 1 || !mouseIsDown_) {
        if (event->button() == Qt::LeftButton) EndDrag();
        return;
    }
    float dx = x - downX_;
    float dy = y - downY_;
    int16_t mode = dragMode_;
    int16_t choice = choiceOnRelease_;
    if (!IsClick(dx, dy) && mode != kDragNone) FollowDrag(x, y, event->modifiers());
    EndDrag();
    if (IsClick(dx, dy) || mode == kDragNone) {
        if (choice != 0 && IsClick(dx, dy)) {
            state_.SelectOnly(choice);
            emit selectionMade();
        }
        update();
        DrawMarksDirectly();
        return;
    }
    emit dragFinished(mode, float(snap_.Dx), float(snap_.Dy));
}

}  // namespace paginox
