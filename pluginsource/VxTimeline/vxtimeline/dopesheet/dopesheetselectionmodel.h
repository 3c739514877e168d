#ifndef DOPESHEETSELECTIONMODEL_H
#define DOPESHEETSELECTIONMODEL_H

#include <QtCore/QItemSelectionModel>
#include <memory>

// Which rows of the dope sheet are selected.
//
// A selection of an open tree has a range of rows for each parent, thousands in a large scene. The
// base class compares every range with every other when it makes whole rows of them, and walks
// through all of them each time it is asked for a row. Here ranges that have nothing in common are
// made whole one by one, and a row is found by bisection.
class DopeSheetSelectionModel : public QItemSelectionModel
{
    Q_OBJECT
public:
    explicit DopeSheetSelectionModel(QAbstractItemModel *model, QObject *parent = nullptr);
    ~DopeSheetSelectionModel() override;

    // The same as isSelected() of the row's first column, whatever the column of the index.
    bool isRowSelected(const QModelIndex &index) const;

    using QItemSelectionModel::select;
    void select(const QItemSelection &selection, SelectionFlags command) override;

private:
    void forgetRows();
    class Private;
    std::unique_ptr<Private> d;
};

#endif
