#include "widgets/wheelfocusfilter.h"

#include <QtCore/QEvent>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDial>
#include <QtWidgets/QSlider>

namespace {

bool isField(const QObject *object)
{
    return qobject_cast<const QAbstractSpinBox *>(object) ||
           qobject_cast<const QComboBox *>(object) || qobject_cast<const QSlider *>(object) ||
           qobject_cast<const QDial *>(object);
}

} // namespace

WheelFocusFilter::WheelFocusFilter(QObject *parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool WheelFocusFilter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel && event->type() != QEvent::Polish)
        return false;
    if (!isField(watched))
        return false;
    auto *field = static_cast<QWidget *>(watched);
    if (event->type() == QEvent::Polish) {
        // The policy moves the focus before the wheel event is sent.
        if ((field->focusPolicy() & Qt::WheelFocus) == Qt::WheelFocus)
            field->setFocusPolicy(Qt::StrongFocus);
        return false;
    }
    if (field->hasFocus())
        return false;
    event->ignore();
    return true;
}
