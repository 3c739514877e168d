#ifndef VXVERSION_H
#define VXVERSION_H

#include <QtCore/QString>
#include <vxcore/vxcoreglobal.h>

/// A version of four parts, compared from the first part to the last.
struct VXCORE_EXPORT VxVersion
{
    quint16 major = 0;
    quint16 minor = 0;
    quint16 revision = 0;
    quint16 build = 0;

    constexpr VxVersion() = default;
    constexpr VxVersion(quint16 majorPart, quint16 minorPart, quint16 revisionPart,
                        quint16 buildPart)
        : major(majorPart)
        , minor(minorPart)
        , revision(revisionPart)
        , build(buildPart)
    {
    }

    /// The parts joined with dots, such as "4.22.0.7".
    QString toString() const;

    /// The version of this host library. A plug-in names the one it was built against.
    static constexpr VxVersion sdk() { return {4, 22, 0, 7}; }

    /// True when a plug-in built against this version runs in a host of that version: the same
    /// major part, and a minor part that is not newer than the host's.
    constexpr bool runsIn(const VxVersion &host) const
    {
        return major == host.major && minor <= host.minor;
    }

    constexpr quint64 toNumber() const
    {
        return (quint64(major) << 48) | (quint64(minor) << 32) | (quint64(revision) << 16) | build;
    }
    friend constexpr bool operator==(const VxVersion &a, const VxVersion &b)
    {
        return a.toNumber() == b.toNumber();
    }
    friend constexpr bool operator!=(const VxVersion &a, const VxVersion &b) { return !(a == b); }
    friend constexpr bool operator<(const VxVersion &a, const VxVersion &b)
    {
        return a.toNumber() < b.toNumber();
    }
};

#endif
