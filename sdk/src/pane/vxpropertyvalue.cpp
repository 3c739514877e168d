#include "pane/vxpropertyvalue.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <cmath>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxstringproperty.h>

namespace {

constexpr int ShownDecimals = 4;
/// Limits are narrow when fewer steps than this lie between them.
constexpr double FewSteps = 20;

QString on()
{
    return QCoreApplication::translate("VxPropertyValue", "On");
}

QString off()
{
    return QCoreApplication::translate("VxPropertyValue", "Off");
}

bool setSwitch(VxBoolProperty *property, VxTime time, const QString &text)
{
    const bool yes = text.compare(on(), Qt::CaseInsensitive) == 0 || text == QLatin1String("1");
    const bool no = text.compare(off(), Qt::CaseInsensitive) == 0 || text == QLatin1String("0");
    return (yes || no) && property->setValue(time, yes ? 1 : 0);
}

} // namespace

QString VxPropertyValue::numberText(double value, int decimals)
{
    QString text = QString::number(value, 'f', decimals);
    while (text.contains(QLatin1Char('.')) && text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

QString VxPropertyValue::text(const VxProperty *property, VxTime time)
{
    if (const auto *string = qobject_cast<const VxStringProperty *>(property))
        return string->getValue();
    if (const auto *flag = qobject_cast<const VxBoolProperty *>(property))
        return flag->getBoolValue(time) ? on() : off();
    const auto *number = qobject_cast<const VxNumericProperty *>(property);
    if (!number)
        return {};
    const QString digits = numberText(shownValue(number, time), ShownDecimals);
    return number->isPercentage() ? digits + QLatin1Char('%') : digits;
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
    return valid && setShownValue(number, time, value);
}

bool VxPropertyValue::isEditable(const VxProperty *property)
{
    if (!property || property->isLocked() || property->getKeyHolder()->isLocked())
        return false;
    const auto *number = qobject_cast<const VxNumericProperty *>(property->getKeyHolder());
    return !number || !number->isLinked() || number->isLinkTerminal();
}

double VxPropertyValue::scale(const VxNumericProperty *property)
{
    return property->isPercentage() ? 100.0 : 1.0;
}

double VxPropertyValue::lowest(const VxNumericProperty *property)
{
    if (const auto *number = qobject_cast<const VxFloatProperty *>(property))
        return double(number->getMin()) * scale(number);
    const auto *whole = qobject_cast<const VxIntProperty *>(property);
    return whole ? whole->getMin() * scale(whole) : 0.0;
}

double VxPropertyValue::highest(const VxNumericProperty *property)
{
    if (const auto *number = qobject_cast<const VxFloatProperty *>(property))
        return double(number->getMax()) * scale(number);
    const auto *whole = qobject_cast<const VxIntProperty *>(property);
    return whole ? whole->getMax() * scale(whole) : 0.0;
}

double VxPropertyValue::step(const VxNumericProperty *property)
{
    const auto *number = qobject_cast<const VxFloatProperty *>(property);
    if (!number)
        return scale(property);
    const double own = double(number->getSensitivity()) * scale(number);
    const double between = highest(number) - lowest(number);
    return between > 0 && between < FewSteps * own ? between / 100 : own;
}

double VxPropertyValue::shownValue(const VxNumericProperty *property, VxTime time)
{
    return property->getDoubleValue(time) * scale(property);
}

bool VxPropertyValue::setShownValue(VxNumericProperty *property, VxTime time, double value)
{
    if (!std::isfinite(value))
        return false;
    const double limited = qBound(lowest(property), value, highest(property)) / scale(property);
    if (!isEditable(property) || !property->setDoubleValue(time, limited))
        return false;
    const auto *holder = qobject_cast<const VxNumericProperty *>(property->getKeyHolder());
    if (!holder || !holder->isLinkTerminal())
        return true;
    const double added = property->getDoubleValue(time) - limited;
    return property->setDoubleValue(time, limited - added);
}
