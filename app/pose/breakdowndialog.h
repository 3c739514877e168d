#ifndef BREAKDOWNDIALOG_H
#define BREAKDOWNDIALOG_H

#include "pose/breakdown.h"
#include "widgets/previewdialog.h"

#include <memory>

class QComboBox;
class QLabel;
class QSlider;
class QSpinBox;
class VxScene;

/// The breakdown slider: shows the pose between two poses while it is moved. Return keeps it as one
/// undo entry, Escape restores the pose.
class BreakdownDialog : public PreviewDialog
{
    Q_OBJECT
public:
    static constexpr int MinPercent = -50;
    static constexpr int MaxPercent = 150;

    /// The nodes' pose is changed at once, to 50 %. The scene is borrowed.
    BreakdownDialog(VxScene *scene, const QVector<VxNode *> &nodes, QWidget *parent = nullptr);

private:
    void chooseToward(int index);
    void showPercent(int percent);

    VxScene *const m_scene;
    const QVector<QPointer<VxNode>> m_nodes;
    const VxTime m_time;
    std::unique_ptr<Breakdown> m_breakdown;
    QComboBox *m_toward;
    QSlider *m_slider;
    QSpinBox *m_percent;
    QLabel *m_report;
};

#endif
