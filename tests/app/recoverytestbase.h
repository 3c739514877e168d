#ifndef RECOVERYTESTBASE_H
#define RECOVERYTESTBASE_H

#include "recovery/recoverycontroller.h"
#include "recovery/recoverydialog.h"
#include "studiotestbase.h"

#include <QDir>
#include <QPushButton>
#include <QtTest>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxundostackhold.h>

/// A program with copies of unsaved work, which may be that of another process.
class RecoveryTest : public StudioTest
{
public:
    static void changeValue(float value)
    {
        VxUndoStackHold hold;
        vxScene->getNodes().at(2)->getYRotControl()->setKey(1600, value, VxKeyInterp::Linear);
        hold.accept("Change");
    }

    static float changedValue()
    {
        return vxScene->getNodes().at(2)->getYRotControl()->getValue(1600);
    }

    void leave()
    {
        if (studio)
            vxApp->getUndoStack()->setClean();
        tearDown();
    }

    QString settings() const { return folder->filePath("settings.json"); }
    QString copySample(const QString &name = "walk.vxscene") const
    {
        const QString file = folder->filePath(name);
        const QString source = name.endsWith("bvh") ? VX_SOURCE_DIR "/samples/walk.bvh"
                                                    : VX_SOURCE_DIR "/samples/walk.vxscene";
        if (!QFile::copy(source, file))
            qFatal("cannot copy the sample");
        return file;
    }
    QStringList recoveryFiles() const
    {
        return QDir(folder->filePath("settings-recovery"))
            .entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    RecoveryController *recovery() const { return window()->recovery(); }
    RecoveryDialog *dialog() const { return window()->findChild<RecoveryDialog *>(); }
    void press(const char *name) const
    {
        auto *button = dialog()->findChild<QPushButton *>(QLatin1String(name));
        QTest::mouseClick(button, Qt::LeftButton);
    }
};

#endif
