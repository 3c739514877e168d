#include "dopesheettestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/time/timelinesnap.h"

#include <QtGui/QPainter>
#include <random>
#include <vector>

namespace {

// A style that records what the header draws with it, and whose ruler has the given parts.
class HeaderStyle : public VxStyle
{
public:
    struct Drawn
    {
        QRect rect;
        int type;
        QStyle::State state;
        int value;
    };

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        const auto *custom = qstyleoption_cast<const VxStyleOptionCustom *>(option);
        const Drawn drawn{option->rect, option->type, option->state, custom ? custom->value : 0};
        if (element == static_cast<PrimitiveElement>(PE_VxRulerTick))
            ticks.push_back(drawn);
        else if (element == static_cast<PrimitiveElement>(PE_VxCurrentTimeMarker))
            markers.push_back(drawn);
        else if (element == static_cast<PrimitiveElement>(PE_VxKeyMark))
            keys.push_back(drawn);
        else
            VxStyle::drawPrimitive(element, option, painter, widget);
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override
    {
        if (hint == static_cast<StyleHint>(SH_VxRulerFlags))
            return flags;
        return VxStyle::styleHint(hint, option, widget, returnData);
    }

    int flags = RulerAll;
    mutable std::vector<Drawn> ticks, markers, keys;
};

struct Steps
{
    int tick = 1;
    int label = 5;
};

// The steps found one after the other.
Steps stepsOf(float frameWidth, int spacing)
{
    Steps steps;
    if (int(frameWidth) >= spacing)
        return steps;
    do {
        steps.tick *= 5;
        steps.label = 2 * steps.tick;
        if (int(float(steps.tick) * frameWidth) < spacing) {
            steps.tick = steps.label;
            steps.label = 5 * steps.tick;
        }
    } while (int(float(steps.tick) * frameWidth) < spacing);
    return steps;
}

} // namespace

// What the dope sheet's header draws with its style, compared with loops over all frames of the
// play range; and the header's share in what the base class does with the mouse.
class TestDopeSheetHeaderPaint : public QObject, private DopeSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void ticksLikeALoop();
    void labels_data();
    void labels();
    void markerIsCenteredOverItsFrame();
    void markerOfNoRangeIsBare();
    void keysTakeTheWholeHeight();

    void movesRepaint();
    void pressOnTheGripSetsItsCursor();
    void anotherButtonDoesNotEndTheDrag();

private:
    // Frames from the play range's first to its last, and the ruler's steps for them.
    int startFrame() const { return vxScene->getPlayRange().getStart() / vxScene->getTimeStep(); }
    int frameCount() const
    {
        return vxScene->getPlayRange().getEnd() / vxScene->getTimeStep() - startFrame();
    }
    Steps steps() const
    {
        const int line = header->sectionSize(1) - TimelineMetrics::shared().keyMargin;
        return stepsOf(float(line) / float(frameCount()),
                       style->metric(VxStyle::PM_VxRulerLabelSpacing));
    }
    static int middleOf(VxTime time)
    {
        return TimelineMetrics::shared().keyMiddle(200, time, vxScene->getPlayRange().getStart());
    }
    std::vector<HeaderStyle::Drawn> wantedTicks() const;
    QPixmap picture() const { return viewport->grab(); }

    HeaderStyle *style = nullptr; // the application's
    QWidget *viewport = nullptr;
};

void TestDopeSheetHeaderPaint::init()
{
    setUp();
    style = new HeaderStyle;
    app->setStyle(style);
    header->setFixedHeight(28);
    showView();
    viewport = header->viewport();
}

std::vector<HeaderStyle::Drawn> TestDopeSheetHeaderPaint::wantedTicks() const
{
    const auto at = [this](VxTime time, int value) {
        const int width = style->metric(VxStyle::PM_VxRulerTickWidth);
        return HeaderStyle::Drawn{QRect(middleOf(time), 0, width, 28), 0, {}, value};
    };
    const VxTimeRange range = vxScene->getPlayRange();
    std::vector<HeaderStyle::Drawn> wanted{at(range.getStart(), 1), at(range.getEnd(), 2)};
    const Steps found = steps();
    for (int i = 1; i < frameCount(); ++i) {
        const int frame = startFrame() + i;
        if (frame % found.tick == 0)
            wanted.push_back(at(frame * vxScene->getTimeStep(), frame % found.label == 0 ? 8 : 4));
    }
    return wanted;
}

void TestDopeSheetHeaderPaint::ticksLikeALoop()
{
    std::mt19937 random(5);
    const auto any = [&random](int low, int high) {
        return std::uniform_int_distribution<>(low, high)(random);
    };
    style->flags = VxStyle::RulerTicks;
    for (int round = 0; round < 200; ++round) {
        vxScene->setTimeStep(std::vector<VxTime>{160, 200, 96, 685}[size_t(any(0, 3))]);
        TimelineMetrics::shared().keyMargin = any(0, 9);
        const VxTime start = any(-9000, 30000);
        const VxTime end = start + any(0, 1) * any(1000, 4000) + any(1000, 200000);
        vxScene->setAnimRange(VxTimeRange(qMin(start, 0), end));
        vxScene->setPlayRange(VxTimeRange(start, end));
        TimelineMetrics::shared().fps = 4800 / vxScene->getTimeStep();
        QVERIFY(TimelineMetrics::shared().fit(header->sectionSize(1), end - start));
        style->ticks.clear();
        picture();
        const auto wanted = wantedTicks();
        QCOMPARE(style->ticks.size(), wanted.size());
        for (size_t i = 0; i < wanted.size(); ++i) {
            QCOMPARE(style->ticks[i].rect, wanted[i].rect);
            QCOMPARE(style->ticks[i].value, wanted[i].value);
            QVERIFY(style->ticks[i].state & QStyle::State_Enabled);
        }
    }
}

