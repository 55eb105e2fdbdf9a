// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PreviewWidget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "core/Rounding.h"
#include "editor/EditorState.h"
#include "editor/Manipulation.h"
#include "editor/QtText.h"
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
constexpr int32_t kDragOutlineColour = Rgb(0, 0, 0);

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
}

void PreviewWidget::SetPointer(int16_t pointer) {
    setCursor(CursorFor(pointer));
}

void PreviewWidget::paintEvent(QPaintEvent*) {
    // The view may have grown since the last drawing (scroll bars gone, say): draw what it shows.
    if (QRect(pageOrigin_, page_.deviceIndependentSize().toSize()) != InView()) DrawPage();
    QPainter painter(this);
    painter.drawPixmap(pageOrigin_, page_);
    if (!outline_) return;
    QtSurface surface(painter, WidgetScale());
    surface.SetDrawWidth(1);
    surface.SetDrawStyle(kLineDash);
    surface.SetFillStyle(kFillTransparent);
    surface.SetForeColor(kDragOutlineColour);
    outline_->DrawShape(surface, outlineShape_);
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

void PreviewWidget::keyPressEvent(QKeyEvent* event) {
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
    int16_t hit = HitTestObjects(state_, x, y);
    if (right) {
        if (hit == 0) return;
        state_.SelectedObject = hit;
        emit selectionMade();
        emit popupRequested(event->globalPosition().toPoint());
        return;
    }
    state_.SelectedObject = hit;
    if (hit == 0) {
        state_.PreviousSelectedObject = 0;
        dragMode_ = kDragNone;
    } else {
        dragMode_ = kDragMove;
    }
    downX_ = x;
    downY_ = y;
    // Marked down before the selection is shown: the refresh it causes keeps the drag.
    mouseIsDown_ = true;
    emit selectionMade();
}

void PreviewWidget::mouseMoveEvent(QMouseEvent* event) {
    emit pointerMoved(event->position());
    if (panFrom_) {
        QPoint now = event->globalPosition().toPoint();
        emit panRequested(*panFrom_ - now);
        panFrom_ = now;
        return;
    }
    std::shared_ptr<PageObject> obj = state_.Selected();
    if (!obj) return;
    float x = static_cast<float>(event->position().x());
    float y = static_cast<float>(event->position().y());
    if (event->buttons() == Qt::NoButton) {
        int16_t mark = state_.MarksShown ? MarkAt(state_.SelectionMarks, x, y) : int16_t(kDragNone);
        dragMode_ = mark;
        SetPointer(mark >= 2 ? PointerFor(mark) : int16_t(kPointerDefault));
        return;
    }
    if (!(event->buttons() & Qt::LeftButton) || !mouseIsDown_ || dragMode_ == kDragNone) return;
    if (state_.SelectedObject > state_.Rects.ObjectCount()) return;
    if (dragMode_ == kDragMove) SetPointer(kPointerSizeAll);
    outlineShape_ = obj->POClass().Shape();
    outline_ = LandedOutline(state_, dragMode_, x - downX_, y - downY_);
    update();
}

void PreviewWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton && panFrom_) {
        panFrom_.reset();
        SetPointer(kPointerDefault);
        return;
    }
    if (event->button() != Qt::LeftButton || state_.SelectedObject < 1 || !mouseIsDown_) {
        if (event->button() == Qt::LeftButton) EndDrag();
        return;
    }
    float dx = static_cast<float>(event->position().x()) - downX_;
    float dy = static_cast<float>(event->position().y()) - downY_;
    int16_t mode = dragMode_;
    EndDrag();
    if (IsClick(dx, dy)) {
        update();
        DrawMarksDirectly();
        return;
    }
    emit dragFinished(mode, dx, dy);
}

}  // namespace paginox
