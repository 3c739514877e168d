#ifndef ACCESSIBLEPOOL_H
#define ACCESSIBLEPOOL_H

#include <QtGui/QAccessible>
#include <memory>

/// The accessible objects of rows, channels and keys, which are no widgets: each is made when a
/// screen reader asks for it, and at most Capacity of a pool live at a time.
///
/// The object that was not used for longest is deleted first. A screen reader refers to objects by
/// numbers and finds a deleted one missing; it asks the parent for a new one. Without a screen
/// reader there are none.
class AccessiblePool
{
public:
    static constexpr int Capacity = 1024;

    /// Rows and channels, and keys, apart: listing the keys of a row must not delete the row.
    static AccessiblePool &ofContainers();
    static AccessiblePool &ofKeys();

    /// What an object is for. The owner is an address, never followed.
    struct Place
    {
        const void *owner = nullptr;
        int index = 0;

        friend bool operator==(const Place &a, const Place &b)
        {
            return a.owner == b.owner && a.index == b.index;
        }
    };

    /// The object of a place, from now on the most recently used; what make() returns where there
    /// is none or one that is no longer valid. Owned by the toolkit.
    template <typename Make> QAccessibleInterface *get(const Place &place, const Make &make)
    {
        QAccessibleInterface *object = find(place);
        return object ? object : add(place, make());
    }
    int count() const;

private:
    AccessiblePool();
    ~AccessiblePool();
    QAccessibleInterface *find(const Place &place);
    QAccessibleInterface *add(const Place &place, QAccessibleInterface *object);

    class Private;
    std::unique_ptr<Private> d;
};

#endif
