// Signal connections.

#include <QtCore/QTimer>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QScrollBar>
#include <vxcore/vxapp.h>
#include <vxcore/vxbarbutton.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpanesearch.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxundostack.h>

#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/pane/interpcontrols.h"
#include "vxtimeline/pane/keycontrols.h"
#include "vxtimeline/pane/propertytypescontrol.h"
#include "vxtimeline/pane/timefields.h"
#include "vxtimeline/pane/timepanebuilder.h"
#include "vxtimeline/pane/timepanebuttonhelp.h"
#include "vxtimeline/pane/timepanefield.h"
#include "vxtimeline/pane/timepanefieldhelp.h"
#include "vxtimeline/pane/timepanekeyselection.h"
#include "vxtimeline/pane/transportcontrols.h"
#include "vxtimeline/widgets/vxfiltermenu.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

using Pane = VxTimePane;

// Order matters for signals with several receivers.
void TimePaneBuilder::makeConnections()
{
    connectSceneTime();
    connectSceneNodes();
    connectKeysOfGraph();
    connectDopeSheet();
    connectSliders();
    connectFields();
    connectTransport();
    connectKeyControls();
    TimePaneButtonHelp::attach(m_pane);
    addTimePaneFieldHelp(m_pane);
    QObject::connect(vxApp, &VxApp::styleChanged, m_pane, &Pane::doStyling);
    QObject::connect(m_pane, &Pane::keyGraphOpenChanged, m_pane, &Pane::handleKeyGraphOpenChanged);
}

void TimePaneBuilder::connectSceneTime()
{
    QObject::connect(vxScene, &VxScene::timeChanged, m_pane, &Pane::changeTime);
    QObject::connect(vxScene, &VxScene::timeStepChanged, m_pane, &Pane::changeTimeStep);
    QObject::connect(vxScene, &VxScene::timeStepChanged, m_pane, &Pane::updateTimeStep);
    QObject::connect(vxScene, &VxScene::playRangeChanged, m_pane, &Pane::updatePlayRange);
    QObject::connect(vxScene, &VxScene::animRangeChanged, m_pane, &Pane::updateAnimationRange);
    QObject::connect(vxScene, &VxScene::playbackStarted, m_pane, &Pane::updatePlayButton);
    QObject::connect(vxScene, &VxScene::playbackFinished, m_pane, &Pane::updatePlayButton);
    QObject::connect(vxScene, &VxScene::loopPlaybackChanged, m_pane, &Pane::updateLoopButton);
}

void TimePaneBuilder::connectSceneNodes()
{
    QObject::connect(vxScene, &VxScene::nodeAdded, m_pane,
                     QOverload<VxNode *>::of(&Pane::addDopesheetNode));
    QObject::connect(vxScene, &VxScene::aboutToRemoveNode, m_pane, &Pane::removeDopesheetNode);
    QObject::connect(vxScene, &VxScene::sceneLoadStarting, m_pane, &Pane::handleSceneLoadStarting);
    QObject::connect(vxScene, &VxScene::sceneLoadStarting, m_pane, &Pane::blockRefresh);
    QObject::connect(vxScene, &VxScene::sceneLoaded, m_pane, &Pane::handleSceneLoaded);
    QObject::connect(vxScene, &VxScene::sceneLoaded, m_pane, &Pane::unblockRefresh);
    QObject::connect(vxScene, &VxScene::sceneClearStarting, m_pane,
                     &Pane::handleSceneClearStarting);
    QObject::connect(vxScene, &VxScene::primarySelectionChanged, m_pane,
                     &Pane::handlePrimarySelectionChanged);
    // The selection can change while the primary node stays.
    QObject::connect(vxScene, &VxScene::nodeSelectionListChanged, m_pane,
                     &Pane::handlePrimarySelectionChanged);
}

// Covers all changes of the selection: gestures, removed rows, keys deleted elsewhere, undo. A drag
// in the graph reports its keys at every mouse move, and each update would read all of them: so the
// fields follow when the drag rests.
void TimePaneBuilder::connectKeysOfGraph()
{
    constexpr int Rest = 50; // milliseconds
    auto *resting = new QTimer(m_pane);
    resting->setSingleShot(true);
    resting->setInterval(Rest);
    QObject::connect(resting, &QTimer::timeout, m_pane, &Pane::updateKeyInterpType);
    d->keySelection = new TimePaneKeySelection(m_pane);
    QObject::connect(vxApp->getKeySelection(), &VxKeySelection::changed, m_pane,
                     [pane = m_pane, resting] {
                         pane->updateActionStates();
                         if (pane->hasSelectedKeys())
                             resting->start();
                         else
                             pane->updateKeyInterpType();
                     });
    QObject::connect(d->keyCommunication, &VxKeyCommunication::received, m_pane,
                     &Pane::updateActionStates);
}

