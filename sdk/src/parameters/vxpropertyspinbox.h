#ifndef VXPROPERTYSPINBOX_H
#define VXPROPERTYSPINBOX_H

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QVector>
#include <QtWidgets/QAbstractSpinBox>
#include <memory>

class VxProperty;
class VxPropertyEdit;
struct VxTypedInput;

/// The editor for typing or stepping a number of a property list.
///
/// Steps change the properties at once, so that the figure follows; steps within half a second of
/// each other are one undo entry. Typed text may be arithmetic and is read when the field is
/// committed, not while typing, so that a value beyond the limits is clamped with a message instead
/// of digits being refused. While nothing is typed the field shows the value at the scene's time
/// with full precision, or nothing when values differ.
class VxPropertySpinBox : public QAbstractSpinBox
{
    Q_OBJECT
public:
    /// The first property is shown; the list is not empty.
    VxPropertySpinBox(const QVector<VxProperty *> &properties, QWidget *parent);
    ~VxPropertySpinBox() override;

    /// True when the text was typed and is not committed.
    bool isTyped() const { return m_typed; }
    /// True, with a message, when the text was typed and is invalid.
    bool complain();
    /// Shows the present value unless text was typed.
    void showValue();
    /// The same at the next event loop iteration: a thousand properties may report one by one.
    void showValueSoon() { m_soon.start(); }
    /// Commits typed text, and ends the steps.
    void commit();
    /// Ends the steps with their undo entry.
    void finishSteps();
    /// Reverts the steps without an undo entry yet, and drops typed text.
    void rollBack();

    void stepBy(int steps) override;
    /// Refuses only characters that cannot be part of a number.
    QValidator::State validate(QString &input, int &position) const override;

Q_SIGNALS:
    /// A message that an edit could not be applied fully.
    void noticed(const QString &text);

protected:
    StepEnabled stepEnabled() const override;
    /// Shift makes steps of a tenth.
    void keyPressEvent(QKeyEvent *event) override;

private:
    QVector<VxProperty *> living() const;
    void begin();
    void step(double steps);
    void apply(const VxTypedInput &input);
    void emitNotice(bool typed);

    QVector<QPointer<VxProperty>> m_properties;
    std::unique_ptr<VxPropertyEdit> m_edit; // null between two runs of steps
    double m_steps = 0;                     // of the present run
    bool m_typed = false;
    bool m_percentage = false;
    QTimer m_rest; // ends a run of steps
    QTimer m_soon;
};

#endif
