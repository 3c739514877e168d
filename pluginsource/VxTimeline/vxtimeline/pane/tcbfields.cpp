#include "vxtimeline/pane/tcbfields.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/fieldtextfit.h"
#include "vxtimeline/pane/timepanestrip.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <QtCore/QScopedValueRollback>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QHBoxLayout>

namespace {

constexpr int TcbFieldWidth = 50; // pixels
constexpr double Limit = 100.0;

} // namespace

TcbFields::Field TcbFields::makeField(const char *name, QWidget *parent)
{
    auto *box = new QDoubleSpinBox(parent);
    box->setObjectName(QLatin1String(name));
    box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    box->setAlignment(Qt::AlignCenter);
    box->setFixedWidth(TcbFieldWidth);
    box->setSingleStep(0.1);
    box->setLocale(QLocale::c());
    box->setRange(-Limit, Limit);
    box->setEnabled(false);
    new FieldTextFit(box);
    Field field;
    field.box = box;
    return field;
}

TcbFields::TcbFields(QWidget *group, const TimePaneStrip &strip, VxDopeSheetView *sheet)
    : m_sheet(sheet)
    , m_tension(makeField("TimelineInterpTensionSBox", group))
    , m_continuity(makeField("TimelineInterpContinuitySBox", group))
    , m_bias(makeField("TimelineInterpBiasSBox", group))
{
    QHBoxLayout *layout = TimePaneStrip::layoutOf(group);
    strip.addLabelled(layout, QStringLiteral("TimelineInterpTensionLbl"), VxTimePane::tr("T:"),
                      m_tension.box);
    strip.addLabelled(layout, QStringLiteral("TimelineInterpContinuityLbl"), VxTimePane::tr("C:"),
                      m_continuity.box);
    strip.addLabelled(layout, QStringLiteral("TimelineInterpBiasLbl"), VxTimePane::tr("B:"),
                      m_bias.box);
}

QVector<QDoubleSpinBox *> TcbFields::boxes() const
{
    return {m_tension.box, m_continuity.box, m_bias.box};
}

void TcbFields::setSizes(int widest, int height)
{
    for (QDoubleSpinBox *box : boxes())
        box->setFixedSize(qMin(box->maximumWidth(), widest), height);
}

// Without a value the field is unchanged: the keys differ.
void TcbFields::Field::show(std::optional<float> value)
{
    if (value)
        box->setValue(double(*value));
    shown = box->value();
    exact = value.value_or(float(shown));
}

bool TcbFields::Field::isEdited() const
{
    return box->value() != shown;
}

float TcbFields::Field::entered()
{
    if (isEdited()) {
        shown = box->value();
        exact = float(shown);
    }
    return exact;
}

void TcbFields::update()
{
    const bool hasKeys = m_sheet->hasSelectedKeys();
    for (QDoubleSpinBox *box : boxes())
        box->setEnabled(hasKeys);
    if (!hasKeys)
        return;
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    float value = 0.0f;
    const auto ifCommon = [&value](bool isCommon) {
        return isCommon ? std::optional<float>(value) : std::nullopt;
    };
    m_tension.show(ifCommon(m_sheet->getCommonTension(&value)));
    m_continuity.show(ifCommon(m_sheet->getCommonContinuity(&value)));
    m_bias.show(ifCommon(m_sheet->getCommonBias(&value)));
}

// Enter applies the fields' numbers to the keys, edited or not. Leaving a field applies it only if
// it was edited, because not all keys need have the shown number. Meanwhile the field being edited
// is not written to.
void TcbFields::apply(const QDoubleSpinBox *entered, const EditKeys &editKeys)
{
    if (m_isBusy)
        return;
    const bool isEdited = m_tension.isEdited() || m_continuity.isEdited() || m_bias.isEdited();
    if (entered && !entered->hasFocus() && !isEdited)
        return;
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    const float tension = m_tension.entered();
    const float continuity = m_continuity.entered();
    const float bias = m_bias.entered();
    editKeys(VxTimePane::tr("Set TCB Parameters"),
             [this, tension, continuity, bias] { m_sheet->setTCB(tension, continuity, bias); });
}
