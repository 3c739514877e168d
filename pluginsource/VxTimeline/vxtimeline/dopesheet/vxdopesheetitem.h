#ifndef VXDOPESHEETITEM_H
#define VXDOPESHEETITEM_H

#include <QtCore/QObject>
#include <QtCore/QString>
#include <memory>
#include <vxcore/vxtimerange.h>

class VxNode;
class VxProperty;

// One row of the dope sheet: a node, a group of properties, or a property.
//
// What kind a row is shows in what it has: a node row a node, a property row a property, a group
// neither but a label. The rows make a tree of their own, apart from QObject's: an item owns its
// children, and being destroyed leaves its parent.
class VxDopeSheetItem : public QObject
{
    Q_OBJECT
public:
    VxDopeSheetItem();
    ~VxDopeSheetItem() override;

    // The label given, else the property's, else the node's, else empty.
    QString label() const;
    void setLabel(const QString &label);

    // Null unless it is a node row. Not owned.
    VxNode *node() const;
    void setNode(VxNode *node);
    // Null unless it is a property row, and once the property is gone. Not owned.
    VxProperty *property() const;
    void setProperty(VxProperty *property);

    VxDopeSheetItem *parentItem() const;
    // Leaves the present parent and becomes the last child of the new one, which owns it; with
    // null the caller does.
    void setParent(VxDopeSheetItem *newParent);
    // The index among the parent's children; -1 without a parent.
    int row() const;
    int childCount() const;
    // Null when index lies outside 0 .. childCount() - 1.
    VxDopeSheetItem *child(int index) const;
    // Takes the child at from out and puts it in at to. Indexes outside are ignored.
    void moveChild(int from, int to);
    void swapChildren(int a, int b);
    // Destroys every row below that has neither a property nor, after that, a child.
    void pruneEmpty();

    // True when the row's property, or any below, has a key.
    bool hasKeys() const;

Q_SIGNALS:
    // The key times of this row, or which of them are selected, have changed.
    void keysChanged();
    void changed();

public Q_SLOTS:
    // The property's keys or value have changed; all rows above show them too.
    void handleValueChanged(VxTimeRange range);

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
