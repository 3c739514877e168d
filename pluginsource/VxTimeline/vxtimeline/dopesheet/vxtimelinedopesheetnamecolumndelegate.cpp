#include "vxtimeline/dopesheet/vxtimelinedopesheetnamecolumndelegate.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"

#include <QtGui/QHelpEvent>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QToolTip>
#include <vxcore/vxapp.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxtextstyle.h>

VxTimelineDopeSheetNameColumnDelegate::VxTimelineDopeSheetNameColumnDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

// The tree paints whole rows, even when only the line of the current time has moved in them.
void VxTimelineDopeSheetNameColumnDelegate::paint(QPainter *painter,
                                                  const QStyleOptionViewItem &option,
                                                  const QModelIndex &index) const
{
    const auto *view = qobject_cast<const VxDopeSheetView *>(parent());
    if (!view || view->isToBePainted(option.rect))
        QStyledItemDelegate::paint(painter, option, index);
}

QSize VxTimelineDopeSheetNameColumnDelegate::sizeHint(const QStyleOptionViewItem &option,
                                                      const QModelIndex &index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(vxApp->getStyle()->metric(VxStyle::PM_VxDopeSheetRowHeight));
    return size;
}

bool VxTimelineDopeSheetNameColumnDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                                      const QStyleOptionViewItem &option,
                                                      const QModelIndex &index)
{
    if (!event || !view || event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);

    if (view->visualRect(index).width() < sizeHint(option, index).width()) {
        const QVariant name = index.data(Qt::DisplayRole);
        if (name.canConvert<QString>()) {
            QToolTip::showText(event->globalPos(), vxToolTipText(name.toString()), view);
            return true;
        }
    }
    if (!QStyledItemDelegate::helpEvent(event, view, option, index))
        QToolTip::hideText();
    return true;
}
