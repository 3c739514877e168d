#ifndef PANE_VXPROPERTYSPINBOX_H
#define PANE_VXPROPERTYSPINBOX_H

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QVector>
#include <QtWidgets/QDoubleSpinBox>
#include <memory>

class VxProperty;
class VxPropertyEdit;

/// The field in which a number of a property list is typed or stepped.
///
/// Steps change the properties at once, so that the figure is seen to follow; those that come
/// within half a second of each other are one undo entry. What is typed is set when the field is
/// committed. While nothing is typed the field shows the value at the scene's time.
class VxPropertySpinBox : public QDoubleSpinBox
{
    Q_OBJECT
public:
    /// The first property decides what is shown; the list is not empty.
    VxPropertySpinBox(const QVector<VxProperty *> &properties, QWidget *parent);
    ~VxPropertySpinBox() override;

    /// True when the text was typed and is not set yet.
    bool isTyped() const;
    /// Shows the present value in place of what is not typed.
    void showValue();
    /// Sets what was typed, and ends the steps.
    void commit();
    /// Ends the steps with their undo entry.
    void finishSteps();
    /// Takes back the steps that are no undo entry yet, and forgets what was typed.
    void putBack();

    void stepBy(int steps) override;
    QString textFromValue(double value) const override;
    /// A comma counts as a decimal point.
    QValidator::State validate(QString &input, int &position) const override;

protected:
    /// Left to the list around while the field has not got the focus.
    void wheelEvent(QWheelEvent *event) override;

private:
    QVector<VxProperty *> living() const;
    void begin();
    void refuse();

    QVector<QPointer<VxProperty>> m_properties;
    std::unique_ptr<VxPropertyEdit> m_edit; // null between two runs of steps
    double m_steps = 0;                     // of the present run
    bool m_typed = false;
    QTimer m_rest; // ends a run of steps
};

#endif
