#ifndef VXPROPERTY_P_H
#define VXPROPERTY_P_H

#include <QtCore/QPointer>
#include <vxcore/vxproperty.h>

/// The kinds of undo items that a property makes.
enum VxPropertyUndoKind {
    VxUndoLabel = 1,
    VxUndoHidden,
    VxUndoDynamicallyHidden,
    VxUndoLocked,
    VxUndoAnimatable,
    VxUndoExcluded,
    VxUndoAlias,
    VxUndoOverride,
    VxUndoLink,
    VxUndoStoredValue,
    VxUndoKeys,
    VxUndoFirstFreeKind = 32
};

/// Another property that a property depends on: reports are passed on, and when the other one is
/// destroyed the dependency is gone.
class VxPropertyDependency
{
public:
    VxProperty *get() const { return m_property; }
    explicit operator bool() const { return m_property != nullptr; }
    /// Depends on property (null: on none) from now on.
    void set(VxProperty::Private *dependent, VxProperty *property);

private:
    VxProperty *m_property = nullptr;
    QMetaObject::Connection m_changed;
    QMetaObject::Connection m_deleted;
};

class VxProperty::Private
{
public:
    explicit Private(VxProperty *property)
        : q(property)
    {
        bumpKeyRevision();
    }
    virtual ~Private() = default;

    static Private *of(VxProperty *property) { return property->d.get(); }
    static const Private *of(const VxProperty *property) { return property->d.get(); }

    /// Gives the keys a new revision; after each change of them.
    void bumpKeyRevision();
    /// Reports a change of keys or value: at once, or at the end of the open block.
    void reportChange(const VxTimeRange &range);
    void emitChange(const VxTimeRange &range);
    /// Recomputes isPlain after an alias, an override or a link came or went, and tells of it.
    void updateDependencies();
    /// True when following the dependencies of from would lead to this property.
    bool isReachedFrom(const VxProperty *from) const;
    /// The property that a link leads to; only numeric properties have links.
    virtual VxProperty *linkedProperty() const { return nullptr; }

    VxProperty *q;
    QString name;
    QString label;
    QString path;
    VxElement *owner = nullptr;
    quint64 keyRevision;
    VxPropertyDependency aliased;
    VxPropertyDependency overriding;
    bool hidden = false;
    bool dynamicallyHidden = false;
    bool locked = false;
    bool animatable = true;
    bool excluded = false;
    /// Neither alias nor override nor link: the value is found right here. The fast path of
    /// evaluation asks only this.
    bool isPlain = true;
    /// The list of changed properties that waits for this one's report, and the place in it.
    QVector<VxProperty *> *pendingList = nullptr;
    int pendingIndex = 0;
    VxTimeRange pendingRange;

    /// Called once for each report, before the property's signal; the scene listens here, so that
    /// no connection per property is needed; false when that destroyed the property. Null when
    /// there is no scene.
    static bool (*changeHook)(VxProperty *property);
};

#endif
