#ifndef VISIBILITYDELEGATE_H
#define VISIBILITYDELEGATE_H

#include <QStyledItemDelegate>

/// Paints a check state as an eye: open, or faint and struck out; and open but faint where the
/// model says that the node is not shown all the same, because one above it is hidden. It changes
/// nothing by itself; what a click on an eye means is the view's business.
class VisibilityDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit VisibilityDelegate(QObject *parent);

    /// The width of a column of eyes in a view; pixels.
    static int columnWidth();

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;
};

#endif
