#include "vxtimeline/pane/keycontrols.h"

#include "vxtimeline/keys/timelinemenus.h"
#include "vxtimeline/pane/timepanestrip.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxbarbutton.h>
#include <vxcore/vxbuttonbar.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyledbutton.h>

KeyControls::KeyControls(QWidget *parent, const TimePaneStrip &strip)
    : m_group(strip.makeGroup(QStringLiteral("TimelineKeyControlsWgt"), parent))
    , m_scope(strip.makeMenuButton(QStringLiteral("TimelineKeyScopeBtn"), m_group))
{
    QHBoxLayout *layout = TimePaneStrip::layoutOf(m_group);
    layout->addStretch(1);
    layout->addWidget(
        strip.makeLabel(QStringLiteral("TimelineKeysLbl"), VxTimePane::tr("Keys :"), m_group));
    m_graphBar = strip.makeBar(QStringLiteral("TimelineKeyGraphButtonBar"), m_group);
    m_graph = strip.addBarButton(m_graphBar, 0, QStringLiteral("TimelineKeyGraphBtn"),
                                 VxTimePane::tr("Show Key Graph"));
    m_graph->setCheckable(true);
    m_graph->setChecked(true);
    layout->addWidget(m_graphBar, 0, Qt::AlignBottom);

    VxButtonBar *bar = strip.makeBar(QStringLiteral("TimelineAddDeleteKeysButtonBar"), m_group);
    m_delete = strip.addBarButton(bar, 0, QStringLiteral("TimelineDeleteKeysBtn"),
                                  VxTimePane::tr("Delete Selected Keys"));
    bar->addSeparator(VxButtonBar::SmallSeparator, 1);
    m_create = strip.addBarButton(bar, 2, QStringLiteral("TimelineCreateKeysBtn"),
                                  VxTimePane::tr("Create Keys"));
    layout->addWidget(bar, 0, Qt::AlignBottom);
    layout->addWidget(m_scope);
    layout->addStretch(1);

    m_copyPasteBar = strip.makeBar(QStringLiteral("TimelineCopyPasteKeysButtonBar"), m_group);
    m_copy = strip.addBarButton(m_copyPasteBar, 0, QStringLiteral("TimelineCopySelectedKeysBtn"),
                                VxTimePane::tr("Copy Selected Keys"));
    m_copyPasteBar->addSeparator(VxButtonBar::SmallSeparator, 1);
    m_paste = strip.addBarButton(m_copyPasteBar, 2, QStringLiteral("TimelinePasteCopiedKeysBtn"),
                                 VxTimePane::tr("Paste Keys"));
    layout->addWidget(m_copyPasteBar, 0, Qt::AlignBottom);
    layout->addStretch(1);
    auto *menu = new VxActionMenu(QString(), m_scope);
    TimelineMenus::add(menu, TimelineMenus::keyScopes);
    m_scope->setMenu(menu->getMenu());
}

QVector<VxBarButton *> KeyControls::barButtons() const
{
    return {m_graph, m_delete, m_create, m_copy, m_paste};
}

void KeyControls::setAdvancedBarsVisible(bool visible)
{
    m_graphBar->setVisible(visible);
    m_copyPasteBar->setVisible(visible);
}

void KeyControls::setUsable(bool hasSelectedKeys, bool hasCopiedKeys)
{
    m_delete->setEnabled(hasSelectedKeys);
    m_copy->setEnabled(hasSelectedKeys);
    m_paste->setEnabled(hasCopiedKeys);
}

void KeyControls::updateIcons()
{
    const VxStyle *style = vxApp->getStyle();
    m_delete->setIcon(style->icon(VxStyle::SP_VxDeleteKeys));
    m_create->setIcon(style->icon(VxStyle::SP_VxCreateKeys));
    m_copy->setIcon(style->icon(VxStyle::SP_VxCopyKeys));
    m_paste->setIcon(style->icon(VxStyle::SP_VxPasteKeys));
    m_graph->setIcon(style->icon(VxStyle::SP_VxKeyGraph));
}
