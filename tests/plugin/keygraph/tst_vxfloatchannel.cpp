#include "keygraphtestbase.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/keygraph/keygraphdrag.h"
#include "vxtimeline/keygraph/vxfloatchannel.h"

#include <limits>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxstyle.h>

using namespace KeyDrawing;

namespace {

bool dragSelected(VxKeyGraphChannel &channel, const KeyGraphDrag::Step &step)
{
    return !KeyGraphDrag::moveSelected({&channel}, step).isEmpty();
}

// Selects one key and drags it to a time and value.
bool drag(VxKeyGraphChannel &channel, int index, VxTime time, double value)
{
    channel.deselectAllKeys();
    channel.selectKey(index, true);
    return dragSelected(channel,
                        {time - channel.getKeyTime(index), value - channel.getKeyValue(index)});
}

} // namespace

class TestFloatChannel : public QObject, private KeyGraphTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void labelNamesNodeAndProperty();
    void labelOfAPropertyWithoutNode();
    void pathLeadsToTheRoot();
    void colourIsTheAxis_data();
    void colourIsTheAxis();
    void percentageIsAHundredfold();
    void units();
    void valuesAreNarrowed();
    void valuesThatDoNotFitAreRefused();
    void oneInvalidMoveDoesNotBlockTheOthers();
    void interpolationPartsAreKeptApart();
    void keysAreRemoved();
    void manyValuesAtOnce();

    void moves_data();
    void moves();
    void movesOntoItsOwnTime();
    void movedKeysKeepTheirShape();
    void movedKeysTakeTheirStartAlong();
    void movesThatChangeTheOrderSendMessages();
    void movesMayCross();
    void lockedKeysStay();
    void selectionFollowsKeysThroughARebuild();
    void showsPresentKeysWithinAChangeBlock();
    void keysPassedKeepTheirSelection();
    void aSelectedNeighbourStaysSelected_data();
    void aSelectedNeighbourStaysSelected();

    void selectingStoresTheDragStart();
    void refreshLeavesKeysThatAreNotSelected();
    void selectingSendsAMessage();
    void publishing();
    void applyingSendsNoMessage();
    void deselectionIsSentLast();
    void applyingIgnoresInvalidKeys();
    void boxRestoresItsFormerKeys();
    void boxUpdatesTheDragStart();
    void boxSendsOneMessage();
};

void TestFloatChannel::labelNamesNodeAndProperty()
{
    node->setLabel(QStringLiteral("The Hip"));
    VxFloatProperty *property = addProperty(QStringLiteral("Bend"));
    property->setLabel(QStringLiteral("Bending"));
    QCOMPARE(VxFloatChannel(property, nullptr).getLabel(), QStringLiteral("The Hip: Bending"));
}

void TestFloatChannel::labelOfAPropertyWithoutNode()
{
    VxFloatProperty property(QStringLiteral("Bend"));
    const VxFloatChannel channel(&property, nullptr);
    QCOMPARE(channel.getLabel(), QStringLiteral("Bend"));
    QCOMPARE(channel.getPath(), QStringList(QStringLiteral("Bend")));
    QCOMPARE(channel.getProperty(), &property);
}

void TestFloatChannel::pathLeadsToTheRoot()
{
    node = addNode(QStringLiteral("Knee"), addNode(QStringLiteral("Thigh"), node));
    const VxFloatChannel channel(addProperty(QStringLiteral("Bend")), nullptr);
    QCOMPARE(channel.getPath().join(QLatin1Char('<')), QStringLiteral("Bend<Knee<Thigh<Hip"));
}

void TestFloatChannel::colourIsTheAxis_data()
{
    QTest::addColumn<int>("axis");
    QTest::addColumn<QString>("name");
    QTest::newRow("x") << 1 << "Style_X_Axis";
    QTest::newRow("y") << 2 << "Style_Y_Axis";
    QTest::newRow("z") << 3 << "Style_Z_Axis";
    QTest::newRow("all axes") << 4 << "Style_All_Axis";
    QTest::newRow("none") << 0 << QString();
}

void TestFloatChannel::colourIsTheAxis()
{
    QFETCH(int, axis);
    QFETCH(QString, name);
    VxFloatProperty *property = addProperty(QStringLiteral("Bend"));
    property->setAxis(VxFloatProperty::Axis(axis));
    const QColor color = VxFloatChannel(property, nullptr).getColor();
    QCOMPARE(color.isValid(), !name.isEmpty());
    if (!name.isEmpty())
        QCOMPARE(color, vxApp->getStyle()->getInterfaceColor(name));
}

