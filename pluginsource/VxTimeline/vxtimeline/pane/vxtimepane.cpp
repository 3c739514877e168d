#include "vxtimeline/pane/vxtimepane.h"

#include <QtGui/QResizeEvent>
#include <QtWidgets/QAction>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxdynamicdividerwgt.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyledbutton.h>

#include "vxtimeline/dopesheet/dopesheetpropertytypes.h"
#include "vxtimeline/dopesheet/vxdopesheetitem.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/pane/interpcontrols.h"
#include "vxtimeline/pane/keycontrols.h"
#include "vxtimeline/pane/propertytypescontrol.h"
#include "vxtimeline/pane/timepaneaxis.h"
#include "vxtimeline/pane/timepanebuilder.h"
#include "vxtimeline/pane/timepaneevents.h"
#include "vxtimeline/pane/timepanekeyselection.h"
#include "vxtimeline/pane/transportcontrols.h"
#include "vxtimeline/pane/vxtimepane_p.h"

static_assert(int(VxTimePane::PropTranslate) == int(DopeSheetPropertyTypes::Translation) &&
                  int(VxTimePane::PropRotate) == int(DopeSheetPropertyTypes::Rotation) &&
                  int(VxTimePane::PropScale) == int(DopeSheetPropertyTypes::Scale) &&
                  int(VxTimePane::PropOther) == int(DopeSheetPropertyTypes::Other) &&
                  int(VxTimePane::PropAlias) == int(DopeSheetPropertyTypes::Alias) &&
                  int(VxTimePane::PropHidden) == int(DopeSheetPropertyTypes::Hidden),
              "the dope sheet's numbers of property types differ from the pane's");

namespace {

// Signals and slots name these types without their class, as scripts do.
void registerMetaTypes()
{
    static const bool once = [] {
        qRegisterMetaType<VxTimePane::ControlsPosition>("ControlsPosition");
        qRegisterMetaType<VxTimePane::ViewMode>("ViewMode");
        qRegisterMetaType<VxTimePane::PropertyType>("PropertyType");
        qRegisterMetaType<VxTimePane::PropertyTypes>("PropertyTypes");
        qRegisterMetaType<VxTimePane::KeyScope>("KeyScope");
        qRegisterMetaType<VxTime>("VxTime");
        qRegisterMetaType<VxDopeSheetItem *>();
        qRegisterMetaType<VxActionMenu *>();
        qRegisterMetaType<QVector<VxProperty *>>();
        return true;
    }();
    Q_UNUSED(once)
}

// Width for the first width check, before the real width is set; pixels.
constexpr int FirstWidth = 100;
// A name column narrower than this counts as missing; pixels.
constexpr int LeastNameColumnWidth = 25;

} // namespace

VxTimePane::VxTimePane()
    : VxPane(tr("Timeline"))
    , d(std::make_unique<Private>())
{
    registerMetaTypes();
    d->keyCommunication = new VxKeyCommunication(this);
    TimePaneBuilder builder(this);
    builder.buildTree();
    d->keyGraphOpen = true;
    builder.buildMenus();
    doStyling();
    builder.makeConnections();
    registerChoices();
    VxTimePane::updateTimeFields();
    d->setExtrasVisible(false);
    d->checkWidth(this, FirstWidth);
}

// Widgets still report their sizes while they are hidden and destroyed; the record is destroyed by
// then, so they are disconnected. The views go first: they use models and bus to the end.
VxTimePane::~VxTimePane()
{
    vxApp->getKeySelection()->disconnect(this);
    delete d->keySelection;
    for (QObject *child : findChildren<QObject *>())
        child->disconnect(this);
    delete d->axis;
    delete d->divider;
}

VxDopeSheetView *VxTimePane::getDopeSheetView() const
{
    return d->dopeSheetView;
}

VxKeyGraphView *VxTimePane::getKeyGraphView() const
{
    return d->keyGraphView;
}

// The actions belong to the application's pane. A second pane, made by a script, must not set its
// own state as their check marks.
void VxTimePane::registerChoices()
{
    const VxMainWindow *window = vxApp->getInterface();
    if (!window || window->getPaneMgr()->findPane(QStringLiteral("VxTimePane")))
        return;
    for (VxAction *action : window->getActionMgr()->getActions()) {
        if (dynamic_cast<const TimePaneChoice *>(action))
            registerAction(action);
    }
}

QVector<QAction *> VxTimePane::getRegisteredActions() const
{
    return d->choices.actions();
}

// The pane's settings may be restored before the actions exist, so one that is registered late gets
// its mark here.
void VxTimePane::registerAction(QAction *action)
{
    if (!action || d->choices.contains(action))
        return;
    d->choices.add(action);
    connect(action, &QObject::destroyed, this, &VxTimePane::unregisterAction);
    updateActionStates();
    const auto *choice = dynamic_cast<const TimePaneChoice *>(action);
    if (!choice || !action->isCheckable())
        return;
    const int value = choice->value();
    switch (choice->family()) {
    case TimePaneChoice::ControlsPositionFamily:
        TimePaneChoices::setChecked(action, value == d->controlsPosition);
        break;
    case TimePaneChoice::ViewModeFamily:
        TimePaneChoices::setChecked(action, value == d->viewMode);
        break;
    case TimePaneChoice::KeyScopeFamily:
        d->choices.restoreScope(action, value);
        if (action->isChecked())
            d->keyControls->scopeButton()->setText(action->text());
        break;
    case TimePaneChoice::PropertyTypeFamily:
        d->choices.restoreTypes(action, value);
        if (action->isChecked())
            handlePropertyTypesEdited();
        break;
    }
}

void VxTimePane::unregisterAction(QObject *action)
{
    d->choices.remove(action);
}

bool VxTimePane::event(QEvent *event)
{
    if (event->type() == VxTimelineScenePrimarySelectionChangeEvent::eventType()) {
        syncDopesheetSelection();
        return true;
    }
    if (event->type() == VxTimelineDopesheetEnsureItemVisibleEvent::eventType()) {
        ensurePrimarySceneNodeVisible();
        return true;
    }
    // The style reports new colours before the widgets have them.
    if (event->type() == QEvent::PaletteChange && d->interp)
        d->interp->updateIcon(palette());
    return VxPane::event(event);
}

void VxTimePane::showEvent(QShowEvent *event)
{
    updateTimeStep(vxScene->getTimeStep());
    updateControls();
    updateKeyGraph();
    d->dopeSheetView->doUpdate();
    fillDopesheet();
    if (d->selectionRefreshPending)
        handlePrimarySelectionChanged();

    const auto widenNameColumn = [this] {
        if (d->isAdvanced() && d->nameColumnWidth() < LeastNameColumnWidth)
            d->dopeSheetView->setColumnWidth(VxDopeSheetView::NameColumn, d->savedNameColumnWidth);
    };
    widenNameColumn();
    VxPane::showEvent(event);
    widenNameColumn();
}

void VxTimePane::resizeEvent(QResizeEvent *event)
{
    VxPane::resizeEvent(event);
    updateControls();
    updateKeyGraph();
    d->checkWidth(this, event->size().width());
}
