#ifndef ACCESSIBLETIMELINE_H
#define ACCESSIBLETIMELINE_H

#include <QtCore/QCoreApplication>
#include <QtWidgets/QAccessibleWidget>
#include <vxcore/vxtime.h>

class VxPlayheadWgt;
class VxTimeRangeSlider;

/// Base of a widget whose value is a number of frames.
class AccessibleFrames : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    void *interface_cast(QAccessible::InterfaceType type) override;
    /// Sets the nearest whole frame within the limits.
    void setCurrentValue(const QVariant &value) override;
    QVariant minimumStepSize() const override { return 1.0; }

private:
    virtual void setTime(VxTime time) = 0;
};

/// The playhead: an indicator whose value is the current frame; its limits are those of the
/// animation range. Setting it sets the scene's time.
class AccessiblePlayhead : public AccessibleFrames
{
    Q_DECLARE_TR_FUNCTIONS(AccessibleTimeline)
public:
    explicit AccessiblePlayhead(VxPlayheadWgt *playhead);

    QString text(QAccessible::Text kind) const override;
    QVariant currentValue() const override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;

private:
    void setTime(VxTime time) override;
};

/// The time range slider: its value is the first frame of the play range, which keeps its length
/// when the value is set. Its description says both ends.
class AccessibleTimeRange : public AccessibleFrames
{
    Q_DECLARE_TR_FUNCTIONS(AccessibleTimeline)
public:
    explicit AccessibleTimeRange(VxTimeRangeSlider *slider);

    QString text(QAccessible::Text kind) const override;
    QVariant currentValue() const override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;

private:
    void setTime(VxTime start) override;
};

#endif