void TestDopeSheetHeaderPaint::labels_data()
{
    QTest::addColumn<int>("flags");
    QTest::newRow("none") << 0;
    QTest::newRow("ends of the play range") << 1;
    QTest::newRow("steps") << 2;
    QTest::newRow("both") << 3;
}

// Each number is centred over its frame, its foot at the font's ascent.
void TestDopeSheetHeaderPaint::labels()
{
    QFETCH(int, flags);
    vxScene->setTime(-160000);
    vxScene->setPlayRange(VxTimeRange(13 * 160, 57 * 160));
    style->flags = 0;
    style->ticks.clear();
    QPixmap wanted = picture();
    QVERIFY(style->ticks.empty());
    {
        QPainter painter(&wanted);
        const VxTextStyle text = style->textStyle(VxStyle::TS_Ruler);
        painter.setFont(text.getFont());
        painter.setPen(text.getColor());
        const auto draw = [&](int frame) {
            const QString number = QString::number(frame);
            painter.drawText(middleOf(frame * 160) - text.getWidth(number) / 2, text.getAscent(),
                             number);
        };
        if (flags & 1) {
            draw(13);
            draw(57);
        }
        for (int frame = 14; flags & 2 && frame < 57; ++frame) {
            if (frame % steps().label == 0)
                draw(frame);
        }
    }
    style->flags = flags;
    QCOMPARE(picture().toImage(), wanted.toImage());
}

void TestDopeSheetHeaderPaint::markerIsCenteredOverItsFrame()
{
    vxScene->setTime(12 * 160);
    style->markers.clear();
    picture();
    QCOMPARE(int(style->markers.size()), 1);
    const HeaderStyle::Drawn marker = style->markers.front();
    QCOMPARE(marker.rect.center().x(), middleOf(12 * 160));
    QCOMPARE(marker.rect.height(), 28);
    QVERIFY(marker.state & QStyle::State_Enabled);
}

// The style is passed a marker that has no space.
void TestDopeSheetHeaderPaint::markerOfNoRangeIsBare()
{
    vxScene->setPlayRange(VxTimeRange(1600, 1600));
    style->markers.clear();
    picture();
    QCOMPARE(int(style->markers.size()), 1);
    QVERIFY(style->markers.front().rect.isNull());
    QCOMPARE(style->markers.front().state, QStyleOption().state);
}

void TestDopeSheetHeaderPaint::keysTakeTheWholeHeight()
{
    addKeys(hip->getXPosControl(), {0, 7 * 160});
    addKeys(hip->getYPosControl(), {7 * 160, 9 * 160});
    header->setKeySource(model->findItem(hip));
    style->keys.clear();
    picture();
    QCOMPARE(int(style->keys.size()), 3);
    for (int i = 0; i < 3; ++i) {
        const int frame = std::vector<int>{0, 7, 9}[size_t(i)];
        const HeaderStyle::Drawn key = style->keys[size_t(i)];
        QCOMPARE(key.rect, QRect(202 + 10 * frame, 0, 10, 28));
        QCOMPARE(key.type, 0xF00);
        QVERIFY(key.state & QStyle::State_Enabled);
    }
}

void TestDopeSheetHeaderPaint::movesRepaint()
{
    VxMouseDriver mouse(viewport);
    mouse.moveTo(QPoint(600, 10));
    QCoreApplication::processEvents();
    style->markers.clear();
    mouse.moveTo(QPoint(610, 10));
    QTRY_VERIFY(!style->markers.empty());
}

// Without a move before it that would have shown the cursor already.
void TestDopeSheetHeaderPaint::pressOnTheGripSetsItsCursor()
{
    header->unsetCursor();
    const QPoint place(202, 10);
    QMouseEvent press(QEvent::MouseButtonPress, place, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &press);
    QCOMPARE(header->cursor().shape(), Qt::SplitHCursor);
    QMouseEvent release(QEvent::MouseButtonRelease, place, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &release);
    QCOMPARE(header->cursor().shape(), Qt::SplitHCursor);
}

void TestDopeSheetHeaderPaint::anotherButtonDoesNotEndTheDrag()
{
    vxScene->setTime(10 * 160);
    VxMouseDriver mouse(viewport);
    mouse.press(QPoint(307, 10));
    mouse.press(QPoint(307, 10), Qt::RightButton);
    mouse.release(QPoint(307, 10), Qt::RightButton);
    mouse.moveTo(QPoint(402, 10));
    QCOMPARE(vxScene->getTime(), 20 * 160);
    mouse.release(QPoint(402, 10));
}

VX_TEST_MAIN(TestDopeSheetHeaderPaint)
#include "tst_dopesheetheaderpaint.moc"
