#include "vxtimeline/pane/timepanefield.h"

#include <QtCore/QSignalBlocker>

namespace {

constexpr int FieldWidth = 40; // pixels

} // namespace

TimePaneField::TimePaneField(const QString &name, int minimum, int maximum, QWidget *parent)
    : QSpinBox(parent)
{
    setObjectName(name);
    setButtonSymbols(NoButtons);
    setAlignment(Qt::AlignCenter);
    setRange(minimum, maximum);
    setFixedWidth(FieldWidth);
}

TimePaneField::~TimePaneField() = default;

void TimePaneField::setLenient(bool lenient)
{
    m_lenient = lenient;
}

void TimePaneField::showNumber(int number)
{
    const QSignalBlocker blocker(this);
    setValue(number);
}

int TimePaneField::number(int fallback, bool *ok) const
{
    bool isNumber = false;
    const int parsed = text().toInt(&isNumber, 10);
    if (ok)
        *ok = isNumber;
    return isNumber ? parsed : fallback;
}

QValidator::State TimePaneField::validate(QString &text, int &position) const
{
    bool isNumber = text.isEmpty();
    if (!isNumber)
        text.toInt(&isNumber, 10);
    return m_lenient && isNumber ? QValidator::Acceptable : QSpinBox::validate(text, position);
}

int TimePaneField::valueFromText(const QString &text) const
{
    return text.toInt(nullptr, 10);
}
