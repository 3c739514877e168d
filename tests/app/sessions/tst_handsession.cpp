#include "studiotestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"

#include <QLabel>
#include <QLineEdit>
#include <QTreeView>
#include <cmath>
#include <random>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxtimeaxis.h>
#include <vxcore/vxundostack.h>

namespace {

constexpr int MarkSide = 9; // pixels
constexpr int Cycles = 4;   // of the captured walk, 145 frames each

} // namespace

/// A long capture edited by hand: mouse and keyboard events on the whole program, gestures counted.
/// A gesture is a press with its release, a command by key or menu, or what is typed up to Enter.
class tst_HandSession : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void aCaptureIsEdited();

private:
    static void repeatMotion();
    static void addJitter(VxNode *node);
    static double roughness(VxFloatProperty *channel);
    static qint64 keysOfScene();
    static QByteArray snapshot();

    void clickBone(const char *name, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void bandSelect(const QString &from, const QString &to, int firstFrame, int lastFrame);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void command(const char *action);
    void typeAndEnter(const QString &text);
    void checkGestures(int most);

    QTreeView *sheet() const { return inTimePane<QTreeView>("TimelineDopeSheetTView"); }

    int m_gestures = 0;
};

void tst_HandSession::init()
{
    setUp();
    start();
    window()->resize(1500, 950);
    openSample();
    repeatMotion();
    addJitter(vxScene->findNode("lShin"));
    vxApp->getUndoStack()->clear();
    QCoreApplication::processEvents();
    window()->viewport()->grab();
    m_gestures = 0;
}

/// A key on each of 580 frames, as a capture has them.
void tst_HandSession::repeatMotion()
{
    const VxTime length = 145 * Frame;
    vxScene->setAnimRange({0, Cycles * length - Frame});
    vxScene->setPlayRange({0, Cycles * length - Frame});
    for (const VxNode *node : vxScene->getNodes()) {
        for (VxProperty *property : node->getMadeProperties()) {
            auto *channel = qobject_cast<VxFloatProperty *>(property);
            if (!channel || channel->getNumKeys() < 2 || channel->getKeyHolder() != channel)
                continue;
            std::vector<float> cycle;
            for (int frame = 0; frame < 145; ++frame)
                cycle.push_back(channel->getValue(frame * Frame));
            for (int frame = 0; frame < Cycles * 145; ++frame)
                channel->setKey(frame * Frame, cycle[std::size_t(frame % 145)],
                                VxKeyInterp::Linear);
        }
    }
}

void tst_HandSession::addJitter(VxNode *node)
{
    std::mt19937 random(7);
    VxFloatProperty *channel = node->getXRotControl();
    for (int i = 0; i < channel->getNumKeys(); ++i)
        channel->setKeyValue(i, channel->getKeyValue(i) + (random() % 2 ? 1.0F : -1.0F));
}

/// The mean second difference of the selected keys' values, a measure of jitter.
double tst_HandSession::roughness(VxFloatProperty *channel)
{
    std::vector<double> values;
    for (const VxKeySpan &span : vxApp->getKeySelection()->spansOf(channel)) {
        for (int i = span.first; i < span.last; ++i)
            values.push_back(double(channel->getKeyValue(i)));
    }
    double sum = 0;
    for (std::size_t i = 2; i < values.size(); ++i)
        sum += std::abs(values[i - 2] - 2 * values[i - 1] + values[i]);
    return sum / double(values.size());
}

qint64 tst_HandSession::keysOfScene()
{
    qint64 count = 0;
    for (const VxNode *node : vxScene->getNodes()) {
        for (const VxProperty *property : node->getMadeProperties())
            count += property->getKeyHolder() == property ? property->getNumKeys() : 0;
    }
    return count;
}

