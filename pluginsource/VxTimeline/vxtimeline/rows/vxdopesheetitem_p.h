#ifndef VXDOPESHEETITEM_P_H
#define VXDOPESHEETITEM_P_H

#include "vxtimeline/rows/dopesheetkeys.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QVarLengthArray>
#include <QtCore/QVector>
#include <vxcore/vxproperty.h>

/// The private record of a row. Rows of one tree access each other's, for the keys of those below.
///
/// All rows below a valid row are valid; so a change of a row invalidates no further up than to the
/// first row that is invalid already. Valid rows of properties and nodes have their keys. Rows of
/// groups have them only after an access of their own; the rows above skip them.
///
/// Hierarchies may be chains of thousands of nodes: nothing here recurses into the rows below.
class VxDopeSheetItem::Private
{
public:
    explicit Private(VxDopeSheetItem *item)
        : q(item)
    {
    }

    VxDopeSheetItem *q;
    QString label;
    QString nodePath; // computed on demand
    /// The index among the parent's children, or the one before others were removed.
    int row = -1;
    int numbered = 0; // so many of the first children have their present rows
    VxDopeSheetItem *parent = nullptr;
    QVector<VxDopeSheetItem *> children;
    VxNode *node = nullptr;
    QPointer<VxProperty> property;
    QVector<QMetaObject::Connection> connections;
    DopeSheetRowMaker *rowMaker = nullptr; // creates the rows below on demand

    bool suppressesKeyChanges = false;
    bool isValid = false; // nothing has changed since the keys were gathered, here or from above
    bool isKept = false;  // `keys` has been gathered
    DopeSheetKeys keys;
    /// For property rows: the revision of the property's keys in `keys`, and the property's
    /// revision when changes began to be suppressed.
    quint64 revision = 0;
    quint64 revisionWhenSuppressed = 0;
    /// For the rows above: the latest revision of any keys at which those below were current.
    quint64 checkedRevision = 0;
    QVector<VxTime> savedTimes;
    /// The number of selected keys in this row, if it is a property's, and in all such rows below,
    /// as of the last time these read their properties' keys.
    qint64 selectedBelow = 0;
    /// The child below which a selected key was last found.
    int selectedHint = 0;

    using Rows = QVarLengthArray<Private *, 32>;

    bool isGroup() const { return !property && !node; }
    void makeRows();
    /// Only when the node may have a key: without rows it shows none anyway.
    void makeRowsWithKeys();
    void renumber(int from);
    /// The row of a child. Removing a child leaves the others with their former rows, which are not
    /// before the present ones.
    int rowOf(Private *child);
    void addSelected(qint64 difference);
    /// Within a change block the property's keys may change before it reports them.
    bool showsPresentKeys() const;
    /// Updates the rows below whose keys changed without a report yet.
    void updateChangedRows();
    /// Makes the keys valid, those of the rows below first.
    void update();
    const DopeSheetKeys &presentKeys();
    /// The rows of properties and nodes below whose united keys are this row's; groups: this row
    /// and the skipped groups, each after the one above it.
    void findSources(Rows *sources, Rows *groups);
    /// Unites the keys of the sources; nodes and groups among them are valid, properties are read.
    void unite();
    void dropKeys()
    {
        keys = DopeSheetKeys();
        isKept = false;
    }
    /// For property rows. Reads the property's present keys, reported or not.
    void updateFromProperty();
    bool hasSelected();
    /// A child with selected keys below it; null when there is none.
    Private *selectedChild();
    /// Changes the selection: counts it, and invalidates the selection of the rows above.
    template <class Change> void editSelection(const Change &change);
    /// The same for the property's present keys.
    template <class Change> void editPresent(const Change &change);
    /// Takes the present times from the property and selects the given ones, see DopeSheetKeys.
    template <class... Selected> void setTimesAndSelection(const Selected &...selected);

    QString pathOfNode();
    /// For this row and all below, whose paths begin with it.
    void invalidateNodePaths();
    /// This row and all below, each before those below it.
    QVector<VxDopeSheetItem *> allRows() const;
};

#endif
