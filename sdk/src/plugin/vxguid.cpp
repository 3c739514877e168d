#include <vxcore/vxguid.h>

VxGuid VxGuid::fromString(const QString &text)
{
    VxGuid guid;
    guid.m_uuid = QUuid::fromString(text);
    // The toolkit ignores text after the digits, and a missing closing brace.
    const bool isWhole = text.compare(guid.m_uuid.toString(), Qt::CaseInsensitive) == 0 ||
                         text.compare(guid.toString(), Qt::CaseInsensitive) == 0;
    return isWhole ? guid : VxGuid();
}

QString VxGuid::toString() const
{
    return m_uuid.toString(QUuid::WithoutBraces).toUpper();
}
