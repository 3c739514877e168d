// The pane's slots, which forward to its collaborators.

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/pane/timefields.h"
#include "vxtimeline/pane/timepanesettings.h"
#include "vxtimeline/pane/vxtimepane_p.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"
#include "vxtimeline/time/timelineplayback.h"

#include <QtGui/QGuiApplication>
#include <QtWidgets/QDoubleSpinBox>
#include <vxcore/vxscene.h>

VxDopeSheetView *VxTimePane::getDopeSheetView() const
{
    return d->views.sheet();
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

// Settings and layout.

void VxTimePane::restoreSettings(VxSettings *settings)
{
    TimePaneSettings::restore(this, settings);
    updateActionStates();
}

void VxTimePane::saveSettings(VxSettings *settings) const
{
    TimePaneSettings::save(this, settings);
}

int VxTimePane::getOptionsMenuVersion() const
{
    return TimePaneSettings::OptionsMenuVersion;
}

void VxTimePane::buildOptionsMenu(VxActionMenu *menu)
{
    TimePaneSettings::buildOptionsMenu(menu);
}

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

// Playback.

void VxTimePane::setPlayAllFrames(bool onOff)
{
    if (TimelinePlayback::setPlaysAllFrames(onOff))
        Q_EMIT playAllFramesChanged(onOff);
}

bool VxTimePane::getPlayAllFrames() const
{
    return TimelinePlayback::playsAllFrames();
}

void VxTimePane::updatePlayButton()
{
    d->controls.transport().updatePlayIcon();
}

void VxTimePane::updateLoopButton(bool onOff)
{
    d->controls.transport().updateLoopIcon(onOff);
}

void VxTimePane::toggleLoop()
{
    vxScene->loopPlayback(!vxScene->isLoopingEnabled());
}

void VxTimePane::togglePlayback()
{
    TimelinePlayback::toggle();
}

void VxTimePane::skipToPlayRangeStart()
{
    TransportControls::skipToStart();
}

void VxTimePane::skipToPlayRangeEnd()
{
    TransportControls::skipToEnd();
}

void VxTimePane::skipToPreviousFrame()
{
    vxScene->stepTime(1, false);
}

void VxTimePane::skipToNextFrame()
{
    vxScene->stepTime(1, true);
}

void VxTimePane::skipToPreviousKey()
{
    TransportControls::skipToPreviousKey();
}

void VxTimePane::skipToNextKey()
{
    TransportControls::skipToNextKey();
}

void VxTimePane::skipToPreviousFilteredKey()
{
    TransportControls::skipToPreviousFilteredKey(d->views.sheet());
}

void VxTimePane::skipToNextFilteredKey()
{
    TransportControls::skipToNextFilteredKey(d->views.sheet());
}

// Keys.

void VxTimePane::createKeys()
{
    d->keys.createNodeKeys();
}

void VxTimePane::deleteKeys()
{
    d->keys.deleteNodeKeys();
}

void VxTimePane::createFilteredKeys(int numKeys)
{
    d->keys.createFilteredKeys(numKeys);
}

void VxTimePane::deleteSelectedKeys()
{
    d->keys.deleteSelectedKeys();
}

void VxTimePane::copySelectedKeys()
{
    d->keys.copySelectedKeys();
}

void VxTimePane::pasteKeys()
{
    d->keys.pasteKeys();
}

void VxTimePane::setInterpType(int interpType)
{
    d->keys.setInterpType(interpType);
}

void VxTimePane::updateTCB()
{
    d->keys.applyTcb(qobject_cast<const QDoubleSpinBox *>(sender()));
}

void VxTimePane::updateKeyInterpType()
{
    d->keys.updateTcb();
}

void VxTimePane::updateActionStates()
{
    d->keys.updateStates();
}

void VxTimePane::handleUndoIndexChanged()
{
    d->keys.handleUndo();
}

void VxTimePane::handleDopesheetKeySelectionChanged()
{
    d->keys.updateFields();
}

void VxTimePane::handleCreateKeysClicked()
{
    const bool asks = QGuiApplication::keyboardModifiers().testFlag(Qt::ControlModifier);
    createFilteredKeys(asks ? -1 : 1);
}

bool VxTimePane::hasSelectedKeys() const
{
    return d->views.sheet()->hasSelectedKeys();
}

bool VxTimePane::hasCopiedKeys() const
{
    return d->views.sheet()->hasCopiedKeys();
}

void VxTimePane::setFilteredPropertyTypes(PropertyTypes propTypes)
{
    d->filter.setTypes(propTypes);
}

VxTimePane::PropertyTypes VxTimePane::getFilteredPropertyTypes() const
{
    return d->filter.types();
}

void VxTimePane::handlePropertyTypesEdited()
{
    d->filter.applyTypes();
}

void VxTimePane::setFilteredKeyCreationScope(KeyScope keyScope)
{
    d->filter.setScope(keyScope, d->layout.isAdvanced());
}

VxTimePane::KeyScope VxTimePane::getFilteredKeyCreationScope() const
{
    return d->filter.scope();
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
    if (d->views.setMonitorsParametersPane(yesNo))
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
