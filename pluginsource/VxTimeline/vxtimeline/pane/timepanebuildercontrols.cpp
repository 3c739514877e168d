// The strip of controls, and what its groups have in common.

#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxbarbutton.h>
#include <vxcore/vxbuttonbar.h>
#include <vxcore/vxstyledbutton.h>

#include "vxtimeline/pane/fieldtextfit.h"
#include "vxtimeline/pane/timepanebuilder.h"
#include "vxtimeline/pane/timepanefield.h"
#include "vxtimeline/widgets/vxfiltermenu.h"

namespace {

constexpr int MostFrames = 1000000;
constexpr int MostFramesPerSecond = 1200;
constexpr int TcbFieldWidth = 50; // pixels
constexpr double TcbLimit = 100.0;

} // namespace

QWidget *TimePaneBuilder::makeGroup(const QString &name, QWidget *parent) const
{
    auto *group = new QWidget(parent);
    group->setObjectName(name);
    auto *layout = new QHBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(m_margin);
    return group;
}

QHBoxLayout *TimePaneBuilder::groupLayout(const QWidget *group) const
{
    return qobject_cast<QHBoxLayout *>(group->layout());
}

QLabel *TimePaneBuilder::makeLabel(const QString &name, const QString &text, QWidget *parent) const
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

void TimePaneBuilder::addLabelled(QHBoxLayout *layout, const QString &name, const QString &text,
                                  QWidget *control) const
{
    QLabel *label = makeLabel(name, text, control->parentWidget());
    label->setBuddy(control);
    layout->addWidget(label);
    layout->addWidget(control);
}

VxBarButton *TimePaneBuilder::addBarButton(VxButtonBar *bar, int index, const QString &name,
                                           const QString &toolTip) const
{
    auto *button = new VxBarButton(bar);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    bar->addWidget(button, index);
    return button;
}

VxStyledButton *TimePaneBuilder::makeMenuButton(const QString &name, QWidget *parent) const
{
    auto *button = new VxStyledButton(parent);
    button->setObjectName(name);
    button->setElideMode(Qt::ElideRight);
    button->setDisplayDownArrow(true);
    return button;
}

QDoubleSpinBox *TimePaneBuilder::makeTcbField(const QString &name, QWidget *parent) const
{
    auto *field = new QDoubleSpinBox(parent);
    field->setObjectName(name);
    field->setButtonSymbols(QAbstractSpinBox::NoButtons);
    field->setAlignment(Qt::AlignCenter);
    field->setFixedWidth(TcbFieldWidth);
    field->setSingleStep(0.1);
    field->setRange(-TcbLimit, TcbLimit);
    field->setEnabled(false);
    new FieldTextFit(field);
    return field;
}

void TimePaneBuilder::buildMainControls()
{
    d->mainControls = makeGroup(QStringLiteral("TimelineMainControlsWgt"), m_pane);
    QHBoxLayout *layout = groupLayout(d->mainControls);
    layout->setContentsMargins(m_margin, m_margin, m_margin, 0);
    layout->addWidget(buildTimeControls(d->mainControls), 2);
    layout->addStretch(1);
    layout->addWidget(buildPropertyTypes(d->mainControls), 2);
    layout->addStretch(1);
    layout->addWidget(buildTransport(d->mainControls), 0, Qt::AlignBottom);
    layout->addStretch(1);
    layout->addWidget(buildKeyControls(d->mainControls), 2);
    layout->addStretch(1);
    layout->addWidget(buildInterpControls(d->mainControls), 2);
    orderTabs();
}

// From left to right; by itself the order would be that in which the controls are made.
void TimePaneBuilder::orderTabs() const
{
    QWidget *const controls[] = {d->totalFrames,       d->playStart,
                                 d->playEnd,           d->currentFrame,
                                 d->framesPerSecond,   d->propertyTypesButton,
                                 d->loopButton,        d->skipToStartButton,
                                 d->previousKeyButton, d->previousFrameButton,
                                 d->playPauseButton,   d->nextFrameButton,
                                 d->nextKeyButton,     d->skipToEndButton,
                                 d->keyGraphButton,    d->deleteKeysButton,
                                 d->createKeysButton,  d->keyScopeButton,
                                 d->copyButton,        d->pasteButton,
                                 d->interpTypeButton,  d->tension,
                                 d->continuity,        d->bias};
    for (std::size_t i = 1; i < std::size(controls); ++i)
        QWidget::setTabOrder(controls[i - 1], controls[i]);
}

