#ifndef KEYGRAPHVIEWTESTBASE_H
#define KEYGRAPHVIEWTESTBASE_H

#include "keygraphtestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxpaintwatch.h"
#include "vxtimeline/keygraph/paint/keygraphscale.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <QtGui/QPaintEngine>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QStyleOption>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxstyle.h>

/// Records what a widget draws with its style.
class RecordingStyle : public QProxyStyle
{
public:
    struct Mark
    {
        QRect rect;
        QStyle::State state;
        int type;
    };

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element == static_cast<PrimitiveElement>(0x0F0000AD))
            marks.append({option->rect, option->state, option->type});
        else
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        if (element == CE_RubberBand)
            bands.append(option->rect);
        QProxyStyle::drawControl(element, option, painter, widget);
    }

    mutable QVector<Mark> marks;
    mutable QVector<QRect> bands;
};

/// Notes the texts that are painted on it, and where.
class TextRecorder : public QPaintDevice
{
public:
    struct Text
    {
        QString text;
        QRectF rect;
    };

    explicit TextRecorder(const QSize &size)
        : m_size(size)
        , m_engine(this)
    {
    }
    QPaintEngine *paintEngine() const override { return &m_engine; }

    QVector<Text> texts;

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmWidthMM:
            return m_size.width() / 4;
        case PdmHeightMM:
            return m_size.height() / 4;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        case PdmNumColors:
            return 1 << 24;
        case PdmDepth:
            return 32;
        default: // dots per inch
            return 96;
        }
    }

private:
    class Engine : public QPaintEngine
    {
    public:
        explicit Engine(TextRecorder *recorder)
            : QPaintEngine(AllFeatures)
            , m_recorder(recorder)
        {
        }
        bool begin(QPaintDevice *) override { return true; }
        bool end() override { return true; }
        Type type() const override { return User; }
        void updateState(const QPaintEngineState &now) override
        {
            if (now.state() & DirtyTransform)
                m_offset = QPointF(now.transform().dx(), now.transform().dy());
        }
        void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
        void drawImage(const QRectF &, const QImage &, const QRectF &,
                       Qt::ImageConversionFlags) override
        {
        }
        void drawPath(const QPainterPath &) override {}
        void drawPolygon(const QPointF *, int, PolygonDrawMode) override {}
        void drawTextItem(const QPointF &place, const QTextItem &item) override
        {
            const QPointF corner = place + m_offset - QPointF(0, item.ascent());
            m_recorder->texts.append(
                {item.text(),
                 QRectF(corner, QSizeF(item.width(), item.ascent() + item.descent()))});
        }

    private:
        TextRecorder *m_recorder;
        QPointF m_offset;
    };

    QSize m_size;
    mutable Engine m_engine;
};

/// A key graph view in a window, 800 by 300 pixels: a frame is ten pixels wide, time 0 is at 24,
/// ten pixels are a unit, and the bus has another end that listens.
class KeyGraphViewTest : public KeyGraphTest
{
protected:
    void setUpView()
    {
        setUp();
        vxScene->setAnimRange(VxTimeRange(0, 752 * 16));
        vxScene->setPlayRange(VxTimeRange(0, 70 * 160));
        vxScene->setTime(60 * 160);
        window = std::make_unique<VxMainWindow>();
        window->getPaneMgr()->addPane(new VxTimePane);
        peer = std::make_unique<VxKeyCommunication>();
        graph = std::make_unique<VxKeyGraph>();
        graph->setKeyCommunication(peer.get());
        listen(graph->getKeyCommunication());
        vxApp->start();
        view = std::make_unique<VxKeyGraphView>();
        view->setKeyGraph(graph.get());
        view->setObjectName(QStringLiteral("TimelineKeyGraphView"));
    }

    void tearDownView()
    {
        view.reset();
        graph.reset();
        peer.reset();
        window.reset();
        tearDown();
    }

    void showView()
    {
        view->resize(800, 300);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        vxScene->setAnimRange(VxTimeRange(0, 750 * 16));
        vxScene->setAnimRange(VxTimeRange(0, 752 * 16));
    }

    /// Shows properties, with the values from 0 to 26 over the view's height.
    void showProperties(const QVector<VxProperty *> &properties)
    {
        VxFloatProperty *frame = addProperty(QStringLiteral("Frame"));
        frame->setKey(0, 0.0f, VxKeyInterp::Linear);
        frame->setKey(160, 26.0f, VxKeyInterp::Linear);
        graph->handleDopesheetPropertyListChanged({frame}, false);
        view->frameKeys();
        graph->handleDopesheetPropertyListChanged(properties, false);
        QCoreApplication::processEvents();
    }

    void turnWheel(const QPoint &delta, Qt::KeyboardModifiers modifiers,
                   const QPoint &position = QPoint(300, 100))
    {
        QWheelEvent event(position, view->mapToGlobal(position), QPoint(), delta, Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view.get(), &event);
        QVERIFY(event.isAccepted());
    }
    QImage picture() { return view->grab().toImage(); }

    VxFloatProperty *x() const { return node->getXPosControl(); }
    VxFloatProperty *y() const { return node->getYPosControl(); }
    VxKeyGraphChannel &channel(int index) const { return *graph->getChannels().at(index); }

    QPoint placeOf(int frame, double value) const
    {
        const KeyGraphScale &scale = view->getScale();
        return QPoint(qRound(scale.x(frame * 160)), qRound(scale.y(value)));
    }
    QPoint placeOfKey(const VxProperty *property, int index) const
    {
        const auto *number = static_cast<const VxFloatProperty *>(property);
        return placeOf(0, double(number->getKeyValue(index))) +
               QPoint(qRound(number->getKeyTime(index) / view->getScale().ticksPerPixel), 0);
    }

    std::unique_ptr<VxMainWindow> window;
    std::unique_ptr<VxKeyCommunication> peer;
    std::unique_ptr<VxKeyGraph> graph;
    std::unique_ptr<VxKeyGraphView> view;
};

#endif
