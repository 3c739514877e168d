#ifndef SCENEDOCUMENTS_H
#define SCENEDOCUMENTS_H

#include "io/vxscenefile.h"
#include "io/vxscenereader.h"

#include <QCborStreamWriter>
#include <functional>

/// Scene files written member by member, valid or not.
namespace scenedocuments {

using Writer = QCborStreamWriter;
using Write = std::function<void(Writer &)>;

inline void text(Writer &out, const char *name, const char *value)
{
    out.append(QLatin1String(name));
    out.append(QLatin1String(value));
}

/// A document whose top map has the given members after its format and version.
inline QByteArray document(const Write &members)
{
    QByteArray bytes;
    Writer out(&bytes);
    out.startMap();
    text(out, "format", VxSceneFile::Format);
    out.append(QLatin1String("version"));
    out.append(VxSceneFile::Version);
    members(out);
    out.endMap();
    return bytes;
}

/// A document of one node with further members in the node's map.
inline QByteArray nodeDocument(const Write &members)
{
    return document([&](Writer &out) {
        out.append(QLatin1String("nodes"));
        out.startArray();
        out.startMap();
        text(out, "kind", "node");
        text(out, "name", "n");
        members(out);
        out.endMap();
        out.endArray();
    });
}

/// A document of one node with properties of which each is a map.
inline QByteArray propertyDocument(int count, const std::function<void(Writer &, int)> &members)
{
    return nodeDocument([&](Writer &out) {
        out.append(QLatin1String("properties"));
        out.startArray();
        for (int i = 0; i < count; ++i) {
            out.startMap();
            out.append(QLatin1String("name"));
            out.append(QStringLiteral("p%1").arg(i));
            text(out, "kind", "float");
            members(out, i);
            out.endMap();
        }
        out.endArray();
    });
}

inline bool read(const QByteArray &bytes, VxSceneContents *contents, QString *message)
{
    VxFileError error;
    const bool done = VxSceneReader().read(bytes, contents, &error);
    *message = error.text();
    return done;
}

} // namespace scenedocuments

#endif
