#include "vxtimeline/pane/timepanegraphhint.h"

#include <QtCore/QEvent>

#include "vxtimeline/keygraph/vxkeygraphview.h"

TimePaneGraphHint::TimePaneGraphHint(VxKeyGraphView *view)
    : QLabel(tr("Select property rows to see their curves."), view)
{
    setObjectName(QStringLiteral("TimelineKeyGraphHintLbl"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setEnabled(false); // for the colour of what is not there
    view->installEventFilter(this);
    connect(view, &VxKeyGraphView::channelListChanged, this,
            [this](const QVector<VxProperty *> &properties) { setHidden(!properties.isEmpty()); });
    centre();
}

bool TimePaneGraphHint::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        centre();
    return QLabel::eventFilter(watched, event);
}

void TimePaneGraphHint::centre()
{
    QRect room(QPoint(), sizeHint());
    room.moveCenter(parentWidget()->rect().center());
    setGeometry(room);
}
