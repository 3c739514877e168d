#include "vxtimeline/keygraph/paint/keygraphmarkpainter.h"

#include <QtGui/QPainter>
#include <QtWidgets/QWidget>
#include <cmath>
#include <vxcore/vxstyle.h>

namespace {

// The state bits of a mark's look, the same as those of the dope sheet's marks.
QStyle::State markState(const KeyGraphMark &mark)
{
    static constexpr QStyle::StateFlag types[] = {QStyle::State_Raised, QStyle::State_Sunken,
                                                  QStyle::State_Editing};
    QStyle::State state;
    if (mark.type < 3)
        state |= types[mark.type];
    if (mark.selected)
        state |= QStyle::State_Selected;
    return state;
}

} // namespace

KeyGraphMarkPainter::KeyGraphMarkPainter(const QWidget *widget)
    : m_widget(widget)
{
    m_option.initFrom(widget);
    m_state = m_option.state & ~(QStyle::State_Raised | QStyle::State_Sunken |
                                 QStyle::State_Editing | QStyle::State_Selected);
}

void KeyGraphMarkPainter::paint(QPainter *painter, const KeyGraphMark &mark)
{
    constexpr int side = int(KeyGraphScale::MarkSide);
    m_option.rect = QRect(mark.corner, QSize(side, side));
    m_option.state = m_state | markState(mark);
    m_widget->style()->drawPrimitive(static_cast<QStyle::PrimitiveElement>(VxStyle::PE_VxKeyMark),
                                     &m_option, painter, m_widget);
}

QImage KeyGraphMarkPainter::picture(quint8 type, bool selected, qreal ratio)
{
    const int side = static_cast<int>(std::ceil(KeyGraphScale::MarkSide * ratio));
    QImage result(side, side, QImage::Format_ARGB32_Premultiplied);
    result.setDevicePixelRatio(ratio);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    paint(&painter, {QPoint(), type, selected});
    return result;
}
