#ifndef ACCESSIBLEKEYS_H
#define ACCESSIBLEKEYS_H

#include <QtCore/QCoreApplication>
#include <QtCore/QRect>
#include <QtCore/QVector>
#include <QtGui/QAccessible>
#include <memory>
#include <vxcore/vxtime.h>

class VxProperty;

/// The keys of a row of the dope sheet or of a channel of the key graph, as screen readers need
/// them. It refers to the row or channel and stores nothing of it.
class AccessibleKeySource
{
public:
    virtual ~AccessibleKeySource() = default;

    /// False once the row or channel was removed; nothing else may be called then.
    virtual bool isValid() const = 0;
    /// The address by which objects of these keys are found again.
    virtual const void *owner() const = 0;
    /// Of the list of keys: what it is, what it is called, and the object that it belongs to.
    virtual QAccessible::Role role() const = 0;
    virtual QString name() const = 0;
    virtual QAccessibleInterface *parent() const = 0;
    virtual int indexInParent() const = 0;
    /// In global pixels; empty for a key that is not visible.
    virtual QRect rect() const = 0;
    virtual QRect keyRect(int index) const = 0;
    /// The time at a column, in global pixels.
    virtual VxTime timeAt(int x) const = 0;
    virtual QWindow *window() const = 0;

    virtual int count() const = 0;
    virtual int selectedCount() const = 0;
    virtual VxTime time(int index) const = 0;
    /// The first key at or after a time; count() when there is none.
    virtual int firstFrom(VxTime time) const = 0;
    virtual bool isSelected(int index) const = 0;
    /// The property whose keys these are; null where they unite several properties.
    virtual VxProperty *property() const = 0;
    /// All properties whose keys these are. Takes time for rows with much below them.
    virtual QVector<VxProperty *> properties() const = 0;
};

/// What screen readers read of keys, and what they do with them.
class AccessibleKeys
{
    Q_DECLARE_TR_FUNCTIONS(AccessibleKeys)
public:
    using Source = std::shared_ptr<const AccessibleKeySource>;

    /// Reports an event of an object that is no widget; nothing for null.
    static void report(QAccessibleInterface *object, QAccessible::Event type);

    /// The object of the list of keys, with a child for each key; null for an invalid source.
    static QAccessibleInterface *listOf(const Source &source);
    /// The key whose mark is at a position in global pixels, the nearest of several; -1 for none.
    static int indexAt(const AccessibleKeySource &source, const QPoint &position);
    /// The object of a key; null outside of 0 .. count() - 1.
    static QAccessibleInterface *keyOf(const Source &source, int index);

    /// Such as "12 keys, 3 selected, key at Frame 10, previous key at Frame 8": those before, at
    /// and after the scene's time.
    static QString description(const AccessibleKeySource &source);
    /// Such as "12.5" or "80 %"; empty for a key of several properties.
    static QString valueText(const AccessibleKeySource &source, int index);
    /// Such as "Linear"; empty for a key of several properties.
    static QString typeText(const AccessibleKeySource &source, int index);

    /// Selects the keys of several rows from one time to another, both included, and no others.
    static void selectBetween(const std::vector<Source> &sources, VxTime first, VxTime last);
    enum class Change { SelectOnly, Select, Deselect, Toggle };
    /// Changes the selection by one key, and by all keys.
    static void changeKey(const AccessibleKeySource &source, int index, Change change);
    static void changeAll(const AccessibleKeySource &source, Change change);
};

#endif
