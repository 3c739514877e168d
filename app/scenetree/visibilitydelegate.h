#ifndef VISIBILITYDELEGATE_H
#define VISIBILITYDELEGATE_H

#include <QStyledItemDelegate>

/// Paints a check state as an eye: open, or faint and struck out; open but faint where the model
/// reports a hidden ancestor. Painting only; the view handles clicks on an eye.
class VisibilityDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The width of a column of eyes in a view; pixels.
    static int columnWidth();

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    bool editorEvent(QEvent *, QAbstractItemModel *, const QStyleOptionViewItem &,
                     const QModelIndex &) override
    {
        return false;
    }
};

#endif
