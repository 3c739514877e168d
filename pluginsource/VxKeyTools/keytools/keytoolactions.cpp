#include "keytools/keytoolactions.h"

#include "keytools/keytool.h"
#include "keytools/vxkeytoolspane.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpanemgr.h>

namespace {

int indexOf(const QString &tool)
{
    return int(KeyTool::find(tool) - KeyTool::all().constData());
}

QString menuText(const KeyTool &tool)
{
    return tool.parameters.isEmpty() ? tool.label : tool.label + QStringLiteral("...");
}

} // namespace

KeyToolAction::KeyToolAction(const char *tool)
    : VxAction(menuText(*KeyTool::find(QString::fromLatin1(tool))),
               KeyTool::find(QString::fromLatin1(tool))->description)
    , m_tool(QString::fromLatin1(tool))
{
}

QString KeyToolAction::getDefaultMenuPath() const
{
    return QString::fromLatin1(QT_TRANSLATE_NOOP("VxMenuPath", "Keys"));
}

QString KeyToolAction::getActionGroup() const
{
    return QStringLiteral("VxKeyToolsPane::");
}

int KeyToolAction::getMenuOrder() const
{
    return indexOf(m_tool);
}

QString KeyToolAction::getMenuFolder() const
{
    const int count = int(selectionTools().size());
    const int index = indexOf(m_tool);
    const int times = count + int(timeTools().size()) + int(pasteTools().size());
    const int values = times + int(valueTools().size());
    const int cleaning = values + int(cleaningTools().size());
    if (index < count)
        return QString::fromLatin1(QT_TRANSLATE_NOOP("VxMenuPath", "Select"));
    if (index < times)
        return QString::fromLatin1(QT_TRANSLATE_NOOP("VxMenuPath", "Times"));
    if (index < values)
        return QString::fromLatin1(QT_TRANSLATE_NOOP("VxMenuPath", "Values"));
    return index < cleaning ? QString::fromLatin1(QT_TRANSLATE_NOOP("VxMenuPath", "Clean Up"))
                            : QString::fromLatin1(QT_TRANSLATE_NOOP("VxMenuPath", "Pose"));
}

void KeyToolAction::executeAction()
{
    const KeyTool &tool = *KeyTool::find(m_tool);
    const VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    auto *pane = window && !tool.parameters.isEmpty()
                     ? qobject_cast<VxKeyToolsPane *>(
                           window->getPaneMgr()->findOrCreatePane(QStringLiteral("VxKeyToolsPane")))
                     : nullptr;
    if (!pane) {
        tool.runWith({});
        return;
    }
    window->getPaneMgr()->showPane(pane);
    pane->setTool(m_tool);
}

VxKeyToolsSelectFramesAction::VxKeyToolsSelectFramesAction()
    : KeyToolAction("selectFrames")
{
}

VxKeyToolsSelectBeforeAction::VxKeyToolsSelectBeforeAction()
    : KeyToolAction("selectBefore")
{
}

VxKeyToolsSelectAfterAction::VxKeyToolsSelectAfterAction()
    : KeyToolAction("selectAfter")
{
}

VxKeyToolsSelectSameFramesAction::VxKeyToolsSelectSameFramesAction()
    : KeyToolAction("selectSameFrames")
{
}

VxKeyToolsSelectEveryAction::VxKeyToolsSelectEveryAction()
    : KeyToolAction("selectEvery")
{
}

VxKeyToolsSelectInverseAction::VxKeyToolsSelectInverseAction()
    : KeyToolAction("selectInverse")
{
}

VxKeyToolsSelectTypeAction::VxKeyToolsSelectTypeAction()
    : KeyToolAction("selectType")
{
}

VxKeyToolsSelectValuesAction::VxKeyToolsSelectValuesAction()
    : KeyToolAction("selectValues")
{
}

VxKeyToolsMoveAction::VxKeyToolsMoveAction()
    : KeyToolAction("move")
{
}

VxKeyToolsScaleTimesAction::VxKeyToolsScaleTimesAction()
    : KeyToolAction("scaleTimes")
{
}

VxKeyToolsRetimeAction::VxKeyToolsRetimeAction()
    : KeyToolAction("retime")
{
}

VxKeyToolsInsertFramesAction::VxKeyToolsInsertFramesAction()
    : KeyToolAction("insertFrames")
{
}

VxKeyToolsRemoveFramesAction::VxKeyToolsRemoveFramesAction()
    : KeyToolAction("removeFrames")
{
}

VxKeyToolsSnapAction::VxKeyToolsSnapAction()
    : KeyToolAction("snap")
{
}

VxKeyToolsSpaceEvenlyAction::VxKeyToolsSpaceEvenlyAction()
    : KeyToolAction("spaceEvenly")
{
}

VxKeyToolsReverseAction::VxKeyToolsReverseAction()
    : KeyToolAction("reverse")
{
}

VxKeyToolsDuplicateAction::VxKeyToolsDuplicateAction()
    : KeyToolAction("duplicate")
{
}

VxKeyToolsPasteAction::VxKeyToolsPasteAction()
    : KeyToolAction("paste")
{
}

VxKeyToolsPasteMirroredAction::VxKeyToolsPasteMirroredAction()
    : KeyToolAction("pasteMirrored")
{
}

VxKeyToolsSetValuesAction::VxKeyToolsSetValuesAction()
    : KeyToolAction("setValues")
{
}

VxKeyToolsScaleValuesAction::VxKeyToolsScaleValuesAction()
    : KeyToolAction("scaleValues")
{
}

VxKeyToolsMirrorValuesAction::VxKeyToolsMirrorValuesAction()
    : KeyToolAction("mirrorValues")
{
}

VxKeyToolsOffsetAction::VxKeyToolsOffsetAction()
    : KeyToolAction("offset")
{
}

VxKeyToolsEulerFilterAction::VxKeyToolsEulerFilterAction()
    : KeyToolAction("eulerFilter")
{
}

VxKeyToolsSmoothGaussianAction::VxKeyToolsSmoothGaussianAction()
    : KeyToolAction("smoothGaussian")
{
}

VxKeyToolsSmoothButterworthAction::VxKeyToolsSmoothButterworthAction()
    : KeyToolAction("smoothButterworth")
{
}

VxKeyToolsRemoveSpikesAction::VxKeyToolsRemoveSpikesAction()
    : KeyToolAction("removeSpikes")
{
}

VxKeyToolsReduceAction::VxKeyToolsReduceAction()
    : KeyToolAction("reduce")
{
}

VxKeyToolsRemoveFlatAction::VxKeyToolsRemoveFlatAction()
    : KeyToolAction("removeFlat")
{
}

VxKeyToolsBakeAction::VxKeyToolsBakeAction()
    : KeyToolAction("bake")
{
}

VxKeyToolsConvertAction::VxKeyToolsConvertAction()
    : KeyToolAction("convert")
{
}

VxKeyToolsPinAction::VxKeyToolsPinAction()
    : KeyToolAction("pin")
{
}
