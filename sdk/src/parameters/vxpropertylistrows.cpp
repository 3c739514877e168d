#include "parameters/vxpropertylistrows.h"

#include <QtCore/QHash>
#include <QtCore/QStringList>
#include <vxcore/vxnode.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxpropertygrouptree.h>

namespace {

/// Identifies the same property of different nodes.
using PropertyKey = QPair<QString, QString>; // path and name

PropertyKey keyOf(const VxProperty *property)
{
    return {property->getPath(), property->getName()};
}

QHash<PropertyKey, VxProperty *> propertiesByKey(const VxNode *node)
{
    QHash<PropertyKey, VxProperty *> found;
    for (VxProperty *property : node->getPropertyGroups()->collectAllProperties())
        found.insert(keyOf(property), property);
    return found;
}

bool isListed(const VxProperty *property)
{
    return !property->isHidden() && !property->isDynamicallyHidden();
}

/// Builds the rows from the groups of the first node.
class RowBuilder
{
public:
    explicit RowBuilder(const QVector<VxNode *> &nodes)
    {
        for (int i = 1; i < nodes.size(); ++i)
            m_others.append(propertiesByKey(nodes.at(i)));
    }

    void addGroup(const VxPropertyGroup *group)
    {
        const int heading = m_rows.size();
        if (!group->getName().isEmpty())
            m_rows.append({group->getName(), group->getPath(), {}});
        const int first = m_rows.size();
        for (int i = 0; i < group->getNumProperties(); ++i)
            addProperty(group->getProperty(i), group->getPath());
        if (first == m_rows.size())
            m_rows.resize(heading); // an empty group has no heading
        for (int i = first; i < m_rows.size() && heading < first; ++i)
            m_rows[heading].properties += m_rows.at(i).properties;
        for (int i = 0; i < group->getNumChildren(); ++i)
            addGroup(group->getChild(i));
    }

    QVector<VxPropertyListRow> takeRows()
    {
        QHash<QString, int> uses;
        for (const VxPropertyListRow &row : qAsConst(m_rows))
            uses[row.heading] += row.heading.isEmpty() ? 0 : 1;
        for (VxPropertyListRow &row : m_rows) {
            if (uses.value(row.heading) > 1)
                row.heading =
                    row.path.split(QLatin1Char('/')).mid(1).mid(-2).join(QStringLiteral(" / "));
        }
        return std::move(m_rows);
    }

private:
    void addProperty(VxProperty *property, const QString &path)
    {
        if (!isListed(property))
            return;
        VxPropertyListRow row = {QString(), path, {property}};
        for (const auto &other : qAsConst(m_others)) {
            VxProperty *same = other.value(keyOf(property));
            if (same && isListed(same) && same->metaObject() == property->metaObject())
                row.properties.append(same);
        }
        m_rows.append(row);
    }

    QVector<QHash<PropertyKey, VxProperty *>> m_others;
    QVector<VxPropertyListRow> m_rows;
};

} // namespace

QVector<VxPropertyListRow> vxPropertyListRows(const QVector<VxNode *> &nodes)
{
    if (nodes.isEmpty())
        return {};
    RowBuilder builder(nodes);
    builder.addGroup(nodes.first()->getPropertyGroups()->getRoot());
    return builder.takeRows();
}
