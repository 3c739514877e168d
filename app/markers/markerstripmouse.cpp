#include "markers/markeredits.h"
#include "markers/markerstrip.h"
#include "markers/markertimescale.h"

#include <QApplication>
#include <QColorDialog>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <vxcore/vxgestureguard.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr int SwatchSize = 12; // pixels

QIcon swatch(QRgb color)
{
    QPixmap picture(SwatchSize, SwatchSize);
    picture.fill(QColor(color));
    return QIcon(picture);
}

} // namespace

void MarkerStrip::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || m_drag)
        return;
    const std::optional<MarkerHit> hit = hitAt(event->pos());
    selectMarker(hit ? hit->id : 0);
    if (!hit)
        return;
    m_drag = std::make_unique<Drag>();
    m_drag->hit = *hit;
    m_drag->span = VxMarkers::of(m_scene)->find(hit->id)->span;
    m_drag->pressX = event->x();
    m_guard->begin();
}

MarkerSnap MarkerStrip::snapFor(int id, const QPoint &pos, Qt::KeyboardModifiers modifiers) const
{
    if (modifiers & Qt::ControlModifier)
        return {};
    MarkerSnap snap;
    snap.step = m_scene->getTimeStep();
    snap.targets = MarkerSnap::targetsOf(VxMarkers::listOf(m_scene), id, m_scene->getTime());
    snap.reach = qint64(m_scale->timeAt(pos.x() + SnapDistance)) - m_scale->timeAt(pos.x());
    return snap;
}

/** Each preview starts from the span at the press. */
void MarkerStrip::dragTo(const QPoint &pos, Qt::KeyboardModifiers modifiers)
{
    if (!m_drag->hold) {
        if (qAbs(pos.x() - m_drag->pressX) < QApplication::startDragDistance())
            return;
        m_drag->hold = std::make_unique<VxUndoStackHold>();
    }
    std::optional<VxMarker> marker = VxMarkers::of(m_scene)->find(m_drag->hit.id);
    if (!marker)
        return;
    const qint64 offset = qint64(m_scale->timeAt(pos.x())) - m_scale->timeAt(m_drag->pressX);
    marker->span =
        vxDraggedSpan(m_drag->span, m_drag->hit.part, offset, snapFor(marker->id, pos, modifiers));
    VxMarkers::of(m_scene)->set(*marker);
}

void MarkerStrip::mouseMoveEvent(QMouseEvent *event)
{
    if (m_drag) {
        dragTo(event->pos(), event->modifiers());
        return;
    }
    const std::optional<MarkerHit> hit = hitAt(event->pos());
    if (hit && hit->part != MarkerPart::Whole)
        setCursor(Qt::SizeHorCursor);
    else
        unsetCursor();
}

void MarkerStrip::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_drag)
        return;
    dragTo(event->pos(), event->modifiers());
    endDrag();
}

void MarkerStrip::endDrag()
{
    m_guard->end();
    const std::unique_ptr<Drag> drag = std::move(m_drag);
    if (drag && drag->hold)
        drag->hold->accept(drag->hit.part == MarkerPart::Whole ? tr("Move Marker")
                                                               : tr("Resize Marker"));
}

/** The marker alone is restored: the scene may be playing, and its time must not be. */
void MarkerStrip::cancelDrag()
{
    m_guard->end();
    const std::unique_ptr<Drag> drag = std::move(m_drag);
    if (!drag || !drag->hold)
        return;
    if (std::optional<VxMarker> marker = VxMarkers::of(m_scene)->find(drag->hit.id)) {
        marker->span = drag->span;
        VxMarkers::of(m_scene)->set(*marker);
    }
    drag->hold->cancel();
}

void MarkerStrip::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_guard->end();
    m_drag.reset();
    if (const std::optional<MarkerHit> hit = hitAt(event->pos())) {
        editName(hit->id);
    } else if (timeArea().contains(event->pos())) {
        const VxTime time = m_scale->timeAt(event->x());
        selectMarker(
            MarkerEdits::add(m_scene, snapFor(0, event->pos(), event->modifiers()).snapped(time)));
    }
}

void MarkerStrip::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Mouse) {
        const std::optional<MarkerHit> hit = hitAt(event->pos());
        selectMarker(hit ? hit->id : 0);
    }
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const VxTime time = event->reason() == QContextMenuEvent::Mouse
                            ? snapFor(0, event->pos(), {}).snapped(m_scale->timeAt(event->x()))
                            : m_scene->getTime();
    fillMenu(menu, m_selected, time);
    menu->popup(event->reason() == QContextMenuEvent::Mouse ? event->globalPos()
                                                            : mapToGlobal(rect().center()));
}

/** id: 0 for a menu without a marker. time: for a new marker. */
void MarkerStrip::fillMenu(QMenu *menu, int id, VxTime time)
{
    const std::optional<VxMarker> marker = VxMarkers::of(m_scene)->find(id);
    if (!marker) {
        menu->addAction(tr("&Add Marker Here"), this,
                        [this, time] { selectMarker(MarkerEdits::add(m_scene, time)); });
        return;
    }
    menu->addAction(tr("&Go to Marker"), this, [this, id] {
        if (const auto present = VxMarkers::of(m_scene)->find(id))
            m_scene->setTime(present->span.getStart());
    });
    menu->addSeparator();
    menu->addAction(tr("&Rename"), this, [this, id] { editName(id); });
    fillColorMenu(menu->addMenu(tr("&Colour")), id);
    menu->addAction(marker->isPoint() ? tr("Make &Span") : tr("Make &Point"), this,
                    [this, id] { MarkerEdits::toggleSpan(m_scene, id); });
    menu->addSeparator();
    menu->addAction(tr("&Delete"), this, [this, id] { MarkerEdits::remove(m_scene, {id}); });
}

void MarkerStrip::fillColorMenu(QMenu *menu, int id)
{
    for (const MarkerEdits::NamedColor &each : MarkerEdits::namedColors()) {
        menu->addAction(swatch(each.color), each.name, this, [this, id, color = each.color] {
            MarkerEdits::setColor(m_scene, {id}, color);
        });
    }
    menu->addSeparator();
    menu->addAction(tr("&Other..."), this, [this, id] { askForColor(id); });
}

void MarkerStrip::askForColor(int id)
{
    const std::optional<VxMarker> marker = VxMarkers::of(m_scene)->find(id);
    if (!marker)
        return;
    const QColor color = QColorDialog::getColor(QColor(marker->color), this, tr("Marker Colour"));
    if (color.isValid())
        MarkerEdits::setColor(m_scene, {id}, color.rgb());
}
