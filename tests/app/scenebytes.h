#ifndef SCENEBYTES_H
#define SCENEBYTES_H

#include "io/vxscenewriter.h"

#include <QBuffer>
#include <QtTest>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

/// The scene as its file: whatever differs in it was changed.
inline QByteArray sceneBytes(const VxScene *scene = vxScene)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    VxFileError error;
    if (!VxSceneWriter(scene).write(&buffer, &error))
        qFatal("the scene cannot be written: %s", qPrintable(error.message));
    return buffer.data();
}

/// Controls are made when they are first asked for, and a file lists those that exist.
inline void makeAllControls(const VxScene *scene = vxScene)
{
    for (const VxNode *node : scene->getNodes()) {
        for (int i = 0; i < node->getNumProperties(); ++i)
            node->getProperty(i);
    }
}

/// Panes make controls at any time, such as those of selected nodes.
inline QByteArray wholeScene()
{
    makeAllControls();
    return sceneBytes();
}

/// What is wrong with the keys of a scene: empty when they ascend and all numbers are finite.
inline QString keyFault(const VxScene *scene = vxScene)
{
    for (const VxNode *node : scene->getNodes()) {
        for (const VxProperty *property : node->getMadeProperties()) {
            const auto *number = qobject_cast<const VxFloatProperty *>(property);
            if (number && !qIsFinite(number->getValue()))
                return node->getName() + ' ' + property->getName() + " is not finite";
            for (int i = 0; i < property->getNumKeys(); ++i) {
                if (number && !qIsFinite(number->getKeyValue(i)))
                    return node->getName() + ' ' + property->getName() + ": key not finite";
                if (i > 0 && property->getKeyTime(i) <= property->getKeyTime(i - 1))
                    return node->getName() + ' ' + property->getName() + ": keys not sorted";
            }
        }
    }
    return {};
}

#endif
