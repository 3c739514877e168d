#include "keytools/keygestureactions.h"

#include "keytools/keygesture.h"
#include "keytools/keytool.h"
#include "keytools/keytooltext.h"

#include <QtCore/QEvent>
#include <QtWidgets/QApplication>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanemgr.h>

namespace {

/// The pane with a time axis; null for none.
VxPane *timePane()
{
    const VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    if (!window)
        return nullptr;
    for (VxPane *pane : window->getPaneMgr()->getPanes()) {
        if (VxTimeAxis::of(pane))
            return pane;
    }
    return nullptr;
}

bool isOverViews()
{
    const VxTimeAxis *axis = VxTimeAxis::of(timePane());
    const QWidget *views = axis ? axis->overlayParent() : nullptr;
    if (!views || !views->isVisible())
        return false;
    const QWidget *focus = QApplication::focusWidget();
    return views->underMouse() || (focus && views->isAncestorOf(focus));
}

} // namespace

KeyGestureAction::KeyGestureAction(const QString &text, const QString &description,
                                   const char *shortcut, KeyGestureKind kind, int pivot)
    : KeysMenuAction(text, description, QT_TRANSLATE_NOOP("VxMenuPath", "With the Mouse"), shortcut)
    , m_kind(kind)
    , m_pivot(pivot)
{
}

int KeyGestureAction::getMenuOrder() const
{
    return int(KeyTool::all().size()) + int(m_kind);
}

bool KeyGestureAction::event(QEvent *event)
{
    return (event->type() == QEvent::Shortcut && !isOverViews()) || KeysMenuAction::event(event);
}

void KeyGestureAction::executeAction()
{
    VxPane *pane = timePane();
    if (!pane)
        return;
    VxTimeAxis *axis = VxTimeAxis::of(pane);
    // A shown pane gets the focus, which belongs to one of its views.
    if (!axis->overlayParent()->isVisible())
        vxApp->getInterface()->getPaneMgr()->showPane(pane);
    KeyGesture::begin(axis, m_kind, m_pivot);
}

VxKeyToolsMoveGestureAction::VxKeyToolsMoveGestureAction()
    : KeyGestureAction(tr("Drag in Time"),
                       tr("Moves keys in time with the mouse or by typed frames. A click or Enter "
                          "accepts, Escape restores."),
                       "G", KeyGestureKind::Move)
{
}

VxKeyToolsDuplicateGestureAction::VxKeyToolsDuplicateGestureAction()
    : KeyGestureAction(tr("Duplicate and Drag"),
                       tr("Copies keys and moves the copies in time with the mouse or by typed "
                          "frames."),
                       "Shift+D", KeyGestureKind::Duplicate)
{
}

VxKeyToolsScaleTimesGestureAction::VxKeyToolsScaleTimesGestureAction()
    : KeyGestureAction(tr("Scale in Time"),
                       tr("Scales the distances of keys from the playhead with the mouse or by a "
                          "typed factor. S again: other pivots."),
                       "S", KeyGestureKind::ScaleTimes)
{
}

VxKeyToolsScaleTimesInSelectionGestureAction::VxKeyToolsScaleTimesInSelectionGestureAction()
    : KeyGestureAction(tr("Scale in Time about Selection"),
                       tr("Scales the distances of keys from the start of the selection. S again: "
                          "its end, its middle."),
                       "Shift+S", KeyGestureKind::ScaleTimes, 1)
{
}

VxKeyToolsMoveValuesGestureAction::VxKeyToolsMoveValuesGestureAction()
    : KeyGestureAction(tr("Drag Values"),
                       tr("Changes the values of keys with the mouse or by a typed number: 5, =5, "
                          "150%."),
                       "V", KeyGestureKind::MoveValues)
{
}

VxKeyToolsScaleValuesGestureAction::VxKeyToolsScaleValuesGestureAction()
    : KeyGestureAction(tr("Scale Values with the Mouse"),
                       tr("Scales the values of keys about zero with the mouse or by a typed "
                          "factor. V again: about their mean, the playhead's value."),
                       "Shift+V", KeyGestureKind::ScaleValues)
{
}