void TestFloatChannel::percentageIsAHundredfold()
{
    VxFloatProperty *property = addProperty(QStringLiteral("Smile"));
    property->setPercentage(true);
    property->setKey(0, 0.5f, VxKeyInterp::Linear);
    VxFloatChannel channel(property, nullptr);
    QCOMPARE(channel.getKeyValue(0), 50.0);
    QCOMPARE(channel.getValue(1000), 50.0);
    QCOMPARE(channel.getKeys().value(0), 50.0);
    channel.setKeyValue(0, 75.0);
    QCOMPARE(property->getKeyValue(0), 0.75f);
    channel.setValue(0, 25.0);
    QCOMPARE(property->getKeyValue(0), 0.25f);
    channel.setKey(0, 320, 100.0);
    QCOMPARE(property->getKeyTime(0), 320);
    QCOMPARE(property->getKeyValue(0), 1.0f);
    QVERIFY(drag(channel, 0, 640, 60.0));
    QCOMPARE(property->getKeyValue(0), 0.6f);
}

void TestFloatChannel::units()
{
    VxFloatProperty *smile = addProperty(QStringLiteral("Smile"));
    QCOMPARE(VxFloatChannel(smile, nullptr).getUnit(), QString());
    smile->setPercentage(true);
    QCOMPARE(VxFloatChannel(smile, nullptr).getUnit(), QStringLiteral("%"));
    QCOMPARE(VxFloatChannel(node->getXPosControl(), nullptr).getUnit(), QString());
    for (VxFloatProperty *turn :
         {node->getXRotControl(), node->getYRotControl(), node->getZRotControl()})
        QCOMPARE(VxFloatChannel(turn, nullptr).getUnit(), QString(QChar(0xb0)));
    VxFloatProperty alone(QStringLiteral("Alone"));
    QCOMPARE(VxFloatChannel(&alone, nullptr).getUnit(), QString());
}

void TestFloatChannel::valuesAreNarrowed()
{
    VxFloatProperty *property = addProperty(QStringLiteral("Bend"));
    property->setKey(0, 0.0f, VxKeyInterp::Linear);
    VxFloatChannel channel(property, nullptr);
    channel.setKeyValue(0, 0.1);
    QCOMPARE(channel.getKeyValue(0), double(0.1f));
    QVERIFY(channel.getKeyValue(0) != 0.1);
}

void TestFloatChannel::valuesThatDoNotFitAreRefused()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), ".a.b");
    VxFloatChannel channel(property, nullptr);
    for (const double value : {1e300, -1e300, std::numeric_limits<double>::quiet_NaN()}) {
        channel.setKeyValue(0, value);
        channel.setKey(0, 800, value);
        drag(channel, 0, 800, value);
        QCOMPARE(timesOf(property), QVector<int>({160, 480}));
        QCOMPARE(property->getKeyValue(0), 1.0f);
    }
}

// Of keys that are moved together, only the one that does not fit stays.
void TestFloatChannel::oneInvalidMoveDoesNotBlockTheOthers()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "abc");
    property->setKeyValue(1, 3e38f);
    VxFloatChannel channel(property, nullptr);
    select(channel, {0, 1, 2});
    QVERIFY(dragSelected(channel, {0, 1e38}));
    QCOMPARE(property->getKeyValue(0), 1e38f);
    QCOMPARE(property->getKeyValue(1), 3e38f);
    QCOMPARE(property->getKeyValue(2), 1e38f);
    QVERIFY(dragSelected(channel, {160, 1e38, 0, true}));
    QCOMPARE(timesOf(property), QVector<int>({159, 160, 480}));
}

