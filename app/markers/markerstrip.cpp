#include "markers/markerstrip.h"

#include "markers/markeredits.h"
#include "markers/markertext.h"
#include "markers/markertimescale.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOption>
#include <QToolTip>
#include <vxcore/vxaccessible.h>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxgestureguard.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxtextstyle.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr int StripHeight = 20; // pixels
constexpr int NameEditWidth = 160;
constexpr int SpanAlpha = 90;

} // namespace

MarkerStrip::MarkerStrip(VxScene *scene, VxPaneMgr *panes, QWidget *parent)
    : QWidget(parent)
    , m_scene(scene)
    , m_scale(new MarkerTimeScale(scene, panes, this))
    , m_guard(new VxGestureGuard(this))
    , m_nameEdit(new QLineEdit(this))
{
    setObjectName(QStringLiteral("MarkerStrip"));
    vxSetAccessibleRole(this, QAccessible::Canvas);
    setAccessibleName(tr("Markers"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_nameEdit->setObjectName(QStringLiteral("MarkerNameEdit"));
    m_nameEdit->setAccessibleName(tr("Name of the marker"));
    m_nameEdit->hide();
    m_nameEdit->installEventFilter(this);
    connect(m_nameEdit, &QLineEdit::editingFinished, this, [this] { endNameEdit(true); });
    connect(m_guard, &VxGestureGuard::cancelled, this, &MarkerStrip::cancelDrag);
    connect(m_scale, &MarkerTimeScale::changed, this, &MarkerStrip::dropShapes);
    connect(VxMarkers::of(scene), &VxMarkers::changed, this, &MarkerStrip::handleMarkersChanged);
    connect(scene, &VxScene::timeChanged, this, &MarkerStrip::followTime);
    connect(scene, &VxScene::sceneClearStarting, this, [this] {
        endNameEdit(false);
        cancelDrag();
    });
}

MarkerStrip::~MarkerStrip() = default;

QSize MarkerStrip::sizeHint() const
{
    return {200, qMax(StripHeight, fontMetrics().height() + 2)};
}

QRect MarkerStrip::timeArea() const
{
    return {QPoint(m_scale->left(), 0), QPoint(m_scale->right(), height() - 1)};
}

/** Changes within a block are reported at its end. */
const QVector<MarkerShape> &MarkerStrip::shapes() const
{
    if (!m_areShapesCurrent || VxChangeBlock::isActive())
        m_shapes = MarkerLayout::shapes(
            VxMarkers::listOf(m_scene), [this](VxTime time) { return m_scale->xOf(time); },
            timeArea(), fontMetrics());
    m_areShapesCurrent = !VxChangeBlock::isActive();
    return m_shapes;
}

void MarkerStrip::dropShapes()
{
    m_areShapesCurrent = false;
    update();
}

void MarkerStrip::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        dropShapes();
}

std::optional<MarkerHit> MarkerStrip::hitAt(const QPoint &pos) const
{
    const QRect reach = timeArea().adjusted(-MarkerLayout::GrabWidth, 0, 0, 0);
    return reach.contains(pos) ? MarkerLayout::hit(shapes(), pos.x()) : std::nullopt;
}

void MarkerStrip::handleMarkersChanged()
{
    const VxMarkers *markers = VxMarkers::of(m_scene);
    if (m_edited != 0 && markers->indexOf(m_edited) < 0)
        endNameEdit(false);
    if (m_selected != 0 && markers->indexOf(m_selected) < 0)
        m_selected = 0;
    selectMarker(m_selected); // its text
    dropShapes();
}

void MarkerStrip::selectMarker(int id)
{
    const std::optional<VxMarker> marker = VxMarkers::of(m_scene)->find(id);
    m_selected = marker ? id : 0;
    setAccessibleDescription(marker ? MarkerText::describe(*marker, m_scene)
                                    : tr("No marker is selected."));
    update();
}

/** The rectangle of the current time's mark at a column. */
QRect MarkerStrip::timeMark(int x) const
{
    const int width =
        style()->pixelMetric(QStyle::PixelMetric(VxStyle::PM_VxCurrentTimeMarkerWidth));
    return {x - width / 2, 0, width, height()};
}

/** Repaints the former and the present mark. */
void MarkerStrip::followTime()
{
    const int x = m_scale->xOf(m_scene->getTime());
    if (x == m_timeX)
        return;
    update(timeMark(m_timeX));
    update(timeMark(x));
}

bool MarkerStrip::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        QToolTip::showText(help->globalPos(), vxToolTipText(helpAt(help->pos())), this);
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride) {
        // Claims the keys before commands with the same shortcuts.
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool plain = !(key->modifiers() & ~Qt::KeypadModifier);
        static const int own[] = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Home,  Qt::Key_End,
                                  Qt::Key_F2,   Qt::Key_Return, Qt::Key_Enter, Qt::Key_Delete};
        if (plain && std::find(std::begin(own), std::end(own), key->key()) != std::end(own)) {
            event->accept();
            return true;
        }
    }
    return QWidget::event(event);
}

QString MarkerStrip::helpAt(const QPoint &pos) const
{
    if (const auto hit = hitAt(pos)) {
        if (const auto marker = VxMarkers::of(m_scene)->find(hit->id))
            return MarkerText::describe(*marker, m_scene);
    }
    return tr("Markers: double click to add one");
}

