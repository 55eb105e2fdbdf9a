// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The preview picture box: the current format drawn once into a pixmap, with the drag
// outline painted over it while an object is moved or resized. It turns mouse events into
// selections and reports a finished drag; the window makes the change. Zoomed, it is larger
// than the window and scrolled: only the part in view is drawn.

#include <QColor>
#include <QPixmap>
#include <QWidget>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "editor/Snapping.h"
#include "model/RectClass.h"

namespace paginox {

class EditorState;

class PreviewWidget : public QWidget {
    Q_OBJECT

  public:
    explicit PreviewWidget(EditorState& state, QWidget* parent = nullptr);

    // Draws the current format afresh (the refresh rules of the render layer).
    void Redraw();
    // Places the selected object's marks and draws them over the drawn page.
    void DrawMarksDirectly();
    // Forgets the mouse operation under way and shows the page without its outline.
    void AbandonDrag();

    int16_t DragMode() const { return dragMode_; }
    // How drags snap, and whether the grid is drawn; the window keeps them.
    SnapSettings& Snapping() { return snapping_; }
    // How the drag just finished snapped: its offset and the lines it met.
    const DragSnap& FinishedSnap() const { return snap_; }
    bool MouseIsDown() const { return mouseIsDown_; }
    // The drawn page, as the user sees it without the drag outline: the part in view.
    const QPixmap& PagePixmap() const { return page_; }
    // The grey around the page.
    static QColor BackColour();
    // What the last drawing could not show, for the status bar; empty when all was drawn.
    const QString& DrawNote() const { return drawNote_; }

  signals:
    // A press or a band chose the selection (SelectedObject 0: none); the window shows it.
    void selectionMade();
    // A right-button press selected an object: its menu is wanted at the global position.
    void popupRequested(const QPoint& globalPos);
    // A press started on the preview: the column editor no longer applies.
    void pressed();
    // The button went up after a drag of the selection (or a handle of the selected object)
    // by (dx, dy) pixels, snapped as FinishedSnap says.
    void dragFinished(int16_t dragMode, float dx, float dy);
    // The last drawing left a different note (DrawNote).
    void drawNoteChanged(const QString& note);
    // The pointer moved to pos (off the widget: (-1, -1)).
    void pointerMoved(const QPointF& pos);
    // Ctrl+wheel: one step in or out, about pos.
    void zoomRequested(bool in, const QPointF& pos);
    // A drag with the middle button: the view should move by delta (screen pixels).
    void panRequested(const QPoint& delta);
    // Arrow keys: the selected object is to move by (dx, dy) format pixels.
    void nudgeRequested(int dx, int dy);
    // Tab and Shift+Tab: the next or previous object is to be selected.
    void neighbourRequested(bool forward);
    void focusLost();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    // A left press: on an object, chosen (added or removed with Shift or Ctrl) and ready to
    // move; on the empty page, a band starts.
    void PressLeft(float x, float y, Qt::KeyboardModifiers modifiers);
    // The drag's place at the pointer: snapped unless Alt is held.
    void FollowDrag(float x, float y, Qt::KeyboardModifiers modifiers);
    // Alt pressed or let go during a drag: the outline snaps again, or lets go, at once.
    bool FollowAlt(QKeyEvent* event, bool held);
    void FinishBand(float x, float y, Qt::KeyboardModifiers modifiers);
    RectClass Band(float x, float y) const;
    // What is painted over the drawn page: grid, other selected objects, band, drag outlines,
    // guides.
    void PaintOverlay(QPainter& painter);
    void SetPointer(int16_t pointer);
    void EndDrag();
    // Draws the part in view into the pixmap, leaving the drag outline alone.
    void DrawPage();
    // The part of the widget in view of its scroll area (the whole widget without one).
    QRect InView() const;
    // The widget's own pixels, the scale every drawing on it uses.
    RectClass WidgetScale() const;

    EditorState& state_;
    QPixmap page_;
    QPoint pageOrigin_;
    std::optional<QPoint> panFrom_;  // global, while the middle button drags
    QString drawNote_;
    int16_t dragMode_ = 0;
    float downX_ = 0;
    float downY_ = 0;
    QPointF dragAt_;  // where the pointer was at the drag's last step
    bool mouseIsDown_ = false;
    std::optional<RectClass> outline_;  // where a resized object would land
    int16_t outlineShape_ = 0;
    // Where moved objects would land, with their shapes.
    std::vector<std::pair<RectClass, int16_t>> moveOutlines_;
    std::optional<RectClass> band_;  // the band being drawn, in widget pixels
    bool banding_ = false;
    // A plain click on an object of several selected chooses it alone, once the button is up.
    int16_t choiceOnRelease_ = 0;
    SnapSettings snapping_;
    std::optional<SnapTargets> targets_;  // gathered at a drag's first step
    DragSnap snap_;
};

}  // namespace paginox