QWidget *TimePaneBuilder::buildTimeControls(QWidget *parent)
{
    QWidget *group = d->timeControls = makeGroup(QStringLiteral("TimelineTimeControlsWgt"), parent);
    d->totalFrames =
        new TimePaneField(QStringLiteral("TimelineTotalFramesLEdit"), 1, MostFrames, group);
    d->currentFrame =
        new TimePaneField(QStringLiteral("TimelineCurrentFrameLEdit"), 0, MostFrames, group);
    d->framesPerSecond =
        new TimePaneField(QStringLiteral("TimelineFPSLEdit"), 1, MostFramesPerSecond, group);
    d->framesPerSecond->setLenient(true);
    d->currentFrame->setPatient(true);
    d->totalFrames->setMaximumSize(d->totalFrames->maximumWidth(), m_controlHeight);

    QHBoxLayout *layout = groupLayout(group);
    addLabelled(layout, QStringLiteral("TimelineTotalLbl"), VxTimePane::tr("Total:"),
                d->totalFrames);
    layout->addWidget(buildRangeControls(group));
    addLabelled(layout, QStringLiteral("TimelineCurrentLbl"), VxTimePane::tr("Current:"),
                d->currentFrame);
    addLabelled(layout, QStringLiteral("TimelineFPSLbl"), VxTimePane::tr("FPS:"),
                d->framesPerSecond);
    layout->addStretch(1);
    return group;
}

QWidget *TimePaneBuilder::buildRangeControls(QWidget *parent)
{
    QWidget *group = d->rangeControls =
        makeGroup(QStringLiteral("TimelineTimeRangeControlsWgt"), parent);
    d->playStart =
        new TimePaneField(QStringLiteral("TimelinePlayStartLEdit"), 0, MostFrames, group);
    d->playEnd = new TimePaneField(QStringLiteral("TimelinePlayEndLEdit"), 0, MostFrames, group);
    d->playEnd->setPatient(true);
    d->playStart->setAccessibleName(VxTimePane::tr("Play Range Start"));
    d->playEnd->setAccessibleName(VxTimePane::tr("Play Range End"));
    d->playStart->setMaximumSize(d->playStart->maximumWidth(), m_controlHeight);
    d->playEnd->setMaximumSize(d->playEnd->maximumWidth(), m_controlHeight);

    QHBoxLayout *layout = groupLayout(group);
    addLabelled(layout, QStringLiteral("TimelineRangeLbl"), VxTimePane::tr("Range:"), d->playStart);
    layout->addWidget(d->playEnd);
    return group;
}

QWidget *TimePaneBuilder::buildPropertyTypes(QWidget *parent)
{
    QWidget *group = d->propertyTypes =
        makeGroup(QStringLiteral("TimelinePropertyTypesWgt"), parent);
    d->propertyTypesButton = makeMenuButton(QStringLiteral("TimelinePropertyTypesBtn"), group);
    QHBoxLayout *layout = groupLayout(group);
    layout->addStretch(1);
    addLabelled(layout, QStringLiteral("TimelinePropertyTypesLbl"), VxTimePane::tr("Types :"),
                d->propertyTypesButton);
    layout->addStretch(1);
    return group;
}

