#ifndef NOTESACTION_H
#define NOTESACTION_H

#include <vxcore/vxaction.h>

/// Notes the current time and what is selected.
class NotesStampAction : public VxAction
{
    Q_OBJECT
public:
    NotesStampAction();

    QString getDefaultMenuPath() const override;
    QString getActionGroup() const override;

protected:
    void executeAction() override;
};

#endif
