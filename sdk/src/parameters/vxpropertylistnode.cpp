#include <vxcore/vxpropertylistnode.h>

VxPropertyListNode::VxPropertyListNode(const QVector<VxProperty *> &properties,
                                       const QString &heading)
    : m_properties(properties.begin(), properties.end())
    , m_heading(heading)
{
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

void VxPropertyListNode::clearProperty(int index)
{
    m_properties[index] = nullptr;
}

QVector<VxProperty *> VxPropertyListNode::getProperties() const
{
    QVector<VxProperty *> present;
    present.reserve(m_properties.size());
    for (int i = 0; i < m_properties.size(); ++i) {
        if (VxProperty *property = getProperty(i))
            present.append(property);
    }
    return present;
}

QString VxPropertyListNode::getLabel() const
{
    if (isHeading())
        return m_heading;
    const VxProperty *first = getProperty(0);
    return first ? first->getLabel() : QString();
}
