#ifndef DROPPEDFILE_H
#define DROPPEDFILE_H

#include <QString>

class QMimeData;
class VxFileFormats;

/// The file that can be opened from data dragged over the window: a single local file of a
/// supported type. Empty for anything else.
QString droppedFile(const QMimeData *data, const VxFileFormats &formats);

#endif
