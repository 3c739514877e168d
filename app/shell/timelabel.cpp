#include "shell/timelabel.h"

#include <QMenu>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>

TimeLabel::TimeLabel(VxScene *scene, QMenu *menu, QWidget *parent)
    : QToolButton(parent)
    , m_scene(scene)
{
    setObjectName(QStringLiteral("TimeLabel"));
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    setToolTip(tr("Current time; click to choose the unit"));
    setStatusTip(toolTip());
    setMenu(menu);
    setPopupMode(QToolButton::InstantPopup);
    VxSceneTimeDisplay *display = VxSceneTimeDisplay::of(scene);
    connect(scene, &VxScene::timeChanged, this, &TimeLabel::showTime);
    connect(scene, &VxScene::timeStepChanged, this, &TimeLabel::showTime);
    connect(display, &VxSceneTimeDisplay::changed, this, [this] {
        setMinimumWidth(0);
        showTime();
    });
    showTime();
}

/** Without the menu's arrow. */
void TimeLabel::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.features &= ~QStyleOptionToolButton::HasMenu;
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
}

void TimeLabel::changeEvent(QEvent *event)
{
    QToolButton::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        setMinimumWidth(0);
        setMinimumWidth(sizeHint().width());
    }
}

/** Only grows while the unit stays, so that the status bar does not move during playback. */
void TimeLabel::showTime()
{
    const QString text = VxSceneTimeDisplay::labelOf(m_scene, m_scene->getTime());
    if (text == this->text())
        return;
    setText(text);
    setAccessibleName(tr("Current time: %1").arg(text));
    setMinimumWidth(qMax(minimumWidth(), sizeHint().width()));
}
