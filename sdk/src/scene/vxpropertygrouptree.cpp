#include <vxcore/vxpropertygrouptree.h>

#include <QtCore/QHash>
#include <QtCore/QPair>
#include <QtCore/QStringList>
#include <vector>
#include <vxcore/vxproperty.h>

class VxPropertyGroup::Private
{
public:
    void collect(QVector<VxProperty *> &list) const
    {
        list += properties;
        for (const auto &child : children)
            child->d->collect(list);
    }

    QString name;
    const VxPropertyGroup *parent = nullptr;
    std::vector<std::unique_ptr<VxPropertyGroup>> children;
    QVector<VxProperty *> properties;
};

VxPropertyGroup::VxPropertyGroup()
    : d(std::make_unique<Private>())
{
}

VxPropertyGroup::~VxPropertyGroup() = default;

QString VxPropertyGroup::getName() const
{
    return d->name;
}

QString VxPropertyGroup::getPath() const
{
    QString path;
    for (const VxPropertyGroup *group = this; group->d->parent; group = group->d->parent)
        path.prepend(QLatin1Char('/') + group->d->name);
    return path;
}

int VxPropertyGroup::getNumChildren() const
{
    return static_cast<int>(d->children.size());
}

VxPropertyGroup *VxPropertyGroup::getChild(int index) const
{
    return index >= 0 && index < getNumChildren() ? d->children[size_t(index)].get() : nullptr;
}

int VxPropertyGroup::getNumProperties() const
{
    return d->properties.size();
}

VxProperty *VxPropertyGroup::getProperty(int index) const
{
    return d->properties.value(index);
}

class VxPropertyGroupTree::Private
{
public:
    std::unique_ptr<VxPropertyGroup> root;
    /// By parent and name.
    QHash<QPair<const VxPropertyGroup *, QString>, VxPropertyGroup *> children;
    /// By the paths of added properties, so that each is parsed only once.
    QHash<QString, VxPropertyGroup *> byGivenPath;
};

VxPropertyGroupTree::VxPropertyGroupTree()
    : d(std::make_unique<Private>())
{
    d->root.reset(new VxPropertyGroup);
}

VxPropertyGroupTree::~VxPropertyGroupTree() = default;

VxPropertyGroup *VxPropertyGroupTree::getRoot() const
{
    return d->root.get();
}

void VxPropertyGroupTree::addProperty(VxProperty *property)
{
    if (!property)
        return;
    const QString given = property->getPath();
    VxPropertyGroup *&group = d->byGivenPath[given];
    if (!group) {
        group = d->root.get();
        const QStringList names = given.split(QLatin1Char('/'), Qt::SkipEmptyParts);
        for (const QString &name : names)
            group = findOrAddChild(group, name);
    }
    group->d->properties.append(property);
}

VxPropertyGroup *VxPropertyGroupTree::findOrAddChild(VxPropertyGroup *parent, const QString &name)
{
    VxPropertyGroup *&group = d->children[{parent, name}];
    if (!group) {
        group = new VxPropertyGroup;
        group->d->name = name;
        group->d->parent = parent;
        parent->d->children.emplace_back(group);
    }
    return group;
}

QVector<VxProperty *> VxPropertyGroupTree::collectAllProperties() const
{
    QVector<VxProperty *> list;
    d->root->d->collect(list);
    return list;
}