QWidget *TimePaneBuilder::buildTransport(QWidget *parent)
{
    VxButtonBar *bar = d->transportBar = new VxButtonBar(parent);
    bar->setObjectName(QStringLiteral("TimelineButtonBar"));
    for (const int index : {1, 3, 6, 8, 11})
        bar->addSeparator(VxButtonBar::SmallSeparator, index);
    d->loopButton = addBarButton(bar, 0, QStringLiteral("TimelineLoopBtn"), VxTimePane::tr("Loop"));
    d->skipToStartButton = addBarButton(bar, 2, QStringLiteral("TimelineSkipToStartBtn"),
                                        VxTimePane::tr("Skip to Play Range Start"));
    d->previousKeyButton = addBarButton(bar, 4, QStringLiteral("TimelinePrevKeyBtn"),
                                        VxTimePane::tr("Skip to Previous Key"));
    d->previousFrameButton = addBarButton(bar, 5, QStringLiteral("TimelinePrevFrameBtn"),
                                          VxTimePane::tr("Step to Previous Frame"));
    d->playPauseButton = addBarButton(bar, 7, QStringLiteral("TimelinePlayPauseBtn"),
                                      VxTimePane::tr("Play / Pause"));
    d->nextFrameButton = addBarButton(bar, 9, QStringLiteral("TimelineNextFrameBtn"),
                                      VxTimePane::tr("Step to Next Frame"));
    d->nextKeyButton = addBarButton(bar, 10, QStringLiteral("TimelineNextKeyBtn"),
                                    VxTimePane::tr("Skip to Next Key"));
    d->skipToEndButton = addBarButton(bar, 12, QStringLiteral("TimelineSkipToEndBtn"),
                                      VxTimePane::tr("Skip to Play Range End"));
    return bar;
}

VxButtonBar *TimePaneBuilder::buildKeyGraphBar(QWidget *parent)
{
    VxButtonBar *bar = d->keyGraphBar = new VxButtonBar(parent);
    bar->setObjectName(QStringLiteral("TimelineKeyGraphButtonBar"));
    d->keyGraphButton = addBarButton(bar, 0, QStringLiteral("TimelineKeyGraphBtn"),
                                     VxTimePane::tr("Show Key Graph"));
    d->keyGraphButton->setCheckable(true);
    d->keyGraphButton->setChecked(true);
    return bar;
}

VxButtonBar *TimePaneBuilder::buildAddDeleteBar(QWidget *parent)
{
    VxButtonBar *bar = d->addDeleteBar = new VxButtonBar(parent);
    bar->setObjectName(QStringLiteral("TimelineAddDeleteKeysButtonBar"));
    d->deleteKeysButton = addBarButton(bar, 0, QStringLiteral("TimelineDeleteKeysBtn"),
                                       VxTimePane::tr("Delete Selected Keys"));
    bar->addSeparator(VxButtonBar::SmallSeparator, 1);
    d->createKeysButton = addBarButton(bar, 2, QStringLiteral("TimelineCreateKeysBtn"),
                                       VxTimePane::tr("Create Keys"));
    return bar;
}

VxButtonBar *TimePaneBuilder::buildCopyPasteBar(QWidget *parent)
{
    VxButtonBar *bar = d->copyPasteBar = new VxButtonBar(parent);
    bar->setObjectName(QStringLiteral("TimelineCopyPasteKeysButtonBar"));
    d->copyButton = addBarButton(bar, 0, QStringLiteral("TimelineCopySelectedKeysBtn"),
                                 VxTimePane::tr("Copy Selected Keys"));
    bar->addSeparator(VxButtonBar::SmallSeparator, 1);
    d->pasteButton = addBarButton(bar, 2, QStringLiteral("TimelinePasteCopiedKeysBtn"),
                                  VxTimePane::tr("Paste Keys"));
    return bar;
}

QWidget *TimePaneBuilder::buildKeyControls(QWidget *parent)
{
    QWidget *group = d->keyControls = makeGroup(QStringLiteral("TimelineKeyControlsWgt"), parent);
    d->keyScopeButton = makeMenuButton(QStringLiteral("TimelineKeyScopeBtn"), group);
    QHBoxLayout *layout = groupLayout(group);
    layout->addStretch(1);
    layout->addWidget(
        makeLabel(QStringLiteral("TimelineKeysLbl"), VxTimePane::tr("Keys :"), group));
    layout->addWidget(buildKeyGraphBar(group), 0, Qt::AlignBottom);
    layout->addWidget(buildAddDeleteBar(group), 0, Qt::AlignBottom);
    layout->addWidget(d->keyScopeButton);
    layout->addStretch(1);
    layout->addWidget(buildCopyPasteBar(group), 0, Qt::AlignBottom);
    layout->addStretch(1);
    return group;
}

