#ifndef COLLADAINFO_H
#define COLLADAINFO_H

#include "io/vxfileerror.h"

#include <QHash>
#include <QString>

/// Data of COLLADA files that the reading library drops, read from the text itself.
struct ColladaInfo
{
    struct Node
    {
        QString name;
        bool isJoint = false;
    };

    QString version;
    QString writer;
    char upAxis = 'Y';
    double metresPerUnit = 1.0;
    QHash<QString, Node> nodes; ///< by id
    int meshes = 0;
    int cameras = 0;
    int lights = 0;
    bool hasTangents = false; ///< some segment is neither linear nor a step
};

/// Reads it in one pass. False with line and column in `error` when the text is not well-formed
/// XML or no COLLADA document.
bool readColladaInfo(const QByteArray &bytes, ColladaInfo *info, VxFileError *error);

/// The document in a form that the library can read, too: UTF-8, and no blanks before the text of
/// an element. The document must be well-formed.
QByteArray plainCollada(const QByteArray &bytes);

#endif
