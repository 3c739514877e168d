#include "vxtimelineactions/vxtimepaneaction.h"

VxTimePaneAction::VxTimePaneAction()
    : VxPaneAction(QStringLiteral("VxTimePane"))
{
    setObjectName(QString::fromLatin1(metaObject()->className()));
    updateInlineHelp();
}
