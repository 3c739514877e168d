#include "create/bonedialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <vxcore/vxchangeblock.h>

namespace {

constexpr double FarthestEnd = 1e9;
constexpr int Decimals = 4;
constexpr int FieldWidth = 90; // pixels

void showNumber(QDoubleSpinBox *box, double value)
{
    const QSignalBlocker blocker(box);
    // A field that shows the value already keeps its digits beyond the shown ones.
    box->setValue(value);
}

/** The number of a field, or the present one where the field shows it, rounded. */
float taken(const QDoubleSpinBox *box, float present)
{
    return std::abs(box->value() - double(present)) < 0.6e-4 ? present : float(box->value());
}

} // namespace

BoneDialog::BoneDialog(VxNode *node, QWidget *parent)
    : PreviewDialog(tr("Edit Bone"), parent)
    , m_node(node)
    , m_values(BoneEdits::valuesOf(node))
    , m_length(addNumber())
    , m_follow(new QCheckBox(tr("Child nodes at the end &follow it"), this))
{
    setObjectName(QStringLiteral("BoneDialog"));
    setWindowTitle(tr("Edit \"%1\"").arg(node->getLabel()));
    m_length->setObjectName(QStringLiteral("BoneLength"));
    m_length->setMinimum(0);
    m_follow->setChecked(true);
    auto *form = new QFormLayout(this);
    form->addRow(tr("&Length"), m_length);
    addTriple(form, tr("&End (X, Y, Z)"), m_end.data());
    form->addRow(QString(), m_follow);
    addTriple(form, tr("&Origin (X, Y, Z)"), m_origin.data());
    addTriple(form, tr("Rest &translation (X, Y, Z)"), m_restPlace.data());
    addTriple(form, tr("Rest &rotation (X, Y, Z)"), m_restAngles.data(), tr("°"));
    setTabOrder(m_end[2], m_follow);
    setTabOrder(m_follow, m_origin[0]);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &BoneDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &BoneDialog::reject);
    connect(m_length, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            &BoneDialog::changeLength);
    connect(m_follow, &QCheckBox::toggled, this, &BoneDialog::apply);
    showValues();
    m_length->setFocus();
    m_length->selectAll();
}

QDoubleSpinBox *BoneDialog::addNumber(const QString &suffix)
{
    auto *box = new QDoubleSpinBox(this);
    box->setRange(-FarthestEnd, FarthestEnd);
    box->setDecimals(Decimals);
    box->setSuffix(suffix);
    box->setMinimumWidth(FieldWidth);
    box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    return box;
}

void BoneDialog::addTriple(QFormLayout *form, const QString &text, QDoubleSpinBox **boxes,
                           const QString &suffix)
{
    auto *row = new QHBoxLayout;
    for (int i = 0; i < 3; ++i) {
        boxes[i] = addNumber(suffix);
        boxes[i]->setAccessibleName(tr("%1: %2").arg(QString(text).remove(QLatin1Char('&')),
                                                     QString(QLatin1Char(char('X' + i)))));
        row->addWidget(boxes[i]);
        connect(boxes[i], QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                &BoneDialog::applyFields);
    }
    auto *label = new QLabel(text, this);
    label->setBuddy(boxes[0]);
    form->addRow(label, row);
}

void BoneDialog::showValues()
{
    showNumber(m_length, BoneEdits::lengthOf(m_values.end));
    for (std::size_t i = 0; i < 3; ++i) {
        showNumber(m_end[i], double(m_values.end[int(i)]));
        showNumber(m_origin[i], double(m_values.origin[int(i)]));
        showNumber(m_restPlace[i], double(m_values.rest[i]));
        showNumber(m_restAngles[i], double(m_values.rest[i + 3]));
    }
}

void BoneDialog::changeLength(double length)
{
    m_values.end = BoneEdits::withLength(m_values.end, length);
    showValues();
    apply();
}

void BoneDialog::applyFields()
{
    for (std::size_t i = 0; i < 3; ++i) {
        const int axis = int(i);
        m_values.end[axis] = taken(m_end[i], m_values.end[axis]);
        m_values.origin[axis] = taken(m_origin[i], m_values.origin[axis]);
        m_values.rest[i] = taken(m_restPlace[i], m_values.rest[i]);
        m_values.rest[i + 3] = taken(m_restAngles[i], m_values.rest[i + 3]);
    }
    showNumber(m_length, BoneEdits::lengthOf(m_values.end));
    apply();
}

/** Every change begins at the bone from before the dialog. */
void BoneDialog::apply()
{
    restore();
    if (!m_node)
        return;
    begin();
    const VxChangeBlock block;
    BoneEdits::setValues(m_node, m_values, m_follow->isChecked());
}
