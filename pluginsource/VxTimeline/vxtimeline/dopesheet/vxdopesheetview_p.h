#ifndef VXDOPESHEETVIEW_P_H
#define VXDOPESHEETVIEW_P_H

#include <QtCore/QHash>
#include <QtCore/QLine>
#include <QtCore/QPersistentModelIndex>
#include <QtCore/QPoint>
#include <QtCore/QSet>
#include <QtCore/QTime>
#include <QtGui/QRegion>
#include <functional>
#include <vector>

#include "vxtimeline/dopesheet/dopesheetwalk.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"

class QSortFilterProxyModel;
class VxDopeSheetModel;

// All state of the view.
class VxDopeSheetView::Private
{
public:
    explicit Private(VxDopeSheetView *dopeSheetView)
        : view(dopeSheetView)
    {
    }

    // What is done to the item of a row on a walk.
    using RowOperation = std::function<void(VxDopeSheetItem *)>;

    // What the selected TCB keys have in common, as far as they have been met.
    struct CommonTcb
    {
        bool seen = false; // any TCB key
        float tension = 0, continuity = 0, bias = 0;
        bool tensionEqual = false, continuityEqual = false, biasEqual = false;

        void add(float t, float c, float b);
    };

    VxDopeSheetView *view;
    VxKeyCommunication *bus = nullptr;
    QSortFilterProxyModel *filterModel = nullptr;

    Qt::KeyboardModifiers pressModifiers; // at the last press of the left button
    bool rubberBandActive = false;
    bool keyDragActive = false;
    QPoint pressPoint; // of the rubber band, as the next one; in the viewport
    QPoint currentPoint;
    QLine timeLine; // of the current time, in the viewport
    // Where that line was painted last, and what is being painted, both in the viewport.
    int paintedTimeX = 0;
    QRegion paintedRegion;
    QTime lastTimerKick;

    // The span of times of the selection that is being applied.
    VxTime spanStart = -1;
    VxTime spanEnd = VxTimeMax;
    // The bounds of the selected keys that have been met; earliest > latest when there were none.
    VxTime earliestSelected = VxTimeMax;
    VxTime latestSelected = -1;
    CommonTcb commonTcb;

    RowOperation rowOperation; // of the walk that is going on; empty while there is none
    VxKeyMessage message;      // what that operation applies, when it applies one

    QPersistentModelIndex contextIndex; // also where a selection begins that names no row
    QSet<VxProperty *> graphProperties;
    bool changingSelection = false;
    bool inSelectionChanged = false;
    bool monitorsParametersPane = false;

    const VxDopeSheetModel *sourceModel() const;

    // Walks with an operation set as the one that is going on; rows without an item are left out.
    // See DopeSheetWalk for the order and for what a closed end row stands for.
    void walk(const QModelIndex &start, const QModelIndex &end, const RowOperation &operation);
    void walkAll(const RowOperation &operation);

    // The key selection of one row, and what is told of it.
    void selectKeys(VxDopeSheetItem *item, bool select);
    void noteSelectedKeys(const VxDopeSheetItem *item);
    void sendSelection(const VxDopeSheetItem *item) const;
    void resetSelectedBounds();
    void applyMessage(VxDopeSheetItem *item) const;
    void applyToNamed();

    // The items of the view's rows that show a property, usually one.
    const QVector<VxDopeSheetItem *> &itemsOf(VxProperty *property);
    // Called when rows have come, gone or are about to go.
    void forgetItems();

    void clearSelectedKeysFrom(const QModelIndex &index, bool isCleared);
    // Carries newly selected rows over to the scene, as the last press's modifiers say.
    void selectNodes(const QItemSelection &selected) const;
    int currentTimeX() const;
    // Repaints what the line of the current time covers at x, the ticks in the rows included.
    void updateTimeLine(int x) const;
    void paintBehindRows(QPainter *painter);
    void paintRubberBand(QPainter *painter) const;

private:
    void indexItems();

    bool m_itemsIndexed = false;
    QHash<VxProperty *, QVector<VxDopeSheetItem *>> m_items;
};

#endif
