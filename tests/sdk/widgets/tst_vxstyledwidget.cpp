#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxwidgetpictures.h"

#include <QtTest>
#include <vxcore/vxstyledwidget.h>

class TestVxStyledWidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void styleSheetByObjectNamePaintsBackground()
    {
        VxWarningGuard guard;
        QWidget window;
        window.setStyleSheet("#HeaderColumn { background: #2040a0; border: 2px solid #ff8000; }");
        VxStyledWidget named(&window);
        named.setObjectName("HeaderColumn");
        named.resize(40, 20);
        VxStyledWidget other(&window);
        other.setObjectName("Other");
        other.resize(40, 20);
        const QImage styled = pictureOf(named);
        QCOMPARE(styled.pixelColor(20, 10), QColor(0x20, 0x40, 0xa0));
        QCOMPARE(styled.pixelColor(0, 10), QColor(0xff, 0x80, 0x00));
        QCOMPARE(pictureOf(other).pixelColor(20, 10), window.palette().color(QPalette::Window));
    }

    void withoutStyleSheetIsTransparent()
    {
        VxWarningGuard guard;
        VxStyledWidget parent;
        QPalette red = parent.palette();
        red.setColor(QPalette::Window, Qt::red);
        parent.setPalette(red);
        parent.setAutoFillBackground(true);
        parent.resize(20, 20);
        VxStyledWidget child(&parent);
        child.resize(20, 20);
        QCOMPARE(countOf(pictureOf(parent), Qt::red, QRect(0, 0, 20, 20)), 400);
    }
};

VX_TEST_MAIN(TestVxStyledWidget)
#include "tst_vxstyledwidget.moc"
