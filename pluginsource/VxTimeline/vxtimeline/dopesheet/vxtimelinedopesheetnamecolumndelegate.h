#ifndef VXTIMELINEDOPESHEETNAMECOLUMNDELEGATE_H
#define VXTIMELINEDOPESHEETNAMECOLUMNDELEGATE_H

#include <QtWidgets/QStyledItemDelegate>

/// The names of the dope sheet. It sets the height of all rows, and shows a name that does not fit
/// as a tool tip.
class VxTimelineDopeSheetNameColumnDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit VxTimelineDopeSheetNameColumnDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;
};

#endif
