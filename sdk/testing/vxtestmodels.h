#ifndef VXTESTMODELS_H
#define VXTESTMODELS_H

#include <QFileInfo>
#include <QString>

/// The path of a real motion file, such as "BVH/01_01.bvh", or of a folder of them, from a package
/// that the tests need.
inline QString vxTestModels(const QString &name)
{
    const QString path = QStringLiteral("/usr/share/assimp/models/") + name;
    if (!QFileInfo::exists(path))
        qFatal("%s is missing: install the package assimp-testmodels", qPrintable(path));
    return path;
}

#endif
