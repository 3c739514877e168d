#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <vxcore/vxviewportmgr.h>

class tst_VxViewportMgr : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void conventions_data();
    void conventions();
    void acceleratorsAreDistinct();
    void modifiersThatDoNotCount();
    void noSingleButtonHasNoAccelerator();
    void operationsCanBeChanged();
    void panIsThree();
};

void tst_VxViewportMgr::conventions_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("operation");
    QTest::newRow("middle button pans")
        << int(Qt::MiddleButton) << int(Qt::NoModifier) << int(VxViewportMgr::Pan);
    QTest::newRow("middle button with Ctrl zooms")
        << int(Qt::MiddleButton) << int(Qt::ControlModifier) << int(VxViewportMgr::Zoom);
    QTest::newRow("middle button with Shift orbits")
        << int(Qt::MiddleButton) << int(Qt::ShiftModifier) << int(VxViewportMgr::Orbit);
    QTest::newRow("middle button with Ctrl and Shift does nothing")
        << int(Qt::MiddleButton) << int(Qt::ControlModifier | Qt::ShiftModifier) << 0;
    QTest::newRow("left button does nothing") << int(Qt::LeftButton) << int(Qt::NoModifier) << 0;
    QTest::newRow("right button does nothing") << int(Qt::RightButton) << int(Qt::NoModifier) << 0;
}

void tst_VxViewportMgr::conventions()
{
    QFETCH(int, button);
    QFETCH(int, modifiers);
    const VxViewportMgr manager;
    const int accelerator =
        manager.getMouseBtnAccelerator(Qt::MouseButton(button), Qt::KeyboardModifiers(modifiers));
    QVERIFY(accelerator != 0);
    QTEST(manager.getOperation(accelerator), "operation");
}

void tst_VxViewportMgr::acceleratorsAreDistinct()
{
    const VxViewportMgr manager;
    const Qt::KeyboardModifier modifiers[] = {Qt::ShiftModifier, Qt::ControlModifier,
                                              Qt::AltModifier, Qt::MetaModifier};
    QSet<int> seen;
    int count = 0;
    for (uint button = Qt::LeftButton; button <= uint(Qt::MaxMouseButton); button <<= 1) {
        for (int bits = 0; bits < 16; ++bits) {
            Qt::KeyboardModifiers set;
            for (int i = 0; i < 4; ++i)
                set.setFlag(modifiers[i], bits & (1 << i));
            seen.insert(manager.getMouseBtnAccelerator(Qt::MouseButton(button), set));
            ++count;
        }
    }
    QCOMPARE(seen.size(), count);
    QVERIFY(!seen.contains(0));
}

void tst_VxViewportMgr::modifiersThatDoNotCount()
{
    const VxViewportMgr manager;
    QCOMPARE(manager.getMouseBtnAccelerator(Qt::MiddleButton, Qt::KeypadModifier),
             manager.getMouseBtnAccelerator(Qt::MiddleButton, Qt::NoModifier));
}

void tst_VxViewportMgr::noSingleButtonHasNoAccelerator()
{
    const VxViewportMgr manager;
    QCOMPARE(manager.getMouseBtnAccelerator(Qt::NoButton, Qt::ControlModifier), 0);
    QCOMPARE(manager.getMouseBtnAccelerator(
                 Qt::MouseButton(int(Qt::LeftButton) | int(Qt::RightButton)), Qt::NoModifier),
             0);
    QCOMPARE(manager.getOperation(0), int(VxViewportMgr::NoOperation));
}

void tst_VxViewportMgr::operationsCanBeChanged()
{
    VxViewportMgr manager;
    const int altLeft = manager.getMouseBtnAccelerator(Qt::LeftButton, Qt::AltModifier);
    const int middle = manager.getMouseBtnAccelerator(Qt::MiddleButton, Qt::NoModifier);
    manager.setOperation(altLeft, VxViewportMgr::Pan);
    manager.setOperation(middle, VxViewportMgr::NoOperation);
    manager.setOperation(0, VxViewportMgr::Pan);
    QCOMPARE(manager.getOperation(altLeft), int(VxViewportMgr::Pan));
    QCOMPARE(manager.getOperation(middle), 0);
    QCOMPARE(manager.getOperation(0), 0);
}

void tst_VxViewportMgr::panIsThree()
{
    // Views outside of the host use the operation's number.
    QCOMPARE(int(VxViewportMgr::Pan), 3);
}

VX_TEST_MAIN(tst_VxViewportMgr)
#include "tst_vxviewportmgr.moc"
