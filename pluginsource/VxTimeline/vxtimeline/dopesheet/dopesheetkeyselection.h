#ifndef DOPESHEETKEYSELECTION_H
#define DOPESHEETKEYSELECTION_H

#include "vxtimeline/rows/commontcb.h"
#include "vxtimeline/rows/selectedkeys.h"

#include <QtCore/QModelIndex>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <functional>
#include <vector>
#include <vxcore/vxtime.h>

class VxDopeSheetItem;
class VxDopeSheetView;
class VxKeyCommunication;
class VxKeyMessage;
class VxProperty;

/// The selected keys of the dope sheet. The flags themselves are stored in the rows' items; this
/// class changes them over ranges of rows, and exchanges the changes with the key graph over a
/// message bus.
class DopeSheetKeySelection
{
public:
    explicit DopeSheetKeySelection(VxDopeSheetView *view);

    VxKeyCommunication *bus() const { return m_bus; }
    void setBus(VxKeyCommunication *bus) { m_bus = bus; }

    /// Selects or deselects keys in the rows from first to last, see DopeSheetWalk::between():
    /// those from start on and before end, or at just that time when both are the same.
    void select(const QModelIndex &first, const QModelIndex &last, bool select, VxTime start,
                VxTime end);
    /// In all rows, filtered out or not; sends nothing.
    void deselectAll() const;
    /// The same row by row: keySelectionChanged() is emitted and the selection sent for each.
    void clearRows();

    /// By property, in the order of the rows; only keys in rows that the filter shows.
    std::vector<SelectedKeys> collect() const;
    /// The common values of the selected TCB keys, computed on demand after invalidateCommonTcb().
    const CommonTcb &commonTcb();

    /// Sends to the key graph: that everything is deselected; the selection of a row; of all rows
    /// with selected keys.
    void sendClear() const;
    void sendSelection(const VxDopeSheetItem *item) const;
    void sendSelected() const;
    /// The properties in the key graph: sends the selection of the new ones.
    void setGraphProperties(const QSet<VxProperty *> &properties);
    /// A selection made in the key graph.
    void handleMessage(const VxKeyMessage &message);

    /// Calls operation(item) for every row that the filter shows. Ignores messages meanwhile.
    using Operation = std::function<void(VxDopeSheetItem *)>;
    void visitRows(const Operation &operation);

    /// Calls visit(item) for the property rows with selected keys that the filter shows, open or
    /// not; and for all of them.
    void visitShown(const Operation &visit) const;
    void visitAll(const Operation &visit) const;
    /// Call after keys, or the flags of rows, were changed from outside.
    void invalidateCommonTcb() { m_commonTcbStale = true; }

    /// The selected keys, to be restored in the rows of another model.
    struct Saved
    {
        QPointer<VxProperty> property;
        QVector<int> indexes;
    };
    std::vector<Saved> save() const;
    void restore(const std::vector<Saved> &saved);

private:
    void selectKeys(VxDopeSheetItem *item, bool select, VxTime start, VxTime end);
    void applyMessage(const VxKeyMessage &message) const;

    VxDopeSheetView *m_view;
    VxKeyCommunication *m_bus = nullptr; // not owned
    CommonTcb m_commonTcb;
    bool m_commonTcbStale = false; // computed on demand
    bool m_isWalking = false;
    QSet<VxProperty *> m_graphProperties;
};

#endif
