#include <vxcore/vxversion.h>

QString VxVersion::toString() const
{
    return QStringLiteral("%1.%2.%3.%4").arg(major).arg(minor).arg(revision).arg(build);
}
