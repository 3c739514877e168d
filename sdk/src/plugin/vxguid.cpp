#include <vxcore/vxguid.h>

VxGuid VxGuid::fromString(const QString &text)
{
    VxGuid guid;
    guid.m_uuid = QUuid::fromString(text);
    return guid;
}

QString VxGuid::toString() const
{
    return m_uuid.toString(QUuid::WithoutBraces).toUpper();
}
