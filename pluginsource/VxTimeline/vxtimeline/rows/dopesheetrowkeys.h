#ifndef DOPESHEETROWKEYS_H
#define DOPESHEETROWKEYS_H

#include <vxcore/vxtime.h>

class VxDopeSheetItem;

/// The keys of one row as plain arrays, for painting and hit tests.
///
/// Everything is borrowed from the row's item and its property, and is valid until either changes.
struct DopeSheetRowKeys
{
    /// The look of a key's mark: the interpolation types have their own numbers.
    enum Look : quint8 { Linear = 0, Constant = 1, Tcb = 2, Aggregate = 3 };
    /// Set in a row's flags of a key, and in DopeSheetMark::state.
    static constexpr quint8 Selected = 1;

    const VxTime *times = nullptr;
    const quint8 *flags = nullptr;
    const quint8 *types = nullptr; // a Look a key; null: commonLook for all
    int count = 0;
    Look commonLook = Aggregate;

    static DopeSheetRowKeys of(const VxDopeSheetItem *item);

    /// The state of a key's mark as bits: whether it is selected, then its look.
    quint8 stateOf(int index) const
    {
        const int look = types ? types[index] : quint8(commonLook);
        return static_cast<quint8>((look & 3) << 1 | (flags[index] & Selected));
    }
    static Look lookOf(quint8 state) { return static_cast<Look>(state >> 1); }
};

#endif
