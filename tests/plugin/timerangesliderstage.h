#ifndef TIMERANGESLIDERSTAGE_H
#define TIMERANGESLIDERSTAGE_H

#include "testing/vxmousedriver.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

#include <QtTest>
#include <QtWidgets/QProxyStyle>
#include <memory>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyleoption.h>

/// Notes the handles that are drawn, and lets the application's style draw them.
class HandleNotes : public QProxyStyle
{
public:
    struct Handle
    {
        QRect rect;
        int type;
        int value;
        bool hovered;
    };

    explicit HandleNotes(QStyle *style)
        : m_style(style)
    {
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (quint32(element) == VxStyle::PE_VxRangeHandle) {
            const auto *custom = qstyleoption_cast<const VxStyleOptionCustom *>(option);
            handles.append({option->rect, option->type, custom ? custom->value : -1,
                            option->state.testFlag(State_MouseOver)});
        }
        m_style->drawPrimitive(element, option, painter, widget);
    }

    mutable QVector<Handle> handles;

private:
    QStyle *m_style;
};

/// A bar 600 pixels wide and 20 high at (50, 40) of its window, for an animation from 0 to 4800 at
/// 30 frames a second: 8 ticks a pixel, 20 pixels a frame. The play range is 1600 to 3200, which
/// are the pixels 200 to 399, unless said otherwise.
class TimeRangeSliderStage
{
protected:
    void setUp();
    void tearDown();

    QPoint body() const { return {300, 10}; }
    QImage picture() { return m_slider->grab().toImage(); }
    QVector<HandleNotes::Handle> handles();
    void compareRange(VxTime start, VxTime end) const;

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxApp> m_app;
    std::unique_ptr<HandleNotes> m_notes;
    std::unique_ptr<QWidget> m_window;
    VxTimeRangeSlider *m_slider = nullptr;
    std::unique_ptr<VxMouseDriver> m_mouse;
};

inline void TimeRangeSliderStage::setUp()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    QApplication::setFont(font);
    m_guard = std::make_unique<VxWarningGuard>();
    m_app = std::make_unique<VxApp>();
    m_notes = std::make_unique<HandleNotes>(vxApp->getStyle());
    m_window = std::make_unique<QWidget>();
    m_window->resize(700, 100);
    m_slider = new VxTimeRangeSlider(m_window.get());
    m_slider->setGeometry(50, 40, 600, 20);
    m_slider->setStyle(m_notes.get());
    m_mouse = std::make_unique<VxMouseDriver>(m_slider);
    vxScene->setAnimRange(VxTimeRange(0, 4800));
    vxScene->setPlayRange(VxTimeRange(1600, 3200));
    vxScene->setTime(1600);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

inline void TimeRangeSliderStage::tearDown()
{
    m_mouse.reset();
    m_window.reset();
    m_notes.reset();
    m_app.reset();
    m_guard.reset();
}

inline void TimeRangeSliderStage::compareRange(VxTime start, VxTime end) const
{
    QCOMPARE(vxScene->getPlayRange().getStart(), start);
    QCOMPARE(vxScene->getPlayRange().getEnd(), end);
}

inline QVector<HandleNotes::Handle> TimeRangeSliderStage::handles()
{
    m_notes->handles.clear();
    picture();
    return m_notes->handles;
}

#endif
