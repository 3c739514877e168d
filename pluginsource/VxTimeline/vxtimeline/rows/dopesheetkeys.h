#ifndef DOPESHEETKEYS_H
#define DOPESHEETKEYS_H

#include <QtCore/QVector>
#include <vector>
#include <vxcore/vxkeyspan.h>
#include <vxcore/vxtime.h>

/// The keys that one row shows: their times, and which of them are selected.
///
/// A plain value. Times and flags are separate arrays, so that each pass reads no more than it
/// needs: four bytes a key and one more in a row with selected keys, fewer where rows have the same
/// times, because those share one array. That also makes equal rows cheap to recognise: their
/// arrays have one address.
class DopeSheetKeys
{
public:
    /// Bits of a flag; all others are zero.
    enum Flag : quint8 { Selected = 1 };

    QVector<VxTime> times; // ticks, strictly ascending
    QVector<quint8> flags; // one for each time; empty while no key is selected
    int selectedCount = 0; // how many flags have Selected

    int count() const { return times.size(); }
    /// Always one for each time. Borrowed: valid until the next change.
    const quint8 *allFlags() const
    {
        return flags.isEmpty() ? noFlags(count()) : flags.constData();
    }
    bool isSelected(int index) const { return flags.value(index, 0) & Selected; }
    /// The index of the first key at or after time; count() when there is none.
    int firstFrom(VxTime time) const;

    /// Replaces the times (strictly ascending, copied). A key stays selected when its time is among
    /// the new ones.
    void takeTimes(const VxTime *fresh, int freshCount);
    /// Selects or deselects the keys from start on and before end, or, when the two are the same,
    /// the key at just that time.
    void setSelected(bool select, VxTime start, VxTime end);
    /// Selects or deselects the keys at the given indexes; those outside are ignored.
    void setSelectedAt(const QVector<int> &indexes, bool select);
    /// Replaces the times, too, but selects the keys at the given times (ascending) and no others.
    void setTimesAndSelection(const VxTime *fresh, int freshCount, const VxTime *selectedTimes,
                              int selectedTimeCount);
    /// The same for the keys of ascending spans; indexes outside are ignored.
    void setTimesAndSelection(const VxTime *fresh, int freshCount,
                              const std::vector<VxKeySpan> &spans);
    QVector<int> selectedIndexes() const;
    std::vector<VxKeySpan> selectedSpans() const;
    QVector<VxTime> selectedTimes() const;

    static int countSelected(const quint8 *flags, int flagCount);
    /// A permanent array of at least flagCount zero flags.
    static const quint8 *noFlags(int flagCount);

private:
    quint8 *flagsToWrite();
    void clearUnusedFlags();
    void replaceTimes(const VxTime *fresh, int freshCount);
    void selectOnly(const VxTime *selectedTimes, int selectedTimeCount);
};

/// Unites the keys of several rows: each time once, selected when it is in any row.
/// Neighbouring rows with the same times share one array afterwards.
DopeSheetKeys uniteKeys(DopeSheetKeys *const *rows, int rowCount);

#endif
