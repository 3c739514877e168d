#ifndef VXCORE_VXPROPERTYLISTNODE_H
#define VXCORE_VXPROPERTYLISTNODE_H

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <vxcore/vxproperty.h>
#include <vxcore/vxrefcounteditem.h>

/// One row of a property list: the properties it stands for (one, or the same property of several
/// selected nodes). Shared by reference count; the model holds one reference.
class VXCORE_EXPORT VxPropertyListNode : public VxRefCountedItem
{
public:
    explicit VxPropertyListNode(const QVector<VxProperty *> &properties);

    int getNumProperties() const;
    /// Null when there is no such property, or it has been destroyed.
    VxProperty *getProperty(int index) const;
    /// The properties that still live.
    QVector<VxProperty *> getProperties() const;
    QString getLabel() const;

protected:
    ~VxPropertyListNode() override;

private:
    QVector<QPointer<VxProperty>> m_properties;
};

#endif
