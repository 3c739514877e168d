// The pane's signal connections.

#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/pane/timefields.h"
#include "vxtimeline/pane/timepanefield.h"
#include "vxtimeline/pane/vxtimepane_p.h"
#include "vxtimeline/widgets/vxfiltermenu.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

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

using Pane = VxTimePane;

void VxTimePane::connectScene()
{
    connect(vxScene, &VxScene::timeChanged, this, &Pane::changeTime);
    connect(vxScene, &VxScene::timeStepChanged, this, &Pane::changeTimeStep);
    connect(vxScene, &VxScene::timeStepChanged, this, &Pane::updateTimeStep);
    connect(vxScene, &VxScene::playRangeChanged, this, &Pane::updatePlayRange);
    connect(vxScene, &VxScene::animRangeChanged, this, &Pane::updateAnimationRange);
    connect(vxScene, &VxScene::playbackStarted, this, &Pane::updatePlayButton);
    connect(vxScene, &VxScene::playbackFinished, this, &Pane::updatePlayButton);
    connect(vxScene, &VxScene::loopPlaybackChanged, this, &Pane::updateLoopButton);
    connect(vxScene, &VxScene::nodeAdded, this, QOverload<VxNode *>::of(&Pane::addDopesheetNode));
    connect(vxScene, &VxScene::aboutToRemoveNode, this, &Pane::removeDopesheetNode);
    connect(vxScene, &VxScene::sceneLoadStarting, this, &Pane::handleSceneLoadStarting);
    connect(vxScene, &VxScene::sceneLoadStarting, this, &Pane::blockRefresh);
    connect(vxScene, &VxScene::sceneLoaded, this, &Pane::handleSceneLoaded);
    connect(vxScene, &VxScene::sceneLoaded, this, &Pane::unblockRefresh);
    connect(vxScene, &VxScene::sceneClearStarting, this, &Pane::handleSceneClearStarting);
    connect(vxScene, &VxScene::primarySelectionChanged, this, &Pane::handlePrimarySelectionChanged);
    // The selection can change while the primary node stays.
    connect(vxScene, &VxScene::nodeSelectionListChanged, this,
            &Pane::handlePrimarySelectionChanged);
}

// The application's selection of keys covers all changes: gestures, removed rows, keys deleted
// elsewhere, undo. A drag in the graph reports its keys at every mouse move, and each update would
// read all of them: so the fields follow when the drag rests.
void VxTimePane::connectViews()
{
    constexpr int Rest = 50; // milliseconds
    auto *resting = new QTimer(this);
    resting->setSingleShot(true);
    resting->setInterval(Rest);
    connect(resting, &QTimer::timeout, this, &Pane::updateKeyInterpType);
    connect(vxApp->getKeySelection(), &VxKeySelection::changed, this, [this, resting] {
        updateActionStates();
        if (hasSelectedKeys())
            resting->start();
        else
            updateKeyInterpType();
    });
    connect(d->views.bus(), &VxKeyCommunication::received, this, &Pane::updateActionStates);

    const VxDopeSheetView *sheet = d->views.sheet();
    connect(sheet, &VxDopeSheetView::itemSelectionChanged, this,
            &Pane::handleDopesheetItemSelectionChanged);
    connect(sheet, &VxDopeSheetView::propertyHitListChanged, this,
            &Pane::dopesheetPropertyListChanged);
    connect(sheet, &VxDopeSheetView::keySelectionChanged, this,
            &Pane::handleDopesheetKeySelectionChanged);
    connect(d->views.search(), &VxPaneSearch::textChanged, this, [this](const QString &text) {
        if (text.isEmpty())
            handleDopesheetFilterCleared();
        else
            handleDopesheetFilterChanged(text);
    });
    connect(d->views.header(), &QHeaderView::sectionResized, this,
            &Pane::handleDopesheetHeaderSectionResized);
    connect(d->views.graphView(), &VxKeyGraphView::channelListChanged, this,
            &Pane::graphChannelListChanged);

    const VxTimeRangeSlider *slider = d->views.slider();
    const QScrollBar *control = slider->getScrollBar();
    connect(control, &QScrollBar::valueChanged, this, &Pane::updateScenePlayRange);
    connect(control, &QScrollBar::valueChanged, d->views.playhead(), &VxPlayheadWgt::slider);
    connect(slider, &VxTimeRangeSlider::valueChanged, sheet, &VxDopeSheetView::doUpdate);
}

void VxTimePane::connectControls()
{
    const TimeFields &fields = d->controls.fields();
    // In the order of the fields.
    void (Pane::*const fieldSlots[])() = {
        &Pane::handleTotalFramesChanged,     &Pane::handlePlayRangeStartChanged,
        &Pane::handlePlayRangeEndChanged,    &Pane::handleCurrentFrameChanged,
        &Pane::handleFramesPerSecondChanged,
    };
    for (int i = 0; i < fields.fields().size(); ++i) {
        TimePaneField *field = fields.fields().at(i);
        connect(field, QOverload<int>::of(&QSpinBox::valueChanged), this, fieldSlots[i]);
        connect(field, &QSpinBox::editingFinished, this, fieldSlots[i]);
    }
    connect(&fields, &TimeFields::refused, this, &Pane::updateControls);
    connect(&fields, &TimeFields::refreshed, d->views.header(),
            &VxDopeSheetHeaderView::updateViewport);
    connect(d->controls.types().menu(), &VxFilterMenu::filterChanged, this,
            &Pane::handlePropertyTypesEdited);

    // In the order of the buttons.
    void (Pane::*const buttonSlots[])() = {
        &Pane::handleLoopClicked,
        &Pane::handleSkipToPlayRangeStartClicked,
        &Pane::handleSkipToPreviousKeyClicked,
        &Pane::handleSkipToPreviousFrameClicked,
        &Pane::handlePlayPauseClicked,
        &Pane::handleSkipToNextFrameClicked,
        &Pane::handleSkipToNextKeyClicked,
        &Pane::handleSkipToPlayRangeEndClicked,
    };
    static_assert(std::size(buttonSlots) == TransportControls::ButtonCount);
    const auto clicked = &VxBarButton::clicked;
    for (int i = 0; i < TransportControls::ButtonCount; ++i)
        connect(d->controls.transport().buttons().at(i), clicked, this, buttonSlots[i]);

    connect(vxApp->getUndoStack(), &VxUndoStack::indexChanged, this, &Pane::handleUndoIndexChanged);
    const KeyControls &keys = d->controls.keys();
    connect(keys.graphButton(), clicked, this, &Pane::toggleKeyGraph);
    connect(keys.deleteButton(), clicked, this, &Pane::handleDeleteKeysClicked);
    connect(keys.createButton(), clicked, this, &Pane::handleCreateKeysClicked);
    connect(keys.copyButton(), clicked, this, &Pane::copySelectedKeys);
    connect(keys.pasteButton(), clicked, this, &Pane::pasteKeys);
    for (QDoubleSpinBox *field : d->controls.interp().tcb().boxes()) {
        connect(field, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                &Pane::updateTCB);
        connect(field, &QDoubleSpinBox::editingFinished, this, &Pane::updateTCB);
    }
    connect(vxApp, &VxApp::styleChanged, this, &Pane::doStyling);
    connect(this, &Pane::keyGraphOpenChanged, this, &Pane::handleKeyGraphOpenChanged);
}
