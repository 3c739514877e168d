#ifndef VXKEYGRAPHVIEW_P_H
#define VXKEYGRAPHVIEW_P_H

#include "vxtimeline/keygraph/keygraphcurve.h"
#include "vxtimeline/keygraph/paint/keygraphpainter.h"
#include "vxtimeline/keygraph/paint/keygraphscale.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"

#include <QtCore/QPointer>
#include <QtCore/QStringList>
#include <QtGui/QImage>
#include <optional>
#include <vxcore/vxtimerange.h>
#include <vxcore/vxundostackhold.h>

class VxKeyGraph;
class VxKeyGraphChannel;
class VxKeyMessage;
class VxGestureGuard;
class VxMouseButton;

/// The private record of the view. Its functions are in three sources: slots and scales, painting,
/// and the mouse.
class VxKeyGraphView::Private
{
public:
    /// The gesture from a press to its release.
    enum MouseState { Idle, DragKeys, RubberBand, DragTime, ViewOperation };

    /// A key under the mouse. The channel is null without one, and once the channels have changed.
    struct Hit
    {
        VxKeyGraphChannel *channel = nullptr;
        int index = -1;
        VxTime time = 0;
        double value = 0.0; // display units
    };

    explicit Private(VxKeyGraphView *view);

    /// Slots and scales.
    QVector<VxKeyGraphChannel *> channels() const;
    void followScene();
    void followGraph();
    void channelsChanged();
    /// Repaints everything; update() alone reuses the image of the channels.
    void repaint();
    /// Fits the animation range between the areas at both sides.
    void fitTimes();
    void fitTimesBetween(int leftWidth, int rightWidth);
    /// Adopts the time scale of the dope sheet when following it.
    void updateTimes();
    void updateChannels();
    /// Frames the values of all keys, of channels without keys the present values.
    void frameChannels();
    void resize(const QSize &size);
    void wheelValues(int delta, bool pan, bool fine);
    void wheelTimes(int delta, bool pan, bool fine, int x);
    void buildButtons();
    void styleButtons();
    void placeButtons();

    /// Painting.
    KeyGraphStage stage() const;
    void paint(QPainter *painter);
    void paintTimeLine(QPainter *painter);
    void paintRubberBand(QPainter *painter);
    void updateLayer();
    QStringList labels() const;

    /// The mouse.
    Hit keyAt(const QPoint &position) const;
    void beginGesture(QMouseEvent *event);
    void endGesture();
    /// Drops a gesture whose release was lost and reverts its changes.
    void dropGesture();
    void putKeysBack();
    void pressOnSpace(Qt::KeyboardModifiers modifiers);
    void pressOnKey(Qt::KeyboardModifiers modifiers);
    void send(const VxKeyMessage &message);
    void hover();
    void dragKeys(Qt::KeyboardModifiers modifiers);
    void dragRubberBand(Qt::KeyboardModifiers modifiers);
    void dragTime();
    void showContextMenu(const QPoint &globalPosition);

    VxKeyGraphView *const q;
    VxGestureGuard *guard = nullptr;
    QPointer<VxKeyGraph> keyGraph;
    int leftBackgroundWidth = 0;
    int rightBackgroundWidth = 0;
    VxMouseButton *panButton = nullptr;
    VxMouseButton *zoomButton = nullptr;
    VxMouseButton *frameButton = nullptr;
    qreal buttonRatio = 0.0; // device pixel ratio of the buttons' images
    QString valueUnit;       // of all channels

    KeyGraphScale scale;
    double width = 0.0;
    double height = 0.0;
    double savedValue = 0.0; // saved by panStart() or zoomStart()
    KeyGraphScale zoomStartTransform;
    bool timesFitted = false;    // the time axis fits the animation range to the present width
    bool timesSetByUser = false; // and is no longer fitted
    bool wasPainted = false;
    std::optional<int> keysLeft; // of the dope sheet whose time scale is followed
    bool hadChannels = false;
    bool framePending = false; // the values are framed again for the size of the first paint

    KeyGraphLook look;
    KeyGraphCurves curves;
    QImage layer; // labels, curves and marks
    bool layerValid = false;
    QStringList layerLabels;

    int viewOperation = 0;
    MouseState mouseState = Idle;
    bool pressed = false;
    QPoint pressPos;
    QPoint currentPos;
    QPoint previousPos;
    Hit hit;
    double savedOffsetY = 0.0;
    VxTime timeAtPress = 0;
    double timeLineGrab = 0.0; // from the mouse to the line of the current time, pixels
    bool highlighted = false;  // the mouse is at that line
    std::unique_ptr<VxUndoStackHold> hold;
};

#endif
