#include "vxtimeline/pane/timepanefieldfocus.h"

#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <algorithm>

TimePaneFieldFocus::TimePaneFieldFocus(QObject *parent)
    : QObject(parent)
{
    connect(qApp, &QApplication::focusChanged, this, &TimePaneFieldFocus::handleFocusChanged);
}

void TimePaneFieldFocus::add(QAbstractSpinBox *field)
{
    m_fields.append(field);
    // Sent after the number is taken over.
    connect(field->findChild<QLineEdit *>(), &QLineEdit::returnPressed, this,
            &TimePaneFieldFocus::returnFocus);
}

bool TimePaneFieldFocus::isField(const QWidget *widget) const
{
    return std::find(m_fields.begin(), m_fields.end(), widget) != m_fields.end();
}

// A window that is deactivated takes the focus from a field for a while; then there is no former
// widget, and the stored one stays.
void TimePaneFieldFocus::handleFocusChanged(QWidget *former, QWidget *present)
{
    if (former && isField(present) && !isField(former))
        m_former = former;
}

void TimePaneFieldFocus::returnFocus()
{
    if (m_former && m_former->isVisible())
        m_former->setFocus(Qt::OtherFocusReason);
}
