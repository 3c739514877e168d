#ifndef KEYGRAPHKEYS_H
#define KEYGRAPHKEYS_H

#include "vxtimeline/keygraph/paint/keygraphscale.h"

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtCore/QSize>
#include <vector>
#include <vxcore/vxtime.h>

/// The key graph's own state of one key: plain, so that a channel's keys are one array.
struct VxKeyGraphKey
{
    VxTime time = 0;              // ticks
    bool selected = false;        // in the graph
    bool selectedAtPress = false; // as at the last press; a rubber band restores it
    /// Time and value when the key was last selected or pressed: the start of a drag.
    VxTime dragStartTime = 0;
    double dragStartValue = 0.0; // display units
};

/// The keys of a curve as borrowed arrays of `count` elements; null when there are none.
struct KeyGraphKeys
{
    const VxTime *times = nullptr; // ascending
    const float *values = nullptr; // as stored in the property
    const quint8 *types = nullptr; // 0 Linear, 1 Constant, 2 TCB
    int count = 0;
    double displayScale = 1.0; // display units for 1

    double value(int index) const { return double(values[index]) * displayScale; }
    /// The index of the first key at or after a time; count when there is none.
    int firstFrom(VxTime time) const;
    /// The index after the last key up to a time.
    int endAt(VxTime time) const;
};

/// A box of times and values, all bounds included.
struct KeyGraphBox
{
    VxTime startTime = 0;
    VxTime endTime = 0;
    double lowValue = 0.0;
    double highValue = 0.0;

    /// The box between two points of a graph, in pixels.
    static KeyGraphBox between(const KeyGraphScale &scale, const QPoint &a, const QPoint &b);
    bool contains(VxTime time, double value) const
    {
        return startTime <= time && time <= endTime && lowValue <= value && value <= highValue;
    }
};

/// A mark to paint.
struct KeyGraphMark
{
    QPoint corner;
    quint8 type = 0;
    bool selected = false;

    friend bool operator==(const KeyGraphMark &a, const KeyGraphMark &b)
    {
        return a.corner == b.corner && a.type == b.type && a.selected == b.selected;
    }
};

/// Finds the visible marks of a curve in the order of its keys: those that touch the area, each
/// position and look once, where the last of them would be. Reuses its memory from curve to curve;
/// one instance serves a whole repaint.
class KeyGraphMarks
{
public:
    explicit KeyGraphMarks(const QSize &size);

    /// Of keys and their records (one a key). Valid until the next call.
    const std::vector<KeyGraphMark> &find(const KeyGraphKeys &keys, const VxKeyGraphKey *records,
                                          const KeyGraphScale &scale);

private:
    QSize m_size;
    std::vector<quint32> m_seen; // the column in which a row and look was painted last
    quint32 m_column = 0;
    std::vector<KeyGraphMark> m_marks;
};

/// The first key whose mark covers a point; -1 for none. Only keys near the point are tested.
int keyGraphKeyAt(const KeyGraphKeys &keys, const KeyGraphScale &scale, const QPoint &position);

/// Smallest and largest key value.
struct KeyGraphSpan
{
    KeyGraphSpan();
    void add(const KeyGraphKeys &keys, const VxKeyGraphKey *records, bool onlySelected);

    /// The largest one starts at the smallest positive number, so that the span of negative keys
    /// includes zero.
    double low;
    double high;
    bool found = false;
};

#endif
