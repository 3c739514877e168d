#ifndef VXSCENEACTION_H
#define VXSCENEACTION_H

#include <vxcore/vxaction.h>

class VxScene;

/// Base of the program's own commands on the scene and its selection. The status line shows what
/// was done, or why nothing was.
class VxSceneAction : public VxAction
{
    Q_OBJECT
public:
    ~VxSceneAction() override;

    QString getDefaultAccel() const override;
    QString getDefaultMenuPath() const override;
    QString getActionGroup() const override;

protected:
    /// menu: the title of the menu; accel: a key sequence as text; group: entries of one group are
    /// listed together. All three must outlive the action.
    VxSceneAction(const char *menu, const QString &text, const QString &description,
                  const char *accel, const char *group);
    void executeAction() override;

private:
    /// Returns the text for the status line; empty when there is nothing to report.
    virtual QString perform(VxScene *scene) const = 0;

    const char *const m_menu;
    const char *const m_accel;
    const char *const m_group;
};

#endif
