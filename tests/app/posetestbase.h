#ifndef POSETESTBASE_H
#define POSETESTBASE_H

#include "create/createedits.h"
#include "scenebytes.h"
#include "studiotestbase.h"

#include <QStatusBar>
#include <vxcore/vxbone.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostackhold.h>

/// One program for all functions of a unit; each begins with an empty scene and the shipped figure.
class PoseTest : protected StudioTest
{
protected:
    void startOnce()
    {
        setUp();
        start();
    }

    void endOnce()
    {
        vxApp->getUndoStack()->setClean();
        tearDown();
    }

    /// With every control made, so that two files of one scene can be compared.
    void newScene() const
    {
        activate(); // a dialog may have had the focus
        vxScene->clear();
        CreateEdits::addFigure(vxScene);
        makeAllControls();
        vxScene->setAnimRange({0, 9600});
        vxScene->setPlayRange({0, 4800});
        history()->clear();
        window()->statusBar()->clearMessage();
    }

    static VxUndoStack *history() { return vxApp->getUndoStack(); }
    QString status() const { return window()->statusBar()->currentMessage(); }

    static VxNode *node(const QString &name)
    {
        VxNode *found = vxScene->findNode(name);
        if (!found)
            qFatal("no node %s", qPrintable(name));
        return found;
    }

    static void select(const QStringList &names)
    {
        vxScene->selectNodes(vxScene->getSelectedNodes(), false);
        for (const QString &name : names)
            node(name)->select();
    }

    static VxFloatProperty *angle(const QString &name, int axis)
    {
        const VxNode *found = node(name);
        return axis == 0   ? found->getXRotControl()
               : axis == 1 ? found->getYRotControl()
                           : found->getZRotControl();
    }

    /// Keys as "frame=value", followed by the type unless it is linear.
    static QString keysOf(const VxFloatProperty *property)
    {
        QStringList keys;
        for (int i = 0; i < property->getNumKeys(); ++i) {
            const int type = property->getKeyInterpolationType(i);
            keys << QStringLiteral("%1=%2%3")
                        .arg(double(property->getKeyTime(i)) / 160)
                        .arg(qRound(double(property->getKeyValue(i)) * 1000) / 1000.0)
                        .arg(type == 0   ? ""
                             : type == 1 ? "c"
                                         : "t");
        }
        return keys.join(' ');
    }

    static void setKeys(VxFloatProperty *property, const QString &drawing)
    {
        property->deleteAllKeys();
        for (QString key : drawing.split(' ', Qt::SkipEmptyParts)) {
            const int type = key.endsWith('c') ? 1 : key.endsWith('t') ? 2 : 0;
            if (type != 0)
                key.chop(1);
            property->setKey(VxTime(key.section('=', 0, 0).toDouble() * 160),
                             key.section('=', 1).toFloat(), type);
        }
    }

    /// Undo and redo of the only entry restore the same bytes.
    static void checkOneEntry(const QByteArray &before, const QString &text)
    {
        QCOMPARE(history()->count(), 1);
        QCOMPARE(history()->undoText(), text);
        const QByteArray after = sceneBytes();
        QVERIFY(after != before);
        history()->undo();
        QVERIFY(sceneBytes() == before);
        history()->redo();
        QVERIFY(sceneBytes() == after);
        QCOMPARE(keyFault(), QString());
    }
};

#endif