QByteArray tst_HandSession::snapshot()
{
    QByteArray bytes;
    for (const VxNode *node : vxScene->getNodes()) {
        for (const VxProperty *property : node->getMadeProperties()) {
            const auto *channel = qobject_cast<const VxFloatProperty *>(property);
            if (!channel)
                continue;
            const VxKeyColumns<float> keys = channel->getKeys();
            bytes.append(reinterpret_cast<const char *>(keys.times), keys.count * 4);
            bytes.append(reinterpret_cast<const char *>(keys.values), keys.count * 4);
            bytes.append(reinterpret_cast<const char *>(keys.types), keys.types ? keys.count : 0);
        }
    }
    return bytes;
}

/// On the middle of the bone, where no other joint is near.
void tst_HandSession::clickBone(const char *name, Qt::KeyboardModifiers modifiers)
{
    const VxNode *node = vxScene->findNode(name);
    const QVector3D middle =
        node->getWorldTransform(vxScene->getTime()).map(node->getEndPoint() * 0.5F);
    VxMouseDriver(window()->viewport())
        .click(window()->viewport()->camera().project(middle)->toPoint(), Qt::LeftButton,
               modifiers);
    QCoreApplication::processEvents();
    QVERIFY2(node->isSelected(), name);
    ++m_gestures;
}

/// A drag from an open row without marks to another one; keys on every frame leave no gap between
/// A drag from an open row without marks to another one: keys on every frame leave no gap between
/// them to begin at.
void tst_HandSession::bandSelect(const QString &from, const QString &to, int firstFrame,
                                 int lastFrame)
{
    const VxTimeAxis *axis = VxTimeAxis::of(timePane());
    QWidget *area = sheet()->viewport();
    QWidget *views = axis->overlayParent();
    const auto pointOf = [&](const QString &row, double frame) {
        const QModelIndexList found =
            sheet()->model()->match(sheet()->model()->index(0, 0), Qt::DisplayRole, row, 1,
                                    Qt::MatchExactly | Qt::MatchRecursive);
        // A band selects the marks whose left edges it covers.
        const int x = axis->xOf(VxTime(frame * Frame)) - MarkSide / 2;
        return QPoint(area->mapFrom(window(), views->mapTo(window(), QPoint(x, 0))).x(),
                      sheet()->visualRect(found.value(0)).center().y());
    };
    const QPoint first = pointOf(from, firstFrame - 0.5);
    const QPoint last = pointOf(to, lastFrame + 0.5);
    QVERIFY(area->rect().contains(first) && area->rect().contains(last));
    VxMouseDriver(area).drag(first, last);
    QCoreApplication::processEvents();
    ++m_gestures;
}

void tst_HandSession::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    type(key, modifiers);
    ++m_gestures;
}

void tst_HandSession::command(const char *name)
{
    action(name)->trigger();
    QCoreApplication::processEvents();
    ++m_gestures;
}

/// What is typed, with tabs from field to field; a line feed is the arrow down, for a choice.
void tst_HandSession::typeAndEnter(const QString &text)
{
    for (const QChar c : text) {
        if (c == '\t' || c == '\n')
            QTest::keyClick(window()->windowHandle(), c == '\t' ? Qt::Key_Tab : Qt::Key_Down);
        else
            QTest::keyClick(window()->windowHandle(), c.toLatin1());
    }
    QTest::keyClick(window()->windowHandle(), Qt::Key_Return);
    QCoreApplication::processEvents();
    ++m_gestures;
}

void tst_HandSession::checkGestures(int most)
{
    QCOMPARE(std::max(m_gestures, most), most);
    m_gestures = 0;
}

