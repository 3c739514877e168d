#include "pose/cycledialog.h"

#include "pose/inbetween.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QSpinBox>

namespace {

constexpr int FirstCount = 4;

} // namespace

CycleDialog::CycleDialog(QWidget *parent)
    : QDialog(parent)
    , m_count(new QSpinBox(this))
    , m_offset(new QCheckBox(tr("Offset of the &root"), this))
{
    setObjectName(QStringLiteral("CycleDialog"));
    setWindowTitle(tr("Cycle"));
    m_count->setRange(2, InBetween::MaxCycles);
    m_count->setValue(FirstCount);
    m_offset->setChecked(true);
    m_offset->setToolTip(tr("Each cycle starts where the previous one ends."));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto *layout = new QFormLayout(this);
    layout->addRow(tr("&Cycles"), m_count);
    layout->addRow(m_offset);
    layout->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_count->setFocus();
    m_count->selectAll();
}

int CycleDialog::count() const
{
    return m_count->value();
}

bool CycleDialog::hasOffset() const
{
    return m_offset->isChecked();
}
