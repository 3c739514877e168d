#include <vxcore/vxproperty.h>

#include "keys/vxchangeblock_p.h"
#include "keys/vxproperty_p.h"
#include "scene/deferreddeletion.h"
#include "scene/vxelement_p.h"
#include "undo/vxundovalueitem.h"

#include <QtCore/QSet>
#include <algorithm>

namespace {

/// Most aliases and overrides that are followed to the key holder. A longer chain, which may have
/// up to MaxReferenceChain references, ends early: the property after this many counts as the
/// holder.
constexpr int MaxChain = 100;

quint64 latestRevision = 0;
quint64 holderRevision = 1;

} // namespace

bool (*VxProperty::Private::changeHook)(VxProperty *) = nullptr;

// One counter for all properties: revisions are globally unique, so that one number also reveals a
// change of key holder.
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
    const DeferredDeletion hold;
    const auto emitOne = [&range](VxProperty *property) {
        if (!changeHook || changeHook(property))
            Q_EMIT property->valueChanged(range);
    };
    if (dependents.isEmpty()) {
        emitOne(q);
        return;
    }
    // Dependents are collected first: several paths may reach one of them, and receivers may
    // change the references.
    QVector<QPointer<VxProperty>> affected{q};
    QSet<const VxProperty *> seen{q};
    for (int i = 0; i < affected.size(); ++i) {
        for (const VxPropertyDependency *reference : qAsConst(of(affected.at(i))->dependents)) {
            VxProperty *dependent = reference->dependent()->q;
            if (!seen.contains(dependent)) {
                seen.insert(dependent);
                affected.append(dependent);
            }
        }
    }
    for (const QPointer<VxProperty> &property : qAsConst(affected)) {
        if (property)
            emitOne(property);
    }
}

void VxPropertyDependency::set(VxProperty::Private *dependent, VxProperty *property)
{
    if (m_property) {
        QVector<VxPropertyDependency *> &list = VxProperty::Private::of(m_property)->dependents;
        list[m_index] = list.last();
        list[m_index]->m_index = m_index;
        list.removeLast();
    }
    m_property = property;
    m_dependent = dependent;
    if (!property)
        return;
    QVector<VxPropertyDependency *> &list = VxProperty::Private::of(property)->dependents;
    m_index = list.size();
    list.append(this);
}

void VxProperty::Private::emitTraits()
{
    const DeferredDeletion hold;
    Q_EMIT q->traitsChanged();
}

void VxProperty::Private::noteUnrecordable() const
{
    VxUndoStack *stack = VxUndoStack::current();
    if (stack && vxIsInDocument(q))
        stack->noteUnrecordedChange();
}

void VxProperty::Private::updateDependencies()
{
    updatePlain();
    ++holderRevision;
    const auto length = [](const VxProperty *target) {
        return target ? of(target)->chainLength + 1 : 0;
    };
    QVector<Private *> open{this};
    while (!open.isEmpty()) {
        Private *record = open.takeLast();
        const int longest =
            std::max({length(record->aliased.get()), length(record->overriding.get()),
                      length(record->linkedProperty())});
        if (record->chainLength == longest)
            continue;
        record->chainLength = longest;
        for (const VxPropertyDependency *reference : qAsConst(record->dependents))
            open.append(reference->dependent());
    }
    const DeferredDeletion hold;
    emitTraits();
    reportChange(VxTimeRange::all());
}

bool VxProperty::Private::canReferTo(const VxProperty *target) const
{
    // Breadth first through the dependents: the number of levels is the length of the longest
    // chain that ends here, and a cycle would have the target among them.
    QSet<const Private *> level{this};
    for (int above = 0; !level.isEmpty(); ++above) {
        if (level.contains(of(target)) || above + 1 + of(target)->chainLength > MaxReferenceChain)
            return false;
        QSet<const Private *> next;
        for (const Private *record : qAsConst(level)) {
            for (const VxPropertyDependency *reference : record->dependents)
                next.insert(reference->dependent());
        }
        level.swap(next);
    }
    return true;
}

void VxProperty::Private::releaseDependents()
{
    while (!dependents.isEmpty()) {
        VxPropertyDependency *reference = dependents.last();
        Private *dependent = reference->dependent();
        reference->set(nullptr, nullptr);
        dependent->updateDependencies();
    }
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
    ++holderRevision;
}

VxProperty::~VxProperty()
{
    if (d->owner)
        VxElement::Private::loseProperty(this);
    VxPendingChanges::remove(d.get());
    d->releaseDependents();
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
    if (vxChange<&VxProperty::getLabel, &VxProperty::setLabel>(this, VxUndoLabel, &d->label, label))
        d->emitTraits();
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
    if (vxChange<&VxProperty::isHidden, &VxProperty::setHidden>(this, VxUndoHidden, &d->hidden,
                                                                hidden))
        d->emitTraits();
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
    d->noteUnrecordable();
    d->emitTraits();
}

bool VxProperty::isLocked() const
{
    return d->locked;
}

void VxProperty::setLocked(bool locked)
{
    if (vxChange<&VxProperty::isLocked, &VxProperty::setLocked>(this, VxUndoLocked, &d->locked,
                                                                locked))
        d->emitTraits();
}

bool VxProperty::isAnimatable() const
{
    return d->animatable;
}

void VxProperty::setAnimatable(bool animatable)
{
    if (vxChange<&VxProperty::isAnimatable, &VxProperty::setAnimatable>(this, VxUndoAnimatable,
                                                                        &d->animatable, animatable))
        d->emitTraits();
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
    d->noteUnrecordable();
    d->emitTraits();
}

template <auto get, auto set>
bool VxProperty::Private::refer(int kind, VxPropertyDependency *reference, VxProperty *property)
{
    if (property == reference->get())
        return true;
    if (property && (property->metaObject() != q->metaObject() || !canReferTo(property)))
        return false;
    using Guarded = QPointer<VxProperty>;
    vxRecordValue<VxProperty, Guarded>(
        q, kind, [](const VxProperty *p) { return Guarded((p->*get)()); },
        [](VxProperty *p, const Guarded &value) { (p->*set)(value); });
    reference->set(this, property);
    updateDependencies();
    return true;
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
    return d->refer<&VxProperty::getAliasedProperty, &VxProperty::setAliasedProperty>(
        VxUndoAlias, &d->aliased, property);
}

VxProperty *VxProperty::getOverridingControl() const
{
    return d->overriding.get();
}

bool VxProperty::setOverridingControl(VxProperty *property)
{
    return d->refer<&VxProperty::getOverridingControl, &VxProperty::setOverridingControl>(
        VxUndoOverride, &d->overriding, property);
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
