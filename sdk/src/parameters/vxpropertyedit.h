#ifndef VXPROPERTYEDIT_H
#define VXPROPERTYEDIT_H

#include <QtCore/QString>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxtime.h>

class VxProperty;
struct VxTypedInput;

/// One gesture on the values of some properties, from the press of a button to its release, or
/// from the first click on an arrow to the last: one undo entry in the end, or none when it is put
/// back.
///
/// It holds the undo history open during its lifetime, so it must not outlive the gesture. Each
/// change is relative to the initial values and never to the last change: values that differ keep
/// their distance, and one that met its limit returns correctly. Playback is paused, and edits use
/// the initial time, else a drag would leave a trail of keys.
class VxPropertyEdit
{
public:
    /// Numbers and switches are edited; other properties, and null, are skipped.
    VxPropertyEdit(const QVector<VxProperty *> &properties, VxTime time);
    /// Finishes unless already finished or put back.
    ~VxPropertyEdit();
    VxPropertyEdit(const VxPropertyEdit &) = delete;
    VxPropertyEdit &operator=(const VxPropertyEdit &) = delete;

    /// Sets every property to the same value, in its shown unit, within its limits. False when one
    /// of them refused.
    bool setValue(double value);
    /// Applies typed input to every property; nothing when it is invalid. False when one of them
    /// refused.
    bool apply(const VxTypedInput &input);
    /// Offsets every property by a number of its own steps from its initial value, or its value
    /// from setValue() or apply() since. False when one of them refused.
    bool offsetBy(double steps);

    /// Why the last change failed for some or all; empty on success.
    QString refusal() const;
    /// The limits that the last change met; empty when none.
    QString limit() const;

    /// Ends the gesture with an undo entry; with none when nothing changed.
    void finish();
    /// Ends the gesture and restores every key and value.
    void rollBack();

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
