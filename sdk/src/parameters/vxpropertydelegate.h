#ifndef VXPROPERTYDELEGATE_H
#define VXPROPERTYDELEGATE_H

#include <QtWidgets/QStyledItemDelegate>

/// Paints the rows of a property list and creates the editors of values.
///
/// VxPropertyPainter draws; this class handles rows and input: Escape drops an uncommitted text, a
/// field whose text is invalid stays open until it is corrected or left, and undo is the program's
/// and not the field's while nothing is typed.
class VxPropertyDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit VxPropertyDelegate(QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

Q_SIGNALS:
    /// A message that an edit could not be applied fully.
    void noticed(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

#endif
