#include "parameters/vxpropertyspinbox.h"

#include "parameters/vxpropertyedit.h"
#include "parameters/vxpropertyhints.h"
#include "parameters/vxpropertyvalue.h"
#include "scene/vxcurrenttime.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QLineEdit>
#include <algorithm>
#include <vxcore/vxlocalnumber.h>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxtypedinput.h>

namespace {

constexpr int RestMilliseconds = 500;
constexpr int LongestText = 500;
constexpr double FineStep = 0.1;

bool differ(const QVector<VxProperty *> &properties)
{
    return std::any_of(properties.begin(), properties.end(), [&](const VxProperty *each) {
        return !VxPropertyValue::isSame(properties.first(), each, vxCurrentTime());
    });
}

} // namespace

VxPropertySpinBox::VxPropertySpinBox(const QVector<VxProperty *> &properties, QWidget *parent)
    : QAbstractSpinBox(parent)
    , m_properties(properties.begin(), properties.end())
{
    setObjectName(QStringLiteral("PropertyValueSpinBox"));
    setFrame(false);
    setAlignment(Qt::AlignRight);
    setAutoFillBackground(true);
    lineEdit()->setMaxLength(LongestText);
    if (const auto *number = qobject_cast<VxNumericProperty *>(properties.first())) {
        m_percentage = number->isPercentage();
        setAccessibleName(number->getLabel());
    }
    m_rest.setSingleShot(true);
    m_rest.setInterval(RestMilliseconds);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { m_typed = true; });
    connect(lineEdit(), &QLineEdit::inputRejected, this,
            [this] { Q_EMIT noticed(tr("Only numbers and + - * / ( ) are allowed.")); });
    connect(&m_rest, &QTimer::timeout, this, &VxPropertySpinBox::finishSteps);
    m_soon.setSingleShot(true);
    m_soon.setInterval(0);
    connect(&m_soon, &QTimer::timeout, this, &VxPropertySpinBox::showValue);
    showValue();
    selectAll(); // typing replaces it
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

bool VxPropertySpinBox::complain()
{
    if (!m_typed || VxTypedInput::read(text()).kind != VxTypedInput::Unreadable)
        return false;
    Q_EMIT noticed(VxPropertyHints::unreadable(text()));
    return true;
}

void VxPropertySpinBox::showValue()
{
    const QVector<VxProperty *> properties = living();
    if (properties.isEmpty() || m_typed)
        return;
    const bool mixed = differ(properties);
    const QString shown =
        mixed ? QString()
              : vxLocalNumber(VxPropertyValue::fullText(properties.first(), vxCurrentTime()));
    lineEdit()->setPlaceholderText(mixed ? tr("Mixed") : QString());
    if (lineEdit()->text() == shown)
        return;
    const bool selected = lineEdit()->hasSelectedText();
    lineEdit()->setText(shown);
    if (selected)
        selectAll();
}

void VxPropertySpinBox::begin()
{
    if (!m_edit) {
        m_edit = std::make_unique<VxPropertyEdit>(living(), vxCurrentTime());
        m_steps = 0;
    }
}

/** Reports a limit for typed input only; steps visibly stop there. */
void VxPropertySpinBox::emitNotice(bool typed)
{
    const QString trouble = m_edit->refusal();
    if (!trouble.isEmpty() || (typed && !m_edit->limit().isEmpty()))
        Q_EMIT noticed(trouble.isEmpty() ? m_edit->limit() : trouble);
}

void VxPropertySpinBox::apply(const VxTypedInput &input)
{
    begin();
    m_edit->apply(input);
    m_steps = 0;
    m_typed = false;
    emitNotice(true);
}

void VxPropertySpinBox::step(double steps)
{
    if (complain())
        return;
    if (m_typed)
        apply(VxTypedInput::read(text()));
    begin();
    m_steps += steps;
    m_edit->offsetBy(m_steps);
    showValue();
    selectAll();
    m_rest.start();
    emitNotice(false);
}

void VxPropertySpinBox::stepBy(int steps)
{
    step(steps);
}

void VxPropertySpinBox::commit()
{
    finishSteps();
    if (m_typed && !complain()) {
        const VxTypedInput input = VxTypedInput::read(text());
        if (input.kind != VxTypedInput::Empty)
            apply(input);
        finishSteps();
    }
    m_typed = false;
    showValue();
}

void VxPropertySpinBox::finishSteps()
{
    m_rest.stop();
    m_edit.reset();
}

void VxPropertySpinBox::rollBack()
{
    m_rest.stop();
    m_typed = false;
    if (m_edit)
        m_edit->rollBack();
    m_edit.reset();
}

QValidator::State VxPropertySpinBox::validate(QString &input, int &position) const
{
    Q_UNUSED(position)
    QString allowed = QStringLiteral("0123456789.,eE+-*/()= ");
    if (m_percentage)
        allowed += QLatin1Char('%');
    const bool foreign = std::any_of(input.begin(), input.end(),
                                     [&](const QChar letter) { return !allowed.contains(letter); });
    return foreign ? QValidator::Invalid : QValidator::Acceptable;
}

QAbstractSpinBox::StepEnabled VxPropertySpinBox::stepEnabled() const
{
    return StepUpEnabled | StepDownEnabled;
}

void VxPropertySpinBox::keyPressEvent(QKeyEvent *event)
{
    const int direction = event->key() == Qt::Key_Up ? 1 : event->key() == Qt::Key_Down ? -1 : 0;
    if (direction != 0 && event->modifiers() & Qt::ShiftModifier)
        step(direction * FineStep);
    else
        QAbstractSpinBox::keyPressEvent(event);
}
