#ifndef VXPROPERTYLISTNODE_H
#define VXPROPERTYLISTNODE_H

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <vxcore/vxproperty.h>
#include <vxcore/vxrefcounteditem.h>

/// One row of a property list, with its properties: one property, the same property of several
/// selected nodes, or, for the heading of a group, all that are listed below it. Shared by
/// reference count; the model holds one reference.
class VXCORE_EXPORT VxPropertyListNode : public VxRefCountedItem
{
public:
    /// heading: the group's name for a heading; empty for any other row.
    explicit VxPropertyListNode(const QVector<VxProperty *> &properties,
                                const QString &heading = QString());

    bool isHeading() const;
    /// Includes properties that were destroyed or removed.
    int getNumProperties() const;
    /// Null when there is no such property, or it was destroyed or removed from the list.
    VxProperty *getProperty(int index) const;
    /// The properties that still exist.
    QVector<VxProperty *> getProperties() const;
    /// The heading, or the label of the first property.
    QString getLabel() const;

protected:
    ~VxPropertyListNode() override;

private:
    friend class VxPropertyListItemModel;
    void clearProperty(int index);

    QVector<QPointer<VxProperty>> m_properties;
    QString m_heading;
};

#endif
