#ifndef VXPROPERTYGROUPTREE_H
#define VXPROPERTYGROUPTREE_H

#include <QtCore/QString>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxcoreglobal.h>

class VxProperty;

/// A named group of properties with sub-groups. Groups and properties have the order in which they
/// were added.
class VXCORE_EXPORT VxPropertyGroup
{
public:
    ~VxPropertyGroup();

    /// The last part of the path; empty for the root group.
    QString getName() const;
    /// "/" and the names from the top down; empty for the root group.
    QString getPath() const;
    int getNumChildren() const;
    /// Owned by this group; null when there is no such child.
    VxPropertyGroup *getChild(int index) const;
    int getNumProperties() const;
    /// Not owned; null when there is no such property.
    VxProperty *getProperty(int index) const;

private:
    friend class VxPropertyGroupTree;
    Q_DISABLE_COPY(VxPropertyGroup)
    VxPropertyGroup();
    class Private;
    std::unique_ptr<Private> d;
};

/// The properties of an element sorted into groups by their paths.
class VXCORE_EXPORT VxPropertyGroupTree
{
public:
    VxPropertyGroupTree();
    ~VxPropertyGroupTree();

    VxPropertyGroup *getRoot() const;
    /// Adds a property to the group of its path; empty parts are dropped.
    void addProperty(VxProperty *property);

    /// Every property in the tree's order: those of a group first, then those of each of its
    /// sub-groups.
    QVector<VxProperty *> collectAllProperties() const;

private:
    Q_DISABLE_COPY(VxPropertyGroupTree)
    VxPropertyGroup *findOrAddChild(VxPropertyGroup *parent, const QString &name);
    class Private;
    std::unique_ptr<Private> d;
};

#endif
