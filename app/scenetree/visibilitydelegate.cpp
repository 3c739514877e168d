#include "scenetree/visibilitydelegate.h"

#include "scenetree/scenetreemodel.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <vxcore/vxapp.h>
#include <vxcore/vxstyle.h>

namespace {

constexpr int EyeSide = 14;
constexpr int EyeMargin = 5;

} // namespace

int VisibilityDelegate::columnWidth()
{
    return EyeSide + 2 * EyeMargin;
}

void VisibilityDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    item.features &= ~QStyleOptionViewItem::HasCheckIndicator;
    const QStyle *style = item.widget ? item.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &item, painter, item.widget);

    QRect eye(0, 0, EyeSide, EyeSide);
    eye.moveCenter(option.rect.center());
    const bool open = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    const bool shown = index.data(SceneTreeModel::ShownRole).toBool();
    const QIcon icon = vxApp->getStyle()->icon(VxStyle::SP_VxVisible);
    const bool selected = option.state & QStyle::State_Selected;
    icon.paint(painter, eye, Qt::AlignCenter,
               !shown     ? QIcon::Disabled
               : selected ? QIcon::Selected
                          : QIcon::Normal);
    if (open)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(option.palette.color(QPalette::Disabled, QPalette::Text), 1.6));
    painter->drawLine(QPointF(eye.left() + 1.5, eye.bottom() - 0.5),
                      QPointF(eye.right() - 0.5, eye.top() + 1.5));
    painter->restore();
}
