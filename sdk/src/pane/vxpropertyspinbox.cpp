#include "pane/vxpropertyspinbox.h"

#include "pane/vxpropertyedit.h"
#include "pane/vxpropertyvalue.h"

#include <QtCore/QPointer>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolTip>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxscene.h>

namespace {

constexpr int RestMilliseconds = 500;
constexpr int Decimals = 5;

VxTime now()
{
    return vxScene ? vxScene->getTime() : 0;
}

} // namespace

VxPropertySpinBox::VxPropertySpinBox(const QVector<VxProperty *> &properties, QWidget *parent)
    : QDoubleSpinBox(parent)
{
    for (VxProperty *property : properties)
        m_properties.append(property);
    setObjectName(QStringLiteral("PropertyValueSpinBox"));
    setLocale(QLocale::c());
    setFrame(false);
    setKeyboardTracking(false);
    setAlignment(Qt::AlignRight);
    setAutoFillBackground(true);
    if (const auto *number = qobject_cast<VxNumericProperty *>(properties.first())) {
        const bool whole = qobject_cast<const VxIntProperty *>(number) != nullptr;
        setDecimals(whole ? 0 : Decimals);
        setRange(VxPropertyValue::lowest(number), VxPropertyValue::highest(number));
        setSuffix(number->isPercentage() ? QStringLiteral("%") : QString());
        setAccessibleName(number->getLabel());
    }
    m_rest.setSingleShot(true);
    m_rest.setInterval(RestMilliseconds);
    // Not the line's own mark of modified text: the base class loses it when it reads the text.
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { m_typed = true; });
    connect(&m_rest, &QTimer::timeout, this, &VxPropertySpinBox::finishSteps);
    showValue();
}

VxPropertySpinBox::~VxPropertySpinBox() = default;

QVector<VxProperty *> VxPropertySpinBox::living() const
{
    QVector<VxProperty *> list;
    for (const QPointer<VxProperty> &property : m_properties) {
        if (property)
            list.append(property);
    }
    return list;
}

bool VxPropertySpinBox::isTyped() const
{
    return m_typed;
}

void VxPropertySpinBox::showValue()
{
    const auto *number = qobject_cast<VxNumericProperty *>(living().value(0));
    if (number && !isTyped())
        setValue(VxPropertyValue::shownValue(number, now()));
}

void VxPropertySpinBox::begin()
{
    if (!m_edit) {
        m_edit = std::make_unique<VxPropertyEdit>(living(), now());
        m_steps = 0;
    }
}

void VxPropertySpinBox::refuse()
{
    QToolTip::showText(mapToGlobal(rect().bottomLeft()),
                       tr("The value cannot be set: there is no key at this time, and setting "
                          "values makes none at present."),
                       this);
}

void VxPropertySpinBox::stepBy(int steps)
{
    const bool typed = isTyped();
    begin();
    bool accepted = true;
    if (typed) {
        interpretText();
        accepted = m_edit->setValue(value());
        m_steps = 0;
    }
    m_steps += steps;
    accepted &= m_edit->offsetBy(m_steps);
    m_typed = false;
    showValue();
    selectAll();
    m_rest.start();
    if (!accepted)
        refuse();
}

void VxPropertySpinBox::commit()
{
    finishSteps();
    if (!isTyped())
        return;
    interpretText();
    begin();
    const bool accepted = m_edit->setValue(value());
    finishSteps();
    m_typed = false;
    if (!accepted)
        refuse();
}

void VxPropertySpinBox::finishSteps()
{
    m_rest.stop();
    m_edit.reset();
}

void VxPropertySpinBox::putBack()
{
    m_rest.stop();
    m_typed = false;
    if (m_edit)
        m_edit->putBack();
    m_edit.reset();
}

QString VxPropertySpinBox::textFromValue(double value) const
{
    return VxPropertyValue::numberText(value, decimals());
}

QValidator::State VxPropertySpinBox::validate(QString &input, int &position) const
{
    input.replace(QLatin1Char(','), QLatin1Char('.'));
    return QDoubleSpinBox::validate(input, position);
}

void VxPropertySpinBox::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QDoubleSpinBox::wheelEvent(event);
    else
        event->ignore();
}
