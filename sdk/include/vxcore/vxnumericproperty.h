#ifndef VXNUMERICPROPERTY_H
#define VXNUMERICPROPERTY_H

#include <vxcore/vxproperty.h>

/// A property with a numeric value: it can be keyed, linked and moved in time.
///
/// A link makes the value follow another property's. An open link replaces the value altogether:
/// value = linked value * factor + offset. A terminal link adds to it: the property's own value
/// and keys count, and linked value * factor + offset is added; a search for the source of the
/// value ends there.
///
/// Functions that change values or keys return false (or 0, where they return a number of keys) and
/// change nothing when they are refused: the property or its key holder is locked, indexes are out
/// of range or not in order, times are not in order, or keys would be made and the property is not
/// animatable.
class VXCORE_EXPORT VxNumericProperty : public VxProperty
{
    Q_OBJECT
    Q_PROPERTY(double value READ getDoubleValue WRITE setDoubleValue)
    Q_PROPERTY(bool linked READ isLinked)
public:
    ~VxNumericProperty() override;

    bool canBeKeyed() const override;

    int getNumKeys() const override;
    const VxTime *getKeyTimes() const override;
    int deleteKeys(const VxTimeRange &range) override;
    int deleteKeys(int first, int last) override;
    int deleteKeys(const QVector<int> &indexes) override;
    /// Memory used by the keys in bytes, unused capacity included.
    qint64 getKeyMemory() const;

    bool isLinked() const;
    bool isLinkTerminal() const;
    VxNumericProperty *getLinkedProperty() const;
    double getLinkFactor() const;
    double getLinkOffset() const;
    /// False, and nothing changes, when a cycle or a chain of more than MaxReferenceChain
    /// references would arise, or when factor or offset is not finite. Null removes the link. Not
    /// owned; destroying the target removes the link. A float property limits linked values to the
    /// range of single precision, an int property to that of int.
    bool setLink(VxNumericProperty *property, bool terminal = false, double factor = 1.0,
                 double offset = 0.0);

    /// The value at a time, at the scene's time, and of a key (0 when there is no such key).
    virtual double getDoubleValue(VxTime time) const = 0;
    double getDoubleValue() const;
    double getKeyDoubleValue(int index) const;

    /// Sets the value at a time: while the scene animates and the property is animatable, makes
    /// or replaces the key there (a replaced key keeps its interpolation, a new one takes that of
    /// the key before it, else the property's default); otherwise changes the stored value, or,
    /// where there are keys, the key at that time if there is one. An int property rounds to the
    /// nearest. False when refused (locked, or neither key nor stored value applies).
    virtual bool setDoubleValue(VxTime time, double value) = 0;
    bool setDoubleValue(double value);

    /// Moves keys to new times in one pass: newTimes[i] is for the key at indexes[i] (ascending,
    /// no duplicates). Other keys at a new time are replaced. Two moved keys must not get the same
    /// time. A moved key keeps value and interpolation. False when refused.
    bool moveKeys(const QVector<int> &indexes, const QVector<VxTime> &newTimes);
    /// Moves all keys within range by offset ticks; the same rules. Times are limited to 32 bits.
    bool shiftKeys(const VxTimeRange &range, VxTime offset);

    /// True when the value is shown as a percentage (1.0 is shown as 100).
    bool isPercentage() const;
    void setPercentage(bool percentage);

    class Private; // the library's own

protected:
    VxNumericProperty(const QString &name, Private *priv);
    Private *priv() const;
};

#endif