void TestFloatChannel::interpolationPartsAreKeptApart()
{
    VxFloatProperty *property = addProperty(QStringLiteral("Bend"));
    property->setKey(0, 1.0f, VxKeyInterp::Tcb, 0.25f, 0.5f, 0.75f);
    VxFloatChannel channel(property, nullptr);
    float tension = 0, continuity = 0, bias = 0;
    QCOMPARE(channel.getKeyInterpolation(0, &tension, &continuity, &bias), 2);
    QCOMPARE(tension, 0.25f);
    QCOMPARE(continuity, 0.5f);
    QCOMPARE(bias, 0.75f);
    channel.setKeyInterpolation(0, VxKeyInterp::Constant);
    QCOMPARE(channel.getKeyInterpolation(0), 1);
    QCOMPARE(channel.getKeyTension(0), 0.25);
    QCOMPARE(channel.getKeyContinuity(0), 0.5);
    QCOMPARE(channel.getKeyBias(0), 0.75);
    channel.setKeyTension(0, -1.0);
    channel.setKeyContinuity(0, -0.1);
    channel.setKeyBias(0, 0.125);
    QCOMPARE(channel.getKeyInterpolation(0), 1);
    QCOMPARE(channel.getKeyTension(0), -1.0);
    QCOMPARE(channel.getKeyContinuity(0), double(-0.1f));
    QCOMPARE(channel.getKeyBias(0), 0.125);
    QCOMPARE(channel.getKeyValue(0), 1.0);
}

void TestFloatChannel::keysAreRemoved()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "a.b.c");
    VxFloatChannel channel(property, nullptr);
    channel.removeKey(1);
    channel.removeKey(7);
    channel.removeKey(-1);
    QCOMPARE(timesOf(property), QVector<int>({0, 640}));
    QCOMPARE(channel.getKeyCache().size(), 2);
}

void TestFloatChannel::manyValuesAtOnce()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "a...b");
    property->setPercentage(true);
    const VxFloatChannel channel(property, nullptr);
    const VxTime times[] = {-100, 0, 40, 333, 640, 9999};
    double values[6];
    channel.getValues(times, 6, values);
    for (int i = 0; i < 6; ++i)
        QCOMPARE(values[i], channel.getValue(times[i]));
}

// Keys are at ticks, so that one character is one tick and a key can wait beside another.
void TestFloatChannel::moves_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("time");
    QTest::addColumn<QVector<int>>("after");
    using Times = QVector<int>;
    QTest::newRow("later, between") << "a...b" << 0 << 2 << Times{2, 4};
    QTest::newRow("later, onto a key") << "a...b" << 0 << 4 << Times{3, 4};
    QTest::newRow("later, past a key") << "a...b" << 0 << 6 << Times{4, 6};
    QTest::newRow("later, onto the second of two") << "a..bc" << 0 << 4 << Times{2, 3, 4};
    QTest::newRow("later, no tick free") << "abc" << 0 << 2 << Times{0, 1, 2};
    QTest::newRow("earlier, onto a key") << "a...b" << 1 << 0 << Times{0, 1};
    QTest::newRow("earlier, past a key") << "a...b" << 1 << -3 << Times{-3, 0};
    QTest::newRow("earlier, onto the first of two") << "ab..c" << 2 << 0 << Times{0, 1, 2};
    QTest::newRow("earlier, no tick free") << "abc" << 2 << 0 << Times{0, 1, 2};
}

void TestFloatChannel::moves()
{
    QFETCH(QString, before);
    QFETCH(int, index);
    QFETCH(int, time);
    QFETCH(QVector<int>, after);
    for (const bool many : {false, true}) {
        VxFloatProperty *property = makeKeys(
            addProperty(many ? QStringLiteral("A") : QStringLiteral("B")), qPrintable(before), 1);
        VxFloatChannel channel(property, nullptr);
        if (many)
            drag(channel, index, time, 99.0);
        else
            channel.setKey(index, time, 99.0);
        QCOMPARE(timesOf(property), after);
        int moved = -1;
        for (int i = 0; i < property->getNumKeys(); ++i) {
            if (property->getKeyValue(i) == 99.0f)
                moved = i;
        }
        QVERIFY2(moved >= 0, "the moved key has its value");
    }
}

void TestFloatChannel::movesOntoItsOwnTime()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "a.b");
    VxFloatChannel channel(property, nullptr);
    channel.setKey(1, 320, 7.0);
    QCOMPARE(timesOf(property), QVector<int>({0, 320}));
    QCOMPARE(property->getKeyValue(1), 7.0f);
}

