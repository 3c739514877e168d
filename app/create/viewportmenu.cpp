#include "create/viewportmenu.h"

#include "create/createedits.h"
#include "scenetree/sceneedits.h"
#include "viewport/viewportwidget.h"
#include "widgets/actionsubmenu.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <vxcore/vxbone.h>
#include <vxcore/vxscene.h>

ViewportMenu::ViewportMenu(VxScene *scene, ViewportWidget *viewport)
    : QObject(viewport)
    , m_scene(scene)
    , m_viewport(viewport)
{
    viewport->installEventFilter(this);
}

bool ViewportMenu::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_viewport || event->type() != QEvent::ContextMenu)
        return QObject::eventFilter(watched, event);
    const auto *request = static_cast<QContextMenuEvent *>(event);
    QMenu *menu = makeMenu(request->pos());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(request->globalPos());
    return true;
}

/** A node that is selected stays so with the others. */
void ViewportMenu::selectAt(const QPoint &pixel)
{
    VxNode *node = m_viewport->nodeAt(pixel);
    if (node && !node->isSelected())
        SceneEdits::selectOnly(m_scene, {node});
}

QMenu *ViewportMenu::makeMenu(const QPoint &pixel)
{
    selectAt(pixel);
    auto *menu = new QMenu(m_viewport);
    if (QMenu *create = addActionSubMenu(menu, tr("Create"), QStringLiteral("Create"))) {
        create->addSeparator();
        QAction *bone =
            create->addAction(tr("Bone Ending Here"), this, [this, pixel] { addBoneTo(pixel); });
        bone->setEnabled(m_scene->getPrimarySelection() != nullptr);
    }
    addActionSubMenu(menu, tr("Pose"), QStringLiteral("Pose"));
    menu->addSeparator();
    menu->addAction(m_viewport->frameSelectionAction());
    addActionSubMenu(menu, tr("View"), QStringLiteral("View"));
    menu->addSeparator();
    QAction *remove = menu->addAction(
        tr("Delete"), this, [this] { SceneEdits::remove(m_scene, m_scene->getSelectedNodes()); });
    remove->setEnabled(m_scene->getNumSelectedNodes() > 0);
    return menu;
}

/** At the depth of the joint at which the bone begins. */
void ViewportMenu::addBoneTo(const QPoint &pixel)
{
    VxNode *parent = m_scene->getPrimarySelection();
    if (!parent)
        return;
    const QVector3D start = qobject_cast<VxBone *>(parent) ? parent->getEndPoint() : QVector3D();
    const ViewportCamera &camera = m_viewport->camera();
    const float depth = camera.depth(parent->getWorldTransform(m_scene->getTime()).map(start));
    const CreateResult result =
        CreateEdits::addBoneTo(m_scene, parent, camera.pointAt(pixel, depth));
    if (!result.message.isEmpty())
        Q_EMIT m_viewport->message(result.message);
}
