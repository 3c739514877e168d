#include "pose/breakdowndialog.h"

#include "pose/posewriter.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxscene.h>

namespace {

constexpr int FirstPercent = 50;
constexpr int TickDistance = 25;

} // namespace

BreakdownDialog::BreakdownDialog(VxScene *scene, const QVector<VxNode *> &nodes, QWidget *parent)
    : PreviewDialog(tr("Breakdown"), parent)
    , m_scene(scene)
    , m_nodes(nodes.begin(), nodes.end())
    , m_time((scene->pause(), scene->getTime()))
    , m_toward(new QComboBox(this))
    , m_slider(new QSlider(Qt::Horizontal, this))
    , m_percent(new QSpinBox(this))
    , m_report(new QLabel(this))
{
    setObjectName(QStringLiteral("BreakdownDialog"));
    setWindowTitle(tr("Breakdown"));
    m_toward->addItems({tr("Between the previous and the next pose"), tr("Toward the rest pose"),
                        tr("Toward the average of the neighbours")});
    m_slider->setAccessibleName(tr("Breakdown"));
    m_slider->setRange(MinPercent, MaxPercent);
    m_slider->setTickInterval(TickDistance);
    m_slider->setTickPosition(QSlider::TicksBelow);
    m_slider->setValue(FirstPercent);
    m_percent->setAccessibleName(tr("Breakdown"));
    m_percent->setRange(MinPercent, MaxPercent);
    m_percent->setSuffix(tr(" %"));
    m_percent->setValue(FirstPercent);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto *choice = new QHBoxLayout;
    auto *towardLabel = new QLabel(tr("&Pose"), this);
    towardLabel->setBuddy(m_toward);
    choice->addWidget(towardLabel);
    choice->addWidget(m_toward, 1);
    auto *row = new QHBoxLayout;
    row->addWidget(m_slider);
    row->addWidget(m_percent);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(choice);
    layout->addLayout(row);
    layout->addWidget(m_report);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &BreakdownDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &BreakdownDialog::reject);
    connect(m_slider, &QSlider::valueChanged, m_percent, &QSpinBox::setValue);
    connect(m_percent, QOverload<int>::of(&QSpinBox::valueChanged), this,
            &BreakdownDialog::showPercent);
    connect(m_toward, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &BreakdownDialog::chooseToward);
    m_percent->setFocus();
    m_percent->selectAll();
    chooseToward(0);
}

/** Every choice begins at the pose from before the dialog. */
void BreakdownDialog::chooseToward(int index)
{
    restore();
    QVector<VxNode *> nodes;
    for (const QPointer<VxNode> &node : m_nodes) {
        if (node)
            nodes.append(node);
    }
    m_breakdown = std::make_unique<Breakdown>(nodes, m_time, Breakdown::Toward(index));
    begin();
    showPercent(m_percent->value());
}

void BreakdownDialog::showPercent(int percent)
{
    {
        const QSignalBlocker blocker(m_slider);
        m_slider->setValue(percent);
    }
    PoseWriter writer(m_time, m_scene->isAnimating());
    {
        const VxChangeBlock block;
        m_breakdown->apply(percent / 100.0, &writer);
    }
    m_report->setText(m_breakdown->isEmpty()
                          ? tr("The selected nodes have no keys before or after this frame.")
                          : tr("Nodes: %1.").arg(m_breakdown->numNodes()) + writer.report());
}
