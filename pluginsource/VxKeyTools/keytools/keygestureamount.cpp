#include "keytools/keygestureamount.h"

#include "keytools/keytool.h"
#include "keytools/keytooltext.h"

#include <cmath>
#include <vxcore/vxlocalnumber.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>

namespace {

constexpr int LongestNumber = 24;
const QChar Cursor(0x2502);

const char *toolName(KeyGestureKind kind)
{
    switch (kind) {
    case KeyGestureKind::Move:
        return "move";
    case KeyGestureKind::Duplicate:
        return "duplicate";
    case KeyGestureKind::ScaleTimes:
        return "scaleTimes";
    case KeyGestureKind::MoveValues:
        return "setValues";
    case KeyGestureKind::ScaleValues:
        return "scaleValues";
    }
    return "move";
}

bool isOfTimes(KeyGestureKind kind)
{
    return kind == KeyGestureKind::Move || kind == KeyGestureKind::Duplicate;
}

QString signedNumber(double number)
{
    const QString text = vxLocalNumber(QString::number(number, 'g', 6));
    return number < 0 ? text : QLatin1Char('+') + text;
}

// A number is the amount, as the mouse sets it: a sign is that of the amount.
VxTypedInput readTyped(KeyGestureKind kind, const QString &typed)
{
    VxTypedInput input = isOfTimes(kind)
                             ? VxSceneTimeDisplay::read(vxScene, typed, VxTypedInput::OfOffsets)
                             : VxTypedInput::read(typed, VxTypedInput::OfOffsets);
    if (kind == KeyGestureKind::MoveValues)
        return input;
    const bool isScale = !isOfTimes(kind);
    if (input.kind == VxTypedInput::Factor && !isScale)
        input.kind = VxTypedInput::Unreadable;
    return input;
}

} // namespace

KeyGestureAmount::KeyGestureAmount(KeyGestureKind kind, int pivot)
    : m_kind(kind)
    , m_pivot(pivot)
    , m_amount(isScale() ? 1 : 0)
{
}

bool KeyGestureAmount::isScale() const
{
    return m_kind == KeyGestureKind::ScaleTimes || m_kind == KeyGestureKind::ScaleValues;
}

bool KeyGestureAmount::isOfValues() const
{
    return m_kind == KeyGestureKind::MoveValues || m_kind == KeyGestureKind::ScaleValues;
}

const KeyTool &KeyGestureAmount::tool() const
{
    return *KeyTool::find(QLatin1String(toolName(m_kind)));
}

QString KeyGestureAmount::pivotName() const
{
    return isScale() ? tool().parameters[1].choices[m_pivot] : QString();
}

void KeyGestureAmount::choosePivot()
{
    if (isScale())
        m_pivot = (m_pivot + 1) % tool().parameters[1].choices.size();
}

void KeyGestureAmount::setByMouse(double amount, double step)
{
    m_amount = (step > 0 ? std::round(amount / step) * step : amount) + m_byKeys;
}

void KeyGestureAmount::addByKeys(double amount)
{
    if (!m_typed.isEmpty())
        return;
    m_byKeys += amount;
    m_amount += amount;
}

bool KeyGestureAmount::type(const QString &character)
{
    const QString usable = isOfTimes(m_kind) ? QStringLiteral("0123456789.,+-*/():fmst")
                                             : QStringLiteral("0123456789.,+-*/()%=");
    if (character.size() != 1 || !usable.contains(character) || m_typed.size() >= LongestNumber)
        return false;
    m_typed += character;
    return true;
}

void KeyGestureAmount::eraseTyped()
{
    m_typed.chop(1);
}

bool KeyGestureAmount::isReadable() const
{
    if (m_typed.isEmpty())
        return std::isfinite(m_amount);
    const VxTypedInput::Kind kind = readTyped(m_kind, m_typed).kind;
    return kind != VxTypedInput::Unreadable && kind != VxTypedInput::Empty;
}

bool KeyGestureAmount::isNeutral() const
{
    if (m_kind == KeyGestureKind::MoveValues && !m_typed.isEmpty())
        return false;
    const double amount = m_typed.isEmpty() ? m_amount : readTyped(m_kind, m_typed).amount;
    return amount == (isScale() ? 1 : 0);
}

QVariantMap KeyGestureAmount::arguments() const
{
    const VxTypedInput input = m_typed.isEmpty() ? VxTypedInput{VxTypedInput::Offset, m_amount}
                                                 : readTyped(m_kind, m_typed);
    if (m_kind == KeyGestureKind::MoveValues) {
        const bool isAmount = input.kind == VxTypedInput::Offset ||
                              (input.kind == VxTypedInput::Value && !m_typed.startsWith('='));
        return {
            {QStringLiteral("value"),
             isAmount ? QStringLiteral("+=") + QString::number(input.amount, 'g', 17) : m_typed}};
    }
    if (isOfTimes(m_kind))
        return {{QStringLiteral("by"), input.amount}};
    return {{QStringLiteral("factor"), input.amount}, {QStringLiteral("pivot"), m_pivot}};
}

QString KeyGestureAmount::amountText() const
{
    if (!m_typed.isEmpty())
        return m_typed + Cursor;
    if (isScale())
        return KeyToolText::tr("%L1 %").arg(m_amount * 100, 0, 'f', 1);
    if (m_kind == KeyGestureKind::MoveValues)
        return signedNumber(m_amount);
    return KeyToolText::tr("%1 frames").arg(signedNumber(m_amount / vxScene->getTimeStep()));
}

QString KeyGestureAmount::text() const
{
    const QString label =
        m_kind == KeyGestureKind::MoveValues ? KeyToolText::tr("Change Values") : tool().label;
    const QString text = label + QLatin1Char(' ') + amountText();
    if (!isReadable())
        return KeyToolText::tr("%1 (invalid amount)").arg(text);
    return isScale() ? KeyToolText::tr("%1 about %2").arg(text, pivotName()) : text;
}
