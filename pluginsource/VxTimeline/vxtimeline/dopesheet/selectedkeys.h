#ifndef SELECTEDKEYS_H
#define SELECTEDKEYS_H

#include <QtCore/QHash>
#include <QtCore/QVector>
#include <vector>

class VxDopeSheetItem;
class VxProperty;

// The selected keys of one property, whichever of its rows they are selected in.
struct SelectedKeys
{
    VxProperty *property = nullptr;  // that of the first row
    QVector<VxDopeSheetItem *> rows; // those in which any key is selected; not owned
    QVector<int> indexes;            // of keys, ascending; never empty
};

// Gathers the selected keys of rows, property by property.
//
// An alias and the property it stands for are rows of their own that show the same keys. What is
// done to selected keys must be done to each key once, so rows are told apart by the property that
// really holds the keys, and a key counts as selected when it is in any of them.
class SelectedKeysCollector
{
public:
    // Rows without a property or without a selected key add nothing.
    void add(VxDopeSheetItem *item);
    // In the order of the first rows.
    const std::vector<SelectedKeys> &keys() const { return m_keys; }

private:
    std::vector<SelectedKeys> m_keys;
    QHash<const VxProperty *, int> m_byHolder; // index in m_keys
};

#endif
