#ifndef VXTIMELINEDOPESHEETKEYSCOLUMNDELEGATE_H
#define VXTIMELINEDOPESHEETKEYSCOLUMNDELEGATE_H

#include <QtWidgets/QStyledItemDelegate>

// The time line of each row of the dope sheet, with its keys.
//
// It keeps nothing and decides nothing about places: DopeSheetGeometry lists what is visible, and
// this class gives it colours and the style's marks. Only a VxDopeSheetView as its parent makes it
// paint.
class VxTimelineDopeSheetKeysColumnDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit VxTimelineDopeSheetKeysColumnDelegate(QObject *parent = nullptr);
    ~VxTimelineDopeSheetKeysColumnDelegate() override;

    // Rows that are open paint nothing: the rows below show their keys.
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};

#endif
