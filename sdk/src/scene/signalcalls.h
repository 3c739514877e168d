#ifndef SIGNALCALLS_H
#define SIGNALCALLS_H

class QString;

namespace SignalCalls {

/// Throws an error in the script that calls into the host; false without such a script. Set by the
/// script engine; null without one.
extern bool (*throwInScript)(const QString &message);

} // namespace SignalCalls

#endif
