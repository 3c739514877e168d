#ifndef COMMONTCB_H
#define COMMONTCB_H

#include <vxcore/vxkey.h>

class VxDopeSheetItem;

// The tension, continuity and bias that the selected TCB keys have in common, key by key.
class CommonTcb
{
public:
    void clear() { *this = CommonTcb(); }
    // Takes in the selected keys of a property's row; those of another type are skipped.
    void add(const VxDopeSheetItem *item);

    // False when no TCB key was added or the keys differ; else the value goes to the argument,
    // when given.
    bool getTension(float *tension) const;
    bool getContinuity(float *continuity) const;
    bool getBias(float *bias) const;

private:
    void add(const VxTcb &tcb);
    // True when no further key can make a difference.
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
