#ifndef COMMONTCB_H
#define COMMONTCB_H

#include <array>
#include <vxcore/vxkey.h>

class VxDopeSheetItem;

/// The tension, continuity and bias that all selected TCB keys share.
class CommonTcb
{
public:
    enum Part { Tension, Continuity, Bias, PartCount };

    void clear() { *this = CommonTcb(); }
    /// Adds the selected keys of a property's row; those of another type are skipped.
    void add(const VxDopeSheetItem *item);

    /// False when no TCB key was added or the keys differ; else the argument, when given, receives
    /// the value.
    bool get(Part part, float *value) const;

private:
    void add(const VxTcb &tcb);
    /// True when further keys cannot change the result.
    bool isSettled() const
    {
        return m_seen && !m_isEqual[Tension] && !m_isEqual[Continuity] && !m_isEqual[Bias];
    }

    bool m_seen = false; // any TCB key
    VxTcb m_common;
    std::array<bool, PartCount> m_isEqual{};
};

#endif
