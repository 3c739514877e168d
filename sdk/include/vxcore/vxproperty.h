#ifndef VXPROPERTY_H
#define VXPROPERTY_H

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxsignalguard.h>
#include <vxcore/vxtimerange.h>

class VxElement;

/// One named value of an element: the base of all kinds of properties.
///
/// The key operations are here, so that rows and skips treat all properties alike; a property that
/// cannot have keys returns zero and refuses. Keys are counted from 0 in ascending order of time,
/// and no two keys of a property have the same time.
///
/// A property may refer to another (an alias) or be replaced by another (an overriding
/// control). The property that actually holds the keys is its key holder; every key operation on
/// either acts on the holder, and both report a change of it.
class VXCORE_EXPORT VxProperty : public VxSignalGuard<QObject>
{
    Q_OBJECT
    Q_PROPERTY(QString name READ getName)
    Q_PROPERTY(QString label READ getLabel WRITE setLabel)
    Q_PROPERTY(QString path READ getPath)
    Q_PROPERTY(bool hidden READ isHidden WRITE setHidden)
    Q_PROPERTY(bool locked READ isLocked WRITE setLocked)
    Q_PROPERTY(bool animatable READ isAnimatable WRITE setAnimatable)
    Q_PROPERTY(bool alias READ isAlias)
    Q_PROPERTY(int numKeys READ getNumKeys)
public:
    class Private;

    /// The longest chain of aliases, overriding controls and links that can be made, in references.
    static constexpr int MaxReferenceChain = 128;
    /// The deepest nesting of groups in a path that an element accepts, in groups.
    static constexpr int MaxGroupDepth = 64;

    /// name: the identifier, unique within its element; also the object name. The label is the
    /// same text until setLabel().
    explicit VxProperty(const QString &name);
    /// Emits propertyDeleted() first.
    ~VxProperty() override;

    QString getName() const;
    QString getLabel() const;
    void setLabel(const QString &label);

    /// The group path: "/" and group names joined with "/", such as
    /// "/General/Transforms/Translation". Empty for no group. Set by the element that takes the
    /// property; change it only before that.
    QString getPath() const;
    void setPath(const QString &path);

    /// The element that owns the property; null before it was added to one.
    VxElement *getOwner() const;

    /// Hidden by its author, or dynamically because of other state. Either makes a property count
    /// as hidden.
    bool isHidden() const;
    void setHidden(bool hidden);
    bool isDynamicallyHidden() const;
    void setDynamicallyHidden(bool hidden);

    /// A locked property refuses every change of its value and keys.
    bool isLocked() const;
    void setLocked(bool locked);
    /// False for a property whose value never changes over time: it has a value but no keys.
    bool isAnimatable() const;
    void setAnimatable(bool animatable);

    /// True when the property can have keys at all: it is numeric and animatable.
    virtual bool canBeKeyed() const;
    /// True for a property that animation editors leave out.
    bool isExcluded() const;
    void setExcluded(bool excluded);

    /// Whether the property refers to another, and that property (null when it does not).
    bool isAlias() const;
    VxProperty *getAliasedProperty() const;
    /// Makes the property an alias of another of the same kind; null makes it an ordinary property
    /// again. False, and nothing changes, when the kinds differ, or when a cycle or a chain of more
    /// than MaxReferenceChain references would arise. Not owned; destroying the target makes an
    /// alias an ordinary property again.
    bool setAliasedProperty(VxProperty *property);

    /// The control that overrides the property, or null. Not owned; same rules as above.
    VxProperty *getOverridingControl() const;
    bool setOverridingControl(VxProperty *property);

    /// The property whose keys this one shows: overriding controls and aliases followed, at most
    /// 100 steps. Itself when there are none. Never null.
    VxProperty *getKeyHolder() const;

    /// A number that differs after every change of the keys (times, values, shapes), within a
    /// VxChangeBlock too, and after a change of the key holder; never 0. A cache of keys is current
    /// while its number equals this one. Numbers are unique across properties: different key
    /// holders never have the same.
    quint64 keyRevision() const;
    /// The revision that any property got last: while it is unchanged, no keys have changed.
    static quint64 latestKeyRevision();
    /// A number, never 0, that differs after every change of an alias, an overriding control or a
    /// link, and after a property was created: while it is unchanged, all properties have the same
    /// key holders, and there are no new ones.
    static quint64 latestHolderRevision();

    Q_INVOKABLE virtual int getNumKeys() const;
    /// The time of the key at index, in ticks; 0 when there is no such key.
    Q_INVOKABLE VxTime getKeyTime(int index) const;
    /// The index of the key at exactly time, or -1.
    Q_INVOKABLE int findKey(VxTime time) const;
    /// True when there is a key at exactly time; index, when given, receives its index.
    bool hasKey(VxTime time, int *index = nullptr) const;
    /// The times of all keys, ascending, as a plain array of getNumKeys() entries: borrowed, valid
    /// until the next change of the property's keys. Null when there is no key.
    virtual const VxTime *getKeyTimes() const;
    /// The index of the first key at or after time; getNumKeys() when there is none.
    int getFirstKeyFrom(VxTime time) const;

    /// The interpolation type of a key (0 Linear, 1 Constant, 2 TCB) and its tension, continuity
    /// and bias (0 unless it has some), where given. 0 when there is no such key.
    virtual int getKeyInterpolationType(int index, float *tension = nullptr,
                                        float *continuity = nullptr, float *bias = nullptr) const;

    /// Removes every key with a time in the range, ends included. Returns how many.
    virtual int deleteKeys(const VxTimeRange &range);
    /// Removes the keys from first to last, both included. Indexes outside are clamped. Returns how
    /// many.
    virtual int deleteKeys(int first, int last);
    /// Removes the keys at the given indexes (ascending, no duplicates) in one pass. Returns how
    /// many; 0, and nothing changes, when an index is out of range.
    virtual int deleteKeys(const QVector<int> &indexes);
    /// Removes every key. Returns how many.
    Q_INVOKABLE int deleteAllKeys();

Q_SIGNALS:
    /// Keys or value changed. range spans the times of all keys added, removed, moved or changed,
    /// both ends included; it is every time when a value without keys changed. Within a
    /// VxChangeBlock it is sent once, for all changes together, at the block's end.
    void valueChanged(const VxTimeRange &range);
    /// The property is being destroyed: only its address may be used.
    void propertyDeleted(VxProperty *property);
    /// Label, hidden, locked, animatable, alias or another trait changed.
    void traitsChanged();

protected:
    VxProperty(const QString &name, Private *priv);
    Private *priv() const { return d.get(); }
    friend class VxElement;
    friend class VxChangeBlock;

private:
    std::unique_ptr<Private> d;
};

#endif
