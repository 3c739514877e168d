#ifndef GLTFREADING_H
#define GLTFREADING_H

#include "gltfsample.h"
#include "io/gltf/vxgltfreader.h"
#include "io/motion/vxmotionbuilder.h"
#include "testing/vxwarningguard.h"

#include <QScopedPointer>
#include <vxcore/vxeuler.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

/// A cube with one node, whose channel has keys at 0, 1 and 3 seconds.
inline GltfSample oneNode(const char *path, const char *interpolation,
                          const std::vector<float> &numbers, const char *type, int components)
{
    GltfSample sample;
    sample.root.insert("nodes", QJsonArray{QJsonObject{{"name", "cube"}}});
    const int times = sample.floats({0, 1, 3}, "SCALAR", 1);
    sample.animate(0, 0, path, interpolation, times, sample.floats(numbers, type, components));
    return sample;
}

/// The angles of a node as a quaternion.
inline VxQuaternion rotationOf(const VxNode *node, VxTime time)
{
    const VxEuler angles{double(node->getXRotControl()->getValue(time)),
                         double(node->getYRotControl()->getValue(time)),
                         double(node->getZRotControl()->getValue(time))};
    return vxQuaternion(angles, VxRotationOrder(node->getRotationOrder()));
}

/// Reads glTF files and keeps the nodes, the report and the error of the last one.
class GltfReading
{
protected:
    void setUp() { m_guard.reset(new VxWarningGuard); }
    void tearDown()
    {
        m_contents = VxSceneContents();
        m_options = VxMotionBuildOptions();
        m_guard.reset();
    }

    bool read(const GltfSample &sample) { return read(sample.text()); }
    bool read(const QByteArray &bytes, const QString &folder = QString())
    {
        VxImportedMotion motion;
        m_error = VxFileError();
        m_options.figureName = QStringLiteral("figure");
        return vxReadGltf(bytes, folder, {}, &motion, &m_error) &&
               vxBuildMotion(std::move(motion), m_options, {}, &m_contents, &m_report, &m_error);
    }
    const VxNode *node(const char *name) const
    {
        for (const auto &root : m_contents.rootNodes) {
            QVector<VxNode *> nodes{root.get()};
            root->getNodeChildren(nodes, true);
            for (const VxNode *candidate : qAsConst(nodes)) {
                if (candidate->getName() == QLatin1String(name))
                    return candidate;
            }
        }
        qFatal("no node %s", name);
    }

    QScopedPointer<VxWarningGuard> m_guard;
    VxMotionBuildOptions m_options;
    VxSceneContents m_contents;
    VxImportReport m_report;
    VxFileError m_error;
};

#endif
