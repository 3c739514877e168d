#include "vxtimeline/pane/timepanesettings.h"

#include <QtCore/QMetaEnum>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxsettings.h>

#include "vxtimeline/pane/vxtimepane.h"

namespace {

// An entry without a name is a separator.
using ClassNames = std::initializer_list<const char *>;

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

template <typename Enum> QString keyOf(Enum value)
{
    return QLatin1String(QMetaEnum::fromType<Enum>().valueToKey(value));
}

void addEntries(VxActionMenu *menu, ClassNames classNames)
{
    for (const char *className : classNames) {
        if (className)
            menu->insertAction(QLatin1String(className));
        else
            menu->insertSeparator();
    }
}

void addSubMenu(VxActionMenu *menu, const QString &title, ClassNames classNames)
{
    addEntries(menu->findOrCreateSubMenu(title, true), classNames);
}

void addKeyGraphAndFilters(VxActionMenu *menu)
{
    addSubMenu(
        menu, VxTimePane::tr("Key Graph"),
        {"VxTimePaneKeyGraphToggleAction", nullptr, "VxTimePaneMonitorParametersPaneAction"});
    menu->insertSeparator();
    addSubMenu(menu, VxTimePane::tr("Property Types"),
               {"VxTimePaneSetPropertyTypeTranslationAction",
                "VxTimePaneSetPropertyTypeRotationAction", "VxTimePaneSetPropertyTypeScaleAction",
                nullptr, "VxTimePaneSetPropertyTypeOtherAction", nullptr,
                "VxTimePaneSetPropertyTypeAliasAction", "VxTimePaneSetPropertyTypeHiddenAction"});
    menu->insertSeparator();
    addSubMenu(menu, VxTimePane::tr("Key Creation Scope"),
               {"VxTimePaneSetKeyScopeObjectAction", "VxTimePaneSetKeyScopeNodeRecurseAction",
                "VxTimePaneSetKeyScopeNodeAction", nullptr,
                "VxTimePaneSetKeyScopePropertiesAction"});
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
    addEntries(menu, {"VxTimePanePlayAllFramesAction", nullptr});
}

void addCommands(VxActionMenu *menu)
{
    addEntries(menu, {nullptr,
                      "VxLoopToggleAction",
                      nullptr,
                      "VxPlayToggleAction",
                      nullptr,
                      "VxPrevFrameAction",
                      "VxNextFrameAction",
                      nullptr,
                      "VxSkipToPlayrangeStartAction",
                      "VxSkipToPlayrangeEndAction",
                      nullptr,
                      "VxTimePanePrevKeyAction",
                      "VxSkipToPrevKeyAction",
                      "VxTimePaneNextKeyAction",
                      "VxSkipToNextKeyAction",
                      nullptr,
                      "VxTimePaneDeleteSelectedKeysAction",
                      "VxDeleteKeysAction",
                      nullptr,
                      "VxTimePaneCreateKeysAction",
                      "VxAddKeysAction",
                      nullptr,
                      "VxTimePaneCopySelectedKeysAction",
                      "VxTimePanePasteKeysAction",
                      nullptr});
}

void addKeyAndRowMenus(VxActionMenu *menu)
{
    addSubMenu(menu, VxTimePane::tr("Set Key Interpolation"),
               {"VxTimePaneSetInterpTcbAction", "VxTimePaneSetInterpLinearAction",
                "VxTimePaneSetInterpConstantAction"});
    addEntries(menu, {nullptr, "VxTimePaneExpandAllItemsAction", "VxTimePaneCollapseAllItemsAction",
                      nullptr});
    addSubMenu(menu, VxTimePane::tr("Clear Animation"),
               {"VxClearKeysFigureAction", "VxClearKeysFigurePoseAction",
                "VxClearKeysFigureShapeAction", nullptr, "VxClearKeysSelectedItemsAction",
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
    settings->setBoolValue(keyOf(pane->getControlsPosition()), true);
    settings->setBoolValue(keyOf(pane->getViewMode()), true);
    settings->setBoolValue(QStringLiteral("GraphOpen"), pane->getKeyGraphOpen());
    settings->setBoolValue(QStringLiteral("MonitorParametersPane"),
                           pane->getMonitorParametersPane());
    settings->setBoolValue(QStringLiteral("PlayAllFrames"), pane->getPlayAllFrames());
    const VxTimePane::PropertyTypes types = pane->getFilteredPropertyTypes();
    for (const PropertyTypeKey &entry : propertyTypeKeys)
        settings->setBoolValue(QLatin1String(entry.key), types.testFlag(entry.type));
    settings->setBoolValue(keyOf(pane->getFilteredKeyCreationScope()), true);
}

void TimePaneSettings::buildOptionsMenu(VxActionMenu *menu)
{
    if (!menu)
        return;
    addPreferences(menu->findOrCreateSubMenu(VxTimePane::tr("Preferences"), true));
    addCommands(menu);
    addKeyAndRowMenus(menu);
}
