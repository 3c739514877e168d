// The key commands: their undo entries, the scope that applies, and the controls that show the
// selected keys. The edits are implemented in the dope sheet view and in the keys folder.

#include <QtGui/QGuiApplication>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMessageBox>
#include <vxcore/vxapp.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostackhold.h>

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/keycreation.h"
#include "vxtimeline/keys/nodeproperties.h"
#include "vxtimeline/pane/vxtimepane_p.h"
#include "vxtimeline/time/vxwarning.h"

namespace {

constexpr int MaxKeys = 100000;

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

// Keys of single properties are not spread over frames: they are made at the current time whatever
// the number.
void makeFilteredKeys(const VxTimePane *pane, int count)
{
    VxNode *selected = vxScene->getPrimarySelection();
    if (!selected)
        return;
    const VxTime now = vxScene->getTime();
    const VxTimePane::KeyScope scope = pane->getFilteredKeyCreationScope();
    if (scope == VxTimePane::ScopeProperties) {
        for (VxProperty *property : pane->getDopeSheetView()->getSelectedProperties())
            KeyCreation::setKeysFrom(property, now, {now});
        return;
    }
    const KeyTarget target = keyTarget(selected, scope);
    KeyCreation::setNodeKeys(target.node, int(pane->getFilteredPropertyTypes()), target.recurse,
                             now, frameTimes(now, count));
}

void showWhyNoKeys(const VxDopeSheetView *sheet)
{
    const VxDopeSheetView::EditableKeys keys = sheet->getEditableKeys();
    if (keys == VxDopeSheetView::NoneSelected)
        vxShowStatusMessage(VxTimePane::tr("No keys are selected."));
    else if (keys == VxDopeSheetView::AllFilteredOut)
        vxShowStatusMessage(VxTimePane::tr("The selected keys are in rows that the filter hides."));
    else if (keys == VxDopeSheetView::AllLocked)
        vxShowStatusMessage(VxTimePane::tr("The selected keys belong to locked properties."));
}

// For commands that edit the selected keys. Without an editable key the status line shows the
// reason.
void editSelectedKeys(const VxDopeSheetView *sheet, const QString &text,
                      const std::function<void()> &edit)
{
    showWhyNoKeys(sheet);
    VxUndoStackHold hold;
    edit();
    hold.accept(text);
}

} // namespace

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
    updateKeyFields();
}

// The hold is opened only after the questions: the scene may change while a dialog is open.
void VxTimePane::createFilteredKeys(int numKeys)
{
    QWidget *parent = vxApp->getDialogParent();
    if (!vxScene->getPrimarySelection()) {
        QMessageBox::warning(parent, tr("Selection Error"),
                             tr("A node in the scene must be selected to continue."),
                             QMessageBox::Ok);
        return;
    }
    if (numKeys < 1) {
        bool accepted = false;
        numKeys = QInputDialog::getInt(parent, tr("Create # Keys"), tr("Number of keys:"), 1, 1,
                                       MaxKeys, 1, &accepted);
        if (!accepted) {
            updateActionStates();
            return;
        }
    }
    VxUndoStackHold hold;
    {
        VxChangeBlock block;
        makeFilteredKeys(this, numKeys);
    }
    hold.accept(tr("Create Filtered Keys"));
    updateActionStates();
}

void VxTimePane::deleteSelectedKeys()
{
    VxDopeSheetView *sheet = d->views.sheet();
    editSelectedKeys(sheet, tr("Delete Selected Keys"), [sheet] { sheet->deleteKeys(); });
    updateKeyFields();
}

void VxTimePane::copySelectedKeys()
{
    VxDopeSheetView *sheet = d->views.sheet();
    sheet->copyKeys();
    const int count = sheet->numCopiedKeys();
    if (count == 0)
        showWhyNoKeys(sheet);
    else
        vxShowStatusMessage(tr("Copied %n keys.", nullptr, count));
    updateActionStates();
}

void VxTimePane::pasteKeys()
{
    VxUndoStackHold hold;
    const bool pasted = d->views.sheet()->pasteCopiedKeys();
    hold.accept(tr("Paste Keys"));
    if (!hasCopiedKeys())
        vxShowStatusMessage(tr("No keys have been copied."));
    else if (!pasted)
        vxShowStatusMessage(tr("No row matches the copied keys."));
    updateActionStates();
}

void VxTimePane::setInterpType(int interpType)
{
    const QStringList names = {tr("Linear"), tr("Constant"), tr("TCB")};
    if (interpType < 0 || interpType >= names.size()) {
        vxWarning(VX_HERE, QStringLiteral("Invalid value passed to VxTimePane::setInterpType()"));
        return;
    }
    VxDopeSheetView *sheet = d->views.sheet();
    editSelectedKeys(sheet, tr("Set Interpolation Type ") + names.at(interpType),
                     [sheet, interpType] { sheet->setInterpType(interpType); });
    updateKeyFields();
}

void VxTimePane::handleCreateKeysClicked()
{
    const bool asks = QGuiApplication::keyboardModifiers().testFlag(Qt::ControlModifier);
    createFilteredKeys(asks ? -1 : 1);
}

void VxTimePane::updateTCB()
{
    d->controls.interp().tcb().apply(
        qobject_cast<const QDoubleSpinBox *>(sender()),
        [this](const QString &text, const std::function<void()> &edit) {
            editSelectedKeys(d->views.sheet(), text, edit);
        });
}

void VxTimePane::updateKeyInterpType()
{
    d->controls.interp().tcb().update();
}

// Cheap without a change: a selection is reported once for each row.
void VxTimePane::updateActionStates()
{
    d->choices.updateEnabled(hasSelectedKeys(), hasCopiedKeys());
    d->controls.setUsable(hasSelectedKeys(), hasCopiedKeys());
}

void VxTimePane::updateKeyFields()
{
    updateKeyInterpType();
    updateActionStates();
}

// Undo and redo may change the shown values.
void VxTimePane::handleUndoIndexChanged()
{
    if (!d->controls.interp().tcb().isBusy())
        updateKeyFields();
}

bool VxTimePane::hasSelectedKeys() const
{
    return d->views.sheet()->hasSelectedKeys();
}

bool VxTimePane::hasCopiedKeys() const
{
    return d->views.sheet()->hasCopiedKeys();
}
