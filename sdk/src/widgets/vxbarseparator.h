#ifndef VXBARSEPARATOR_H
#define VXBARSEPARATOR_H

#include <vxcore/vxbuttonbar.h>

/// A separator of two groups of a button bar. A widget like the buttons, so that the bar lays out,
/// shows and hides all its items in one way.
class VxBarSeparator : public QWidget
{
    Q_OBJECT

public:
    VxBarSeparator(VxButtonBar::SeparatorType type, QWidget *parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const VxButtonBar::SeparatorType m_type;
};

#endif
