// The property types with rows, and the scope of key creation. The check marks of the registered
// actions are their state.

#include <QtCore/QCoreApplication>
#include <QtWidgets/QAction>
#include <vxcore/vxstyledbutton.h>

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/vxtimepane_p.h"
#include "vxtimeline/time/vxwarning.h"
#include "vxtimeline/widgets/vxfiltermenu.h"

void VxTimePane::setFilteredPropertyTypes(PropertyTypes propTypes)
{
    d->choices.setRequestedTypes(int(propTypes));
    d->choices.checkFlags(TimePaneChoice::PropertyTypeFamily, int(propTypes));
    d->controls.types().menu()->notifyFilterChanged();
}

VxTimePane::PropertyTypes VxTimePane::getFilteredPropertyTypes() const
{
    return PropertyTypes(d->choices.checkedFlags(TimePaneChoice::PropertyTypeFamily));
}

void VxTimePane::handlePropertyTypesEdited()
{
    d->rows.refresh();
    d->controls.types().showTypes(int(getFilteredPropertyTypes()));
}

// Outside the advanced view the node is the scope instead of its properties.
void VxTimePane::setFilteredKeyCreationScope(KeyScope keyScope)
{
    if (keyScope < ScopeObject || keyScope > ScopeProperties) {
        vxWarning(
            VX_HERE,
            QStringLiteral("Invalid value passed to VxTimePane::setFilteredKeyCreationScope()"));
        return;
    }
    if (keyScope == ScopeProperties && !d->layout.isAdvanced())
        keyScope = ScopeNode;
    d->choices.setRequestedScope(keyScope);
    d->choices.checkOnly(TimePaneChoice::KeyScopeFamily, keyScope);
    if (const QAction *action = d->choices.checkedAction(TimePaneChoice::KeyScopeFamily))
        d->controls.keys().scopeButton()->setText(action->text());
    d->views.sheet()->doUpdate();
    d->nodes.update();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    d->views.sheet()->doUpdate();
}

VxTimePane::KeyScope VxTimePane::getFilteredKeyCreationScope() const
{
    return KeyScope(d->choices.checkedValue(TimePaneChoice::KeyScopeFamily, ScopeNode));
}
