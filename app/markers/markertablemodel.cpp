#include "markers/markertablemodel.h"

#include "markers/markeredits.h"

#include <QColor>
#include <QFont>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vxcore/vxlocalnumber.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>

namespace {

/** The name that menus use, else "#rrggbb". */
QString colorText(QRgb color)
{
    for (const MarkerEdits::NamedColor &each : MarkerEdits::namedColors()) {
        if (each.color == color)
            return each.name;
    }
    return QColor(color).name();
}

QColor colorOf(const QString &typed)
{
    for (const MarkerEdits::NamedColor &each : MarkerEdits::namedColors()) {
        if (each.name.compare(typed, Qt::CaseInsensitive) == 0)
            return QColor(each.color);
    }
    return QColor::isValidColor(typed) ? QColor(typed) : QColor();
}

} // namespace

MarkerTableModel::MarkerTableModel(VxScene *scene, QObject *parent)
    : QAbstractTableModel(parent)
    , m_scene(scene)
    , m_markers(VxMarkers::listOf(scene))
{
    connect(VxMarkers::of(scene), &VxMarkers::changed, this, &MarkerTableModel::refresh);
    const auto updateTimes = [this] {
        if (!m_markers.isEmpty())
            Q_EMIT dataChanged(index(0, Start), index(m_markers.size() - 1, End));
    };
    connect(VxSceneTimeDisplay::of(scene), &VxSceneTimeDisplay::changed, this, updateTimes);
    connect(scene, &VxScene::timeStepChanged, this, updateTimes);
}

/** A table of the same markers in the same order stays, with its selection. A reported row loses
 * what is typed in it: only changed ones are reported. */
void MarkerTableModel::refresh()
{
    const VxMarkerList present = VxMarkers::listOf(m_scene);
    const auto sameId = [](const VxMarker &a, const VxMarker &b) { return a.id == b.id; };
    if (std::equal(present.begin(), present.end(), m_markers.begin(), m_markers.end(), sameId)) {
        const VxMarkerList former = std::exchange(m_markers, present);
        for (int first = 0; first < present.size(); ++first) {
            int last = first;
            while (last < present.size() && present.at(last) != former.at(last))
                ++last;
            if (last > first)
                Q_EMIT dataChanged(index(first, 0), index(last - 1, ColumnCount - 1));
            first = last;
        }
        return;
    }
    beginResetModel();
    m_markers = present;
    endResetModel();
}

int MarkerTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_markers.size();
}

int MarkerTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString MarkerTableModel::text(const VxMarker &marker, int column) const
{
    switch (column) {
    case Name:
        return marker.name;
    case Start:
        return vxLocalNumber(VxSceneTimeDisplay::textOf(m_scene, marker.span.getStart()));
    case End:
        return marker.isPoint()
                   ? QString()
                   : vxLocalNumber(VxSceneTimeDisplay::textOf(m_scene, marker.span.getEnd()));
    default:
        return colorText(marker.color);
    }
}

QVariant MarkerTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const VxMarker &marker = m_markers.at(index.row());
    const bool isTime = index.column() == Start || index.column() == End;
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return text(marker, index.column());
    if (role == Qt::DecorationRole && index.column() == Colour)
        return QColor(marker.color);
    if (role == Qt::TextAlignmentRole && isTime)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == SortRole && isTime)
        return index.column() == Start ? marker.span.getStart() : marker.span.getEnd();
    if (role == SortRole)
        return text(marker, index.column());
    return {};
}

QVariant MarkerTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    const QString titles[] = {tr("Name"), tr("Start"), tr("End"), tr("Colour")};
    return section >= 0 && section < ColumnCount ? titles[section] : QVariant();
}

Qt::ItemFlags MarkerTableModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() ? flags | Qt::ItemIsEditable : flags;
}

/** An empty end makes a point; a start behind the end, or an end before the start, moves both. */
bool MarkerTableModel::setTime(const VxMarker &marker, bool isStart, const QString &typed)
{
    const VxTypedInput input = VxSceneTimeDisplay::read(m_scene, typed, VxTypedInput::OfOffsets);
    VxTimeRange span = marker.span;
    if (input.kind == VxTypedInput::Empty && !isStart) {
        span.setEnd(span.getStart());
    } else {
        const double time = std::round(input.appliedTo(isStart ? span.getStart() : span.getEnd()));
        if (input.kind == VxTypedInput::Empty || input.kind == VxTypedInput::Unreadable ||
            time < VxTimeMin || time > VxTimeMax)
            return false;
        const auto set = VxTime(time);
        const bool isPoint = marker.isPoint();
        if (isStart)
            span = {set, isPoint ? set : qMax(set, span.getEnd())};
        else
            span = {qMin(span.getStart(), set), set};
    }
    MarkerEdits::setSpan(m_scene, marker.id, span);
    return true;
}

bool MarkerTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole)
        return false;
    const VxMarker marker = m_markers.at(index.row());
    const QString typed = value.toString();
    if (typed == text(marker, index.column()))
        return true;
    if (index.column() == Name) {
        MarkerEdits::rename(m_scene, marker.id, typed);
        return true;
    }
    if (index.column() == Colour) {
        const QColor color = colorOf(typed.trimmed());
        if (color.isValid()) {
            MarkerEdits::setColor(m_scene, {marker.id}, color.rgb());
            return true;
        }
        Q_EMIT refused(tr("\"%1\" is not a colour such as #e0a030.").arg(typed));
        return false;
    }
    if (setTime(marker, index.column() == Start, typed))
        return true;
    Q_EMIT refused(tr("\"%1\" is not a time.").arg(typed));
    return false;
}
