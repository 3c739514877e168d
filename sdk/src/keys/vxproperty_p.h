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
    VxUndoTransientValue,
    VxUndoFirstFreeKind = 32
};

/// A property's reference to another one. The target lists it among its dependents, so that
/// reports reach them and destruction of the target clears the reference.
class VxPropertyDependency
{
public:
    VxPropertyDependency() = default;
    ~VxPropertyDependency() { set(nullptr, nullptr); }
    VxPropertyDependency(const VxPropertyDependency &) = delete;
    VxPropertyDependency &operator=(const VxPropertyDependency &) = delete;

    VxProperty *get() const { return m_property; }
    explicit operator bool() const { return m_property != nullptr; }
    VxProperty::Private *dependent() const { return m_dependent; }
    /// Replaces the target; null for none.
    void set(VxProperty::Private *dependent, VxProperty *property);

private:
    VxProperty *m_property = nullptr;
    VxProperty::Private *m_dependent = nullptr;
    int m_index = 0; // in the target's list of dependents
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

    /// Gives the keys a new revision; call after each change of them.
    void bumpKeyRevision();
    /// Reports a change of keys or value: at once, or at the end of the open block.
    void reportChange(const VxTimeRange &range);
    /// Emits valueChanged() of this property and of all its dependents, each once.
    void emitChange(const VxTimeRange &range);
    /// Emits traitsChanged().
    void emitTraits();
    /// Notes a change of something that undo items do not record.
    void noteUnrecordable() const;
    void updatePlain() { isPlain = !hasTransient && !aliased && !overriding && !linkedProperty(); }
    /// Recomputes isPlain and chainLength after a change of a reference, and reports it.
    void updateDependencies();
    /// False when a reference to target would close a cycle or make a chain of references longer
    /// than MaxReferenceChain.
    bool canReferTo(const VxProperty *target) const;
    /// Sets the alias or the overriding control, recorded; get and set are the property's functions
    /// for it. False when the kinds differ or the reference is not possible.
    template <auto get, auto set>
    bool refer(int kind, VxPropertyDependency *reference, VxProperty *property);
    /// Clears the references of all dependents: the property is being destroyed.
    void releaseDependents();
    /// The target of the link; only numeric properties have links.
    virtual VxProperty *linkedProperty() const { return nullptr; }

    VxProperty *q;
    QString name;
    QString label;
    QString path;
    VxElement *owner = nullptr;
    quint64 keyRevision;
    VxPropertyDependency aliased;
    VxPropertyDependency overriding;
    /// The references to this property.
    QVector<VxPropertyDependency *> dependents;
    /// The length of the longest chain of references that starts here; 0 without a reference.
    int chainLength = 0;
    bool hidden = false;
    bool dynamicallyHidden = false;
    bool locked = false;
    bool animatable = true;
    bool excluded = false;
    bool hasTransient = false;
    /// Neither alias nor override nor link nor transient value: the value is that of the property's
    /// own keys. The only check on the fast path of evaluation.
    bool isPlain = true;
    /// The list of changed properties that holds this one's pending report, and the index in it.
    QVector<VxProperty *> *pendingList = nullptr;
    int pendingIndex = 0;
    VxTimeRange pendingRange;

    /// Called once for each report, before the property's signal; the scene's hook, which saves a
    /// connection per property. False when the call destroyed the property. Null without a scene.
    static bool (*changeHook)(VxProperty *property);
};

#endif
