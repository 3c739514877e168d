#include "posetools/autokeymark.h"

#include <QEvent>
#include <QPainter>
#include <vxcore/vxscene.h>

namespace {

constexpr int MarkSide = 12;

QIcon markIcon(const QColor &ink, bool isOn, double ratio)
{
    QPixmap pixmap(QSize(MarkSide, MarkSide) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 1.6));
    painter.setBrush(isOn ? QBrush(ink) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QRectF(2, 2, MarkSide - 4, MarkSide - 4));
    return QIcon(pixmap);
}

} // namespace

AutoKeyMark::AutoKeyMark(VxScene *scene, QWidget *parent)
    : QToolButton(parent)
    , m_scene(scene)
{
    setObjectName(QStringLiteral("AutoKeyMark"));
    setText(tr("Auto Key"));
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connect(this, &QToolButton::clicked, this,
            [this] { m_scene->setAnimating(!m_scene->isAnimating()); });
    connect(scene, &VxScene::animatingChanged, this, &AutoKeyMark::showState);
    showState();
}

QColor AutoKeyMark::color(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < 128 ? QColor(240, 72, 64)
                                                             : QColor(206, 28, 28);
}

void AutoKeyMark::showState()
{
    const bool isOn = m_scene->isAnimating();
    const QColor ink =
        isOn ? color(palette()) : palette().color(QPalette::Disabled, QPalette::WindowText);
    const int side = qMax(MarkSide, fontMetrics().height() * 2 / 3);
    setIconSize(QSize(side, side));
    setIcon(markIcon(ink, isOn, devicePixelRatioF() * side / MarkSide));
    const QString text = isOn ? tr("Auto Key is on: changed values become keys.")
                              : tr("Auto Key is off: no keys are made.");
    setToolTip(text);
    setStatusTip(text);
}

void AutoKeyMark::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        showState();
    QToolButton::changeEvent(event);
}
