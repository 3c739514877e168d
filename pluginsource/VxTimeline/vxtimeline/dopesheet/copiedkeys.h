#ifndef COPIEDKEYS_H
#define COPIEDKEYS_H

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <vector>
#include <vxcore/vxcopiedkeys.h>
#include <vxcore/vxtime.h>

class VxProperty;

/// Copied keys, row by row, ready to be pasted into rows of the same names at another time.
///
/// A plain value without references to the source properties, which may be destroyed before a
/// paste. Keys are stored in columns, as in the property interface.
class CopiedKeys
{
public:
    using Entry = VxCopiedKeys;

    void clear() { *this = CopiedKeys(); }
    bool isEmpty() const { return m_entries.empty(); }
    const std::vector<Entry> &entries() const { return m_entries; }
    /// Of all keys; VxTimeMax when there are none.
    VxTime earliest() const { return m_earliest; }

    /// Copies the keys at the given indexes (ascending). Properties that are neither float nor int
    /// properties, and empty lists, add nothing.
    void add(const QString &path, const VxProperty *property, const QVector<int> &indexes);
    /// The entry first copied from a row of that path; null when there is none.
    const Entry *find(const QString &path) const;
    /// Sets the entry's keys on a float or int property, with the earliest of all copied keys at a
    /// time; distances stay. False when the property is of another kind, or refuses.
    bool paste(const Entry &entry, VxProperty *property, VxTime at) const;

    /// The whole number that an int property stores for a value: the value plus just under one
    /// half, truncated: 2.5 is 2, 2.6 is 3. Truncation is towards zero, so negative numbers are one
    /// higher: -3 is -2, and so is -3.4.
    static qint32 rounded(double value);

private:
    std::vector<Entry> m_entries;
    QHash<QString, int> m_byPath; // the first entry of each path
    VxTime m_earliest = VxTimeMax;
    VxTime m_latest = VxTimeMin;
};

#endif
