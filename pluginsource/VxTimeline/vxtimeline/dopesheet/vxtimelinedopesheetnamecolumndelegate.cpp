#include "vxtimeline/dopesheet/vxtimelinedopesheetnamecolumndelegate.h"

#include <QtGui/QHelpEvent>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QToolTip>
#include <vxcore/vxapp.h>
#include <vxcore/vxstyle.h>

VxTimelineDopeSheetNameColumnDelegate::VxTimelineDopeSheetNameColumnDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

VxTimelineDopeSheetNameColumnDelegate::~VxTimelineDopeSheetNameColumnDelegate() = default;

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
            QToolTip::showText(event->globalPos(), name.toString().toHtmlEscaped(), view);
            return true;
        }
    }
    if (!QStyledItemDelegate::helpEvent(event, view, option, index))
        QToolTip::hideText();
    return true;
}
