#ifndef VXDOPESHEETVIEW_P_H
#define VXDOPESHEETVIEW_P_H

#include <QtCore/QElapsedTimer>
#include <QtCore/QHash>
#include <QtCore/QLine>
#include <QtCore/QPersistentModelIndex>
#include <QtCore/QPoint>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtGui/QRegion>
#include <functional>
#include <vector>
#include <vxcore/vxkey.h>
#include <vxcore/vxundostackhold.h>

#include "vxtimeline/dopesheet/copiedkeys.h"
#include "vxtimeline/dopesheet/dopesheetrowkeys.h"
#include "vxtimeline/dopesheet/dopesheetrowmemory.h"
#include "vxtimeline/dopesheet/dopesheetwalk.h"
#include "vxtimeline/dopesheet/keydrag.h"
#include "vxtimeline/dopesheet/keydragmath.h"
#include "vxtimeline/dopesheet/selectedkeys.h"
#include "vxtimeline/dopesheet/vxdopesheetitem.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"

class QSortFilterProxyModel;
class VxDopeSheetModel;
class VxGestureGuard;

// All state of the view.
class VxDopeSheetView::Private
{
public:
    explicit Private(VxDopeSheetView *dopeSheetView)
        : view(dopeSheetView)
        , rowMemory(dopeSheetView)
    {
        clock.start();
    }

    // What is done to the item of a row on a walk.
    using RowOperation = std::function<void(VxDopeSheetItem *)>;

    // What the selected TCB keys have in common, as far as they have been met.
    struct CommonTcb
    {
        bool seen = false; // any TCB key
        VxTcb common;
        bool tensionEqual = false, continuityEqual = false, biasEqual = false;

        void add(const VxTcb &tcb);
        // True when no further key can make a difference.
        bool isSettled() const { return seen && !tensionEqual && !continuityEqual && !biasEqual; }
    };

    VxDopeSheetView *view;
    VxGestureGuard *guard = nullptr; // of the viewport
    VxKeyCommunication *bus = nullptr;
    QSortFilterProxyModel *filterModel = nullptr;
    DopeSheetRowMemory rowMemory; // over changes of the text filter

    Qt::KeyboardModifiers pressModifiers; // at the last press of the left button
    // The gesture of the left button in the keys column: a band, unless it can drag keys.
    bool rubberBandActive = false;
    bool keyDragActive = false;
    QPoint pressPoint; // of the rubber band, as the next one; in the viewport
    QPoint currentPoint;
    QRect bandRect;                 // as it was last painted
    QPersistentModelIndex pressRow; // with a key under the mouse; invalid when there was none
    VxTime hitTime = 0;             // of that key

    // The keys of a drag that can begin, and the hold that is open once it has begun.
    std::unique_ptr<KeyDrag> drag;
    std::unique_ptr<VxUndoStackHold> dragHold;
    bool dragShown = false; // keys have been put somewhere else
    QElapsedTimer clock;
    KeyDragMath::Pace pace;
    CopiedKeys copied;
    int copiedCount = 0;
    QLine timeLine; // of the current time, in the viewport
    // Where that line was painted last, and what is being painted, both in the viewport.
    int paintedTimeX = 0;
    QRegion paintedRegion;

    // The span of times of the selection that is being applied.
    VxTime spanStart = -1;
    VxTime spanEnd = VxTimeMax;
    CommonTcb commonTcb;
    bool commonTcbStale = false; // found out anew when it is asked for

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
    void noteTcb(const DopeSheetRowKeys &keys, const VxTcb *tcb, int first, int last);
    void sendSelection(const VxDopeSheetItem *item) const;
    // What is selected of properties that the other side begins to show.
    void sendSelectionOf(const QSet<VxProperty *> &properties);
    void applyMessage(VxDopeSheetItem *item) const;
    void applyToNamed();

