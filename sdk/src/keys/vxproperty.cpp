#include <vxcore/vxproperty.h>

#include "keys/vxchangeblock_p.h"
#include "keys/vxproperty_p.h"
#include "scene/vxelement_p.h"
#include "undo/vxundovalueitem.h"

#include <QtCore/QSet>
#include <algorithm>

namespace {

/// Chains of aliases and overrides longer than this are not followed to their end.
constexpr int MaxChain = 100;

quint64 latestRevision = 0;
quint64 holderRevision = 1;

} // namespace

bool (*VxProperty::Private::changeHook)(VxProperty *) = nullptr;

// One counter for all properties: no two of them ever have the same revision, so that one number
// also shows that a property got another key holder.
void VxProperty::Private::bumpKeyRevision()
{
    keyRevision = ++latestRevision;
}

void VxProperty::Private::reportChange(const VxTimeRange &range)
{
    if (VxChangeBlock::isActive())
        VxPendingChanges::add(this, range);
    else
        VxPendingChanges::send(this, range);
}

void VxProperty::Private::emitChange(const VxTimeRange &range)
{
    if (!changeHook || changeHook(q))
        Q_EMIT q->valueChanged(range);
}

void VxPropertyDependency::set(VxProperty::Private *dependent, VxProperty *property)
{
    QObject::disconnect(m_changed);
    QObject::disconnect(m_deleted);
    m_property = property;
    if (!property)
        return;
    m_changed =
        QObject::connect(property, &VxProperty::valueChanged, dependent->q,
                         [dependent](const VxTimeRange &range) { dependent->emitChange(range); });
    m_deleted =
        QObject::connect(property, &VxProperty::propertyDeleted, dependent->q, [this, dependent] {
            m_property = nullptr;
            dependent->updateDependencies();
        });
}

void VxProperty::Private::updateDependencies()
{
    isPlain = !aliased && !overriding && !linkedProperty();
    ++holderRevision;
    Q_EMIT q->traitsChanged();
    reportChange(VxTimeRange::all());
}

bool VxProperty::Private::isReachedFrom(const VxProperty *from) const
{
    QSet<const VxProperty *> seen;
    QVector<const VxProperty *> open{from};
    while (!open.isEmpty()) {
        const VxProperty *property = open.takeLast();
        if (!property || seen.contains(property))
            continue;
        if (property == q)
            return true;
        seen.insert(property);
        const Private *record = of(property);
        open << record->aliased.get() << record->overriding.get() << record->linkedProperty();
    }
    return false;
}

VxProperty::VxProperty(const QString &name)
    : VxProperty(name, new Private(this))
{
}

VxProperty::VxProperty(const QString &name, Private *priv)
    : d(priv)
{
    d->name = name;
    d->label = name;
    setObjectName(name);
}

VxProperty::~VxProperty()
{
    if (d->owner)
        VxElement::Private::loseProperty(this);
    VxPendingChanges::remove(d.get());
    Q_EMIT propertyDeleted(this);
}

QString VxProperty::getName() const
{
    return d->name;
}

QString VxProperty::getLabel() const
{
    return d->label;
}

void VxProperty::setLabel(const QString &label)
{
    if (d->label == label)
        return;
    vxRecordValue<VxProperty, QString>(
        this, VxUndoLabel, [](const VxProperty *p) { return p->getLabel(); },
        [](VxProperty *p, const QString &value) { p->setLabel(value); });
    d->label = label;
    Q_EMIT traitsChanged();
}

QString VxProperty::getPath() const
{
    return d->path;
}

void VxProperty::setPath(const QString &path)
{
    d->path = path;
}

VxElement *VxProperty::getOwner() const
{
    return d->owner;
}

bool VxProperty::isHidden() const
{
    return d->hidden;
}

void VxProperty::setHidden(bool hidden)
{
    if (d->hidden == hidden)
        return;
    vxRecordValue<VxProperty, bool>(
        this, VxUndoHidden, [](const VxProperty *p) { return p->isHidden(); },
        [](VxProperty *p, const bool &value) { p->setHidden(value); });
    d->hidden = hidden;
    Q_EMIT traitsChanged();
}

bool VxProperty::isDynamicallyHidden() const
{
    return d->dynamicallyHidden;
}

void VxProperty::setDynamicallyHidden(bool hidden)
{
    if (d->dynamicallyHidden == hidden)
        return;
    d->dynamicallyHidden = hidden;
    Q_EMIT traitsChanged();
}

bool VxProperty::isLocked() const
{
    return d->locked;
}

