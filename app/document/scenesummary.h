#ifndef SCENESUMMARY_H
#define SCENESUMMARY_H

#include <QString>

class VxScene;

/// How much there is in a scene.
struct SceneCounts
{
    int nodes = 0;
    int keyedProperties = 0; ///< properties that hold keys themselves; aliases do not count twice
    qint64 keys = 0;

    static SceneCounts of(const VxScene &scene);
};

/// One line: nodes, keyed properties, keys, and the animation range in frames with its rate.
QString sceneSummary(const VxScene &scene);

#endif
