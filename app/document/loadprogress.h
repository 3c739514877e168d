#ifndef LOADPROGRESS_H
#define LOADPROGRESS_H

#include "io/vxfileprogress.h"

#include <QString>
#include <memory>

class UserMessages;

/// Shows how far a long file operation is, once it has taken half a second or will clearly take
/// longer, and lets the user cancel it. On the console nothing is shown and nothing is cancelled.
class LoadProgress
{
public:
    LoadProgress(const UserMessages &messages, const QString &label);
    ~LoadProgress();
    LoadProgress(const LoadProgress &) = delete;
    LoadProgress &operator=(const LoadProgress &) = delete;

    /// The function to hand to the operation; valid while this object lives.
    VxFileProgress function();

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
