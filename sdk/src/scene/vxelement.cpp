#include "scene/vxelement_p.h"

#include "keys/vxproperty_p.h"
#include "scene/deferreddeletion.h"
#include "scene/elementundo.h"
#include "undo/vxundovalueitem.h"

#include <algorithm>
#include <iterator>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>

namespace {

/// The classes that signals of elements only forward declare; scripts and queued connections need
/// them as types.
void registerTypes()
{
    static const bool done = [] {
        qRegisterMetaType<VxProperty *>();
        qRegisterMetaType<VxElement *>();
        qRegisterMetaType<VxNode *>();
        qRegisterMetaType<VxObject *>();
        return true;
    }();
    Q_UNUSED(done)
}

} // namespace

VxScene *VxElement::Private::findScene() const
{
    const Private *record = this;
    while (record->owner)
        record = of(record->owner);
    return record->scene;
}

VxNode *VxElement::Private::findNode() const
{
    const Private *record = this;
    while (record->owner)
        record = of(record->owner);
    return qobject_cast<VxNode *>(record->q);
}

void VxElement::Private::invalidateGroups()
{
    for (Private *record = this; record; record = record->owner ? of(record->owner) : nullptr)
        record->groups.reset();
}

void VxElement::Private::release(VxProperty *property)
{
    properties.remove(indexOf(property));
    byName.remove(property->getName());
    VxProperty::Private::of(property)->owner = nullptr;
    invalidateGroups();
}

void VxElement::Private::take(VxProperty *property)
{
    const DeferredDeletion hold;
    property->setParent(nullptr);
    release(property);
    Q_EMIT q->propertyRemoved(property);
    notifyPropertiesChanged();
}

void VxElement::Private::insert(VxProperty *property, int index)
{
    const DeferredDeletion hold;
    property->setParent(q);
    VxProperty::Private::of(property)->owner = q;
    properties.insert(qMin(index, properties.size()), property);
    byName.insert(property->getName(), property);
    invalidateGroups();
    Q_EMIT q->propertyAdded(property);
    notifyPropertiesChanged();
}

void VxElement::Private::notifyPropertiesChanged() const
{
    const DeferredDeletion hold;
    if (VxScene *inScene = findScene())
        Q_EMIT inScene->nodePropertiesChanged(findNode());
}

VxProperty *VxElement::Private::propertyAt(int index)
{
    VxProperty *property = properties.at(index);
    return property ? property : makeProperty(index);
}

void VxElement::Private::loseProperty(VxProperty *property)
{
    const DeferredDeletion hold;
    VxElement *element = property->getOwner();
    Private *record = of(element);
    record->propertyLost(property);
    record->release(property);
    Q_EMIT element->propertyRemoved(property);
    record->notifyPropertiesChanged();
}

void VxElement::Private::announceRemovalOfAll()
{
    QVector<VxElement *> elements;
    collect(q, elements);
    const QVector<QPointer<VxElement>> guarded(elements.begin(), elements.end());
    for (VxElement *element : guarded) {
        if (element)
            of(element)->announceRemoval();
    }
}

void VxElement::Private::noteInsertionOfAll()
{
    QVector<VxElement *> elements;
    collect(q, elements);
    for (VxElement *element : qAsConst(elements))
        of(element)->removalAnnounced = false;
}

void VxElement::Private::announceRemoval()
{
    if (removalAnnounced)
        return;
    const DeferredDeletion hold;
    removalAnnounced = true;
    Q_EMIT q->aboutToBeRemoved();
}

void VxElement::Private::collect(VxElement *element, QVector<VxElement *> &list)
{
    list.append(element);
    const QVector<VxElement *> grouped = element->groupedElements();
    for (VxElement *below : grouped)
        collect(below, list);
}

VxElement::VxElement(const QString &name)
    : VxElement(name, new Private)
{
}

VxElement::VxElement(const QString &name, Private *priv)
    : d(priv)
{
    registerTypes();
    d->q = this;
    d->name = name;
    d->label = name;
    setObjectName(name);
}

