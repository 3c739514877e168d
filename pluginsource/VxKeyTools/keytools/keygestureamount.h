#ifndef KEYGESTUREAMOUNT_H
#define KEYGESTUREAMOUNT_H

#include <QtCore/QString>
#include <QtCore/QVariant>
#include <vxcore/vxtime.h>

struct KeyTool;

/// What the mouse or a typed number changes in a gesture on keys.
enum class KeyGestureKind { Move, Duplicate, ScaleTimes, MoveValues, ScaleValues };

/// The amount of a gesture on keys, and the key tool with its arguments that makes the edit.
///
/// The amount is a number of ticks, a value or a factor; the mouse sets it until a number is typed.
class KeyGestureAmount
{
public:
    /// `pivot` is an index among the pivots of the scaling tool.
    explicit KeyGestureAmount(KeyGestureKind kind, int pivot = 0);

    KeyGestureKind kind() const { return m_kind; }
    bool isScale() const;
    /// Whether it changes with the mouse across the time axis instead of along it.
    bool isOfValues() const;
    const KeyTool &tool() const;
    int pivot() const { return m_pivot; }
    QString pivotName() const;
    /// The next pivot of the tool; after the last one the first.
    void choosePivot();

    /// Sets the amount by the mouse: ticks, a value or a factor. With a step above 0 it is rounded
    /// to a multiple of it. Without effect after a number was typed.
    void setByMouse(double amount, double step);
    /// Adds to the amount of the mouse: ticks, a value or a part of a factor. Without effect after
    /// a number was typed.
    void addByKeys(double amount);

    /// Appends a character of a number, a time or a percentage; false when it is none.
    bool type(const QString &character);
    /// Removes the last typed character.
    void eraseTyped();
    const QString &typed() const { return m_typed; }

    /// False when what was typed is not usable, such as a sign alone.
    bool isReadable() const;
    /// True while the amount changes nothing.
    bool isNeutral() const;
    /// Arguments of the tool; only for readable amounts.
    QVariantMap arguments() const;
    /// Such as "Move +10 frames" or "Scale Times 150 % about Playhead".
    QString text() const;

private:
    QString amountText() const;

    KeyGestureKind m_kind;
    int m_pivot = 0;
    double m_amount = 0; // by mouse and arrow keys
    double m_byKeys = 0; // of it
    QString m_typed;
};

#endif
