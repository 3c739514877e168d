#include "plantedpane.h"

#include <QMouseEvent>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>

namespace {

constexpr int LastFrame = 30;

} // namespace

struct PlantedPane::Drag
{
    QPoint last;
    int moves = 0;
};

PlantedPane::PlantedPane(QWidget *parent)
    : QWidget(parent)
{
    setMinimumSize(200, 60);
    connect(vxScene, &VxScene::timeChanged, this, [this] {
        if (vxScene->getTime() > LastFrame * vxScene->getTimeStep())
            m_drag.reset();
    });
}

PlantedPane::~PlantedPane() = default;

void PlantedPane::mousePressEvent(QMouseEvent *event)
{
    m_drag = std::make_unique<Drag>();
    m_drag->last = event->pos();
}

void PlantedPane::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_drag)
        return;
    vxScene->setTime(qMax(0, event->x()) * vxScene->getTimeStep());
    m_drag->last = event->pos(); // the mistake: a listener may have ended the drag
    ++m_drag->moves;
}

void PlantedPane::mouseReleaseEvent(QMouseEvent *)
{
    m_drag.reset();
}