void TestFloatChannel::movedKeysKeepTheirShape()
{
    VxFloatProperty *property = addProperty(QStringLiteral("Bend"));
    property->setKey(0, 1.0f, VxKeyInterp::Tcb, 0.25f, 0.5f, 0.75f);
    property->setKey(160, 2.0f, VxKeyInterp::Constant);
    VxFloatChannel channel(property, nullptr);
    channel.setKey(0, 480, 3.0);
    QVERIFY(drag(channel, 0, 640, 4.0));
    float tension = 0, continuity = 0, bias = 0;
    QCOMPARE(timesOf(property), QVector<int>({480, 640}));
    QCOMPARE(property->getKeyInterpolationType(0, &tension, &continuity, &bias), 2);
    QCOMPARE(tension, 0.25f);
    QCOMPARE(continuity, 0.5f);
    QCOMPARE(bias, 0.75f);
    QCOMPARE(property->getKeyInterpolationType(1), 1);
}

void TestFloatChannel::movedKeysTakeTheirStartAlong()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "a.b.c");
    VxFloatChannel channel(property, nullptr);
    channel.selectKey(0, true);
    channel.setKey(0, 480, 9.0);
    QCOMPARE(selectedOf(channel), QVector<int>{1});
    QCOMPARE(channel.getKeyCache().at(1).time, 480);
    QCOMPARE(channel.getKeyCache().at(1).dragStartTime, 0);
    QCOMPARE(channel.getKeyCache().at(1).dragStartValue, 0.0);
    QVERIFY(dragSelected(channel, {960, 9.0}));
    QCOMPARE(selectedOf(channel), QVector<int>{2});
    QCOMPARE(channel.getKeyCache().at(2).dragStartTime, 0);
}

void TestFloatChannel::movesThatChangeTheOrderSendMessages()
{
    VxKeyCommunication bus;
    listen(&bus);
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "a.b.c");
    VxFloatChannel channel(property, &bus);
    channel.selectKey(0, true);
    channel.setKey(0, 80, 0.0);
    QCOMPARE(messages.size(), 0);
    channel.setKey(0, 400, 0.0);
    QCOMPARE(messages.size(), 2);
    QCOMPARE(messages.at(0).selectedKeys.value(property), QVector<qint32>{1});
    QCOMPARE(messages.at(1).deselectedKeys.value(property), QVector<qint32>{0});
    QVERIFY(!messages.at(0).clearSelection);
}

// Keys that pass others, each with what belongs to it.
void TestFloatChannel::movesMayCross()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "abc");
    VxFloatChannel channel(property, nullptr);
    select(channel, {0, 1});
    QVERIFY(dragSelected(channel, {480, 10.0, 0, true}));
    QCOMPARE(timesOf(property), QVector<int>({320, 480, 640}));
    QCOMPARE(property->getKeyValue(0), 2.0f);
    QCOMPARE(property->getKeyValue(1), 10.0f);
    QCOMPARE(property->getKeyValue(2), 11.0f);
    QCOMPARE(selectedOf(channel), QVector<int>({1, 2}));
}

void TestFloatChannel::lockedKeysStay()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "a.b.c");
    property->setLocked(true);
    VxFloatChannel channel(property, nullptr);
    channel.selectKey(0, true);
    channel.setKey(0, 400, 5.0);
    QVERIFY(!dragSelected(channel, {400, 5.0}));
    QVERIFY(!dragSelected(channel, {0, 5.0}));
    QCOMPARE(timesOf(property), QVector<int>({0, 320, 640}));
    QCOMPARE(selectedOf(channel), QVector<int>{0});
}

void TestFloatChannel::selectionFollowsKeysThroughARebuild()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "a.b.c");
    VxFloatChannel channel(property, nullptr);
    select(channel, {1});
    property->setKey(160, 0.0f, VxKeyInterp::Linear);
    channel.invalidateKeyCache();
    QCOMPARE(selectedOf(channel), QVector<int>{2});
    property->deleteKeys(0, 0);
    QCOMPARE(selectedOf(channel), QVector<int>{1});
    property->deleteKeys(1, 1);
    QCOMPARE(selectedOf(channel), QVector<int>());
}

void TestFloatChannel::keysPassedKeepTheirSelection()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "abcd");
    VxFloatChannel channel(property, nullptr);
    select(channel, {0, 2});
    channel.setKey(0, 960, 0.0);
    QCOMPARE(timesOf(property), QVector<int>({160, 320, 480, 960}));
    QCOMPARE(selectedOf(channel), QVector<int>({1, 3}));
}

