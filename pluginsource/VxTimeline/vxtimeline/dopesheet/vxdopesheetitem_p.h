#ifndef VXDOPESHEETITEM_P_H
#define VXDOPESHEETITEM_P_H

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QVarLengthArray>
#include <QtCore/QVector>
#include <vxcore/vxproperty.h>

#include "vxtimeline/dopesheet/dopesheetkeys.h"
#include "vxtimeline/dopesheet/vxdopesheetitem.h"

// The state of a row. Rows of one tree reach into each other's, for the keys of those below.
//
// A row that is valid has only such rows below it; so a change of a row goes up no further than to
// the first one that is not valid already. Rows of properties and nodes that are valid have their
// keys. Rows of groups have them only once they have been asked themselves; the rows above pass
// them over.
class VxDopeSheetItem::Private
{
public:
    QString label;
    QString nodePath; // empty until asked for
    int row = -1;
    VxDopeSheetItem *parent = nullptr;
    QVector<VxDopeSheetItem *> children;
    VxNode *node = nullptr;
    QPointer<VxProperty> property;
    QVector<QMetaObject::Connection> connections;

    bool suppressesKeyChanges = false;
    bool isValid = false; // nothing has changed since the keys were gathered, here or from above
    bool isKept = false;  // keys are those that were gathered
    DopeSheetKeys keys;
    // For property rows: the revision of the property's keys that `keys` shows, and the one that
    // the property had when changes began to be suppressed.
    quint64 revision = 0;
    quint64 revisionWhenSuppressed = 0;
    // For the rows above: the latest revision of any keys at which those below were current.
    quint64 checkedRevision = 0;
    QVector<VxTime> savedTimes;
    // How many keys are selected in this row, if it is a property's, and in all such rows below,
    // by what these last knew of their keys.
    qint64 selectedBelow = 0;
    // The child below which a selected key was last found.
    int selectedHint = 0;

    // The keys of rows below.
    using KeysOfRows = QVarLengthArray<DopeSheetKeys *, 32>;

    bool isGroup() const { return !property && !node; }
    void renumber(int from);
    void addSelected(qint64 difference);
    // Within a change block the property's keys may differ before it reports that they do.
    bool showsPresentKeys() const;
    // The same for all rows below.
    bool showsPresentKeysBelow();
    // Makes the keys valid, those of the rows below first.
    void update();
    // Appends the keys of the rows below, made valid, that together are this row's.
    void gather(KeysOfRows *rows);
    void dropKeys()
    {
        keys = DopeSheetKeys();
        isKept = false;
    }
    // For property rows. Makes the keys those that the property has, whatever it has told.
    void updateFromProperty();
    void updateForEdit();
    bool findSelected();
    // After a change of the selection: counts it, and makes the rows above show it.
    void selectionEdited(int selectedBefore);

    QString pathOfNode();
    // For this row and all below, whose paths begin with it.
    void forgetNodePaths();
};

#endif
