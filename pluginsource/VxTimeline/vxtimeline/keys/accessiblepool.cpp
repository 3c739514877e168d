#include "vxtimeline/keys/accessiblepool.h"

#include <QtCore/QHash>
#include <list>

inline uint qHash(const AccessiblePool::Place &place, uint seed = 0)
{
    return qHash(quintptr(place.owner), seed) ^ uint(place.index) * 2654435761u;
}

class AccessiblePool::Private
{
public:
    struct Entry
    {
        Place place;
        QAccessible::Id id;
    };
    std::list<Entry> entries; // the most recently used one first
    QHash<Place, std::list<Entry>::iterator> byPlace;

    void remove(std::list<Entry>::iterator entry)
    {
        QAccessible::deleteAccessibleInterface(entry->id);
        byPlace.remove(entry->place);
        entries.erase(entry);
    }
};

AccessiblePool::AccessiblePool()
    : d(std::make_unique<Private>())
{
}

AccessiblePool::~AccessiblePool() = default;

AccessiblePool &AccessiblePool::ofContainers()
{
    static AccessiblePool pool;
    return pool;
}

AccessiblePool &AccessiblePool::ofKeys()
{
    static AccessiblePool pool;
    return pool;
}

QAccessibleInterface *AccessiblePool::find(const Place &place)
{
    const auto found = d->byPlace.constFind(place);
    if (found == d->byPlace.cend())
        return nullptr;
    const auto entry = found.value();
    QAccessibleInterface *object = QAccessible::accessibleInterface(entry->id);
    // The toolkit deletes all objects together with the application.
    if (!object || !object->isValid()) {
        d->remove(entry);
        return nullptr;
    }
    d->entries.splice(d->entries.begin(), d->entries, entry);
    return object;
}

QAccessibleInterface *AccessiblePool::add(const Place &place, QAccessibleInterface *object)
{
    if (count() == Capacity)
        d->remove(std::prev(d->entries.end()));
    d->entries.push_front({place, QAccessible::registerAccessibleInterface(object)});
    d->byPlace.insert(place, d->entries.begin());
    return object;
}

int AccessiblePool::count() const
{
    return d->byPlace.size();
}
