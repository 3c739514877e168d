#include <vxcore/vxpropertylistnode.h>

VxPropertyListNode::VxPropertyListNode(const QVector<VxProperty *> &properties,
                                       const QString &heading)
    : m_heading(heading)
{
    m_properties.reserve(properties.size());
    for (VxProperty *property : properties)
        m_properties.append(property);
}

VxPropertyListNode::~VxPropertyListNode() = default;

bool VxPropertyListNode::isHeading() const
{
    return !m_heading.isEmpty();
}

int VxPropertyListNode::getNumProperties() const
{
    return m_properties.size();
}

VxProperty *VxPropertyListNode::getProperty(int index) const
{
    return index >= 0 && index < m_properties.size() ? m_properties.at(index).data() : nullptr;
}

QVector<VxProperty *> VxPropertyListNode::getProperties() const
{
    QVector<VxProperty *> living;
    for (const QPointer<VxProperty> &property : m_properties) {
        if (property)
            living.append(property);
    }
    return living;
}

QString VxPropertyListNode::getLabel() const
{
    if (isHeading())
        return m_heading;
    const VxProperty *first = getProperty(0);
    return first ? first->getLabel() : QString();
}
