#ifndef SCENESUMMARY_H
#define SCENESUMMARY_H

#include <QString>

class VxScene;

/// The numbers of items in a scene.
struct SceneCounts
{
    int nodes = 0;
    int keyedProperties = 0; ///< properties with keys of their own; aliases are not counted
    qint64 keys = 0;

    static SceneCounts of(const VxScene &scene);
};

/// One line: nodes, keyed properties, keys, and the animation range in frames with its rate.
QString sceneSummary(const VxScene &scene);

#endif
