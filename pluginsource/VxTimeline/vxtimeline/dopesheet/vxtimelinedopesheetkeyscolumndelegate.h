#ifndef VXTIMELINEDOPESHEETKEYSCOLUMNDELEGATE_H
#define VXTIMELINEDOPESHEETKEYSCOLUMNDELEGATE_H

#include <QtWidgets/QStyledItemDelegate>

/// The time line of each row of the dope sheet, with its keys.
///
/// Stateless painting: DopeSheetGeometry lists the visible items, and this class adds colours and
/// the style's marks. It paints only with a VxDopeSheetView as its parent.
class VxTimelineDopeSheetKeysColumnDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit VxTimelineDopeSheetKeysColumnDelegate(QObject *parent = nullptr);

    /// Rows that are open paint nothing: the rows below show their keys.
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};

#endif
