#ifndef VXDOPESHEETITEM_H
#define VXDOPESHEETITEM_H

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <memory>
#include <vector>
#include <vxcore/vxkeyspan.h>
#include <vxcore/vxtimerange.h>

class VxNode;
class VxProperty;

class VxDopeSheetItem;

/// Creates the rows below a node's row or below its "Properties" row on demand.
class DopeSheetRowMaker
{
public:
    /// Called once; appends the rows to the row, which has none yet.
    virtual void makeRows(VxDopeSheetItem *row) = 0;

protected:
    ~DopeSheetRowMaker() = default;
};

/// One row of the dope sheet: a node, a group of properties, or a property.
///
/// A node row has a node, a property row a property, a group row neither but a label. The rows form
/// a tree apart from QObject's: an item owns its children, and removes itself from its parent when
/// it is destroyed.
///
/// A row caches its keys and their selection. A property row has those of its property, a row above
/// them one key for each time at which a row below has one, selected when it is selected in any of
/// them. They are gathered at the first access and after a change, for this row and those below
/// alone. Returned arrays are borrowed: valid until the next change.
class VxDopeSheetItem : public QObject
{
    Q_OBJECT
public:
    VxDopeSheetItem();
    ~VxDopeSheetItem() override;

    /// The label set, else the property's, else the node's, else empty.
    QString label() const;
    void setLabel(const QString &label);
    /// The names of the nodes from the top down to the row's, then the group path and the name of
    /// the property, joined by "/": identifies the row in another scene, or at another time.
    QString path() const;

    /// Null unless it is a node row. Not owned.
    VxNode *node() const;
    void setNode(VxNode *node);
    /// Null unless it is a property row, and after the property's destruction. Not owned.
    VxProperty *property() const;
    /// Connects to the property, and to its value source.
    void setProperty(VxProperty *property);

    /// The node of this row or of the nearest row above that has one; null without one.
    VxNode *ownerNode() const;

    /// For a row without children: creates the rows below at the first access to the children, when
    /// a child is added, or at the first access to the row's keys if its node has some. Not owned;
    /// must live until then.
    void setRowMaker(DopeSheetRowMaker *maker);
    bool hasRowsToMake() const;

    VxDopeSheetItem *parentItem() const;
    /// Moves the item to the end of the new parent's children, which owns it; with null the caller
    /// does.
    void setParent(VxDopeSheetItem *newParent);
    /// The index among the parent's children; -1 without a parent.
    int row() const;
    int childCount() const;
    /// Null when index is outside 0 .. childCount() - 1.
    VxDopeSheetItem *child(int index) const;
    /// Moves the child at from to index to. Indexes outside are ignored.
    void moveChild(int from, int to);
    void swapChildren(int a, int b);
    /// Destroys every row below that has neither a property nor, after pruning, a child.
    void pruneEmpty();

    /// True when the row's property, or any below, has a key.
    bool hasKeys() const;

    int keyCount() const;
    /// 0 and false when index is outside 0 .. keyCount() - 1.
    VxTime keyTime(int index) const;
    bool isKeySelected(int index) const;
    /// keyCount() entries each; times in ticks, strictly ascending. Bit 0 of a flag: selected.
    const VxTime *keyTimes() const;
    const quint8 *keyFlags() const;
    /// The index of the first key at or after time; keyCount() when there is none.
    int firstKeyFrom(VxTime time) const;
    int selectedKeyCount() const;
    /// Without gathering the row's keys.
    bool hasSelectedKeys() const;
    /// The same without reading changed properties, so that a pass over all rows of a deep chain
    /// stays linear: false is certain.
    bool mayHaveSelectedKeys() const;

    /// Selects or deselects the keys from start on and before end, or, when the two are the same,
    /// the key at just that time. Rows below keep their selection; a row without a property
    /// therefore shows it again at the next access.
    void setKeysSelected(bool select, VxTime start, VxTime end);
    /// The same for keys by index; indexes outside are ignored. Property rows only.
    void setKeySelectedAt(const QVector<int> &indexes, bool select);
    /// Selects the keys of the property at the given times (ascending) and no others: after keys
    /// have been moved, because a selection survives only at equal times. Property rows only.
    void selectOnlyKeysAt(const VxTime *times, int count);
    /// Selects the keys of these spans and no others. Property rows only.
    void selectOnlySpans(const std::vector<VxKeySpan> &spans);
    std::vector<VxKeySpan> selectedKeySpans() const;
    /// The indexes of the selected keys, ascending.
    QVector<int> selectedKeyIndexes() const;

    /// Saves the times of the selected keys, ascending: savedTimeCount() of them, not one for each
    /// key. They stay until the next save, whatever happens to the keys: moving all selected keys
    /// by the same offset keeps their order, so the n-th saved time is that of the n-th of them.
    void saveSelectedKeyTimes();
    const VxTime *savedTimes() const;
    int savedTimeCount() const;
    /// Removes the selected keys from the property; nothing happens on other rows.
    void deleteSelectedKeys();

    /// Invalidates the keys of this row and all above; they are gathered again on demand.
    void invalidateKeys();
    /// While set, changes of the property neither invalidate keys nor emit keysChanged().
    void setSuppressKeyChanges(bool suppress);

Q_SIGNALS:
    /// The key times of this row, or which of them are selected, have changed.
    void keysChanged();
    void changed();

public Q_SLOTS:
    /// The property's keys or value changed, and with it the keys of all rows above.
    void handleValueChanged(VxTimeRange range);

private:
    void loseProperty();
    class Private;
    std::unique_ptr<Private> d;
};

#endif
