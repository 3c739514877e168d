// The key commands: their holds and undo texts, and the filter and scope that apply. The edits are
// implemented in the dope sheet view and in the keys folder.

#include <QtCore/QCoreApplication>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QAction>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMessageBox>
#include <vxcore/vxapp.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstyledbutton.h>
#include <vxcore/vxundostackhold.h>

#include "vxtimeline/dopesheet/vxdopesheetmodel.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/keycreation.h"
#include "vxtimeline/keys/nodeproperties.h"
#include "vxtimeline/pane/interpcontrols.h"
#include "vxtimeline/pane/keycontrols.h"
#include "vxtimeline/pane/propertytypescontrol.h"
#include "vxtimeline/pane/vxtimepane_p.h"
#include "vxtimeline/time/vxwarning.h"
#include "vxtimeline/widgets/vxfiltermenu.h"

namespace {

constexpr int MostKeys = 100000;

template <typename Visit> void visitSelectedNodes(Visit visit)
{
    for (VxNode *node : vxScene->getSelectedNodes())
        NodeProperties::visitAll(node, visit);
}

// The node at which keys are made for a selected one, and whether its descendants get some too.
struct KeyTarget
{
    VxNode *node;
    bool recurse;
};

KeyTarget keyTarget(VxNode *selected, VxTimePane::KeyScope scope)
{
    if (scope == VxTimePane::ScopeNodeRecurse)
        return {selected, true};
    if (scope != VxTimePane::ScopeObject)
        return {selected, false};
    if (qobject_cast<VxBone *>(selected) && selected->getSkeleton())
        return {selected->getSkeleton(), true};
    return {selected, qobject_cast<VxSkeleton *>(selected) != nullptr};
}

// The times of a number of frames from one on; fewer at the end of the time range.
QVector<VxTime> frameTimes(VxTime first, int count)
{
    const qint64 step = vxScene->getTimeStep();
    const qint64 left = (qint64(VxTimeMax) - first) / step + 1;
    QVector<VxTime> times(static_cast<int>(qMin(left, qint64(count))));
    for (int i = 0; i < times.size(); ++i)
        times[i] = VxTime(first + i * step);
    return times;
}

} // namespace

void VxTimePane::Private::tell(const QString &text) const
{
    if (VxMainWindow *window = vxApp->getInterface())
        window->showStatusMessage(text);
}

void VxTimePane::createKeys()
{
    VxUndoStackHold hold;
    {
        VxChangeBlock block;
        visitSelectedNodes(KeyCreation::keyCurrentValue);
    }
    hold.accept(tr("Create Keys"));
    updateActionStates();
}

void VxTimePane::deleteKeys()
{
    VxUndoStackHold hold;
    {
        VxChangeBlock block;
        const VxTimeRange now(vxScene->getTime(), vxScene->getTime());
        visitSelectedNodes([now](VxProperty *property) { property->deleteKeys(now); });
    }
    hold.accept(tr("Delete Keys"));
    updateKeyInterpType();
    updateActionStates();
}

// The hold is opened only after the questions: the scene may change while a dialog is open.
void VxTimePane::createFilteredKeys(int numKeys)
{
    if (!vxScene->getPrimarySelection()) {
        QMessageBox::warning(vxApp->getDialogParent(), tr("Selection Error"),
                             tr("A node in the scene must be selected to continue."),
                             QMessageBox::Ok);
        return;
    }
    if (numKeys < 1) {
        bool accepted = false;
        numKeys = QInputDialog::getInt(vxApp->getDialogParent(), tr("Create # Keys"),
                                       tr("Number of keys:"), 1, 1, MostKeys, 1, &accepted);
        if (!accepted) {
            updateActionStates();
            return;
        }
    }
    VxUndoStackHold hold;
    {
        VxChangeBlock block;
        makeFilteredKeys(numKeys);
    }
    hold.accept(tr("Create Filtered Keys"));
    updateActionStates();
}

// Keys of single properties are not spread over frames: they are made at the current time whatever
// the number.
void VxTimePane::makeFilteredKeys(int numKeys)
{
    VxNode *selected = vxScene->getPrimarySelection();
    if (!selected)
        return;
    const VxTime now = vxScene->getTime();
    const KeyScope scope = getFilteredKeyCreationScope();
    if (scope == ScopeProperties) {
        for (VxProperty *property : d->dopeSheetView->getSelectedProperties())
            KeyCreation::setKeysFrom(property, now, {now});
        return;
    }
    const KeyTarget target = keyTarget(selected, scope);
    KeyCreation::setNodeKeys(target.node, int(getFilteredPropertyTypes()), target.recurse, now,
                             frameTimes(now, numKeys));
}

// For commands that edit the selected keys. Without an editable key the status line shows the
// reason.
void VxTimePane::Private::editSelectedKeys(const QString &text,
                                           const std::function<void()> &edit) const
{
    tellWhyNoKeys(dopeSheetView->getEditableKeys());
    VxUndoStackHold hold;
    edit();
    hold.accept(text);
}

void VxTimePane::Private::tellWhyNoKeys(VxDopeSheetView::EditableKeys keys) const
{
    if (keys == VxDopeSheetView::NoneSelected)
        tell(VxTimePane::tr("No keys are selected."));
    else if (keys == VxDopeSheetView::AllFilteredOut)
        tell(VxTimePane::tr("The selected keys are in rows that the filter hides."));
    else if (keys == VxDopeSheetView::AllLocked)
        tell(VxTimePane::tr("The selected keys belong to locked properties."));
}

