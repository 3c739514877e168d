#include "markers/markerfiles.h"

#include "io/csv/vxmarkercsv.h"
#include "widgets/studiotext.h"

#include <QFile>
#include <QSet>
#include <vxcore/vxsafefile.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr qint64 MaxMarkerBytes = 64 << 20;

/** All that is visible of a marker. */
QString contentOf(const VxMarker &marker)
{
    return QStringLiteral("%1 %2 %3 ")
               .arg(marker.span.getStart())
               .arg(marker.span.getEnd())
               .arg(marker.color) +
           marker.name;
}

bool readBytes(const QString &fileName, QByteArray *bytes, VxFileError *error)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return vxFail(error, StudioText::tr("The file cannot be read: %1.").arg(file.errorString()),
                      fileName);
    *bytes = file.read(MaxMarkerBytes + 1);
    if (file.error() != QFileDevice::NoError)
        return vxFail(error, StudioText::tr("The file cannot be read: %1.").arg(file.errorString()),
                      fileName);
    return bytes->size() <= MaxMarkerBytes ||
           vxFail(error, StudioText::tr("The file is too large for a list of markers."), fileName);
}

} // namespace

QString MarkerFiles::importFile(VxScene *scene, const QString &fileName, VxFileError *error)
{
    QByteArray bytes;
    VxMarkerList read;
    if (!readBytes(fileName, &bytes, error))
        return {};
    if (!vxReadMarkerCsv(bytes, VxSceneTimeDisplay::displayOf(scene), scene->getTimeStep(), &read,
                         error)) {
        error->file = fileName;
        return {};
    }
    VxMarkers *markers = VxMarkers::of(scene);
    QSet<QString> present;
    for (const VxMarker &marker : markers->list())
        present.insert(contentOf(marker));
    VxMarkerList added;
    for (const VxMarker &marker : qAsConst(read)) {
        if (!present.contains(contentOf(marker)))
            added.append(marker);
    }
    VxUndoStackHold hold;
    markers->add(added);
    hold.accept(StudioText::tr("Import Markers"));
    const QString count = StudioText::tr("Markers imported: %1").arg(added.size());
    return added.size() == read.size()
               ? count
               : StudioText::tr("%1; already there: %2").arg(count).arg(read.size() - added.size());
}

bool MarkerFiles::exportFile(const VxScene *scene, const QString &fileName, VxFileError *error)
{
    VxSafeFile file(fileName);
    if (file.start())
        file.write(vxWriteMarkerCsv(VxMarkers::listOf(scene)));
    if (file.failure().isEmpty() && file.commit())
        return true;
    return vxFail(error, StudioText::tr("The file cannot be written: %1.").arg(file.failure()),
                  fileName);
}
