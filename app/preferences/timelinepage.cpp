#include "preferences/timelinepage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>

namespace {

QString plainText(const VxAction *action)
{
    return action->text().remove(QLatin1Char('&'));
}

int checkedOf(const QVector<VxAction *> &actions)
{
    for (int i = 0; i < actions.size(); ++i) {
        if (actions.at(i)->isChecked())
            return i;
    }
    return -1;
}

} // namespace

TimelinePage::TimelinePage(const VxActionMgr &actions, QWidget *parent)
    : PreferencesPage(parent)
    , m_actions(actions)
{
    setObjectName(QStringLiteral("TimelinePage"));
    auto *layout = new QFormLayout(this);
    layout->setRowWrapPolicy(QFormLayout::WrapLongRows);
    addChoice(layout, tr("&View mode:"), "TimelineViewMode",
              {"VxTimePaneBasicViewAction", "VxTimePaneIntermediateViewAction",
               "VxTimePaneAdvancedViewAction"});
    addChoice(layout, tr("Controls &position:"), "TimelineControlsPosition",
              {"VxTimePaneControlsBottomAction", "VxTimePaneControlsTopAction"});
    addChoice(layout, tr("&Key creation scope:"), "TimelineKeyScope",
              {"VxTimePaneSetKeyScopeObjectAction", "VxTimePaneSetKeyScopeNodeRecurseAction",
               "VxTimePaneSetKeyScopeNodeAction", "VxTimePaneSetKeyScopePropertiesAction"});
    layout->addRow(tr("Properties:"),
                   makeFlags("TimelinePropertyTypes", {"VxTimePaneSetPropertyTypeTranslationAction",
                                                       "VxTimePaneSetPropertyTypeRotationAction",
                                                       "VxTimePaneSetPropertyTypeScaleAction",
                                                       "VxTimePaneSetPropertyTypeOtherAction",
                                                       "VxTimePaneSetPropertyTypeAliasAction",
                                                       "VxTimePaneSetPropertyTypeHiddenAction"}));
    layout->addRow(tr("Behaviour:"),
                   makeFlags("TimelineFlags", {"VxTimePaneKeyGraphToggleAction",
                                               "VxTimePaneMonitorParametersPaneAction",
                                               "VxTimePanePlayAllFramesAction"}));
    if (!m_choices.isEmpty())
        return;
    auto *hint = new QLabel(tr("The timeline's plug-in is not loaded."));
    hint->setObjectName(QStringLiteral("TimelineHint"));
    hint->setWordWrap(true);
    while (layout->rowCount() > 0)
        layout->removeRow(0);
    layout->addRow(hint);
}

QVector<VxAction *> TimelinePage::actionsOf(Names classNames) const
{
    QVector<VxAction *> found;
    for (const char *name : classNames) {
        if (VxAction *action = m_actions.findAction(QLatin1String(name)))
            found.append(action);
    }
    return found;
}

void TimelinePage::addChoice(QFormLayout *layout, const QString &label, const char *name,
                             Names classNames)
{
    const QVector<VxAction *> actions = actionsOf(classNames);
    if (actions.isEmpty())
        return;
    auto *box = new QComboBox;
    box->setObjectName(QLatin1String(name));
    for (const VxAction *action : actions)
        box->addItem(plainText(action));
    box->setCurrentIndex(checkedOf(actions));
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &TimelinePage::edited);
    layout->addRow(label, box);
    m_choices.append({box, actions});
}

QWidget *TimelinePage::makeFlags(const char *name, Names classNames)
{
    auto *group = new QWidget;
    group->setObjectName(QLatin1String(name));
    auto *layout = new QVBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    for (VxAction *action : actionsOf(classNames)) {
        auto *box = new QCheckBox(plainText(action));
        box->setObjectName(QLatin1String(action->metaObject()->className()));
        box->setToolTip(action->statusTip());
        box->setChecked(action->isChecked());
        connect(box, &QCheckBox::toggled, this, &TimelinePage::edited);
        layout->addWidget(box);
        m_flags.append({box, action});
    }
    return group;
}

bool TimelinePage::isChanged() const
{
    for (const Choice &choice : m_choices) {
        if (choice.box->currentIndex() != checkedOf(choice.actions))
            return true;
    }
    for (const Flag &flag : m_flags) {
        if (flag.box->isChecked() != flag.action->isChecked())
            return true;
    }
    return false;
}

void TimelinePage::apply()
{
    for (const Choice &choice : qAsConst(m_choices)) {
        const int index = choice.box->currentIndex();
        if (index >= 0 && index != checkedOf(choice.actions))
            choice.actions.at(index)->trigger();
    }
    for (const Flag &flag : qAsConst(m_flags)) {
        if (flag.box->isChecked() != flag.action->isChecked())
            flag.action->trigger();
    }
    // The pane may refuse some: not every view mode has all of them.
    showState();
}

void TimelinePage::showState()
{
    for (const Choice &choice : qAsConst(m_choices))
        choice.box->setCurrentIndex(checkedOf(choice.actions));
    for (const Flag &flag : qAsConst(m_flags))
        flag.box->setChecked(flag.action->isChecked());
}