void TimePaneBuilder::connectDopeSheet()
{
    QObject::connect(d->dopeSheetView, &VxDopeSheetView::itemSelectionChanged, m_pane,
                     &Pane::handleDopesheetItemSelectionChanged);
    QObject::connect(d->dopeSheetView, &VxDopeSheetView::propertyHitListChanged, m_pane,
                     &Pane::dopesheetPropertyListChanged);
    QObject::connect(d->dopeSheetView, &VxDopeSheetView::keySelectionChanged, m_pane,
                     &Pane::handleDopesheetKeySelectionChanged);
    VxTimePane *const pane = m_pane;
    QObject::connect(d->search, &VxPaneSearch::textChanged, pane, [pane](const QString &text) {
        if (text.isEmpty())
            pane->handleDopesheetFilterCleared();
        else
            pane->handleDopesheetFilterChanged(text);
    });
    QObject::connect(d->header, &QHeaderView::sectionResized, m_pane,
                     &Pane::handleDopesheetHeaderSectionResized);
    QObject::connect(d->keyGraphView, &VxKeyGraphView::channelListChanged, m_pane,
                     &Pane::graphChannelListChanged);
}

void TimePaneBuilder::connectSliders()
{
    const QScrollBar *rangeControl = d->timeRangeSlider->getScrollBar();
    QObject::connect(rangeControl, &QScrollBar::valueChanged, m_pane, &Pane::updateScenePlayRange);
    QObject::connect(rangeControl, &QScrollBar::valueChanged, d->playhead, &VxPlayheadWgt::slider);
    QObject::connect(d->timeRangeSlider, &VxTimeRangeSlider::valueChanged, d->dopeSheetView,
                     &VxDopeSheetView::doUpdate);
}

void TimePaneBuilder::connectField(TimePaneField *field, void (VxTimePane::*slot)()) const
{
    QObject::connect(field, QOverload<int>::of(&QSpinBox::valueChanged), m_pane, slot);
    QObject::connect(field, &QSpinBox::editingFinished, m_pane, slot);
}

void TimePaneBuilder::connectFields()
{
    connectField(d->fields->totalField(), &Pane::handleTotalFramesChanged);
    connectField(d->fields->startField(), &Pane::handlePlayRangeStartChanged);
    connectField(d->fields->endField(), &Pane::handlePlayRangeEndChanged);
    connectField(d->fields->currentField(), &Pane::handleCurrentFrameChanged);
    connectField(d->fields->rateField(), &Pane::handleFramesPerSecondChanged);
    QObject::connect(d->fields, &TimeFields::refused, m_pane, &Pane::updateControls);
    QObject::connect(d->fields, &TimeFields::refreshed, d->header,
                     &VxDopeSheetHeaderView::updateViewport);
    QObject::connect(d->types->menu(), &VxFilterMenu::filterChanged, m_pane,
                     &Pane::handlePropertyTypesEdited);
}

void TimePaneBuilder::connectTransport()
{
    // In the order of the buttons.
    void (Pane::*const handlers[])() = {
        &Pane::handleLoopClicked,
        &Pane::handleSkipToPlayRangeStartClicked,
        &Pane::handleSkipToPreviousKeyClicked,
        &Pane::handleSkipToPreviousFrameClicked,
        &Pane::handlePlayPauseClicked,
        &Pane::handleSkipToNextFrameClicked,
        &Pane::handleSkipToNextKeyClicked,
        &Pane::handleSkipToPlayRangeEndClicked,
    };
    static_assert(std::size(handlers) == TransportControls::ButtonCount);
    for (int i = 0; i < TransportControls::ButtonCount; ++i)
        QObject::connect(d->transport->buttons().at(i), &VxBarButton::clicked, m_pane, handlers[i]);
}

void TimePaneBuilder::connectKeyControls()
{
    QObject::connect(vxApp->getUndoStack(), &VxUndoStack::indexChanged, m_pane,
                     &Pane::handleUndoIndexChanged);
    const KeyControls &keys = *d->keyControls;
    const auto clicked = &VxBarButton::clicked;
    QObject::connect(keys.graphButton(), clicked, m_pane, &Pane::toggleKeyGraph);
    QObject::connect(keys.deleteButton(), clicked, m_pane, &Pane::handleDeleteKeysClicked);
    QObject::connect(keys.createButton(), clicked, m_pane, &Pane::handleCreateKeysClicked);
    QObject::connect(keys.copyButton(), clicked, m_pane, &Pane::copySelectedKeys);
    QObject::connect(keys.pasteButton(), clicked, m_pane, &Pane::pasteKeys);
    for (QDoubleSpinBox *field : d->interp->tcb().boxes()) {
        QObject::connect(field, QOverload<double>::of(&QDoubleSpinBox::valueChanged), m_pane,
                         &Pane::updateTCB);
        QObject::connect(field, &QDoubleSpinBox::editingFinished, m_pane, &Pane::updateTCB);
    }
}
