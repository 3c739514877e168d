#include <vxcore/vxpropertygrouptree.h>

#include <QtCore/QHash>
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
    QString path;
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
    return d->path;
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
    /// By clean path, "/" before each name.
    QHash<QString, VxPropertyGroup *> byPath;
    /// By the paths that properties gave, so that each is taken apart only once.
    QHash<QString, VxPropertyGroup *> byGivenPath;
};

VxPropertyGroupTree::VxPropertyGroupTree()
    : d(std::make_unique<Private>())
{
    d->root.reset(new VxPropertyGroup);
    d->byPath.insert(QString(), d->root.get());
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
    const QString path = parent->d->path + QLatin1Char('/') + name;
    VxPropertyGroup *&group = d->byPath[path];
    if (!group) {
        group = new VxPropertyGroup;
        group->d->name = name;
        group->d->path = path;
        parent->d->children.emplace_back(group);
    }
    return group;
}

VxPropertyGroup *VxPropertyGroupTree::findGroup(const QString &path) const
{
    QString clean;
    const QStringList names = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString &name : names)
        clean += QLatin1Char('/') + name;
    return d->byPath.value(clean);
}

QVector<VxProperty *> VxPropertyGroupTree::collectAllProperties() const
{
    QVector<VxProperty *> list;
    d->root->d->collect(list);
    return list;
}
