#include "vxtimeline/dopesheet/dopesheetrowbuilder.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>
#include <algorithm>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertygrouptree.h>
#include <vxcore/vxpropertyhelper.h>

#include "vxtimeline/dopesheet/dopesheetpropertytypes.h"
#include "vxtimeline/dopesheet/dopesheetvaluesource.h"
#include "vxtimeline/dopesheet/vxdopesheetitem.h"

namespace {

using namespace DopeSheetPropertyTypes;
using Controls = QVector<VxProperty *>;

Controls translationControls(const VxNode *node)
{
    return {node->getXPosControl(), node->getYPosControl(), node->getZPosControl()};
}

Controls rotationControls(const VxNode *node)
{
    return {node->getXRotControl(), node->getYRotControl(), node->getZRotControl()};
}

Controls scaleControls(const VxNode *node)
{
    return {node->getScaleControl(), node->getXScaleControl(), node->getYScaleControl(),
            node->getZScaleControl()};
}

bool isHiddenAnyhow(const VxProperty *property)
{
    return property->isHidden() || property->isDynamicallyHidden();
}

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
    Controls controls;
    if (lists(Translation))
        controls += translationControls(m_node);
    if (lists(Rotation))
        controls += rotationControls(m_node);
    if (lists(Scale))
        controls += scaleControls(m_node);
    for (VxProperty *property : qAsConst(controls)) {
        if (qobject_cast<VxFloatProperty *>(property))
            addRow(flatGroup(groupKey(property)), property);
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
    if (isHiddenAnyhow(property) && !lists(Hidden))
        return false;
    if (property->isAlias() && !lists(Alias))
        return false;
    const VxProperty *source = dopeSheetValueSource(property);
    if (source != property && isHiddenAnyhow(source) && !lists(Hidden))
        return false;
    return acceptsTransformControl(property);
}

bool DopeSheetRowBuilder::acceptsTransformControl(const VxProperty *property) const
{
    if (VxPropertyHelper::getTransformAxis(property) == VxFloatProperty::NoAxis ||
        !qobject_cast<const VxFloatProperty *>(property))
        return true;
    const auto isUnlistedOneOf = [this, property](int type, const Controls &controls) {
        return !lists(type) &&
               std::find(controls.cbegin(), controls.cend(), property) != controls.cend();
    };
    return !isUnlistedOneOf(Translation, translationControls(m_node)) &&
           !isUnlistedOneOf(Rotation, rotationControls(m_node)) &&
           !isUnlistedOneOf(Scale, scaleControls(m_node));
}