void MarkerStrip::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    const QRect area = timeArea();
    painter.fillRect(area, palette().color(QPalette::Base));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(area.bottomLeft(), area.bottomRight());
    painter.setClipRect(area);
    const QVector<MarkerShape> &all = shapes();
    for (int i = 0; i < all.size(); ++i) {
        const MarkerShape &shape = all.at(i);
        // A point below another one of the same column is covered by it, unless it has an outline.
        const bool isCovered = shape.isPoint && i + 1 < all.size() &&
                               all.at(i + 1).startX == shape.startX && shape.id != m_selected;
        const int right = qMax(shape.endX, shape.startX + MarkerLayout::FlagWidth);
        const QRect extent = QRect(QPoint(shape.startX, 0), QPoint(right, height())) | shape.label;
        if (!isCovered && extent.intersects(event->rect()))
            paintShape(&painter, shape);
    }
    paintTime(&painter);
}

void MarkerStrip::paintShape(QPainter *painter, const MarkerShape &shape) const
{
    const bool selected = shape.id == m_selected;
    const QColor outline = selected
                               ? palette().color(hasFocus() ? QPalette::Highlight : QPalette::Text)
                               : QColor(shape.color);
    painter->setPen(outline);
    if (shape.isPoint) {
        const QRect flag(shape.startX + 1, 2, MarkerLayout::FlagWidth - 1, height() / 2 - 2);
        painter->fillRect(flag, QColor(shape.color));
        if (selected)
            painter->drawRect(flag.adjusted(-1, -1, 0, 0));
    } else {
        const QRect bar(QPoint(shape.startX, 2), QPoint(shape.endX, height() - 3));
        QColor fill(shape.color);
        fill.setAlpha(SpanAlpha);
        painter->fillRect(bar, fill);
        painter->drawLine(bar.topLeft(), bar.topRight());
        painter->drawLine(bar.bottomLeft(), bar.bottomRight());
        painter->fillRect(shape.endX, 0, 1, height(), outline);
    }
    painter->fillRect(shape.startX, 0, 1, height(), outline);
    painter->setPen(palette().color(QPalette::Text));
    painter->drawText(shape.label, Qt::AlignLeft | Qt::AlignVCenter, shape.text);
}

/** The line of the current time, as in the other views along the axis. */
void MarkerStrip::paintTime(QPainter *painter)
{
    QStyleOption option;
    option.initFrom(this);
    m_timeX = m_scale->xOf(m_scene->getTime());
    option.rect = timeMark(m_timeX);
    style()->drawPrimitive(QStyle::PrimitiveElement(VxStyle::PE_VxCurrentTimeMarker), &option,
                           painter, this);
}

void MarkerStrip::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    update();
}

void MarkerStrip::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    update();
}

void MarkerStrip::stepSelection(int steps)
{
    const VxMarkers *markers = VxMarkers::of(m_scene);
    if (markers->count() == 0)
        return;
    int index = markers->indexOf(m_selected);
    if (index >= 0) {
        index += steps;
    } else {
        // From the playhead: the first one after it, or the last one before.
        const VxTime time = m_scene->getTime();
        for (index = 0; index < markers->count(); ++index) {
            if (markers->list().at(index).span.getStart() > time)
                break;
        }
        index -= steps < 0 ? 1 : 0;
    }
    selectMarker(markers->list().at(qBound(0, index, markers->count() - 1)).id);
}

void MarkerStrip::keyPressEvent(QKeyEvent *event)
{
    if (m_drag)
        return;
    const int all = VxMarkers::of(m_scene)->count();
    switch (event->key()) {
    case Qt::Key_Left:
        return stepSelection(-1);
    case Qt::Key_Right:
        return stepSelection(1);
    case Qt::Key_Home:
        return stepSelection(-all);
    case Qt::Key_End:
        return stepSelection(all);
    case Qt::Key_F2:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return editName(m_selected);
    case Qt::Key_Delete:
        if (m_selected != 0)
            MarkerEdits::remove(m_scene, {m_selected});
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void MarkerStrip::editName(int id)
{
    const std::optional<VxMarker> marker = VxMarkers::of(m_scene)->find(id);
    if (!marker)
        return;
    selectMarker(id);
    m_edited = id;
    const int width = qMin(NameEditWidth, this->width());
    const int x = qBound(0, m_scale->xOf(marker->span.getStart()), this->width() - width);
    m_nameEdit->setGeometry(x, 0, width, height());
    m_nameEdit->setText(marker->name);
    m_nameEdit->selectAll();
    m_nameEdit->show();
    m_nameEdit->setFocus();
}

void MarkerStrip::endNameEdit(bool accepts)
{
    const int id = std::exchange(m_edited, 0);
    if (id == 0)
        return;
    const QString name = m_nameEdit->text();
    const bool hadFocus = m_nameEdit->hasFocus();
    m_nameEdit->hide();
    if (hadFocus)
        setFocus();
    if (accepts)
        MarkerEdits::rename(m_scene, id, name);
}

/** Escape and Return end the input; the strip, which gets keys that the field ignores, has other
 *  uses for Return. */
bool MarkerStrip::eventFilter(QObject *watched, QEvent *event)
{
    const bool isPress = event->type() == QEvent::KeyPress;
    if (watched != m_nameEdit || (!isPress && event->type() != QEvent::ShortcutOverride))
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Escape && key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    event->accept();
    if (isPress)
        endNameEdit(key != Qt::Key_Escape);
    return true;
}
