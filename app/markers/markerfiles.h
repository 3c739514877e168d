#ifndef MARKERFILES_H
#define MARKERFILES_H

#include "io/vxfileerror.h"

class VxScene;

/// Markers of a scene in CSV files; see vxWriteMarkerCsv().
namespace MarkerFiles {

/// Adds the markers of a file, except those that the scene has already: one undo entry. Returns a
/// sentence with their number; empty, with the scene unchanged, on failure.
QString importFile(VxScene *scene, const QString &fileName, VxFileError *error);

/// Writes all markers. False, with the former file unchanged, on failure.
bool exportFile(const VxScene *scene, const QString &fileName, VxFileError *error);

} // namespace MarkerFiles

#endif