VxElement::~VxElement()
{
    d->announceRemoval();
    if (d->owner)
        Private::of(d->owner)->elementLost(this);
    d->groups.reset();
    d->byName.clear();
    const QVector<VxProperty *> properties = std::move(d->properties);
    d->properties.clear();
    for (VxProperty *property : properties) {
        if (!property)
            continue;
        VxProperty::Private::of(property)->owner = nullptr;
        delete property;
    }
}

QString VxElement::getName() const
{
    return d->name;
}

QString VxElement::getLabel() const
{
    return d->label;
}

void VxElement::setLabel(const QString &label)
{
    if (!vxChange<&VxElement::getLabel, &VxElement::setLabel>(this, VxUndoElementLabel, &d->label,
                                                              label, d->findScene()))
        return;
    const DeferredDeletion hold;
    Q_EMIT labelChanged(label);
}

VxElement *VxElement::getOwnerElement() const
{
    return d->owner;
}

int VxElement::getNumProperties() const
{
    return d->properties.size();
}

VxProperty *VxElement::getProperty(int index) const
{
    return index >= 0 && index < d->properties.size() ? d->propertyAt(index) : nullptr;
}

VxProperty *VxElement::findProperty(const QString &name) const
{
    if (VxProperty *property = d->byName.value(name))
        return property;
    const int unmade = d->unmadeIndexOf(name);
    return unmade >= 0 ? d->propertyAt(unmade) : nullptr;
}

QVector<VxProperty *> VxElement::getMadeProperties() const
{
    QVector<VxProperty *> made;
    std::copy_if(d->properties.cbegin(), d->properties.cend(), std::back_inserter(made),
                 [](const VxProperty *property) { return property != nullptr; });
    return made;
}

VxProperty *VxElement::addProperty(VxProperty *property, const QString &path)
{
    if (!property) {
        qWarning("VxElement::addProperty(): no property for \"%s\"", qUtf8Printable(d->name));
        return nullptr;
    }
    if (property->getOwner() || d->byName.contains(property->getName()) ||
        d->unmadeIndexOf(property->getName()) >= 0) {
        qWarning("VxElement::addProperty(): \"%s\" %s and cannot be added to \"%s\"",
                 qUtf8Printable(property->getName()),
                 property->getOwner() ? "has an owner" : "has a name in use",
                 qUtf8Printable(d->name));
        return nullptr;
    }
    if (path.count(QLatin1Char('/')) > VxProperty::MaxGroupDepth) {
        qWarning("VxElement::addProperty(): \"%s\" is nested in more than %d groups, and cannot be "
                 "added to \"%s\"",
                 qUtf8Printable(property->getName()), VxProperty::MaxGroupDepth,
                 qUtf8Printable(d->name));
        return nullptr;
    }
    property->setPath(path);
    if (ElementPropertyItem *item = recordPropertyPlace(this, property, -1))
        item->setOwning(false);
    d->insert(property, d->properties.size());
    return property;
}

bool VxElement::removeProperty(VxProperty *property)
{
    if (!property || property->getOwner() != this || d->isBuiltIn(property)) {
        qWarning("VxElement::removeProperty(): \"%s\" cannot be removed from \"%s\"",
                 property ? qUtf8Printable(property->getName()) : "null", qUtf8Printable(d->name));
        return false;
    }
    const DeferredDeletion hold;
    ElementPropertyItem *item = recordPropertyPlace(this, property, d->indexOf(property));
    if (item)
        item->setOwning(true);
    d->take(property);
    if (!item)
        DeferredDeletion::discard(property);
    return true;
}

VxPropertyGroupTree *VxElement::getPropertyGroups() const
{
    if (!d->groups) {
        d->groups = std::make_unique<VxPropertyGroupTree>();
        QVector<VxElement *> elements;
        Private::collect(const_cast<VxElement *>(this), elements);
        for (const VxElement *element : qAsConst(elements)) {
            for (int i = 0; i < element->getNumProperties(); ++i)
                d->groups->addProperty(element->getProperty(i));
        }
    }
    return d->groups.get();
}

QVector<VxElement *> VxElement::groupedElements() const
{
    return {};
}
