#ifndef SHEETCURSORROWS_H
#define SHEETCURSORROWS_H

#include "vxtimeline/keys/keycursorrows.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtCore/QPointer>

class QModelIndex;
class VxDopeSheetView;

/// The shown rows of the dope sheet. An open row with rows below it shows no keys.
class SheetCursorRows : public KeyCursorRows
{
public:
    /// Borrowed.
    explicit SheetCursorRows(VxDopeSheetView *sheet);

    QWidget *area() const override;
    bool isEmpty() const override;
    AccessibleKeys::Source row() override;
    bool showsKeys() override;
    bool move(int rows) override;
    QRect rect() override;
    void reveal(int key) override;
    void setOpen(bool open) override;
    void setAnchor() override;
    std::vector<AccessibleKeys::Source> fromAnchor() override;

private:
    QModelIndex index();
    bool showsKeysAt(const QModelIndex &row) const;

    VxDopeSheetView *m_sheet;
    QPointer<VxDopeSheetItem> m_item;
    QPointer<VxDopeSheetItem> m_anchor;
};

#endif