void VxTimePane::deleteSelectedKeys()
{
    d->editSelectedKeys(tr("Delete Selected Keys"), [this] { d->dopeSheetView->deleteKeys(); });
    updateKeyInterpType();
    updateActionStates();
}

void VxTimePane::copySelectedKeys()
{
    d->dopeSheetView->copyKeys();
    const int count = d->dopeSheetView->numCopiedKeys();
    if (count == 0)
        d->tellWhyNoKeys(d->dopeSheetView->getEditableKeys());
    else
        d->tell(count == 1 ? tr("Copied 1 key.") : tr("Copied %1 keys.").arg(count));
    updateActionStates();
}

void VxTimePane::pasteKeys()
{
    VxUndoStackHold hold;
    const bool pasted = d->dopeSheetView->pasteCopiedKeys();
    hold.accept(tr("Paste Keys"));
    if (!hasCopiedKeys())
        d->tell(tr("No keys have been copied."));
    else if (!pasted)
        d->tell(tr("No row matches the copied keys."));
    updateActionStates();
}

void VxTimePane::setInterpType(int interpType)
{
    const QStringList names = {tr("Linear"), tr("Constant"), tr("TCB")};
    if (interpType < 0 || interpType >= names.size()) {
        vxWarning(VX_HERE, QStringLiteral("Invalid value passed to VxTimePane::setInterpType()"));
        return;
    }
    d->editSelectedKeys(tr("Set Interpolation Type ") + names.at(interpType),
                        [this, interpType] { d->dopeSheetView->setInterpType(interpType); });
    updateKeyInterpType();
    updateActionStates();
}

void VxTimePane::handleCreateKeysClicked()
{
    const bool asks = QGuiApplication::keyboardModifiers().testFlag(Qt::ControlModifier);
    createFilteredKeys(asks ? -1 : 1);
}

void VxTimePane::handleDeleteKeysClicked()
{
    deleteSelectedKeys();
}

void VxTimePane::handleDopesheetItemSelectionChanged()
{
    updateActionStates();
}

void VxTimePane::handleDopesheetKeySelectionChanged()
{
    updateKeyInterpType();
    updateActionStates();
}

bool VxTimePane::hasSelectedKeys() const
{
    return d->dopeSheetModel && d->dopeSheetModel->hasSelectedKeys();
}

bool VxTimePane::hasCopiedKeys() const
{
    return d->dopeSheetView && d->dopeSheetView->hasCopiedKeys();
}

void VxTimePane::setFilteredPropertyTypes(PropertyTypes propTypes)
{
    d->choices.setWantedTypes(int(propTypes));
    d->choices.checkFlags(TimePaneChoice::PropertyTypeFamily, int(propTypes));
    d->types->menu()->notifyFilterChanged();
}

VxTimePane::PropertyTypes VxTimePane::getFilteredPropertyTypes() const
{
    return PropertyTypes(d->choices.checkedFlags(TimePaneChoice::PropertyTypeFamily));
}

void VxTimePane::handlePropertyTypesEdited()
{
    refreshDopesheet();
    d->types->showTypes(int(getFilteredPropertyTypes()));
}

void VxTimePane::setFilteredKeyCreationScope(KeyScope keyScope)
{
    if (keyScope < ScopeObject || keyScope > ScopeProperties) {
        vxWarning(
            VX_HERE,
            QStringLiteral("Invalid value passed to VxTimePane::setFilteredKeyCreationScope()"));
        return;
    }
    if (keyScope == ScopeProperties && !d->isAdvanced())
        keyScope = ScopeNode;
    d->choices.setWantedScope(keyScope);
    d->choices.checkOnly(TimePaneChoice::KeyScopeFamily, keyScope);
    if (const QAction *action = d->choices.checkedAction(TimePaneChoice::KeyScopeFamily))
        d->keyControls->scopeButton()->setText(action->text());
    d->dopeSheetView->updateKeyScopeDisplay();
    handlePrimarySelectionChanged();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    d->dopeSheetView->doUpdate();
}

VxTimePane::KeyScope VxTimePane::getFilteredKeyCreationScope() const
{
    return KeyScope(d->choices.checkedValue(TimePaneChoice::KeyScopeFamily, ScopeNode));
}

// A selection is reported once for each row, so a call without a change must be cheap.
void VxTimePane::updateActionStates()
{
    const bool selected = hasSelectedKeys();
    const bool copied = hasCopiedKeys();
    d->choices.updateEnabled(selected, copied);
    d->keyControls->setUsable(selected, copied);
    d->interp->typeButton()->setEnabled(selected);
}

void VxTimePane::updateKeyInterpType()
{
    d->interp->tcb().update();
}

void VxTimePane::updateTCB()
{
    d->interp->tcb().apply(qobject_cast<const QDoubleSpinBox *>(sender()),
                           [this](const QString &text, const std::function<void()> &edit) {
                               d->editSelectedKeys(text, edit);
                           });
}

// Undo and redo may change the shown values.
void VxTimePane::handleUndoIndexChanged()
{
    if (d->interp->tcb().isBusy())
        return;
    updateKeyInterpType();
    updateActionStates();
}
