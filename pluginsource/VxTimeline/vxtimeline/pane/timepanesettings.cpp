#include "vxtimeline/pane/timepanesettings.h"

#include "vxtimeline/keys/timelinemenus.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <QtCore/QMetaEnum>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxsettings.h>

namespace {

using TimelineMenus::add;
using TimelineMenus::Line;

struct PropertyTypeKey
{
    const char *key;
    VxTimePane::PropertyType type;
    bool isDefault;
};

const PropertyTypeKey propertyTypeKeys[] = {
    {"PropTranslate", VxTimePane::PropTranslate, true},
    {"PropRotate", VxTimePane::PropRotate, true},
    {"PropScale", VxTimePane::PropScale, false},
    {"PropOther", VxTimePane::PropOther, false},
    {"PropAlias", VxTimePane::PropAlias, true},
    {"PropHidden", VxTimePane::PropHidden, false},
};

bool flagOf(const VxSettings *settings, const char *key, bool defaultValue = false)
{
    return settings->getBoolValue(QLatin1String(key), defaultValue);
}

// Only the key of the present choice is written, so several of them may be true. The order of the
// checks decides; it is part of the format.
VxTimePane::ViewMode storedViewMode(const VxSettings *settings)
{
    if (flagOf(settings, "AdvancedView"))
        return VxTimePane::AdvancedView;
    return flagOf(settings, "IntermediateView") ? VxTimePane::IntermediateView
                                                : VxTimePane::BasicView;
}

VxTimePane::KeyScope storedKeyScope(const VxSettings *settings)
{
    if (flagOf(settings, "ScopeObject"))
        return VxTimePane::ScopeObject;
    if (flagOf(settings, "ScopeNodeRecurse"))
        return VxTimePane::ScopeNodeRecurse;
    return flagOf(settings, "ScopeProperties") ? VxTimePane::ScopeProperties
                                               : VxTimePane::ScopeNode;
}

VxTimePane::PropertyTypes storedPropertyTypes(const VxSettings *settings)
{
    VxTimePane::PropertyTypes types;
    for (const PropertyTypeKey &entry : propertyTypeKeys)
        types.setFlag(entry.type, flagOf(settings, entry.key, entry.isDefault));
    return types;
}

template <typename Enum> QString settingKey(Enum value)
{
    return QLatin1String(QMetaEnum::fromType<Enum>().valueToKey(value));
}

void addSubMenu(VxActionMenu *menu, const QString &title, TimelineMenus::ClassNames classNames)
{
    add(menu->findOrCreateSubMenu(title, true), classNames);
}

void addKeyGraphAndFilters(VxActionMenu *menu)
{
    addSubMenu(menu, VxTimePane::tr("Key Graph"),
               {"VxTimePaneKeyGraphToggleAction", Line, "VxTimePaneMonitorParametersPaneAction"});
    menu->insertSeparator();
    addSubMenu(menu, VxTimePane::tr("Property Types"), TimelineMenus::propertyTypes);
    menu->insertSeparator();
    addSubMenu(menu, VxTimePane::tr("Key Creation Scope"), TimelineMenus::keyScopes);
    menu->insertSeparator();
}

void addPreferences(VxActionMenu *menu)
{
    addSubMenu(menu, VxTimePane::tr("Controls Position"),
               {"VxTimePaneControlsBottomAction", "VxTimePaneControlsTopAction"});
    menu->insertSeparator();
    addSubMenu(menu, VxTimePane::tr("View Mode"),
               {"VxTimePaneBasicViewAction", "VxTimePaneIntermediateViewAction",
                "VxTimePaneAdvancedViewAction"});
    menu->insertSeparator();
    addKeyGraphAndFilters(menu);
    add(menu, {"VxTimePanePlayAllFramesAction", Line});
}

void addCommands(VxActionMenu *menu)
{
    add(menu, {Line,
               "VxLoopToggleAction",
               Line,
               "VxPlayToggleAction",
               Line,
               "VxPrevFrameAction",
               "VxNextFrameAction",
               Line,
               "VxSkipToPlayrangeStartAction",
               "VxSkipToPlayrangeEndAction",
               Line,
               "VxTimePanePrevKeyAction",
               "VxSkipToPrevKeyAction",
               "VxTimePaneNextKeyAction",
               "VxSkipToNextKeyAction",
               Line,
               "VxTimePaneDeleteSelectedKeysAction",
               "VxDeleteKeysAction",
               Line,
               "VxTimePaneCreateKeysAction",
               "VxAddKeysAction",
               Line,
               "VxTimePaneCopySelectedKeysAction",
               "VxTimePanePasteKeysAction",
               Line});
}

void addKeyAndRowMenus(VxActionMenu *menu)
{
    addSubMenu(menu, VxTimePane::tr("Set Key Interpolation"), TimelineMenus::interpolations);
    add(menu, {Line, "VxTimePaneExpandAllItemsAction", "VxTimePaneCollapseAllItemsAction", Line});
    addSubMenu(menu, VxTimePane::tr("Clear Animation"),
               {"VxClearKeysFigureAction", "VxClearKeysFigurePoseAction",
                "VxClearKeysFigureShapeAction", Line, "VxClearKeysSelectedItemsAction",
                "VxClearKeysPoseAction", "VxClearKeysShapeAction"});
}

} // namespace

void TimePaneSettings::restore(VxTimePane *pane, const VxSettings *settings)
{
    pane->setControlsPosition(flagOf(settings, "ControlsTop") ? VxTimePane::ControlsTop
                                                              : VxTimePane::ControlsBottom);
    pane->setViewMode(storedViewMode(settings));
    pane->setKeyGraphOpen(flagOf(settings, "GraphOpen"));
    pane->setMonitorParametersPane(flagOf(settings, "MonitorParametersPane"));
    pane->setPlayAllFrames(flagOf(settings, "PlayAllFrames"));
    pane->setFilteredPropertyTypes(storedPropertyTypes(settings));
    pane->setFilteredKeyCreationScope(storedKeyScope(settings));
}

void TimePaneSettings::save(const VxTimePane *pane, VxSettings *settings)
{
    settings->setBoolValue(settingKey(pane->getControlsPosition()), true);
    settings->setBoolValue(settingKey(pane->getViewMode()), true);
    settings->setBoolValue(QStringLiteral("GraphOpen"), pane->getKeyGraphOpen());
    settings->setBoolValue(QStringLiteral("MonitorParametersPane"),
                           pane->getMonitorParametersPane());
    settings->setBoolValue(QStringLiteral("PlayAllFrames"), pane->getPlayAllFrames());
    const VxTimePane::PropertyTypes types = pane->getFilteredPropertyTypes();
    for (const PropertyTypeKey &entry : propertyTypeKeys)
        settings->setBoolValue(QLatin1String(entry.key), types.testFlag(entry.type));
    settings->setBoolValue(settingKey(pane->getFilteredKeyCreationScope()), true);
}

void TimePaneSettings::buildOptionsMenu(VxActionMenu *menu)
{
    if (!menu)
        return;
    addPreferences(menu->findOrCreateSubMenu(VxTimePane::tr("Preferences"), true));
    addCommands(menu);
    addKeyAndRowMenus(menu);
}
