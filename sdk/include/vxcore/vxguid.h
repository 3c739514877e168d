#ifndef VXGUID_H
#define VXGUID_H

#include <QtCore/QString>
#include <QtCore/QUuid>
#include <vxcore/vxcoreglobal.h>

/// The identifier of a class that a plug-in offers: 128 bits, never changed once released.
class VXCORE_EXPORT VxGuid
{
public:
    /// The null identifier, which names no class.
    VxGuid() = default;

    /// Reads the 8-4-4-4-12 form of hexadecimal digits, with or without braces. Any other text
    /// gives the null identifier.
    static VxGuid fromString(const QString &text);

    /// The 8-4-4-4-12 form in upper case, without braces.
    QString toString() const;
    bool isNull() const { return m_uuid.isNull(); }

    friend bool operator==(const VxGuid &a, const VxGuid &b) { return a.m_uuid == b.m_uuid; }
    friend bool operator!=(const VxGuid &a, const VxGuid &b) { return !(a == b); }
    friend bool operator<(const VxGuid &a, const VxGuid &b) { return a.m_uuid < b.m_uuid; }

private:
    QUuid m_uuid;
};

#endif
