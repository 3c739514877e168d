// The key graph with 100 channels of 3,000 keys, 1920 by 400 pixels: painting, the search for the
// key under the mouse, and a step of a drag of all 300,000 keys.
//
// Floors: QPainter drawing the same lines, and the same distinct marks as one cached picture each;
// a loop over plain arrays of times and values. "a_key" is the time a key takes.

#include "vxtimeline/keygraph/keygraphcurve.h"
#include "vxtimeline/keygraph/paint/keygraphkeys.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphchannel.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <benchmark/benchmark.h>
#include <memory>
#include <random>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxscene.h>

namespace {

constexpr VxTime Step = 160;
constexpr int ChannelCount = 100;
constexpr int KeyCount = 3000;
const QSize ViewSize(1920, 400);

/// What a benchmark's argument chooses: how much of the time axis is seen.
enum Extent { AllKeys, ZoomedIn };

/// A shown view of the channels, framed.
class Fixture
{
public:
    explicit Fixture(int extent = AllKeys)
    {
        m_window.getPaneMgr()->addPane(new VxTimePane);
        m_graph.setKeyCommunication(&m_peer);
        m_app.start();
        auto *node = new VxNode(QStringLiteral("Figure"));
        vxScene->addNode(node);
        vxScene->setAnimRange({0, KeyCount * Step});
        vxScene->setPlayRange(vxScene->getAnimRange());
        QVector<VxProperty *> properties;
        for (int i = 0; i < ChannelCount; ++i)
            properties += addChannel(node, i);
        m_graph.handleDopesheetPropertyListChanged(properties, false);
        m_view.setKeyGraph(&m_graph);
        m_view.setLeftBackgroundWidth(200);
        m_view.resize(ViewSize);
        m_view.show();
        QCoreApplication::processEvents();
        vxScene->setAnimRange({0, extent == AllKeys ? KeyCount * Step : 100 * Step});
        m_view.frameKeys();
        m_view.repaint();
    }

    VxKeyGraphView &view() { return m_view; }
    VxKeyGraph &graph() { return m_graph; }

    void sendMouse(QEvent::Type type, const QPoint &position, Qt::MouseButton button,
                   Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, position, m_view.mapToGlobal(position), button, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(&m_view, &event);
    }

private:
    static VxProperty *addChannel(VxNode *node, int number)
    {
        std::mt19937 random(quint32(number) + 1);
        std::uniform_real_distribution<float> change(-1.0f, 1.0f);
        std::vector<VxTime> times;
        std::vector<float> values;
        float value = 0.0f;
        for (int i = 0; i < KeyCount; ++i) {
            times.push_back(i * Step);
            values.push_back(value += change(random));
        }
        auto *property = new VxFloatProperty(QStringLiteral("Channel %1").arg(number));
        node->addProperty(property, QString());
        VxKeyColumns<float> keys;
        keys.times = times.data();
        keys.values = values.data();
        keys.count = KeyCount;
        property->setKeys(keys);
        return property;
    }

