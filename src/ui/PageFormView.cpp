// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PageForm.h"

// The main window's view of the page: zoom and scrolling, the keys that act on the preview's
// selection, and the status bar's readouts.

#include <QAction>
#include <QCursor>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>

#include "editor/EditorState.h"
#include "editor/Manipulation.h"
#include "editor/PreviewReadout.h"
#include "editor/QtText.h"
#include "model/PageFormat.h"
#include "render/PageDraw.h"
#include "ui/PreviewWidget.h"
#include "ui/PropertyPanel.h"

namespace paginox {

namespace {

// A run of arrow presses ends after this pause; the next press starts a new undo step.
constexpr int kNudgeRunMs = 1000;
// How long a passing note stays in the status bar.
constexpr int kNoteMs = 8000;

SurfaceSize SizeOf(const QWidget* widget) {
    return SurfaceSize{widget->width(), widget->height()};
}

}  // namespace

void PageForm::ConnectPreview() {
    connect(preview_, &PreviewWidget::pressed, this, [this] {
        EndNudgeRun();
        CommitPendingEdits();  // before the press changes the selection
        properties_->EditColumnsButton()->setEnabled(false);
    });
    connect(preview_, &PreviewWidget::selectionMade, this,
            [this] { Guard("Selecting the object", [this] { PreviewSelectionMade(); }); });
    connect(preview_, &PreviewWidget::dragFinished, this, [this](int16_t mode, float dx, float dy) {
        Guard("Moving the object", [=, this] { PreviewDragFinished(mode, dx, dy); });
    });
    connect(preview_, &PreviewWidget::popupRequested, this,
            [this](const QPoint& pos) { PreviewPopup(pos); });
    connect(preview_, &PreviewWidget::drawNoteChanged, this, [this](const QString& note) {
        drawNote_->setText(note);
        drawNote_->setToolTip(note);
        drawNote_->setVisible(!note.isEmpty());
    });
    connect(preview_, &PreviewWidget::pointerMoved, this, [this](const QPointF& pos) {
        pointerReadout_->setText(FromAnsi(PointerReadout(state_, float(pos.x()), float(pos.y()))));
    });
    connect(preview_, &PreviewWidget::zoomRequested, this, [this](bool in, const QPointF& pos) {
        Guard("Zoom", [=, this] {
            ZoomTo([=, this] { in ? zoom_.StepIn(ShownZoom()) : zoom_.StepOut(ShownZoom()); }, pos);
        });
    });
    connect(preview_, &PreviewWidget::panRequested, this, [this](const QPoint& delta) {
        scroll_->horizontalScrollBar()->setValue(scroll_->horizontalScrollBar()->value() +
                                                 delta.x());
        scroll_->verticalScrollBar()->setValue(scroll_->verticalScrollBar()->value() + delta.y());
    });
    connect(preview_, &PreviewWidget::nudgeRequested, this, [this](int dx, int dy) {
        RunGuarded("Moving the object", [=, this] { Nudge(dx, dy); });
    });
    connect(preview_, &PreviewWidget::neighbourRequested, this, [this](bool forward) {
        Guard("Selecting the object", [=, this] { SelectNeighbour(forward); });
    });
    connect(preview_, &PreviewWidget::focusLost, this, [this] { EndNudgeRun(); });
    // Only the part in view is drawn: scrolling brings the rest.
    preview_->installEventFilter(this);
    for (QScrollBar* bar : {scroll_->horizontalScrollBar(), scroll_->verticalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, preview_, &PreviewWidget::Redraw);
        connect(bar, &QScrollBar::valueChanged, this,
                [this] { ShowPointer(PointerOnPreview().value_or(QPointF(-1, -1))); });
    }
    nudgeEnd_.setSingleShot(true);
    nudgeEnd_.setInterval(kNudgeRunMs);
    connect(&nudgeEnd_, &QTimer::timeout, this, [this] { EndNudgeRun(); });
}

double PageForm::ShownZoom() const {
    return state_.CurrentFormat ? ShownFactor(*state_.CurrentFormat, SizeOf(preview_)) : 0;
}

std::optional<QPointF> PageForm::PointerOnPreview() const {
    QPoint inView = scroll_->viewport()->mapFromGlobal(QCursor::pos());
    if (!scroll_->viewport()->rect().contains(inView)) return std::nullopt;
    return QPointF(preview_->mapFromGlobal(QCursor::pos()));
}

void PageForm::SizePreview() {
    const PageFormat* format = state_.CurrentFormat.get();
    if (zoom_.Fits() || !format) {
        scroll_->setWidgetResizable(true);
        return;
    }
    scroll_->setWidgetResizable(false);
    SurfaceSize size = zoom_.Surface(*format, SizeOf(scroll_->viewport()));
    preview_->resize(size.Width, size.Height);
}

void PageForm::ZoomTo(const std::function<void()>& change, std::optional<QPointF> about) {
    // The point of the page under `about` (else the middle of the view) stays where it is.
    QPointF onPreview = about.value_or(
        QPointF(preview_->mapFrom(scroll_->viewport(), scroll_->viewport()->rect().center())));
    QPointF inView = preview_->mapTo(scroll_->viewport(), onPreview.toPoint());
    RectClass oldPage = state_.Rects.Page;
    QSize oldSize = preview_->size();
    change();
    SizePreview();
    if (preview_->size() == oldSize) preview_->Redraw();  // else its resize redrew it
    SurfacePointF now = SamePlaceOnPage({onPreview.x(), onPreview.y()}, oldPage, state_.Rects.Page);
    scroll_->horizontalScrollBar()->setValue(int(now.X - inView.x()));
    scroll_->verticalScrollBar()->setValue(int(now.Y - inView.y()));
    ShowZoom();
    ShowPointer(PointerOnPreview().value_or(QPointF(-1, -1)));
}

void PageForm::ShowPointer(const QPointF& onPreview) {
    pointerReadout_->setText(
        FromAnsi(PointerReadout(state_, float(onPreview.x()), float(onPreview.y()))));
}

void PageForm::ShowNote(const QString& text) {
    int room = statusBar()->width() - 48;
    for (QWidget* beside :
         {static_cast<QWidget*>(pointerReadout_), static_cast<QWidget*>(zoomReadout_),
          statusBar()->findChild<QWidget*>("lblDemoData")}) {
        if (beside && beside->isVisible()) room -= beside->width();
    }
    // Shortened in the middle: a path keeps its start and the file's name.
    QString shown =
        statusBar()->fontMetrics().elidedText(text, Qt::ElideMiddle, std::max(room, 80));
    statusBar()->showMessage(shown, kNoteMs);
}

void PageForm::ShowZoom() {
    QString percent = QString::number(std::lround(ShownZoom() * 100)) + "%";
    zoomReadout_->setText(zoom_.Fits() ? "Fit (" + percent + ")" : percent);
}

void PageForm::ShowSelectionReadout() {
    selectionReadout_->setText(FromAnsi(SelectionReadout(state_)));
}

void PageForm::Nudge(int dx, int dy) {
    if (!state_.Selected()) return;
    if (!nudge_) nudge_ = std::make_unique<EditStep>(history_);
    nudgeEnd_.start();
    NudgeSelected(state_, *nudge_, dx, dy);
    RefreshUI(true);
    PreviewSelectionMade();
}

void PageForm::EndNudgeRun() {
    if (!nudge_) return;
    nudgeEnd_.stop();
    nudge_.reset();  // closes the run's undo step
    UpdateUndoMenus();
}

void PageForm::SelectNeighbour(bool forward) {
    int16_t count = state_.CurrentFormat ? state_.CurrentFormat->NumObjects() : 0;
    state_.SelectOnly(NeighbourObject(state_.SelectedObject, count, forward));
    PreviewSelectionMade();
}

bool PageForm::eventFilter(QObject* watched, QEvent* event) {
    if (watched == preview_ && event->type() == QEvent::Resize) ShowZoom();
    return QMainWindow::eventFilter(watched, event);
}

}  // namespace paginox
