#include "scenetree/scenetreecompanion.h"

SceneTreeCompanion::SceneTreeCompanion(QTreeView *view, SceneTreeModel *model, VxScene *scene,
                                       QObject *parent)
    : QObject(parent)
    , m_view(view)
    , m_model(model)
    , m_scene(scene)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] { catchUp(); });
}
