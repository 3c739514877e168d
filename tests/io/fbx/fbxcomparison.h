#ifndef FBXCOMPARISON_H
#define FBXCOMPARISON_H

#include "fbxworld.h"
#include "io/fbx/vxfbxreader.h"
#include "motionworld.h"

#include <QtTest>

namespace fbxcomparison {

/// The largest difference between an imported motion and the file's own definition.
struct Difference
{
    double degrees = 0;
    double distance = 0; ///< of positions, relative to the size of the scene
    double matrix = 0;   ///< of matrix elements of rotation and scale
    int poses = 0;
    QByteArray where;

    void add(const fbxworld::Mat &expected, const fbxworld::Mat &actual, double size,
             const QByteArray &name, double seconds)
    {
        ++poses;
        const double angle = fbxworld::angleBetween(expected, actual);
        if (angle > degrees)
            where = name + " at " + QByteArray::number(seconds);
        degrees = std::max(degrees, angle);
        for (std::size_t i = 0; i < 3; ++i) {
            distance = std::max(distance, std::abs(expected[i][3] - actual[i][3]) / size);
            for (std::size_t k = 0; k < 3; ++k)
                matrix = std::max(matrix, std::abs(expected[i][k] - actual[i][k]));
        }
    }
};

inline VxImportedMotion readGood(const QByteArray &bytes)
{
    VxImportedMotion motion;
    VxFileError error;
    if (!vxReadFbx(bytes, {}, &motion, &error))
        QTest::qFail(qPrintable(error.text()), __FILE__, __LINE__);
    return motion;
}

inline int clipOf(const VxImportedMotion &motion, const QByteArray &name)
{
    for (std::size_t i = 0; i < motion.clips.size(); ++i)
        if (motion.clips[i].name == QString::fromUtf8(name))
            return int(i);
    return -1;
}

/// Whether a node was added above bones that have none: it may have the name of its own child.
inline bool isAddedSkeleton(const VxImportedMotion &motion, std::size_t node)
{
    return motion.nodes[node].name == QLatin1String("Skeleton") && motion.nodes[node].parent < 0 &&
           motion.nodes[node].kind == VxMotionNode::Skeleton && node + 1 < motion.nodes.size() &&
           motion.nodes[node + 1].name == motion.nodes[node].name &&
           motion.nodes[node + 1].parent == int(node);
}

/// Indexes of the nodes of the models, in the order of the file.
inline QVector<int> nodesOf(const VxImportedMotion &motion, const fbxworld::Scene &scene)
{
    QVector<int> nodes;
    std::size_t at = 0;
    for (const fbxworld::Scene::Model &model : scene.models()) {
        while (
            at < motion.nodes.size() &&
            (motion.nodes[at].name != QString::fromUtf8(model.name) || isAddedSkeleton(motion, at)))
            ++at;
        if (at == motion.nodes.size())
            return {};
        nodes.append(int(at++));
    }
    return nodes;
}

/// Compares all models in all animations, at rest, at all key times and between them: `steps` equal
/// parts of each span between two key times of the file.
inline Difference compare(const QByteArray &bytes, const VxImportedMotion &motion, int steps)
{
    const fbxworld::Scene scene(bytes);
    const QVector<int> nodes = nodesOf(motion, scene);
    Difference difference;
    if (nodes.size() != scene.models().size()) {
        QTest::qFail("nodes are missing", __FILE__, __LINE__);
        return difference;
    }
    for (int stack = -1; stack < scene.stackCount(); ++stack) {
        QVector<double> times{0.0};
        int clip = -1;
        if (stack >= 0) {
            clip = clipOf(motion, scene.stackName(stack));
            const QVector<double> keys = scene.keyTimes(stack);
            for (int i = 0; i + 1 < keys.size(); ++i)
                for (int k = 0; k < steps; ++k)
                    times.append(keys[i] + (keys[i + 1] - keys[i]) * k / steps);
            if (!keys.isEmpty())
                times.append({keys.last(), keys.first() - 1, keys.last() + 1});
        }
        for (const double time : times) {
            const QVector<fbxworld::Mat> expected = scene.worlds(stack, time);
            const QVector<fbxworld::Mat> actual = motionworld::worlds(motion, clip, time);
            double size = 1;
            for (const fbxworld::Mat &m : expected)
                for (std::size_t i = 0; i < 3; ++i)
                    size = std::max(size, std::abs(m[i][3]));
            for (int i = 0; i < nodes.size(); ++i) {
                const QByteArray name = scene.models()[i].name;
                const int end = motionworld::endOf(motion, name, nodes[i]);
                difference.add(expected[i], actual[end], size, name, time);
            }
        }
    }
    return difference;
}

} // namespace fbxcomparison

#endif