void VxProperty::setLocked(bool locked)
{
    if (d->locked == locked)
        return;
    vxRecordValue<VxProperty, bool>(
        this, VxUndoLocked, [](const VxProperty *p) { return p->isLocked(); },
        [](VxProperty *p, const bool &value) { p->setLocked(value); });
    d->locked = locked;
    Q_EMIT traitsChanged();
}

bool VxProperty::isAnimatable() const
{
    return d->animatable;
}

void VxProperty::setAnimatable(bool animatable)
{
    if (d->animatable == animatable)
        return;
    vxRecordValue<VxProperty, bool>(
        this, VxUndoAnimatable, [](const VxProperty *p) { return p->isAnimatable(); },
        [](VxProperty *p, const bool &value) { p->setAnimatable(value); });
    d->animatable = animatable;
    Q_EMIT traitsChanged();
}

bool VxProperty::canBeKeyed() const
{
    return false;
}

bool VxProperty::isExcluded() const
{
    return d->excluded;
}

void VxProperty::setExcluded(bool excluded)
{
    if (d->excluded == excluded)
        return;
    d->excluded = excluded;
    Q_EMIT traitsChanged();
}

bool VxProperty::isAlias() const
{
    return bool(d->aliased);
}

VxProperty *VxProperty::getAliasedProperty() const
{
    return d->aliased.get();
}

bool VxProperty::setAliasedProperty(VxProperty *property)
{
    if (property == d->aliased.get())
        return true;
    if (property && (property->metaObject() != metaObject() || d->isReachedFrom(property)))
        return false;
    using Guarded = QPointer<VxProperty>;
    vxRecordValue<VxProperty, Guarded>(
        this, VxUndoAlias, [](const VxProperty *p) { return Guarded(p->getAliasedProperty()); },
        [](VxProperty *p, const Guarded &value) { p->setAliasedProperty(value); });
    d->aliased.set(d.get(), property);
    d->updateDependencies();
    return true;
}

VxProperty *VxProperty::getOverridingControl() const
{
    return d->overriding.get();
}

bool VxProperty::setOverridingControl(VxProperty *property)
{
    if (property == d->overriding.get())
        return true;
    if (property && (property->metaObject() != metaObject() || d->isReachedFrom(property)))
        return false;
    using Guarded = QPointer<VxProperty>;
    vxRecordValue<VxProperty, Guarded>(
        this, VxUndoOverride,
        [](const VxProperty *p) { return Guarded(p->getOverridingControl()); },
        [](VxProperty *p, const Guarded &value) { p->setOverridingControl(value); });
    d->overriding.set(d.get(), property);
    d->updateDependencies();
    return true;
}

VxProperty *VxProperty::getKeyHolder() const
{
    const VxProperty *holder = this;
    for (int step = 0; step < MaxChain; ++step) {
        const Private *record = Private::of(holder);
        const VxProperty *next =
            record->overriding ? record->overriding.get() : record->aliased.get();
        if (!next)
            break;
        holder = next;
    }
    return const_cast<VxProperty *>(holder);
}

quint64 VxProperty::keyRevision() const
{
    return Private::of(d->isPlain ? this : getKeyHolder())->keyRevision;
}

quint64 VxProperty::latestKeyRevision()
{
    return latestRevision;
}

quint64 VxProperty::latestHolderRevision()
{
    return holderRevision;
}

int VxProperty::getNumKeys() const
{
    return 0;
}

VxTime VxProperty::getKeyTime(int index) const
{
    return index >= 0 && index < getNumKeys() ? getKeyTimes()[index] : 0;
}

int VxProperty::findKey(VxTime time) const
{
    const int index = getFirstKeyFrom(time);
    return index < getNumKeys() && getKeyTimes()[index] == time ? index : -1;
}

bool VxProperty::hasKey(VxTime time, int *index) const
{
    const int found = findKey(time);
    if (found >= 0 && index)
        *index = found;
    return found >= 0;
}

const VxTime *VxProperty::getKeyTimes() const
{
    return nullptr;
}

int VxProperty::getFirstKeyFrom(VxTime time) const
{
    const VxTime *times = getKeyTimes();
    return static_cast<int>(std::lower_bound(times, times + getNumKeys(), time) - times);
}

int VxProperty::getKeyInterpolationType(int, float *tension, float *continuity, float *bias) const
{
    for (float *value : {tension, continuity, bias}) {
        if (value)
            *value = 0.0f;
    }
    return 0;
}

int VxProperty::deleteKeys(const VxTimeRange &)
{
    return 0;
}

int VxProperty::deleteKeys(int, int)
{
    return 0;
}

int VxProperty::deleteKeys(const QVector<int> &)
{
    return 0;
}

int VxProperty::deleteAllKeys()
{
    return deleteKeys(0, getNumKeys() - 1);
}