void tst_HandSession::aCaptureIsEdited()
{
    VxUndoStack *stack = vxApp->getUndoStack();
    VxNode *shin = vxScene->findNode("lShin");
    VxFloatProperty *knee = shin->getXRotControl();
    const QByteArray start = snapshot();
    const qint64 allKeys = keysOfScene();
    QVERIFY(allKeys > 40000);

    // The knee's keys of frames 100 to 200.
    clickBone("lShin", Qt::AltModifier);
    bandSelect("Transforms", "Z Rotate", 100, 200);
    checkGestures(2);
    const VxKeySelectionEntries selected = vxApp->getKeySelection()->entries();
    QVERIFY(!selected.empty());
    for (const VxKeySelectionEntry &entry : selected) {
        QCOMPARE(entry.holder->getOwner(), shin);
        QCOMPARE(entry.spans.size(), std::size_t(1));
        QCOMPARE(entry.holder->getKeyTime(entry.spans[0].first), 100 * Frame);
        QCOMPARE(entry.holder->getKeyTime(entry.spans[0].last - 1), 200 * Frame);
    }

    // Retimed by ten frames.
    const float atStart = knee->getValue(100 * Frame);
    press(Qt::Key_G);
    typeAndEnter("10");
    checkGestures(2);
    QCOMPARE(stack->undoText(), QString("Move Keys"));
    QCOMPARE(knee->getValue(110 * Frame), atStart);

    // Scaled to 150 % about the first one.
    press(Qt::Key_S, Qt::ShiftModifier);
    typeAndEnter("150%");
    checkGestures(2);
    QCOMPARE(stack->undoText(), QString("Scale Times"));
    const std::vector<VxKeySpan> spans = vxApp->getKeySelection()->spansOf(knee);
    QCOMPARE(knee->getKeyTime(spans.front().first), 110 * Frame);
    QCOMPARE(knee->getKeyTime(spans.back().last - 1), 260 * Frame);

    // The jitter smoothed.
    const double rough = roughness(knee);
    command("VxKeyToolsSmoothButterworthAction");
    typeAndEnter("4");
    checkGestures(2);
    QVERIFY2(roughness(knee) < 0.7 * rough,
             qPrintable(QString("%1, before %2").arg(roughness(knee)).arg(rough)));

    // The right foot pinned over the step in which it slides least.
    VxNode *foot = vxScene->findNode("rFoot");
    const auto place = [foot](int frame) {
        return foot->getWorldTransform(frame * Frame).column(3).toVector3D();
    };
    int step = 300;
    for (int frame = 300; frame < 340; ++frame) {
        if ((place(frame + 8) - place(frame)).length() < (place(step + 8) - place(step)).length())
            step = frame;
    }
    QVERIFY((place(step + 8) - place(step)).length() > 0.1F);
    clickBone("rFoot");
    command("VxKeyToolsPinAction");
    typeAndEnter(QString("%1\t%2").arg(step).arg(step + 8));
    checkGestures(3);
    QCOMPARE(stack->undoText(), QString("Pin Joint"));
    for (int frame = step; frame <= step + 8; ++frame)
        QVERIFY((place(frame) - place(step)).length() < 0.1F);

    // The figure, to a tenth of its keys.
    command("VxKeyToolsReduceAction");
    typeAndEnter("10%\t\t\n");
    checkGestures(2);
    QCOMPARE(stack->undoText(), QString("Reduce Keys"));
    QVERIFY2(keysOfScene() <= allKeys / 9 && keysOfScene() > allKeys / 20,
             qPrintable(QString("%1 of %2").arg(keysOfScene()).arg(allKeys)));
    const QWidget *pane = window()->getPaneMgr()->findPane("VxKeyToolsPane");
    const QString result = pane->findChild<QLabel *>("result")->text();
    QVERIFY2(result.contains("largest error"), qPrintable(result));

    // All undone.
    QCOMPARE(stack->count(), 5);
    window()->viewport()->setFocus();
    for (int i = 0; i < 5; ++i)
        type(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(snapshot() == start);
    for (int i = 0; i < 5; ++i)
        stack->redo();
    QVERIFY(keysOfScene() < allKeys / 9);
}

VX_TEST_MAIN(tst_HandSession)
#include "tst_handsession.moc"
