#ifndef DOPESHEETROWBUILDER_H
#define DOPESHEETROWBUILDER_H

#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QVector>

class VxDopeSheetItem;
class VxNode;
class VxProperty;

/// Makes the rows of one node's properties, in groups below a "Properties" row.
///
/// With other properties listed every group of a property's path is a row; with the transform
/// controls alone each of their groups is one row that shows the whole path, which saves two
/// otherwise empty levels. Empty groups are left out, as is an empty "Properties" row.
class DopeSheetRowBuilder
{
public:
    /// types: bits of TimelinePropertyTypes. Nothing is owned.
    DopeSheetRowBuilder(VxNode *node, VxDopeSheetItem *nodeRow, int types);

    /// Appends the rows to the node's row. Returns the property rows in order of creation.
    QVector<VxDopeSheetItem *> build();
    /// The same in two steps: an empty "Properties" row, owned by the caller, and the rows below
    /// it.
    static VxDopeSheetItem *newPropertiesRow();
    QVector<VxDopeSheetItem *> buildBelow(VxDopeSheetItem *propertiesRow);

private:
    void addAllProperties();
    void addTransformControls();
    void addRow(VxDopeSheetItem *group, VxProperty *property);
    VxDopeSheetItem *nestedGroup(const QString &key);
    VxDopeSheetItem *flatGroup(const QString &key);
    VxDopeSheetItem *addGroup(VxDopeSheetItem *above, const QString &key, const QString &label);
    bool accepts(VxProperty *property) const;
    bool lists(int type) const { return (m_types & type) != 0; }

    VxNode *m_node;
    VxDopeSheetItem *m_nodeRow;
    int m_types;
    VxDopeSheetItem *m_properties = nullptr;
    QMap<QString, VxDopeSheetItem *> m_groups; // by path, without the leading "/"
    QVector<VxDopeSheetItem *> m_rows;
};

#endif
