#ifndef VXKEYGRAPHVIEW_H
#define VXKEYGRAPHVIEW_H

#include <QtCore/QPoint>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>
#include <memory>
#include <vxcore/vxproperty.h>

class VxKeyGraph;

// Draws the channels of a key graph as curves over time, with a mark for each key.
//
// The view keeps scales and offsets of its two axes; which curves there are, their values and
// their key selection are the key graph's.
//
// The order and argument names of signals and slots are seen by scripts: keep them.
class VxKeyGraphView : public QWidget
{
    Q_OBJECT
public:
    explicit VxKeyGraphView(QWidget *parent = nullptr);
    ~VxKeyGraphView() override;

    // Not owned; null for none.
    void setKeyGraph(VxKeyGraph *keyGraph);
    VxKeyGraph *getKeyGraph() const;

Q_SIGNALS:
    void channelListChanged(QVector<VxProperty *> propList);

public Q_SLOTS:
    void frameKeys(bool onlySelected = false);
    void setLeftBackgroundWidth(int width);
    void setRightBackgroundWidth(int width);
    void doUpdate();
    void doStyling();
    void panStart();
    void panAdjust(QPoint delta);
    void zoomStart();
    void zoomAdjust(QPoint delta);

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
