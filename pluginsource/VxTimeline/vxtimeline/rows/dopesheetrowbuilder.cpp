#include "vxtimeline/rows/dopesheetrowbuilder.h"

#include "vxtimeline/keys/timelinepropertytypes.h"
#include "vxtimeline/rows/dopesheetvaluesource.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertygrouptree.h>

namespace {

using namespace TimelinePropertyTypes;

QString groupKey(const VxProperty *property)
{
    return property->getPath().mid(1);
}

} // namespace

DopeSheetRowBuilder::DopeSheetRowBuilder(VxNode *node, VxDopeSheetItem *nodeRow, int types)
    : m_node(node)
    , m_nodeRow(nodeRow)
    , m_types(types)
{
}

VxDopeSheetItem *DopeSheetRowBuilder::newPropertiesRow()
{
    auto *row = new VxDopeSheetItem;
    row->setLabel(QCoreApplication::translate("VxDopeSheetModel", "Properties"));
    return row;
}

QVector<VxDopeSheetItem *> DopeSheetRowBuilder::build()
{
    buildBelow(newPropertiesRow());
    if (m_properties->childCount() > 0)
        m_properties->setParent(m_nodeRow);
    else
        delete m_properties;
    return m_rows;
}

QVector<VxDopeSheetItem *> DopeSheetRowBuilder::buildBelow(VxDopeSheetItem *propertiesRow)
{
    m_properties = propertiesRow;
    m_groups.insert(QString(), m_properties);
    if (lists(Other))
        addAllProperties();
    else
        addTransformControls();
    m_properties->pruneEmpty();
    return m_rows;
}

void DopeSheetRowBuilder::addAllProperties()
{
    const QVector<VxProperty *> all = m_node->getPropertyGroups()->collectAllProperties();
    for (VxProperty *property : all) {
        if (qobject_cast<VxNumericProperty *>(property))
            addRow(nestedGroup(groupKey(property)), property);
    }
}

void DopeSheetRowBuilder::addTransformControls()
{
    for (int i = 0; i < TransformControls; ++i) {
        VxFloatProperty *control =
            lists(ofTransformControl(i)) ? m_node->getTransformControl(i) : nullptr;
        if (control)
            addRow(flatGroup(groupKey(control)), control);
    }
}

void DopeSheetRowBuilder::addRow(VxDopeSheetItem *group, VxProperty *property)
{
    if (!accepts(property))
        return;
    auto *row = new VxDopeSheetItem;
    row->setParent(group);
    row->setProperty(property);
    m_rows.append(row);
}

VxDopeSheetItem *DopeSheetRowBuilder::nestedGroup(const QString &key)
{
    if (VxDopeSheetItem *known = m_groups.value(key, nullptr))
        return known;
    VxDopeSheetItem *group = m_properties;
    QString path;
    for (const QString &part : key.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        path += path.isEmpty() ? part : QLatin1Char('/') + part;
        VxDopeSheetItem *known = m_groups.value(path, nullptr);
        group = known ? known : addGroup(group, path, part);
    }
    return group;
}

VxDopeSheetItem *DopeSheetRowBuilder::flatGroup(const QString &key)
{
    VxDopeSheetItem *known = m_groups.value(key, nullptr);
    return known ? known : addGroup(m_properties, key, key);
}

VxDopeSheetItem *DopeSheetRowBuilder::addGroup(VxDopeSheetItem *above, const QString &key,
                                               const QString &label)
{
    auto *group = new VxDopeSheetItem;
    group->setParent(above);
    group->setLabel(label);
    m_groups.insert(key, group);
    return group;
}

bool DopeSheetRowBuilder::accepts(VxProperty *property) const
{
    if (!property->canBeKeyed() || property->isExcluded())
        return false;
    if (isHidden(property) && !lists(Hidden))
        return false;
    if (property->isAlias() && !lists(Alias))
        return false;
    const VxProperty *source = dopeSheetValueSource(property);
    if (source != property && isHidden(source) && !lists(Hidden))
        return false;
    const int transform = ofTransform(property, m_node);
    return transform == 0 || lists(transform);
}
