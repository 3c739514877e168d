#ifndef DOPESHEETOPENROWS_H
#define DOPESHEETOPENROWS_H

#include <QtCore/QVector>

class QTreeView;
class VxDopeSheetItem;

// Remembers which rows of a view are open, to open them again after the text filter has changed.
//
// A filter model moves every index that is kept, and a view keeps one for each open row, each time
// that it takes up or drops some rows of one parent: with thousands of rows open that takes
// seconds. So the rows are closed meanwhile. The items must outlive this.
class DopeSheetOpenRows
{
public:
    // Any model whose Qt::UserRole gives the item of a row.
    explicit DopeSheetOpenRows(QTreeView *view);

    void closeAll() const;
    // Opens the remembered rows that the view's model still has.
    void openAgain() const;

private:
    QTreeView *m_view;
    QVector<VxDopeSheetItem *> m_open; // sorted by address
};

#endif
