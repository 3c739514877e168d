#ifndef KEYTABLEROWS_H
#define KEYTABLEROWS_H

#include "keytools/keytargets.h"

#include <QtCore/QPointer>
#include <memory>
#include <vxcore/vxnumericproperty.h>

/// The columns of the key table.
enum class KeyTableColumn { Node, Property, Time, Value, Type, Tension, Continuity, Bias };
constexpr int KeyTableColumns = 8;

/// The rows of the key table: a key each, found by binary search. Nothing is stored for a key
/// unless the rows are sorted.
class KeyTableRows
{
public:
    /// A key of a row. `position`: its number among the target keys of its track, which stays while
    /// the keys are edited; `index`: its number among all keys of the property.
    struct Key
    {
        int track;
        int position;
        int index;
    };

    /// The keys of targets, which are present ones. Filter and order are applied again.
    void setTargets(KeyTargets targets);
    /// Only keys of nodes or properties whose names contain the text; an empty text shows all.
    void setFilter(const QString &text);
    /// Sorts by a column. Equal keys have the order of the tracks.
    void sort(KeyTableColumn column, Qt::SortOrder order);
    /// The order of the tracks, which is that of the views.
    void unsort();

    const KeyTargets &targets() const { return m_listing->targets; }
    int count() const { return m_count; }
    /// `row` from 0 to below count().
    Key at(int row) const;
    /// Null when it was destroyed.
    VxNumericProperty *property(int track) const
    {
        return m_listing->properties[std::size_t(track)];
    }
    /// False when a property was destroyed.
    bool areAlive() const;
    /// False when a node or property has another name than it had in setTargets().
    bool areNamesCurrent() const;
    const QString &nodeName(int track) const { return m_listing->names[std::size_t(track)].node; }
    const QString &propertyName(int track) const
    {
        return m_listing->names[std::size_t(track)].property;
    }

private:
    struct Names
    {
        QString node;
        QString property;
    };
    /// What does not depend on filter and order; shared by copies.
    struct Listing
    {
        KeyTargets targets;
        std::vector<QPointer<VxNumericProperty>> properties; // by track
        std::vector<Names> names;                            // by track
        std::vector<std::vector<int>> starts; // by track: the position of each span's first key
    };

    static Names namesOf(const VxNumericProperty &property);
    void rebuild();
    Key unsorted(int row) const;
    template <class T, class Read> void sortBy(const Read &read);

    std::shared_ptr<const Listing> m_listing = std::make_shared<Listing>();
    std::vector<int> m_shown;     // the tracks that the filter accepts
    std::vector<int> m_firstRows; // of each shown track, before sorting
    std::vector<qint32> m_order;  // by row; empty when not sorted
    QString m_filter;
    bool m_isSorted = false;
    KeyTableColumn m_column = KeyTableColumn::Time;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    int m_count = 0;
};

#endif
