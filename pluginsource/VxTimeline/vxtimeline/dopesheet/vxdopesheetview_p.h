#ifndef VXDOPESHEETVIEW_P_H
#define VXDOPESHEETVIEW_P_H

#include "vxtimeline/dopesheet/dopesheetkeycommands.h"
#include "vxtimeline/dopesheet/dopesheetkeyselection.h"
#include "vxtimeline/dopesheet/dopesheetrowselection.h"
#include "vxtimeline/dopesheet/keydrag.h"
#include "vxtimeline/dopesheet/keydragmath.h"
#include "vxtimeline/dopesheet/treeviewstate.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QPersistentModelIndex>
#include <QtCore/QPoint>
#include <QtGui/QRegion>
#include <vxcore/vxundostackhold.h>

class VxGestureGuard;

/// The view's collaborators, each with the state of its job, and the gesture of the left button.
class VxDopeSheetView::Private
{
public:
    explicit Private(VxDopeSheetView *dopeSheetView)
        : view(dopeSheetView)
        , rows(dopeSheetView)
        , treeState(dopeSheetView)
        , keys(dopeSheetView)
        , commands(dopeSheetView, &keys)
    {
        clock.start();
    }

    VxDopeSheetView *view;
    VxGestureGuard *guard = nullptr; // of the viewport
    VxDopeSheetFilterModel *filterModel = nullptr;
    QPersistentModelIndex contextIndex; // also the start of a selection that names no row
    bool monitorsParametersPane = false;

    DopeSheetRowSelection rows;
    TreeViewState treeState;    // over changes of the text filter and of the model
    bool isKeepingRows = false; // rows are closed and deselected by keepRowsDuring()
    /// While the model changes many rows, and the properties that were selected before.
    std::unique_ptr<DopeSheetRowSelection::Hold> manyChanges;
    QVector<VxProperty *> formerProperties;
    DopeSheetKeySelection keys;
    DopeSheetKeyCommands commands;

    /// Where the line of the current time was last painted, and the region being painted; in the
    /// viewport.
    int paintedTimeX = 0;
    QRegion paintedRegion;

    Qt::KeyboardModifiers pressModifiers; // at the last press of the left button
    /// The gesture of the left button in the keys column: a band, unless it can drag keys.
    bool rubberBandActive = false;
    bool keyDragActive = false;
    QPoint pressPoint; // of the rubber band, as the next one; in the viewport
    QPoint currentPoint;
    QRect bandRect;                 // as last painted
    QPersistentModelIndex pressRow; // with a key under the mouse; invalid when there was none
    VxTime hitTime = 0;             // of that key

    /// The keys of a possible drag, and its open hold once it has begun.
    std::unique_ptr<KeyDrag> drag;
    std::unique_ptr<VxUndoStackHold> dragHold;
    bool dragShown = false; // keys have been moved
    QElapsedTimer clock;
    KeyDragMath::DragThrottle throttle;

    /// The hit under the mouse.
    struct RowHit
    {
        QModelIndex row; // invalid without one
        KeyDragMath::Hit kind = KeyDragMath::Hit::Nothing;
        VxTime time = 0; // of the key
    };
    RowHit hitAt(const QPoint &position) const;
    KeyDragMath::Scale dragScale() const;
    void hover(const QPoint &position);

    /// The gesture of the left button, from the press to the release.
    void beginGesture(const QPoint &position);
    void selectPressed(const RowHit &hit, const KeyDragMath::PressEffect &effect);
    void continueGesture(const QPoint &position);
    void growBand();
    void finishGesture(const QPoint &position);
    void abandonGesture();
    void selectClicked(const KeyDragMath::ReleaseEffect &effect);
    void selectBand(const KeyDragMath::ReleaseEffect &effect);
    void selectKeys(const QModelIndex &first, const QModelIndex &last, bool select, VxTime start,
                    VxTime end);
    void deselectAll();
    void openContextMenu(const QPoint &position);

    void prepareDrag();
    VxTime dragOffset() const;
    void showDrag();
    void dropKeys();
    void putKeysBack();

    /// While the model changes many rows they are closed and deselected.
    void beginManyChanges();
    void finishManyChanges();
    void endManyChangesNow() const;

    /// The x of a time's line, in the viewport.
    int timeX(VxTime time) const;
    /// Repaints the area of the current time's line at x, including the ticks in the rows.
    void updateTimeLine(int x) const;
    void paintBehindRows(QPainter *painter);
    void paintRubberBand(QPainter *painter) const;
    void paintHint(QPainter *painter) const;
    void paintName(QPainter *painter, const QStyleOptionViewItem &row, const QRect &cell,
                   const QModelIndex &index) const;
    void paintArrow(QPainter *painter, const QStyleOptionViewItem &row,
                    const QModelIndex &index) const;
};

#endif
