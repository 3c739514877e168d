#ifndef ACCESSIBLETIMELINE_H
#define ACCESSIBLETIMELINE_H

#include <QtCore/QCoreApplication>
#include <QtWidgets/QAccessibleWidget>

class VxPlayheadWgt;
class VxTimeRangeSlider;

// The playhead: an indicator whose value is the current frame. Setting it sets the scene's time.
class AccessiblePlayhead : public QAccessibleWidget, public QAccessibleValueInterface
{
    Q_DECLARE_TR_FUNCTIONS(AccessibleTimeline)
public:
    explicit AccessiblePlayhead(VxPlayheadWgt *playhead);

    QString text(QAccessible::Text kind) const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    // In frames; the limits are those of the animation range.
    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;
};

// The time range slider: its value is the first frame of the play range, which keeps its length
// when the value is set. Its description says both ends.
class AccessibleTimeRange : public QAccessibleWidget, public QAccessibleValueInterface
{
    Q_DECLARE_TR_FUNCTIONS(AccessibleTimeline)
public:
    explicit AccessibleTimeRange(VxTimeRangeSlider *slider);

    QString text(QAccessible::Text kind) const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;
};

#endif
