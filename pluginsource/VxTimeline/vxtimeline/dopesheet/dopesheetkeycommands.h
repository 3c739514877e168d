#ifndef DOPESHEETKEYCOMMANDS_H
#define DOPESHEETKEYCOMMANDS_H

#include "vxtimeline/dopesheet/copiedkeys.h"

#include <QtCore/QVector>
#include <vxcore/vxtime.h>

class DopeSheetKeySelection;
class VxDopeSheetItem;
class VxDopeSheetView;

/// The dope sheet's commands on its selected keys, and the clipboard of keys. They open no undo
/// hold: the caller does.
class DopeSheetKeyCommands
{
public:
    DopeSheetKeyCommands(VxDopeSheetView *view, DopeSheetKeySelection *selection);

    bool hasCopiedKeys() const { return !m_copied.isEmpty(); }
    const CopiedKeys &copiedKeys() const { return m_copied; }
    /// A key that was selected in several rows counts once.
    int numCopiedKeys() const { return m_copiedCount; }
    void copy();
    /// The earliest copied key at the current time. False when no row accepted a key.
    bool paste();
    void remove();
    /// Of the selected keys of float properties; tension, continuity and bias stay.
    void setType(int type);
    /// Of those selected keys that are TCB keys.
    void setTcb(float tension, float continuity, float bias);

    /// The nearest key, more than half a frame away from the current time, of the primary node's
    /// row, or of all rows without such a row; -1 and VxTimeMax when there is none.
    VxTime previousKey() const;
    VxTime nextKey() const;

private:
    QVector<const VxDopeSheetItem *> skipRows() const;

    VxDopeSheetView *m_view;
    DopeSheetKeySelection *m_selection;
    CopiedKeys m_copied;
    int m_copiedCount = 0;
};

#endif
