#ifndef PLUGINSPAGE_H
#define PLUGINSPAGE_H

#include "preferences/pluginmodule.h"
#include "preferences/preferencespage.h"

class QLabel;
class QTreeWidget;

/// The modules of the plug-in folders, with a check mark for those that the next start loads.
class PluginsPage : public PreferencesPage
{
    Q_OBJECT
public:
    /// settings: borrowed; must outlive the page.
    PluginsPage(const QVector<PluginModule> &modules, VxSettings *settings,
                QWidget *parent = nullptr);

    QString title() const override { return tr("Plug-ins"); }
    bool isChanged() const override;
    void apply() override;

private:
    void fill();
    bool isEnabled(int module) const;
    void showDetails();

    const QVector<PluginModule> m_modules;
    VxSettings *const m_settings;
    QTreeWidget *m_list;
    QLabel *m_details;
};

#endif
