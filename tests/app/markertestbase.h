#ifndef MARKERTESTBASE_H
#define MARKERTESTBASE_H

#include "markers/markerstrip.h"
#include "markers/markertimescale.h"
#include "studiotestbase.h"

#include <vxcore/vxmarkers.h>
#include <vxcore/vxtimeaxis.h>

/// The program with the sample and its strip of markers, aligned with the timeline.
class MarkerStripTest : public StudioTest
{
protected:
    static constexpr int Step = 160; // ticks per frame of the sample

    void startWithStrip()
    {
        setUpShared();
        window()->docks()->applyDefaultLayout();
        openSample();
        QCOMPARE(vxScene->getTimeStep(), Step);
        QCoreApplication::processEvents();
        QVERIFY(strip()->scale().isAligned());
    }

    MarkerStrip *strip() const { return window()->findChild<MarkerStrip *>(); }
    VxMarkers *markers() const { return VxMarkers::of(vxScene); }
    VxUndoStack *history() const { return vxApp->getUndoStack(); }
    int x(VxTime time) const { return strip()->scale().xOf(time); }
    QPoint at(VxTime time) const { return {x(time), strip()->height() / 2}; }
    int addMarker(const char *name, int startFrame, int endFrame) const
    {
        VxMarker marker;
        marker.name = QLatin1String(name);
        marker.span = VxTimeRange(startFrame * Step, endFrame * Step);
        return markers()->add(marker);
    }
    QImage picture() const
    {
        for (int i = 0; i < 4; ++i)
            QCoreApplication::processEvents();
        return window()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    QRect areaOf(const QWidget *widget) const
    {
        return {widget->mapTo(window(), QPoint()), widget->size()};
    }
    /// All views along the time axis.
    QWidget *views() const { return VxTimeAxis::of(timePane())->overlayParent(); }
};

#endif
