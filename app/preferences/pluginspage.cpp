#include "preferences/pluginspage.h"

#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <vxcore/vxtextstyle.h>

namespace {

enum PluginColumn { PluginNameColumn, PluginVersionColumn, PluginStateColumn, PluginColumnCount };

QString stateText(PluginModule::State state)
{
    switch (state) {
    case PluginModule::State::Failed:
        return PluginsPage::tr("Failed");
    case PluginModule::State::Skipped:
        return PluginsPage::tr("Skipped");
    case PluginModule::State::Disabled:
        return PluginsPage::tr("Disabled");
    case PluginModule::State::Loaded:
        break;
    }
    return PluginsPage::tr("Loaded");
}

QString reasonText(const PluginModule &module)
{
    if (module.state == PluginModule::State::Skipped)
        return PluginsPage::tr("The program ended while it was loading this plug-in. Check it to "
                               "load it again.");
    return module.message;
}

} // namespace

PluginsPage::PluginsPage(const QVector<PluginModule> &modules, VxSettings *settings,
                         QWidget *parent)
    : PreferencesPage(parent)
    , m_modules(modules)
    , m_settings(settings)
    , m_list(new QTreeWidget)
    , m_details(new QLabel)
{
    setObjectName(QStringLiteral("PluginsPage"));
    m_list->setObjectName(QStringLiteral("PluginList"));
    m_list->setAccessibleName(tr("Plug-ins"));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setHeaderLabels({tr("Plug-in"), tr("Version"), tr("State")});
    m_details->setObjectName(QStringLiteral("PluginDetails"));
    m_details->setTextFormat(Qt::PlainText);
    m_details->setWordWrap(true);
    m_details->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_details->setMinimumHeight(3 * fontMetrics().lineSpacing());
    m_details->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto *note = new QLabel(tr("Only checked plug-ins are loaded at the next start."));
    note->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_details);
    layout->addWidget(note);
    fill();
    connect(m_list, &QTreeWidget::itemChanged, this, &PluginsPage::edited);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &PluginsPage::showDetails);
    setFocusProxy(m_list);
    if (m_list->topLevelItemCount() > 0)
        m_list->setCurrentItem(m_list->topLevelItem(0));
}

/// Checked is what the settings enable, which may differ from the state of this run.
void PluginsPage::fill()
{
    const QStringList off = PluginLists::skipped(*m_settings) + PluginLists::disabled(*m_settings);
    for (const PluginModule &module : m_modules) {
        auto *row =
            new QTreeWidgetItem(m_list, {module.name, module.version, stateText(module.state)});
        row->setCheckState(PluginNameColumn,
                           off.contains(module.file) ? Qt::Unchecked : Qt::Checked);
        row->setToolTip(PluginNameColumn, vxToolTipText(module.file));
    }
    m_list->header()->setStretchLastSection(true);
    for (int column = 0; column < PluginColumnCount; ++column)
        m_list->resizeColumnToContents(column);
}

bool PluginsPage::isEnabled(int module) const
{
    return m_list->topLevelItem(module)->checkState(PluginNameColumn) == Qt::Checked;
}

bool PluginsPage::isChanged() const
{
    const QStringList off = PluginLists::skipped(*m_settings) + PluginLists::disabled(*m_settings);
    for (int i = 0; i < m_modules.size(); ++i) {
        if (isEnabled(i) == off.contains(m_modules.at(i).file))
            return true;
    }
    return false;
}

void PluginsPage::apply()
{
    // Modules that were not found this time keep their entries.
    QStringList skipped = PluginLists::skipped(*m_settings);
    QStringList disabled = PluginLists::disabled(*m_settings);
    for (int i = 0; i < m_modules.size(); ++i) {
        const QString &file = m_modules.at(i).file;
        if (isEnabled(i)) {
            skipped.removeAll(file);
            disabled.removeAll(file);
        } else if (!skipped.contains(file) && !disabled.contains(file)) {
            disabled.append(file);
        }
    }
    PluginLists::setSkipped(m_settings, skipped);
    PluginLists::setDisabled(m_settings, disabled);
}

void PluginsPage::showDetails()
{
    const int row = m_list->indexOfTopLevelItem(m_list->currentItem());
    if (row < 0 || row >= m_modules.size())
        return;
    const PluginModule &module = m_modules.at(row);
    const QString reason = reasonText(module);
    m_details->setText(reason.isEmpty() ? module.file : module.file + QLatin1Char('\n') + reason);
}
