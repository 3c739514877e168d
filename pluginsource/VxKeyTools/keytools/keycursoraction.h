#ifndef KEYTOOLS_KEYCURSORACTION_H
#define KEYTOOLS_KEYCURSORACTION_H

#include <vxcore/vxaction.h>

/// Begins the key cursor of the timeline: arrow keys move among keys and rows.
class VxKeyToolsKeyCursorAction : public VxAction
{
    Q_OBJECT
public:
    VxKeyToolsKeyCursorAction();
    QString getDefaultAccel() const override;
    QString getDefaultMenuPath() const override;
    QString getActionGroup() const override;
    QString getMenuFolder() const override;

protected:
    void executeAction() override;
};

#endif
