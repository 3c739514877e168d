#ifndef SELECTEDKEYS_H
#define SELECTEDKEYS_H

#include <QtCore/QHash>
#include <QtCore/QVector>
#include <vector>

class VxDopeSheetItem;
class VxProperty;

/// The selected keys of one property, united over its rows.
struct SelectedKeys
{
    VxProperty *property = nullptr;  // that of the first row
    QVector<VxDopeSheetItem *> rows; // those in which any key is selected; not owned
    QVector<int> indexes;            // of keys, ascending; never empty
};

/// Collects the selected keys of rows by property.
///
/// An alias and its target have rows of their own that show the same keys. An edit of the selected
/// keys must change each key once, so rows are grouped by key holder, and a key counts as selected
/// when it is selected in any of them.
class SelectedKeysCollector
{
public:
    /// Rows without a property or without a selected key add nothing.
    void add(VxDopeSheetItem *item);
    /// In the order of the first rows.
    const std::vector<SelectedKeys> &keys() const { return m_keys; }

private:
    std::vector<SelectedKeys> m_keys;
    QHash<const VxProperty *, int> m_byHolder; // index in m_keys
};

#endif
