#ifndef PANE_VXPROPERTYEDIT_H
#define PANE_VXPROPERTYEDIT_H

#include <QtCore/QString>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxtime.h>

class VxProperty;
struct VxTypedInput;

/// One gesture of a hand on the values of some properties, from the press of a button to its
/// release, or from the first click on an arrow to the last: one undo entry in the end, or none
/// when it is put back.
///
/// It holds the undo history open while it lives, so it must not outlive the gesture. Each change
/// is counted from the values there were at the beginning and never from the last change: values
/// that differ keep their distance, and one that met its limit finds its way back. Playback is
/// paused, and the time stays the one of the beginning, else a drag would leave a trail of keys.
class VxPropertyEdit
{
public:
    /// Numbers and switches are edited; other properties, and null, are passed over.
    VxPropertyEdit(const QVector<VxProperty *> &properties, VxTime time);
    /// Finishes what is neither finished nor put back.
    ~VxPropertyEdit();
    VxPropertyEdit(const VxPropertyEdit &) = delete;
    VxPropertyEdit &operator=(const VxPropertyEdit &) = delete;

    /// Gives every property the same value, in the unit in which it is shown, within its limits.
    /// False when one of them refused.
    bool setValue(double value);
    /// Does to every property what was typed; nothing when that is no value. False when one of
    /// them refused.
    bool apply(const VxTypedInput &input);
    /// Moves every property by an amount of its own steps from the value it had at the beginning,
    /// or got from setValue() or apply() since. False when one of them refused.
    bool offsetBy(double steps);

    /// Why the last change did not come about for some or all; empty when it did.
    QString refusal() const;
    /// Which limits the last change met; empty when none.
    QString limit() const;

    /// Ends the gesture with an undo entry; with none when nothing changed.
    void finish();
    /// Ends the gesture with every key and value as it was at the beginning.
    void putBack();

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
