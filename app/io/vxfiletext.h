#ifndef VXIO_VXFILETEXT_H
#define VXIO_VXFILETEXT_H

#include <QCoreApplication>

/// Translation context of what the readers and writers of files show to users.
class VxFileText
{
    Q_DECLARE_TR_FUNCTIONS(VxFileText)
};

#endif
