#include "markers/markeredits.h"

#include "widgets/studiotext.h"

#include <QSet>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostackhold.h>

namespace {

/** Applies a change to each of several markers, as one entry. */
template <class Change>
void changeMarkers(VxScene *scene, const QVector<int> &ids, const QString &text, Change change)
{
    VxMarkers *markers = VxMarkers::of(scene);
    VxMarkerList changed;
    const QSet<int> wanted(ids.cbegin(), ids.cend());
    for (const VxMarker &marker : markers->list()) {
        if (!wanted.contains(marker.id))
            continue;
        changed.append(marker);
        change(&changed.last());
    }
    VxUndoStackHold hold;
    markers->set(changed);
    hold.accept(text);
}

QString unusedName(const VxMarkerList &markers)
{
    QSet<QString> names;
    for (const VxMarker &marker : markers)
        names.insert(marker.name);
    for (int number = 1;; ++number) {
        // A name in the document: the same in every language.
        const QString name = QStringLiteral("Marker %1").arg(number);
        if (!names.contains(name))
            return name;
    }
}

} // namespace

QVector<MarkerEdits::NamedColor> MarkerEdits::namedColors()
{
    return {{StudioText::tr("Orange"), VxMarker::DefaultColor},
            {StudioText::tr("Red"), 0xffd9534f},
            {StudioText::tr("Yellow"), 0xffd8cc3c},
            {StudioText::tr("Green"), 0xff5fb35f},
            {StudioText::tr("Cyan"), 0xff3fb5b5},
            {StudioText::tr("Blue"), 0xff4d8fe0},
            {StudioText::tr("Violet"), 0xffa070d8},
            {StudioText::tr("Grey"), 0xff909090}};
}

int MarkerEdits::add(VxScene *scene, VxTime time)
{
    VxMarkers *markers = VxMarkers::of(scene);
    VxMarker marker;
    marker.name = unusedName(markers->list());
    marker.span = VxTimeRange(time, time);
    VxUndoStackHold hold;
    const int id = markers->add(marker);
    hold.accept(StudioText::tr("Add Marker"));
    return id;
}

void MarkerEdits::remove(VxScene *scene, const QVector<int> &ids)
{
    VxUndoStackHold hold;
    VxMarkers::of(scene)->remove(ids);
    hold.accept(ids.size() == 1 ? StudioText::tr("Delete Marker")
                                : StudioText::tr("Delete Markers"));
}

void MarkerEdits::rename(VxScene *scene, int id, const QString &name)
{
    changeMarkers(scene, {id}, StudioText::tr("Rename Marker"),
                  [&name](VxMarker *marker) { marker->name = name; });
}

void MarkerEdits::setColor(VxScene *scene, const QVector<int> &ids, QRgb color)
{
    changeMarkers(scene, ids, StudioText::tr("Set Marker Colour"),
                  [color](VxMarker *marker) { marker->color = color; });
}

void MarkerEdits::setSpan(VxScene *scene, int id, const VxTimeRange &span)
{
    changeMarkers(scene, {id}, StudioText::tr("Move Marker"),
                  [&span](VxMarker *marker) { marker->span = span; });
}

void MarkerEdits::toggleSpan(VxScene *scene, int id)
{
    const std::optional<VxMarker> marker = VxMarkers::of(scene)->find(id);
    if (!marker)
        return;
    const VxTime start = marker->span.getStart();
    VxTime end = start;
    if (marker->isPoint() && scene->getTime() > start)
        end = scene->getTime();
    else if (marker->isPoint())
        end = VxTime(qMin<qint64>(qint64(start) + VxTicksPerSecond, VxTimeMax));
    changeMarkers(scene, {id},
                  marker->isPoint() ? StudioText::tr("Make Marker a Span")
                                    : StudioText::tr("Make Marker a Point"),
                  [start, end](VxMarker *each) { each->span = VxTimeRange(start, end); });
}

QString MarkerEdits::step(VxScene *scene, bool forward)
{
    const VxMarkers *markers = VxMarkers::of(scene);
    const std::optional<VxTime> time =
        forward ? markers->timeAfter(scene->getTime()) : markers->timeBefore(scene->getTime());
    if (time) {
        scene->setTime(*time);
        return QString();
    }
    return forward ? StudioText::tr("There is no marker after the playhead.")
                   : StudioText::tr("There is no marker before the playhead.");
}
