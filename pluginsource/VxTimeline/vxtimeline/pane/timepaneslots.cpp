// The pane's slots, which forward to its collaborators.

#include <vxcore/vxscene.h>

#include "vxtimeline/dopesheet/vxdopesheetmodel.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/pane/timefields.h"
#include "vxtimeline/pane/vxtimepane_p.h"

VxDopeSheetView *VxTimePane::getDopeSheetView() const
{
    return d->views.sheet();
}

VxKeyGraphView *VxTimePane::getKeyGraphView() const
{
    return d->views.graphView();
}

QVector<QAction *> VxTimePane::getRegisteredActions() const
{
    return d->choices.actions();
}

void VxTimePane::unregisterAction(QObject *action)
{
    d->choices.remove(action);
}

void VxTimePane::doStyling()
{
    d->controls.style(palette());
    d->views.style();
}

// Layout.

void VxTimePane::setControlsPosition(ControlsPosition position)
{
    d->layout.setControlsPosition(position);
}

VxTimePane::ControlsPosition VxTimePane::getControlsPosition() const
{
    return d->layout.controlsPosition();
}

void VxTimePane::setViewMode(ViewMode viewMode)
{
    d->layout.setViewMode(viewMode);
}

VxTimePane::ViewMode VxTimePane::getViewMode() const
{
    return d->layout.viewMode();
}

void VxTimePane::setKeyGraphOpen(bool onOff)
{
    d->layout.setGraphOpen(onOff);
}

bool VxTimePane::getKeyGraphOpen() const
{
    return d->layout.isGraphOpen();
}

void VxTimePane::handleKeyGraphOpenChanged()
{
    d->layout.showGraph();
}

void VxTimePane::updateKeyGraph()
{
    d->views.graphView()->doUpdate();
}

void VxTimePane::frameKeyGraph(bool onlySelected)
{
    d->views.graphView()->frameKeys(onlySelected);
}

void VxTimePane::updateControls()
{
    d->views.update();
}

void VxTimePane::updateSliders()
{
    d->views.updateSliders();
}

void VxTimePane::handleDopesheetHeaderSectionResized()
{
    d->views.followNameColumn();
    updateControls();
}

// Time fields and what the scene reports.

void VxTimePane::updateTimeFields()
{
    d->controls.fields().refresh();
}

void VxTimePane::setTotalFrames(int frames)
{
    d->controls.fields().setTotalFrames(frames);
}

int VxTimePane::getTotalFrames() const
{
    return d->controls.fields().totalFrames();
}

void VxTimePane::setPlayRangeStart(int frame)
{
    d->controls.fields().setPlayRangeStart(frame);
}

int VxTimePane::getPlayRangeStart() const
{
    return d->controls.fields().playRangeStart();
}

void VxTimePane::setPlayRangeEnd(int frame)
{
    d->controls.fields().setPlayRangeEnd(frame);
}

int VxTimePane::getPlayRangeEnd() const
{
    return d->controls.fields().playRangeEnd();
}

void VxTimePane::setCurrentFrame(int frame)
{
    d->controls.fields().setCurrentFrame(frame);
}

int VxTimePane::getCurrentFrame() const
{
    return d->controls.fields().currentFrame();
}

void VxTimePane::setFramesPerSecond(int fps)
{
    d->controls.fields().setFramesPerSecond(fps);
}

int VxTimePane::getFramesPerSecond() const
{
    return d->controls.fields().framesPerSecond();
}

void VxTimePane::handleTotalFramesChanged()
{
    d->controls.fields().applyTotalFrames();
}

void VxTimePane::handlePlayRangeStartChanged()
{
    d->controls.fields().applyPlayRangeStart();
}

void VxTimePane::handlePlayRangeEndChanged()
{
    d->controls.fields().applyPlayRangeEnd();
}

void VxTimePane::handleCurrentFrameChanged()
{
    d->controls.fields().applyCurrentFrame();
}

void VxTimePane::handleFramesPerSecondChanged()
{
    d->controls.fields().applyFramesPerSecond();
}

void VxTimePane::changeTime()
{
    d->controls.fields().refresh(TimeFields::CurrentFrame);
}

void VxTimePane::changeTimeStep()
{
    d->controls.fields().refresh(TimeFields::FramesPerSecond);
}

void VxTimePane::updateTimeStep(VxTime step)
{
    d->views.setTimeStep(step);
}

void VxTimePane::updatePlayRange()
{
    updateControls();
    d->controls.fields().refresh(TimeFields::PlayRange);
}

void VxTimePane::updateAnimationRange()
{
    updateControls();
    d->controls.fields().refresh(TimeFields::TotalFrames);
}

void VxTimePane::updateScenePlayRange()
{
    d->views.applySlider();
}

// Rows.

void VxTimePane::initModel()
{
    d->rows.initModel();
}

void VxTimePane::uninitModel()
{
    d->rows.uninitModel();
}

void VxTimePane::refreshDopesheet()
{
    d->rows.refresh();
}

void VxTimePane::addDopesheetNode(VxNode *node, bool addChildren)
{
    d->rows.addNode(node, addChildren);
}

void VxTimePane::removeDopesheetNode(VxNode *node)
{
    d->rows.removeNode(node);
}

void VxTimePane::handleSceneLoadStarting()
{
    d->rows.startLoading();
}

void VxTimePane::handleSceneLoaded()
{
    d->rows.finishLoading();
}

void VxTimePane::handleSceneClearStarting()
{
    d->rows.clear();
}

void VxTimePane::moveRootNodeToTop()
{
    d->rows.moveRoot(&VxDopeSheetModel::moveRootRowToTop);
}

void VxTimePane::moveRootNodeUp()
{
    d->rows.moveRoot(&VxDopeSheetModel::moveRootRowUp);
}

void VxTimePane::moveRootNodeDown()
{
    d->rows.moveRoot(&VxDopeSheetModel::moveRootRowDown);
}

void VxTimePane::moveRootNodeToBottom()
{
    d->rows.moveRoot(&VxDopeSheetModel::moveRootRowToBottom);
}

void VxTimePane::expandAll()
{
    d->views.sheet()->expandAll();
}

void VxTimePane::collapseAll()
{
    d->rows.collapseAll();
}

bool VxTimePane::hasDopeSheetItemContext() const
{
    return d->views.sheet()->hasContextItem();
}

bool VxTimePane::hasDopeSheetItemSelection() const
{
    return d->views.sheet()->hasItemSelection();
}

void VxTimePane::handleDopesheetFilterChanged(QString filter)
{
    d->views.sheet()->applyFilterText(filter);
}

void VxTimePane::setMonitorParametersPane(bool yesNo)
{
    if (yesNo == getMonitorParametersPane())
        return;
    d->views.sheet()->setMonitorParametersPane(yesNo);
    d->views.graph()->setMonitorParametersPane(yesNo);
    Q_EMIT monitorParametersPaneChanged(yesNo);
}

bool VxTimePane::getMonitorParametersPane() const
{
    return d->views.sheet()->getMonitorParametersPane();
}

void VxTimePane::handlePrimarySelectionChanged()
{
    d->nodes.update();
}

void VxTimePane::ensurePrimarySceneNodeVisible()
{
    d->nodes.ensureVisible();
}

void VxTimePane::blockRefresh()
{
    d->nodes.block();
}

void VxTimePane::unblockRefresh()
{
    d->nodes.unblock();
}
