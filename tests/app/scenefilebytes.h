#ifndef SCENEFILEBYTES_H
#define SCENEFILEBYTES_H

#include "io/vxscenereader.h"
#include "scenebytes.h"
#include "walksample.h"

#include <QCborMap>
#include <QCborValue>

/// Replaces the scene by that of a file; false and unchanged when the file is refused.
inline bool loadScene(const QByteArray &bytes, VxScene *scene, VxFileError *error)
{
    VxSceneContents contents;
    if (!VxSceneReader().read(bytes, &contents, error))
        return false;
    VxSceneReader::install(std::move(contents), scene);
    return true;
}

inline QByteArray sampleBytes()
{
    VxScene scene;
    WalkSample::build(&scene);
    return sceneBytes(&scene);
}

/// The sample as a map that a test can change.
inline QCborMap sampleMap()
{
    return QCborValue::fromCbor(sampleBytes()).toMap();
}

#endif
