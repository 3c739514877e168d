#ifndef VXKEYGRAPHVIEW_H
#define VXKEYGRAPHVIEW_H

#include <QtCore/QPoint>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>
#include <memory>
#include <vxcore/vxproperty.h>

class KeyGraphScale;
class VxKeyGraph;

/// Draws the channels of a key graph as curves over time, with a mark for each key, and handles
/// selecting and moving keys with the mouse.
///
/// The view has the scales and offsets of its two axes and the state of the present gesture; the
/// key graph has the list of curves, their values and their key selection. Labels, curves and marks
/// are painted into an image that is cached while none of them changes, so that a step of the time
/// or a hover costs no more with many keys than with few.
///
/// The order and argument names of signals and slots are seen by scripts: keep them.
class VxKeyGraphView : public QWidget
{
    Q_OBJECT
public:
    explicit VxKeyGraphView(QWidget *parent = nullptr);
    ~VxKeyGraphView() override;

    /// Not owned; null for none. A graph that is destroyed counts as none.
    void setKeyGraph(VxKeyGraph *keyGraph);
    VxKeyGraph *getKeyGraph() const;

    /// Makes the view follow the shared time scale of the dope sheet instead of its own, which is
    /// not used any more: the keys column begins at this pixel of the widget.
    void followTimeline(int keysLeft);

    /// The area without labels of channels, values or frames, in the widget's pixels; may be empty.
    QRect getLabelFreeRect() const;

    /// The present scales, in the widget's pixels.
    const KeyGraphScale &getScale() const;

Q_SIGNALS:
    void channelListChanged(QVector<VxProperty *> propList);

public Q_SLOTS:
    /// Shows the values of all keys, or of the selected ones; nothing changes when there are none.
    void frameKeys(bool onlySelected = false);
    /// The width in pixels of the area to the left of the curve area, for labels, and of the one to
    /// the right.
    void setLeftBackgroundWidth(int width);
    void setRightBackgroundWidth(int width);
    void doUpdate();
    /// Reads the style's colours, fonts and metrics again.
    void doStyling();
    /// Panning and zooming of the value axis by the mouse delta since the start, in pixels.
    void panStart();
    void panAdjust(QPoint delta);
    void zoomStart();
    void zoomAdjust(QPoint delta);

protected:
    void changeEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
