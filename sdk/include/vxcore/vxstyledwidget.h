#ifndef VXSTYLEDWIDGET_H
#define VXSTYLEDWIDGET_H

#include <QtWidgets/QWidget>
#include <vxcore/vxcoreglobal.h>

/// A container whose background is drawn by the style, so that a style sheet can give it a
/// background, a border and a box by its object name. A plain subclass of QWidget ignores them.
/// Without a style sheet it is as transparent as any QWidget.
class VXCORE_EXPORT VxStyledWidget : public QWidget
{
    Q_OBJECT

public:
    explicit VxStyledWidget(QWidget *parent = nullptr);
    ~VxStyledWidget() override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

#endif
