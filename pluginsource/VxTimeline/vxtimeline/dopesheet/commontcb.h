#ifndef COMMONTCB_H
#define COMMONTCB_H

#include <vxcore/vxkey.h>

class VxDopeSheetItem;

// The tension, continuity and bias that all selected TCB keys share.
class CommonTcb
{
public:
    void clear() { *this = CommonTcb(); }
    // Adds the selected keys of a property's row; those of another type are skipped.
    void add(const VxDopeSheetItem *item);

    // False when no TCB key was added or the keys differ; else the argument, when given, receives
    // the value.
    bool getTension(float *tension) const;
    bool getContinuity(float *continuity) const;
    bool getBias(float *bias) const;

private:
    void add(const VxTcb &tcb);
    // True when further keys cannot change the result.
    bool isSettled() const
    {
        return m_seen && !m_tensionEqual && !m_continuityEqual && !m_biasEqual;
    }

    bool m_seen = false; // any TCB key
    VxTcb m_common;
    bool m_tensionEqual = false;
    bool m_continuityEqual = false;
    bool m_biasEqual = false;
};

#endif
