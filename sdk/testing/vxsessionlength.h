#ifndef VXSESSIONLENGTH_H
#define VXSESSIONLENGTH_H

#include <QtGlobal>

/// The number of steps of a random session: all of them under the sanitizers, where they find most,
/// and where the environment has VX_FULL_SESSIONS; an eighth, at least 1, in an ordinary run.
inline int vxSessionLength(int full)
{
#ifdef __SANITIZE_ADDRESS__
    return full;
#else
    return qEnvironmentVariableIsSet("VX_FULL_SESSIONS") ? full : qMax(1, full / 8);
#endif
}

#endif