QWidget *TimePaneBuilder::buildInterpControls(QWidget *parent)
{
    QWidget *group = d->interpControls =
        makeGroup(QStringLiteral("TimelineInterpControlsWgt"), parent);
    d->interpTypeButton = new VxStyledButton(group);
    d->interpTypeButton->setObjectName(QStringLiteral("TimelineInterpTypeBtn"));
    d->interpTypeButton->setToolTip(VxTimePane::tr("Set Key Interpolation"));
    d->interpTypeButton->setAccessibleName(VxTimePane::tr("Set Key Interpolation"));
    d->tension = makeTcbField(QStringLiteral("TimelineInterpTensionSBox"), group);
    d->continuity = makeTcbField(QStringLiteral("TimelineInterpContinuitySBox"), group);
    d->bias = makeTcbField(QStringLiteral("TimelineInterpBiasSBox"), group);

    QHBoxLayout *layout = groupLayout(group);
    layout->addStretch(1);
    layout->addWidget(d->interpTypeButton);
    layout->addSpacing(2 * m_margin);
    addLabelled(layout, QStringLiteral("TimelineInterpTensionLbl"), VxTimePane::tr("T:"),
                d->tension);
    addLabelled(layout, QStringLiteral("TimelineInterpContinuityLbl"), VxTimePane::tr("C:"),
                d->continuity);
    addLabelled(layout, QStringLiteral("TimelineInterpBiasLbl"), VxTimePane::tr("B:"), d->bias);
    layout->addStretch(1);
    return group;
}

void TimePaneBuilder::buildMenus()
{
    buildPropertyTypesMenu();
    buildKeyScopeMenu();
    buildInterpMenu();
}

// The action menu owns the filter menu and fills it anew each time it is opened.
void TimePaneBuilder::buildPropertyTypesMenu()
{
    auto *menu = new VxActionMenu(QString(), d->propertyTypesButton);
    d->filterMenu = new VxFilterMenu;
    menu->setMenu(d->filterMenu);
    for (const char *action :
         {"VxTimePaneSetPropertyTypeTranslationAction", "VxTimePaneSetPropertyTypeRotationAction",
          "VxTimePaneSetPropertyTypeScaleAction", "VxTimePaneSetPropertyTypeOtherAction",
          "VxTimePaneSetPropertyTypeAliasAction", "VxTimePaneSetPropertyTypeHiddenAction"})
        menu->insertAction(QLatin1String(action));
    d->propertyTypesButton->setMenu(menu->getMenu());
}

void TimePaneBuilder::buildKeyScopeMenu()
{
    auto *menu = new VxActionMenu(QString(), d->keyScopeButton);
    menu->insertAction(QStringLiteral("VxTimePaneSetKeyScopeObjectAction"));
    menu->insertAction(QStringLiteral("VxTimePaneSetKeyScopeNodeRecurseAction"));
    menu->insertAction(QStringLiteral("VxTimePaneSetKeyScopeNodeAction"));
    menu->insertSeparator();
    menu->insertAction(QStringLiteral("VxTimePaneSetKeyScopePropertiesAction"));
    d->keyScopeButton->setMenu(menu->getMenu());
}

void TimePaneBuilder::buildInterpMenu()
{
    auto *menu = new VxActionMenu(QString(), d->interpTypeButton);
    menu->insertAction(QStringLiteral("VxTimePaneSetInterpTcbAction"));
    menu->insertAction(QStringLiteral("VxTimePaneSetInterpLinearAction"));
    menu->insertAction(QStringLiteral("VxTimePaneSetInterpConstantAction"));
    d->interpTypeButton->setMenu(menu->getMenu());
}
