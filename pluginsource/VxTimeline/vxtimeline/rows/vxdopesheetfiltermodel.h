#ifndef VXDOPESHEETFILTERMODEL_H
#define VXDOPESHEETFILTERMODEL_H

#include <QtCore/QRegExp>
#include <QtCore/QSortFilterProxyModel>
#include <QtCore/QVector>
#include <memory>

class VxNode;

/// The proxy between the dope sheet's model and its view, for the text filter.
///
/// It adds no rule of its own. With recursive filtering on, the base class searches the whole
/// subtree again for each ancestor of a match, which is quadratic in the depth of a hierarchy;
/// refilter() finds all matches in one pass, and the base class uses the result.
class VxDopeSheetFilterModel : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    explicit VxDopeSheetFilterModel(QObject *parent = nullptr);
    ~VxDopeSheetFilterModel() override;

    void setSourceModel(QAbstractItemModel *model) override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    /// That of the source model: no column is left out.
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;

    /// Filters all rows by a pattern; thousands of root rows are filtered by a reset of the model.
    /// Without a pattern, by the present one: for rows that were renamed, or added below filtered
    /// out rows.
    void refilter(const QRegExp &pattern);
    void refilter();
    /// Leaves out the rows of all other nodes, except those above these nodes; none: shows all. The
    /// text filter applies to the remaining rows. The nodes must live until the next call.
    void setIsolatedNodes(const QVector<VxNode *> &nodes);
    /// Whether any row below an index of this model matches the pattern, created yet or not; false
    /// when rows were added or removed since the last refilter().
    bool hasMatchBelow(const QModelIndex &index) const;
    /// What mapFromSource() finds, also for thousands of rows that are left out.
    QModelIndex findShown(const QModelIndex &sourceRow) const;

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    void findMatches(const QRegExp &pattern);
    void addMatchesBelow(const QModelIndex &top, const QRegExp &pattern) const;
    void invalidateMatches();
    bool isIsolated(const QModelIndex &sourceRow) const;
    class Private;
    std::unique_ptr<Private> d;
};

#endif
