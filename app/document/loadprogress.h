#ifndef LOADPROGRESS_H
#define LOADPROGRESS_H

#include "io/vxfileprogress.h"

#include <QString>
#include <memory>

class QProgressDialog;
class UserMessages;

/// Shows the progress of a long file operation, once it has taken half a second or will clearly
/// take longer, and lets the user cancel it. On the console it does neither.
class LoadProgress
{
public:
    LoadProgress(const UserMessages &messages, const QString &label);
    ~LoadProgress();
    LoadProgress(const LoadProgress &) = delete;
    LoadProgress &operator=(const LoadProgress &) = delete;

    /// The callback to pass to the operation; valid during this object's lifetime.
    VxFileProgress function();

private:
    std::unique_ptr<QProgressDialog> m_dialog; // null on the console
};

#endif
