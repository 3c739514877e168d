#ifndef TRANSFORMROWSTESTBASE_H
#define TRANSFORMROWSTESTBASE_H

#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"

/// A shown pane that lists the transforms of all nodes.
class TransformRowsTest : public TimePaneTest
{
protected:
    void setUpRows()
    {
        setUp();
        addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4});
        for (const auto &action : actions)
            action->setChecked(true);
        showPane(1200, 500);
        view = pane->getDopeSheetView();
    }

    void settle() const
    {
        QCoreApplication::processEvents();
        pane->grab();
    }

    VxDopeSheetView *view = nullptr;
};

#endif
