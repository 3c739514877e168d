#include <vxcore/vxclearkeysactions.h>

#include "action/vxactiontext.h"
#include "action/vxclearkeystargets.h"

#include <vxcore/vxchangeblock.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostackhold.h>

VxClearKeysAction::VxClearKeysAction(const QString &text, const QString &description, Nodes nodes,
                                     Properties properties)
    : VxAction(text, description)
    , m_nodes(nodes)
    , m_properties(properties)
{
}

VxClearKeysAction::~VxClearKeysAction() = default;

QString VxClearKeysAction::getDefaultMenuPath() const
{
    return QStringLiteral("Animation");
}

QString VxClearKeysAction::getActionGroup() const
{
    return QStringLiteral("/Clear Animation");
}

void VxClearKeysAction::executeAction()
{
    if (!vxScene)
        return;
    const QVector<VxNode *> nodes = VxClearKeysTargets::nodes(vxScene->getSelectedNodes(), m_nodes);
    VxUndoStackHold hold;
    int removed = 0;
    {
        const VxChangeBlock block;
        for (const VxNode *node : nodes) {
            for (VxProperty *property : VxClearKeysTargets::properties(node, m_properties))
                removed += property->deleteAllKeys();
        }
    }
    if (removed > 0)
        hold.accept(VxActionText::asUndoText(text()));
    else
        hold.cancel();
}

VxClearKeysFigureAction::VxClearKeysFigureAction()
    : VxClearKeysAction(tr("Clear Figure"),
                        tr("Removes all animation from the figure(s) of the selected item(s)."),
                        Nodes::Figures, Properties::All)
{
}

VxClearKeysFigurePoseAction::VxClearKeysFigurePoseAction()
    : VxClearKeysAction(tr("Clear Figure Pose"),
                        tr("Removes the animation of translation, rotation and scale from the "
                           "figure(s) of the selected item(s)."),
                        Nodes::Figures, Properties::Pose)
{
}

VxClearKeysFigureShapeAction::VxClearKeysFigureShapeAction()
    : VxClearKeysAction(tr("Clear Figure Shape"),
                        tr("Removes the animation of everything but translation, rotation and "
                           "scale from the figure(s) of the selected item(s)."),
                        Nodes::Figures, Properties::Shape)
{
}

VxClearKeysSelectedItemsAction::VxClearKeysSelectedItemsAction()
    : VxClearKeysAction(tr("Clear Selected Item(s)"),
                        tr("Removes all animation from the selected item(s)."), Nodes::Selected,
                        Properties::All)
{
}

VxClearKeysPoseAction::VxClearKeysPoseAction()
    : VxClearKeysAction(tr("Clear Selected Item(s) Pose"),
                        tr("Removes the animation of translation, rotation and scale from the "
                           "selected item(s)."),
                        Nodes::Selected, Properties::Pose)
{
}

VxClearKeysShapeAction::VxClearKeysShapeAction()
    : VxClearKeysAction(tr("Clear Selected Item(s) Shape"),
                        tr("Removes the animation of everything but translation, rotation and "
                           "scale from the selected item(s)."),
                        Nodes::Selected, Properties::Shape)
{
}