    VxApp m_app;
    VxMainWindow m_window;
    VxKeyCommunication m_peer;
    VxKeyGraph m_graph;
    VxKeyGraphView m_view;
};

void countKeys(benchmark::State &state)
{
    state.counters["a_key"] = benchmark::Counter(double(ChannelCount) * KeyCount,
                                                 benchmark::Counter::kIsIterationInvariantRate |
                                                     benchmark::Counter::kInvert);
}

/// The value axis moves: curves and marks are painted anew, values are cached.
void paintPanned(benchmark::State &state)
{
    Fixture fixture(int(state.range(0)));
    int way = 0;
    for (auto _ : state) {
        way = 1 - way;
        fixture.view().panStart();
        fixture.view().panAdjust(QPoint(0, way ? 1 : -1));
        fixture.view().repaint();
    }
    countKeys(state);
}
BENCHMARK(paintPanned)->Arg(AllKeys)->Arg(ZoomedIn)->Unit(benchmark::kMillisecond);

/// Keys changed: the curves are evaluated, too.
void paintChanged(benchmark::State &state)
{
    Fixture fixture(int(state.range(0)));
    for (auto _ : state) {
        fixture.graph().handleValueChanged(VxTimeRange::all());
        fixture.view().repaint();
    }
    countKeys(state);
}
BENCHMARK(paintChanged)->Arg(AllKeys)->Arg(ZoomedIn)->Unit(benchmark::kMillisecond);

/// The current time moves.
void paintTimeStep(benchmark::State &state)
{
    Fixture fixture;
    VxTime time = 0;
    for (auto _ : state) {
        time = (time + Step) % (KeyCount * Step);
        vxScene->setTime(time);
        fixture.view().repaint();
    }
}
BENCHMARK(paintTimeStep)->Unit(benchmark::kMillisecond);

void paintFloor(benchmark::State &state)
{
    Fixture fixture(int(state.range(0)));
    const KeyGraphScale &scale = fixture.view().getScale();
    KeyGraphCurves curves;
    KeyGraphMarks finder(ViewSize);
    std::vector<QVector<QPointF>> lines;
    std::vector<std::vector<KeyGraphMark>> marks;
    int number = 0;
    double markCount = 0;
    for (const VxKeyGraphChannel *channel : fixture.graph().getChannels()) {
        lines.push_back(curves.points(*channel, number++, scale, ViewSize.width()));
        marks.push_back(finder.find(channel->getKeys(), channel->getKeyCache().constData(), scale));
        markCount += double(marks.back().size());
    }
    QPixmap mark(9, 9);
    mark.fill(Qt::transparent);
    QPainter(&mark).drawEllipse(1, 1, 7, 7);
    QPixmap picture(ViewSize);
    for (auto _ : state) {
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        QPen pen(Qt::red, 1.0);
        pen.setCosmetic(true);
        painter.setPen(pen);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            painter.setRenderHint(QPainter::Antialiasing, true);
            painter.drawPolyline(lines[i]);
            painter.setRenderHint(QPainter::Antialiasing, false);
            for (const KeyGraphMark &place : marks[i])
                painter.drawPixmap(place.corner, mark);
        }
    }
    state.counters["marks"] = markCount;
    countKeys(state);
}
BENCHMARK(paintFloor)->Arg(AllKeys)->Arg(ZoomedIn)->Unit(benchmark::kMillisecond);

void hover(benchmark::State &state)
{
    Fixture fixture(int(state.range(0)));
    int x = 0;
    for (auto _ : state) {
        x = (x + 7) % ViewSize.width();
        fixture.sendMouse(QEvent::MouseMove, QPoint(x, ViewSize.height() - 3), Qt::NoButton,
                          Qt::NoButton);
    }
}
BENCHMARK(hover)->Arg(AllKeys)->Arg(ZoomedIn)->Unit(benchmark::kMicrosecond);

/// Selects every key and presses on the first one.
QPoint pressOnAllKeys(Fixture &fixture)
{
    for (VxKeyGraphChannel *channel : fixture.graph().getChannels()) {
        for (int i = 0; i < KeyCount; ++i)
            channel->selectKey(i, true);
    }
    const KeyGraphScale &scale = fixture.view().getScale();
    const QPoint start(qRound(scale.x(0)), qRound(scale.y(0)));
    fixture.sendMouse(QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton);
    return start;
}

void drag(benchmark::State &state)
{
    Fixture fixture;
    const QPoint start = pressOnAllKeys(fixture);
    const QPoint way = state.range(0) ? QPoint(3, 2) : QPoint(0, 2);
    int factor = 0;
    for (auto _ : state) {
        factor = 1 - factor;
        fixture.sendMouse(QEvent::MouseMove, start + way * factor, Qt::NoButton, Qt::LeftButton);
    }
    fixture.sendMouse(QEvent::MouseButtonRelease, start, Qt::LeftButton, Qt::NoButton);
    countKeys(state);
}
BENCHMARK(drag)->ArgName("in_time")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// Both arrays of each channel, as large, written once.
void dragFloor(benchmark::State &state)
{
    std::vector<std::vector<VxTime>> times(ChannelCount, std::vector<VxTime>(KeyCount, 0));
    std::vector<std::vector<float>> values(ChannelCount, std::vector<float>(KeyCount, 0.0f));
    for (auto _ : state) {
        for (std::size_t c = 0; c < times.size(); ++c) {
            for (VxTime &time : times[c])
                time += Step;
            for (float &value : values[c])
                value += 0.5f;
        }
        benchmark::ClobberMemory();
    }
    countKeys(state);
}
BENCHMARK(dragFloor)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
