#include "vxtimelineactions/vxtimepaneaction.h"

VxTimePaneAction::VxTimePaneAction()
    : VxPaneAction(QStringLiteral("VxTimePane"))
{
}