void TestFloatChannel::aSelectedNeighbourStaysSelected_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("time");
    QTest::addColumn<int>("neighbour"); // before
    QTest::addColumn<QVector<int>>("selected");
    QTest::newRow("moved later") << 1 << 400 << 2 << QVector<int>({1, 2});
    QTest::newRow("moved earlier") << 2 << 80 << 1 << QVector<int>({1, 2});
}

// The passed key is reported, too, with its own state.
void TestFloatChannel::aSelectedNeighbourStaysSelected()
{
    QFETCH(int, index);
    QFETCH(int, time);
    QFETCH(int, neighbour);
    VxKeyCommunication bus;
    listen(&bus);
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "abcd");
    VxFloatChannel channel(property, &bus);
    select(channel, {index, neighbour});
    channel.setKey(index, time, 0.0);
    QTEST(selectedOf(channel), "selected");
    QCOMPARE(messages.size(), 2);
    QCOMPARE(messages.at(0).selectedKeys.value(property), QVector<qint32>{neighbour});
    QCOMPARE(messages.at(1).selectedKeys.value(property), QVector<qint32>{index});
}

void TestFloatChannel::selectingStoresTheDragStart()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "ab");
    VxFloatChannel channel(property, nullptr);
    channel.getKeyCache();
    channel.setKeyValue(1, 12.0);
    channel.selectKey(1, true);
    QCOMPARE(channel.getKeyCache().at(1).dragStartTime, 160);
    QCOMPARE(channel.getKeyCache().at(1).dragStartValue, 12.0);
}

void TestFloatChannel::refreshLeavesKeysThatAreNotSelected()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "ab");
    VxFloatChannel channel(property, nullptr);
    select(channel, {0});
    channel.setKeyValue(0, 12.0);
    channel.setKeyValue(1, 13.0);
    channel.refreshDragStart();
    QCOMPARE(channel.getKeyCache().at(0).dragStartValue, 12.0);
    QVERIFY(channel.getKeyCache().at(0).selectedAtPress);
    QCOMPARE(channel.getKeyCache().at(1).dragStartValue, 1.0);
    QVERIFY(!channel.getKeyCache().at(1).selectedAtPress);
}

void TestFloatChannel::selectingSendsAMessage()
{
    VxKeyCommunication bus;
    listen(&bus);
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "a.b.c");
    VxFloatChannel channel(property, &bus);
    channel.setKeySelected(1, true);
    channel.setKeySelected(1, false);
    channel.setKeySelected(3, true);
    QCOMPARE(messages.size(), 2);
    QCOMPARE(messages.at(0).selectedKeys.value(property), QVector<qint32>{1});
    QVERIFY(messages.at(0).deselectedKeys.isEmpty());
    QCOMPARE(messages.at(1).deselectedKeys.value(property), QVector<qint32>{1});
    QVERIFY(!bus.isMuted());
}

void TestFloatChannel::publishing()
{
    VxKeyCommunication bus;
    listen(&bus);
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "abcd");
    VxFloatChannel channel(property, &bus);
    select(channel, {0, 2, 3});
    channel.publishSelection();
    QCOMPARE(messages.size(), 1);
    QCOMPARE(messages.at(0).selectedKeys.value(property), QVector<qint32>({0, 2, 3}));
    QVERIFY(!messages.at(0).clearSelection);
    QVERIFY(messages.at(0).deselectedKeys.isEmpty());
    QVERIFY(messages.at(0).selectedTimes.isEmpty() && messages.at(0).deselectedTimes.isEmpty());
}

void TestFloatChannel::applyingSendsNoMessage()
{
    VxKeyCommunication bus;
    listen(&bus);
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "abcd");
    VxFloatProperty *other = makeKeys(addProperty(QStringLiteral("Twist")), "abcd");
    VxFloatChannel channel(property, &bus);
    select(channel, {0, 1});
    VxKeyMessage message;
    message.selectedKeys[property] = {1, 2};
    message.deselectedKeys[property] = {0};
    message.selectedKeys[other] = {3};
    channel.applyKeyMessage(message);
    QCOMPARE(selectedOf(channel), QVector<int>({1, 2}));
    message = VxKeyMessage();
    message.clearSelection = true;
    message.selectedKeys[property] = {3};
    channel.applyKeyMessage(message);
    QCOMPARE(selectedOf(channel), QVector<int>{3});
    QCOMPARE(messages.size(), 0);
}

