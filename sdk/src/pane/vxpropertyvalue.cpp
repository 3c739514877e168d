#include "pane/vxpropertyvalue.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxstringproperty.h>

namespace {

QString on()
{
    return QCoreApplication::translate("VxPropertyValue", "On");
}

QString off()
{
    return QCoreApplication::translate("VxPropertyValue", "Off");
}

/// Up to four decimals, without trailing zeros.
QString shortNumber(double value)
{
    QString text = QString::number(value, 'f', 4);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

bool setSwitch(VxBoolProperty *property, VxTime time, const QString &text)
{
    const bool yes = text.compare(on(), Qt::CaseInsensitive) == 0 || text == QLatin1String("1");
    const bool no = text.compare(off(), Qt::CaseInsensitive) == 0 || text == QLatin1String("0");
    return (yes || no) && property->setValue(time, yes ? 1 : 0);
}

} // namespace

QString VxPropertyValue::text(const VxProperty *property, VxTime time)
{
    if (const auto *string = qobject_cast<const VxStringProperty *>(property))
        return string->getValue();
    if (const auto *flag = qobject_cast<const VxBoolProperty *>(property))
        return flag->getBoolValue(time) ? on() : off();
    const auto *number = qobject_cast<const VxNumericProperty *>(property);
    if (!number)
        return {};
    const double value = number->getDoubleValue(time);
    return number->isPercentage() ? shortNumber(value * 100.0) + QLatin1Char('%')
                                  : shortNumber(value);
}

bool VxPropertyValue::setText(VxProperty *property, VxTime time, const QString &text)
{
    if (auto *string = qobject_cast<VxStringProperty *>(property))
        return string->setValue(text);
    QString digits = text.trimmed();
    if (auto *flag = qobject_cast<VxBoolProperty *>(property))
        return setSwitch(flag, time, digits);
    auto *number = qobject_cast<VxNumericProperty *>(property);
    if (!number)
        return false;
    if (number->isPercentage() && digits.endsWith(QLatin1Char('%')))
        digits.chop(1);
    bool valid = false;
    const double value = QLocale::c().toDouble(digits.trimmed(), &valid);
    return valid && number->setDoubleValue(time, number->isPercentage() ? value / 100.0 : value);
}
