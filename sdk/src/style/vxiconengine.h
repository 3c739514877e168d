#ifndef VXICONENGINE_H
#define VXICONENGINE_H

#include <QtCore/QPointer>
#include <QtGui/QIconEngine>
#include <vxcore/vxstyle.h>

/// Paints an icon of the style at each requested size, in the style's present colours, so that
/// icons stay sharp on every screen and follow a change of the colour scheme. An icon that outlives
/// its style keeps the scheme from its creation.
class VxIconEngine : public QIconEngine
{
public:
    VxIconEngine(const VxStyle *style, VxStyle::StandardIconId id);
    static bool exists(VxStyle::StandardIconId id);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine *clone() const override;
    QString key() const override;

private:
    VxIconEngine(const VxIconEngine &other) = default;
    VxStyle::ColorScheme scheme() const;

    QPointer<const VxStyle> m_style;
    VxStyle::ColorScheme m_scheme;
    VxStyle::StandardIconId m_id;
};

#endif