void TestFloatChannel::deselectionIsSentLast()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "abc");
    VxFloatChannel channel(property, nullptr);
    VxKeyMessage message;
    message.selectedKeys[property] = {0, 1};
    message.deselectedKeys[property] = {1};
    channel.applyKeyMessage(message);
    QCOMPARE(selectedOf(channel), QVector<int>{0});
}

void TestFloatChannel::applyingIgnoresInvalidKeys()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "ab");
    VxFloatChannel channel(property, nullptr);
    VxKeyMessage message;
    message.selectedKeys[property] = {-1, 1, 2, 1000};
    message.deselectedKeys[property] = {-7, 9};
    channel.applyKeyMessage(message);
    QCOMPARE(selectedOf(channel), QVector<int>{1});
}

void TestFloatChannel::boxRestoresItsFormerKeys()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "abcdef");
    VxFloatChannel channel(property, nullptr);
    select(channel, {0, 4});
    channel.refreshDragStart();
    channel.selectInBox({160, 480, 1.0, 3.0}, true);
    QCOMPARE(selectedOf(channel), QVector<int>({0, 1, 2, 3, 4}));
    QCOMPARE(channel.getKeyCache().at(3).dragStartTime, 480);
    channel.selectInBox({160, 480, 2.0, 2.5}, true);
    QCOMPARE(selectedOf(channel), QVector<int>({0, 2, 4}));
    channel.selectInBox({0, 10000, 0.0, 100.0}, false);
    QCOMPARE(selectedOf(channel), QVector<int>());
    channel.selectInBox({9000, 10000, 0.0, 100.0}, false);
    QCOMPARE(selectedOf(channel), QVector<int>({0, 4}));
}

// Whatever the box does to a key, a drag starts from the key's current position.
void TestFloatChannel::boxUpdatesTheDragStart()
{
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "abcd");
    VxFloatChannel channel(property, nullptr);
    QCOMPARE(channel.getKeyCache().at(1).dragStartValue, 1.0);
    for (int i = 0; i < 4; ++i)
        channel.setKeyValue(i, 20.0 + i);
    channel.selectInBox({160, 160, 0.0, 100.0}, true);
    channel.selectInBox({320, 320, 0.0, 100.0}, false);
    QCOMPARE(channel.getKeyCache().at(0).dragStartValue, 0.0);
    QCOMPARE(channel.getKeyCache().at(1).dragStartValue, 21.0);
    QCOMPARE(channel.getKeyCache().at(2).dragStartValue, 22.0);
    QCOMPARE(channel.getKeyCache().at(3).dragStartValue, 3.0);
}

void TestFloatChannel::boxSendsOneMessage()
{
    VxKeyCommunication bus;
    listen(&bus);
    VxFloatProperty *property = makeKeys(addProperty(QStringLiteral("Bend")), "abcdef");
    VxFloatChannel channel(property, &bus);
    select(channel, {5});
    channel.refreshDragStart();
    channel.selectInBox({160, 480, 0.0, 9.0}, true);
    channel.selectInBox({480, 800, 0.0, 9.0}, true);
    channel.selectInBox({480, 800, 0.0, 9.0}, false);
    QCOMPARE(messages.size(), 3);
    QCOMPARE(messages.at(0).selectedKeys.value(property), QVector<qint32>({1, 2, 3}));
    QCOMPARE(messages.at(1).selectedKeys.value(property), QVector<qint32>({4}));
    QCOMPARE(messages.at(1).deselectedKeys.value(property), QVector<qint32>({1, 2}));
    QCOMPARE(messages.at(2).deselectedKeys.value(property), QVector<qint32>({3, 4, 5}));
}

// No report arrives before the block ends, and the number of keys stays the same.
void TestFloatChannel::showsPresentKeysWithinAChangeBlock()
{
    VxFloatProperty *property = addProperty(QStringLiteral("Block"));
    for (const VxTime time : {1600, 3200, 8000})
        property->setKey(time, 5.0f, VxKeyInterp::Linear);
    VxFloatChannel channel(property, nullptr);
    channel.selectKey(0, true);
    QCOMPARE(selectedOf(channel), QVector<int>{0});
    const VxChangeBlock block;
    QVERIFY(property->moveKeys({0}, {4800}));
    QCOMPARE(channel.getKeyCache().first().time, 3200);
    QCOMPARE(selectedOf(channel), QVector<int>());
}

VX_TEST_MAIN(TestFloatChannel)
#include "tst_vxfloatchannel.moc"
