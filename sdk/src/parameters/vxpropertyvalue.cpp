#include "parameters/vxpropertyvalue.h"

#include <QtCore/QCoreApplication>
#include <charconv>
#include <cmath>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxlocalnumber.h>
#include <vxcore/vxstringproperty.h>
#include <vxcore/vxtypedinput.h>

namespace {

constexpr int ShownDecimals = 4;
constexpr int FloatDigits = 9; // enough to distinguish any two floats
constexpr double ManyDigits = 1e12;
/// Limits are narrow when they are fewer steps than this apart.
constexpr double FewSteps = 20;

QString on()
{
    return QCoreApplication::translate("VxPropertyValue", "On");
}

QString off()
{
    return QCoreApplication::translate("VxPropertyValue", "Off");
}

VxPropertyValue::Result setSwitch(VxBoolProperty *property, VxTime time, const QString &text)
{
    const bool yes = text.compare(on(), Qt::CaseInsensitive) == 0 || text == QLatin1String("1");
    const bool no = text.compare(off(), Qt::CaseInsensitive) == 0 || text == QLatin1String("0");
    if (!yes && !no)
        return VxPropertyValue::Unreadable;
    return property->setValue(time, yes ? 1 : 0) ? VxPropertyValue::Set : VxPropertyValue::Refused;
}

/// The shortest decimal number that parses to the same float.
double shortest(float value)
{
    char text[32];
    const auto written = std::to_chars(text, text + sizeof text, value);
    double result = double(value);
    std::from_chars(text, written.ptr, result);
    return result;
}

QString withSign(const VxNumericProperty *number, const QString &digits)
{
    return number->isPercentage() ? digits + QLatin1Char('%') : digits;
}

} // namespace

QString VxPropertyValue::numberText(double value, int decimals)
{
    if (std::abs(value) >= ManyDigits)
        return QString::number(value, 'g', FloatDigits - 1);
    QString text = QString::number(value, 'f', decimals);
    while (text.contains(QLatin1Char('.')) && text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    const bool zero = text == QLatin1String("0") || text == QLatin1String("-0");
    if (zero && value != 0)
        return QString::number(value, 'g', 2);
    return zero ? QStringLiteral("0") : text;
}

QString VxPropertyValue::text(const VxProperty *property, VxTime time)
{
    if (const auto *string = qobject_cast<const VxStringProperty *>(property))
        return string->getValue();
    if (const auto *flag = qobject_cast<const VxBoolProperty *>(property))
        return flag->getBoolValue(time) ? on() : off();
    const auto *number = qobject_cast<const VxNumericProperty *>(property);
    return number ? vxLocalNumber(
                        withSign(number, numberText(shownValue(number, time), ShownDecimals)))
                  : QString();
}

QString VxPropertyValue::narrowText(const VxNumericProperty *property, VxTime time,
                                    const std::function<bool(const QString &)> &fits)
{
    const double value = shownValue(property, time);
    for (int decimals = ShownDecimals; decimals >= 0; --decimals) {
        const QString text = vxLocalNumber(withSign(property, numberText(value, decimals)));
        if (fits(text))
            return text;
    }
    QString text;
    for (int digits = ShownDecimals; digits > 0; --digits) {
        text = vxLocalNumber(withSign(property, QString::number(value, 'g', digits)));
        if (fits(text))
            break;
    }
    return text;
}

QString VxPropertyValue::fullText(const VxProperty *property, VxTime time)
{
    const auto *number = qobject_cast<const VxFloatProperty *>(property);
    if (!number)
        return text(property, time);
    const double value = shownValue(number, time) + 0.0; // no negative zero
    return withSign(number, QString::number(value, 'g', FloatDigits));
}

VxPropertyValue::Result VxPropertyValue::setText(VxProperty *property, VxTime time,
                                                 const QString &text)
{
    if (auto *string = qobject_cast<VxStringProperty *>(property))
        return string->setValue(text) ? Set : Refused;
    if (auto *flag = qobject_cast<VxBoolProperty *>(property))
        return setSwitch(flag, time, text.trimmed());
    auto *number = qobject_cast<VxNumericProperty *>(property);
    const VxTypedInput input = VxTypedInput::read(text);
    const bool readable =
        input.kind != VxTypedInput::Empty && input.kind != VxTypedInput::Unreadable;
    if (!number || !readable || (text.contains(QLatin1Char('%')) && !number->isPercentage()))
        return Unreadable;
    return setShownValue(number, time, input.appliedTo(shownValue(number, time)));
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
    const double value = property->getDoubleValue(time);
    const bool isFloat = qobject_cast<const VxFloatProperty *>(property) != nullptr;
    return (isFloat ? shortest(float(value)) : value) * scale(property);
}

bool VxPropertyValue::isSame(const VxProperty *one, const VxProperty *other, VxTime time)
{
    const auto *number = qobject_cast<const VxNumericProperty *>(one);
    const auto *another = qobject_cast<const VxNumericProperty *>(other);
    if (number && another)
        return number->getDoubleValue(time) == another->getDoubleValue(time);
    return text(one, time) == text(other, time);
}

VxPropertyValue::Result VxPropertyValue::setShownValue(VxNumericProperty *property, VxTime time,
                                                       double value)
{
    if (std::isnan(value) || !isEditable(property))
        return Refused;
    const double inside = qBound(lowest(property), value, highest(property));
    const double limited = inside / scale(property);
    if (!property->setDoubleValue(time, limited))
        return Refused;
    const auto *holder = qobject_cast<const VxNumericProperty *>(property->getKeyHolder());
    if (holder && holder->isLinkTerminal()) {
        const double added = property->getDoubleValue(time) - limited;
        if (!property->setDoubleValue(time, limited - added))
            return Refused;
    }
    const bool whole = qobject_cast<const VxIntProperty *>(property) != nullptr;
    const bool taken = inside == value && (!whole || limited == std::round(limited));
    return taken ? Set : Limited;
}
