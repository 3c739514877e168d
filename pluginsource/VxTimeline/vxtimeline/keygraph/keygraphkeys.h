#ifndef KEYGRAPHKEYS_H
#define KEYGRAPHKEYS_H

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtCore/QSize>
#include <vector>
#include <vxcore/vxtime.h>

#include "vxtimeline/keygraph/keygraphscale.h"

// What the key graph remembers of one key beside the property: plain, so that a channel's keys are
// one array.
struct VxKeyGraphKey
{
    VxTime time = 0;              // ticks
    bool selected = false;        // in the graph
    bool selectedAtPress = false; // as it was at the last press, for what a rubber band gives back
    // Time and value when the key was last selected or pressed: a drag is reckoned from there.
    VxTime dragStartTime = 0;
    double dragStartValue = 0.0; // display units
};

// The keys of a curve as borrowed arrays of `count` elements; null when there are none.
struct KeyGraphKeys
{
    const VxTime *times = nullptr; // ascending
    const float *values = nullptr; // as the property keeps them
    const quint8 *types = nullptr; // 0 Linear, 1 Constant, 2 TCB
    int count = 0;
    double displayScale = 1.0; // display units for 1

    double value(int index) const { return double(values[index]) * displayScale; }
    // The index of the first key at or after a time; count when there is none.
    int firstFrom(VxTime time) const;
    // The index after the last key up to a time.
    int endAt(VxTime time) const;
};

// A box over times and values, all bounds included.
struct KeyGraphBox
{
    VxTime startTime = 0;
    VxTime endTime = 0;
    double lowValue = 0.0;
    double highValue = 0.0;

    // The box between two places of a graph, in pixels.
    static KeyGraphBox between(const KeyGraphScale &scale, const QPoint &a, const QPoint &b);
    bool contains(VxTime time, double value) const
    {
        return startTime <= time && time <= endTime && lowValue <= value && value <= highValue;
    }
};

// A mark to paint.
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

// Finds the marks of a curve that are to be painted, in the order of its keys: those that touch the
// area, each place and look once, where the last of them would be. Keeps its memory from curve to
// curve; one is used for a whole repaint.
class KeyGraphMarks
{
public:
    explicit KeyGraphMarks(const QSize &size);

    // Of keys and their records (one a key). Valid until the next call.
    const std::vector<KeyGraphMark> &find(const KeyGraphKeys &keys, const VxKeyGraphKey *records,
                                          const KeyGraphScale &scale);

private:
    QSize m_size;
    std::vector<quint32> m_seen; // the column in which a row and look was painted last
    quint32 m_column = 0;
    std::vector<KeyGraphMark> m_marks;
};

// The first key whose mark covers a place; -1 for none. Only keys near the place are looked at.
int keyGraphKeyAt(const KeyGraphKeys &keys, const KeyGraphScale &scale, const QPoint &position);

// Smallest and largest key value.
struct KeyGraphSpan
{
    KeyGraphSpan();
    void add(const KeyGraphKeys &keys, const VxKeyGraphKey *records, bool onlySelected);

    // The search for the largest one begins at the smallest positive number, so that keys below
    // zero are shown together with zero.
    double low;
    double high;
    bool found = false;
};

#endif
