#include "vxtimeline/pane/timepanegraphhint.h"

#include "vxtimeline/keygraph/vxkeygraphview.h"

#include <QtCore/QEvent>

TimePaneGraphHint::TimePaneGraphHint(VxKeyGraphView *view)
    : QLabel(tr("Select property rows to see their curves."), view)
{
    setObjectName(QStringLiteral("TimelineKeyGraphHintLbl"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setEnabled(false); // for the colour of absent content
    setWordWrap(true);
    setAlignment(Qt::AlignCenter);
    view->installEventFilter(this);
    connect(view, &VxKeyGraphView::channelListChanged, this,
            [this](const QVector<VxProperty *> &properties) {
                m_isEmpty = properties.isEmpty();
                place();
            });
    place();
}

// The labels change with the scale, which is final when the view is painted.
bool TimePaneGraphHint::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && (event->type() == QEvent::Resize || event->type() == QEvent::Paint))
        place();
    return QLabel::eventFilter(watched, event);
}

// In the middle of the view between the labels of its axes, in several lines where it is narrow,
// and hidden where even these do not fit.
void TimePaneGraphHint::place()
{
    const auto *view = static_cast<const VxKeyGraphView *>(parentWidget());
    const QRect room = view->getLabelFreeRect();
    const int line = fontMetrics().horizontalAdvance(text()) + 2 * margin() + 1;
    QRect box(0, 0, qMin(line, room.width()), 0);
    box.setHeight(heightForWidth(box.width()));
    box.moveCenter(view->rect().center());
    box.moveLeft(
        qBound(room.left(), box.left(), qMax(room.left(), room.right() + 1 - box.width())));
    box.moveTop(qMax(0, qMin(box.top(), room.bottom() + 1 - box.height())));
    int widest = 0;
    for (const QString &word : text().split(QLatin1Char(' ')))
        widest = qMax(widest, fontMetrics().horizontalAdvance(word));
    setVisible(m_isEmpty && room.contains(box) && box.width() > widest);
    if (geometry() != box)
        setGeometry(box);
}
