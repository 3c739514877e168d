#ifndef SAVINGTESTBASE_H
#define SAVINGTESTBASE_H

#include "dialoganswers.h"
#include "io/vxbackups.h"
#include "io/vxscenereader.h"
#include "studiotestbase.h"

#include <vxcore/vxundostackhold.h>

inline QByteArray contents(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The time step of a scene file; -1 when it cannot be read.
inline VxTime stepIn(const QString &scene)
{
    VxSceneContents read;
    VxFileError error;
    return VxSceneReader().readFile(scene, &read, &error) ? read.timeStep : -1;
}

inline void change()
{
    VxUndoStackHold hold;
    vxScene->setTimeStep(vxScene->getTimeStep() + 1);
    hold.accept("Change");
}

/// A program whose documents are saved: a sample, what changes it and what its files contain.
class SavingTest : public StudioTest
{
protected:
    void setUpSaving()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        setUpShared();
    }
    static VxUndoStack *history() { return vxApp->getUndoStack(); }
    DocumentController *document() const { return window()->document(); }
    QString saved(const QString &name = "walk.vxscene") const
    {
        openSample();
        const QString file = folder->filePath(name);
        if (!document()->save(file))
            qFatal("cannot save %s", qPrintable(name));
        activate();
        return file;
    }
    /// A changed document in a deleted folder: saving it fails.
    QString changedInLostFolder() const
    {
        if (!QDir(folder->path()).mkdir("lost"))
            qFatal("cannot make the folder");
        const QString file = saved("lost/walk.vxscene");
        change();
        QDir(folder->filePath("lost")).removeRecursively();
        return file;
    }
};

#endif
