#ifndef VXSCENE_P_H
#define VXSCENE_P_H

#include "scene/scenenodes.h"
#include "scene/sceneplayback.h"
#include "scene/sceneselection.h"

#include <vxcore/vxscene.h>

class VxProperty;

class VxScene::Private
{
public:
    explicit Private(VxScene *scene);

    static Private *of(VxScene *scene) { return scene->d.get(); }

    /// Schedules viewChanged() for the next event loop iteration.
    void touchView();
    /// Sets values without recording them and without updating the playback.
    void applyTime(VxTime time);
    void applyDefaults();
    /// The hook of properties, see VxProperty::Private::changeHook.
    static bool handlePropertyChange(VxProperty *property);
    /// The range with an end that is not before its start.
    static VxTimeRange ordered(const VxTimeRange &range);

    VxScene *q;
    VxTime time = 0;
    VxTime timeStep;
    VxTimeRange playRange;
    VxTimeRange animRange;
    bool animating = true;
    bool looping = false;
    bool viewTouched = false;
    int loadDepth = 0;
    SceneNodes nodes;
    SceneSelection selection;
    ScenePlayback playback;
};

#endif
