#ifndef KEYCURSORACTION_H
#define KEYCURSORACTION_H

#include "keytools/keysmenuaction.h"

/// Begins the key cursor of the timeline: arrow keys move among keys and rows.
class VxKeyToolsKeyCursorAction : public KeysMenuAction
{
    Q_OBJECT
public:
    VxKeyToolsKeyCursorAction();

protected:
    void executeAction() override;
};

#endif
