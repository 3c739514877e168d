#include "vxtimeline/pane/vxtimepane.h"

#include "vxtimeline/keys/timelinepropertytypes.h"
#include "vxtimeline/pane/timefields.h"
#include "vxtimeline/pane/timepanebuttonhelp.h"
#include "vxtimeline/pane/timepanefieldhelp.h"
#include "vxtimeline/pane/vxtimepane_p.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtGui/QResizeEvent>
#include <QtWidgets/QAction>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxscene.h>

static_assert(int(VxTimePane::PropTranslate) == int(TimelinePropertyTypes::Translation) &&
                  int(VxTimePane::PropRotate) == int(TimelinePropertyTypes::Rotation) &&
                  int(VxTimePane::PropScale) == int(TimelinePropertyTypes::Scale) &&
                  int(VxTimePane::PropOther) == int(TimelinePropertyTypes::Other) &&
                  int(VxTimePane::PropAlias) == int(TimelinePropertyTypes::Alias) &&
                  int(VxTimePane::PropHidden) == int(TimelinePropertyTypes::Hidden),
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

} // namespace

VxTimePane::VxTimePane()
    : VxPane(tr("Timeline"))
{
    registerMetaTypes();
    d = std::make_unique<Private>(this);
    doStyling();
    connectScene();
    connectViews();
    connectControls();
    TimePaneButtonHelp::attach(this);
    addTimePaneFieldHelp(this);
    registerChoices();
    VxTimePane::updateTimeFields();
    d->layout.checkWidth(FirstWidth);
}

// Widgets still report their sizes while they are hidden and destroyed, when the collaborators no
// longer exist, so they are disconnected.
VxTimePane::~VxTimePane()
{
    vxApp->getKeySelection()->disconnect(this);
    for (QObject *child : findChildren<QObject *>())
        child->disconnect(this);
    d.reset();
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

// The pane's settings may be restored before the actions exist, so one that is registered late gets
// its mark here.
void VxTimePane::registerAction(QAction *action)
{
    if (!d->choices.add(action))
        return;
    connect(action, &QObject::destroyed, this, &VxTimePane::unregisterAction);
    updateActionStates();
    d->layout.restoreMark(action);
    d->filter.restoreMark(action);
}

// During construction and destruction there are no collaborators.
bool VxTimePane::event(QEvent *event)
{
    if (d && d->nodes.handle(event))
        return true;
    // The style reports new colours before the widgets have them.
    if (event->type() == QEvent::PaletteChange && d)
        d->controls.interp().updateIcon(palette());
    return VxPane::event(event);
}

void VxTimePane::showEvent(QShowEvent *event)
{
    updateTimeStep(vxScene->getTimeStep());
    d->rows.fill();
    d->nodes.updateIfPending();
    d->views.widenNameColumn();
    VxPane::showEvent(event);
    d->views.widenNameColumn();
}

void VxTimePane::resizeEvent(QResizeEvent *event)
{
    VxPane::resizeEvent(event);
    updateControls();
    d->layout.checkWidth(event->size().width());
}