    // The items that show a property, usually one, whether the filter shows them or not.
    const QVector<VxDopeSheetItem *> &itemsOf(VxProperty *property);
    // The items that show the keys of a holder: its own, and those of its aliases.
    const QVector<VxDopeSheetItem *> &itemsOfHolder(const VxProperty *holder);
    // Called when rows were inserted, removed or are about to be removed.
    void forgetItems();

    // Calls visit(VxDopeSheetItem *) for the properties' rows that have selected keys, whether they
    // are shown or lie in closed rows.
    template <typename Visit>
    void visitSelected(const Visit &visit, const QModelIndex &parent = QModelIndex()) const;
    // The same for all rows that there are, also those that the filter leaves out: what is cleared
    // is cleared everywhere.
    void visitSelectedItems(const RowOperation &visit) const;
    std::vector<SelectedKeys> collectSelected() const;
    // Finds out what the selected TCB keys have in common.
    void updateCommonTcb();
    const CommonTcb &currentCommonTcb();
    void deselectItems() const;
    void deselectAll();
    void sendClear() const;
    void sendSelected() const;

    // What the mouse is over.
    struct RowHit
    {
        QModelIndex row; // invalid when it is over none
        KeyDragMath::Hit kind = KeyDragMath::Hit::Nothing;
        VxTime time = 0; // of the key
    };
    RowHit hitAt(const QPoint &position) const;
    KeyDragMath::Scale dragScale() const;
    void hover(const QPoint &position);

    // The gesture of the left button, from the press to the release.
    void beginGesture(const QPoint &position);
    void selectPressed(const RowHit &hit, const KeyDragMath::PressEffect &effect);
    void continueGesture(const QPoint &position);
    void growBand();
    void finishGesture(const QPoint &position);
    void abandonGesture();
    void selectClicked(const KeyDragMath::ReleaseEffect &effect);
    void selectBand(const KeyDragMath::ReleaseEffect &effect);
    void selectRows(const QModelIndex &start, const QModelIndex &end, bool select);
    void selectNodeOf(const QModelIndex &row, bool adds) const;
    void openContextMenu(const QPoint &position);

    void prepareDrag();
    VxTime dragOffset() const;
    void showDrag();
    void dropKeys();
    void putKeysBack();

    // Of the primary node's row when it has one, else of all rows: the key nearest to the current
    // time, and to limit when there is none.
    VxTime keyBefore(VxTime limit) const;
    VxTime keyAfter(VxTime limit) const;
    QVector<const VxDopeSheetItem *> skipRows() const;

    void clearSelectedKeysFrom(const QModelIndex &index, bool isCleared);
    // Carries newly selected rows over to the scene, as the last press's modifiers say.
    void selectNodes(const QItemSelection &selected) const;
    // Where the line of a time stands, in the viewport.
    int timeX(VxTime time) const;
    // Repaints what the line of the current time covers at x, the ticks in the rows included.
    void updateTimeLine(int x) const;
    void paintBehindRows(QPainter *painter);
    void paintRubberBand(QPainter *painter) const;
    void paintHint(QPainter *painter) const;

private:
    void indexItems();

    QPointer<const VxDopeSheetModel> m_indexedModel; // null when m_items is to be made anew
    QHash<VxProperty *, QVector<VxDopeSheetItem *>> m_items;
    quint64 m_indexedHolders = 0; // see VxProperty::latestHolderRevision()
    QHash<const VxProperty *, QVector<VxDopeSheetItem *>> m_itemsByHolder;
};

// A row that has no selected key below it is not looked into.
template <typename Visit>
void VxDopeSheetView::Private::visitSelected(const Visit &visit, const QModelIndex &parent) const
{
    const QAbstractItemModel *model = view->model();
    const int rows = model ? model->rowCount(parent) : 0;
    for (int row = 0; row < rows; ++row) {
        const QModelIndex index = model->index(row, NameColumn, parent);
        VxDopeSheetItem *item = view->getItem(index);
        if (!item || !item->hasSelectedKeys())
            continue;
        if (item->property())
            visit(item);
        else
            visitSelected(visit, index);
    }
}

#endif
