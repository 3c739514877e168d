#ifndef VXWARNING_H
#define VXWARNING_H

#include <QtCore/QString>

// Warnings with their position in the source.
//
// A warning reads "path(line): message". The path begins at the last "\src\" of the file's name,
// so that it is the same wherever the tree was built; it is written with backslashes.

/// A position in the source, filled in by VX_HERE. The file name is a borrowed literal.
struct VxSourcePosition
{
    const char *file; // __FILE__
    int line;         // 1-based
};

#define VX_HERE (VxSourcePosition{__FILE__, __LINE__})

/// The part of a file name from its last "\src\" on. Without one, a name that leads up from the
/// build tree ("../a/b.cpp") is taken as one below the source root, and any other is kept. Slashes
/// become backslashes.
QString vxSourcePath(const QString &fileName);

QString vxFormatWarning(const VxSourcePosition &position, const QString &message);

/// Sends the formatted warning through Qt's warning output.
void vxWarning(const VxSourcePosition &position, const QString &message);

#endif
