#include "vxtimeline/pane/timepanekeys.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/keycreation.h"
#include "vxtimeline/keys/nodeproperties.h"
#include "vxtimeline/pane/timepanechoices.h"
#include "vxtimeline/pane/timepanecontrols.h"
#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/vxwarning.h"

#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMessageBox>
#include <vxcore/vxapp.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostackhold.h>

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

} // namespace

TimePaneKeys::TimePaneKeys(const VxTimePane *pane, VxDopeSheetView *sheet,
                           TimePaneControls &controls, TimePaneChoices &choices)
    : m_pane(pane)
    , m_sheet(sheet)
    , m_controls(controls)
    , m_choices(choices)
{
}

void TimePaneKeys::createNodeKeys()
{
    VxUndoStackHold hold;
    {
        VxChangeBlock block;
        visitSelectedNodes(KeyCreation::keyCurrentValue);
    }
    hold.accept(VxTimePane::tr("Create Keys"));
    updateStates();
}

void TimePaneKeys::deleteNodeKeys()
{
    VxUndoStackHold hold;
    {
        VxChangeBlock block;
        const VxTimeRange now(vxScene->getTime(), vxScene->getTime());
        visitSelectedNodes([now](VxProperty *property) { property->deleteKeys(now); });
    }
    hold.accept(VxTimePane::tr("Delete Keys"));
    updateFields();
}

// The hold is opened only after the questions: the scene may change while a dialog is open.
void TimePaneKeys::createFilteredKeys(int count)
{
    QWidget *parent = vxApp->getDialogParent();
    if (!vxScene->getPrimarySelection()) {
        QMessageBox::warning(parent, VxTimePane::tr("Selection Error"),
                             VxTimePane::tr("A node in the scene must be selected to continue."),
                             QMessageBox::Ok);
        return;
    }
    if (count < 1) {
        bool accepted = false;
        count =
            QInputDialog::getInt(parent, VxTimePane::tr("Create # Keys"),
                                 VxTimePane::tr("Number of keys:"), 1, 1, MaxKeys, 1, &accepted);
        if (!accepted) {
            updateStates();
            return;
        }
    }
    VxUndoStackHold hold;
    {
        VxChangeBlock block;
        makeFilteredKeys(count);
    }
    hold.accept(VxTimePane::tr("Create Filtered Keys"));
    updateStates();
}

// Keys of single properties are not spread over frames: they are made at the current time whatever
// the number.
void TimePaneKeys::makeFilteredKeys(int count) const
{
    VxNode *selected = vxScene->getPrimarySelection();
    if (!selected)
        return;
    const VxTime now = vxScene->getTime();
    const VxTimePane::KeyScope scope = m_pane->getFilteredKeyCreationScope();
    if (scope == VxTimePane::ScopeProperties) {
        for (VxProperty *property : m_sheet->getSelectedProperties())
            KeyCreation::setKeysFrom(property, now, {now});
        return;
    }
    const KeyTarget target = keyTarget(selected, scope);
    KeyCreation::setNodeKeys(target.node, int(m_pane->getFilteredPropertyTypes()), target.recurse,
                             now, frameTimes(now, count));
}

// For commands that edit the selected keys. Without an editable key the status line shows the
// reason.
void TimePaneKeys::editSelectedKeys(const QString &text, const std::function<void()> &edit) const
{
    showWhyNoKeys();
    VxUndoStackHold hold;
    edit();
    hold.accept(text);
}

void TimePaneKeys::showWhyNoKeys() const
{
    const VxDopeSheetView::EditableKeys keys = m_sheet->getEditableKeys();
    if (keys == VxDopeSheetView::NoneSelected)
        vxShowStatusMessage(VxTimePane::tr("No keys are selected."));
    else if (keys == VxDopeSheetView::AllFilteredOut)
        vxShowStatusMessage(VxTimePane::tr("The selected keys are in rows that the filter hides."));
    else if (keys == VxDopeSheetView::AllLocked)
        vxShowStatusMessage(VxTimePane::tr("The selected keys belong to locked properties."));
}

void TimePaneKeys::deleteSelectedKeys()
{
    editSelectedKeys(VxTimePane::tr("Delete Selected Keys"), [this] { m_sheet->deleteKeys(); });
    updateFields();
}

void TimePaneKeys::copySelectedKeys()
{
    m_sheet->copyKeys();
    const int count = m_sheet->numCopiedKeys();
    if (count == 0)
        showWhyNoKeys();
    else
        vxShowStatusMessage(VxTimePane::tr("Copied %n keys.", nullptr, count));
    updateStates();
}

void TimePaneKeys::pasteKeys()
{
    VxUndoStackHold hold;
    const bool pasted = m_sheet->pasteCopiedKeys();
    hold.accept(VxTimePane::tr("Paste Keys"));
    if (!m_sheet->hasCopiedKeys())
        vxShowStatusMessage(VxTimePane::tr("No keys have been copied."));
    else if (!pasted)
        vxShowStatusMessage(VxTimePane::tr("No row matches the copied keys."));
    updateStates();
}

void TimePaneKeys::setInterpType(int type)
{
    const QStringList names = {VxTimePane::tr("Linear"), VxTimePane::tr("Constant"),
                               VxTimePane::tr("TCB")};
    if (type < 0 || type >= names.size()) {
        vxWarning(VX_HERE, QStringLiteral("Invalid value passed to VxTimePane::setInterpType()"));
        return;
    }
    editSelectedKeys(VxTimePane::tr("Set Interpolation Type ") + names.at(type),
                     [this, type] { m_sheet->setInterpType(type); });
    updateFields();
}

void TimePaneKeys::applyTcb(const QDoubleSpinBox *entered)
{
    m_controls.interp().tcb().apply(entered,
                                    [this](const QString &text, const std::function<void()> &edit) {
                                        editSelectedKeys(text, edit);
                                    });
}

void TimePaneKeys::updateTcb()
{
    m_controls.interp().tcb().update();
}

void TimePaneKeys::updateStates()
{
    const bool selected = m_sheet->hasSelectedKeys();
    const bool copied = m_sheet->hasCopiedKeys();
    m_choices.updateEnabled(selected, copied);
    m_controls.setUsable(selected, copied);
}

void TimePaneKeys::updateFields()
{
    updateTcb();
    updateStates();
}

void TimePaneKeys::handleUndo()
{
    if (!m_controls.interp().tcb().isBusy())
        updateFields();
}
