#ifndef VXSCENEACTION_H
#define VXSCENEACTION_H

#include "widgets/vxstudioaction.h"

class VxScene;

/// Base of the program's own commands on the scene and its selection. The status line shows what
/// was done, or why nothing was.
class VxSceneAction : public VxStudioAction
{
    Q_OBJECT
protected:
    /// Returns the text for the status line; empty when there is nothing to report.
    using Command = QString (*)(VxScene *scene);

    /// menu, accel, group: see VxStudioAction.
    VxSceneAction(const char *menu, const QString &text, const QString &description,
                  const char *accel, const char *group, Command command);
    void executeAction() override;

private:
    const Command m_command;
};

#endif
