#include "vxtimeline/pane/timepanefilter.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/timepanechoices.h"
#include "vxtimeline/pane/timepanecontrols.h"
#include "vxtimeline/pane/timepanenodeselection.h"
#include "vxtimeline/pane/timepanerows.h"
#include "vxtimeline/time/vxwarning.h"
#include "vxtimeline/widgets/vxfiltermenu.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QAction>
#include <vxcore/vxstyledbutton.h>

TimePaneFilter::TimePaneFilter(TimePaneChoices &choices, TimePaneControls &controls,
                               VxDopeSheetView *sheet, TimePaneRows &rows,
                               TimePaneNodeSelection &nodes)
    : m_choices(choices)
    , m_controls(controls)
    , m_sheet(sheet)
    , m_rows(rows)
    , m_nodes(nodes)
{
}

void TimePaneFilter::setTypes(VxTimePane::PropertyTypes types)
{
    m_choices.setRequestedTypes(int(types));
    m_choices.checkFlags(TimePaneChoice::PropertyTypeFamily, int(types));
    m_controls.types().menu()->notifyFilterChanged();
}

VxTimePane::PropertyTypes TimePaneFilter::types() const
{
    return VxTimePane::PropertyTypes(m_choices.checkedFlags(TimePaneChoice::PropertyTypeFamily));
}

void TimePaneFilter::applyTypes()
{
    m_rows.refresh();
    m_controls.types().showTypes(int(types()));
}

void TimePaneFilter::setScope(VxTimePane::KeyScope scope, bool isAdvanced)
{
    if (scope < VxTimePane::ScopeObject || scope > VxTimePane::ScopeProperties) {
        vxWarning(
            VX_HERE,
            QStringLiteral("Invalid value passed to VxTimePane::setFilteredKeyCreationScope()"));
        return;
    }
    if (scope == VxTimePane::ScopeProperties && !isAdvanced)
        scope = VxTimePane::ScopeNode;
    m_choices.setRequestedScope(scope);
    m_choices.checkOnly(TimePaneChoice::KeyScopeFamily, scope);
    if (const QAction *action = m_choices.checkedAction(TimePaneChoice::KeyScopeFamily))
        m_controls.keys().scopeButton()->setText(action->text());
    m_sheet->doUpdate();
    m_nodes.update();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_sheet->doUpdate();
}

VxTimePane::KeyScope TimePaneFilter::scope() const
{
    return VxTimePane::KeyScope(
        m_choices.checkedValue(TimePaneChoice::KeyScopeFamily, VxTimePane::ScopeNode));
}

void TimePaneFilter::restoreMark(QAction *action)
{
    if (const auto *scope = TimePaneChoices::choiceOf(action, TimePaneChoice::KeyScopeFamily)) {
        m_choices.restoreScope(action, scope->value());
        if (action->isChecked())
            m_controls.keys().scopeButton()->setText(action->text());
    }
    if (const auto *type = TimePaneChoices::choiceOf(action, TimePaneChoice::PropertyTypeFamily)) {
        m_choices.restoreTypes(action, type->value());
        if (action->isChecked())
            applyTypes();
    }
}
