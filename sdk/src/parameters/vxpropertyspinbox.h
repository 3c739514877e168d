#ifndef PANE_VXPROPERTYSPINBOX_H
#define PANE_VXPROPERTYSPINBOX_H

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QVector>
#include <QtWidgets/QAbstractSpinBox>
#include <memory>

class VxProperty;
class VxPropertyEdit;
struct VxTypedInput;

/// The field in which a number of a property list is typed or stepped.
///
/// Steps change the properties at once, so that the figure is seen to follow; those that come
/// within half a second of each other are one undo entry. What is typed may be arithmetic and is
/// set when the field is committed: the text is read then and not on the way, so that a value
/// beyond the limits is cut off with a word and not by refusing digits. While nothing is typed the
/// field shows the value at the scene's time with all its digits, or nothing when values differ.
class VxPropertySpinBox : public QAbstractSpinBox
{
    Q_OBJECT
public:
    /// The first property decides what is shown; the list is not empty.
    VxPropertySpinBox(const QVector<VxProperty *> &properties, QWidget *parent);
    ~VxPropertySpinBox() override;

    /// True when the text was typed and is not set yet.
    bool isTyped() const;
    /// True when the text was typed and is no value. Says so, when it is.
    bool complain();
    /// Shows the present value in place of what is not typed.
    void showValue();
    /// The same when the event loop is next at rest: a thousand properties may report one by one.
    void showValueSoon();
    /// Sets what was typed, and ends the steps.
    void commit();
    /// Ends the steps with their undo entry.
    void finishSteps();
    /// Takes back the steps that are no undo entry yet, and forgets what was typed.
    void putBack();

    void stepBy(int steps) override;
    /// Refuses only what can be no part of a number.
    QValidator::State validate(QString &input, int &position) const override;

Q_SIGNALS:
    /// Something could not be done as it was meant, in words.
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
    void tell(bool typed);

    QVector<QPointer<VxProperty>> m_properties;
    std::unique_ptr<VxPropertyEdit> m_edit; // null between two runs of steps
    double m_steps = 0;                     // of the present run
    bool m_typed = false;
    bool m_percentage = false;
    QTimer m_rest; // ends a run of steps
    QTimer m_soon;
};

#endif
