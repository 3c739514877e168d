#ifndef DOPESHEETSELECTIONMODEL_H
#define DOPESHEETSELECTIONMODEL_H

#include <QtCore/QItemSelectionModel>
#include <vector>

/// The selected rows of the dope sheet.
///
/// A selection of an open tree has a range of rows for each parent, thousands in a large scene. The
/// base class compares every range with every other when it extends them to whole rows, and walks
/// through all of them for each query of a row. Here disjoint ranges are sorted, extended one by
/// one and compared in their order, and a row is found by bisection.
class DopeSheetSelectionModel : public QItemSelectionModel
{
    Q_OBJECT
public:
    /// Contiguous rows of one parent.
    struct RowSpan
    {
        QModelIndex parent;
        int top = 0;
        int bottom = 0;

        friend bool operator<(const RowSpan &a, const RowSpan &b)
        {
            return a.parent == b.parent ? a.top < b.top : a.parent < b.parent;
        }
        bool meets(const RowSpan &next) const
        {
            return parent == next.parent && bottom >= next.top;
        }
        bool overlaps(const RowSpan &other) const { return meets(other) && other.meets(*this); }
    };

    explicit DopeSheetSelectionModel(QAbstractItemModel *model, QObject *parent = nullptr);

    /// The same as isSelected() of the row's first column, whatever the column of the index.
    bool isRowSelected(const QModelIndex &index) const;

    /// Calls visit(index) for each selected row, column 0, in the order of the selection's
    /// ranges. The selection itself is a copy of all ranges with each access.
    template <typename Visit> void visitRows(const Visit &visit) const
    {
        updateSpans();
        const std::vector<RowSpan> rows = m_spans; // visit() may change the selection
        for (const RowSpan &span : rows) {
            for (int row = span.top; row <= span.bottom; ++row)
                visit(model()->index(row, 0, span.parent));
        }
    }

    /// Selects these rows (of column 0) and no others, without a signal: views compute the region
    /// to repaint for each range of a change. The caller updates the view.
    void selectOnly(const std::vector<QModelIndex> &rows);

    using QItemSelectionModel::select;
    void select(const QItemSelection &selection, SelectionFlags command) override;

private:
    void updateSpans() const;
    void invalidateSpans();
    /// Ranges of whole rows that do not meet.
    void selectRows(const QItemSelection &rows, SelectionFlags command);
    /// The selected rows on demand: in the order of the selection's ranges, and sorted.
    mutable std::vector<RowSpan> m_spans;
    mutable std::vector<RowSpan> m_sorted;
    mutable bool m_isValid = false;
};

#endif
