#include "testing/vxtestmain.h"
#include "widgets/vxbuttoncontents.h"

#include <QtTest>

Q_DECLARE_METATYPE(VxButtonParts)

class TestVxButtonContents : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void place_data();
    void place();
    void enoughWidthShowsAll_data();
    void enoughWidthShowsAll();
};

void TestVxButtonContents::place_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<VxButtonParts>("parts");
    QTest::addColumn<QRect>("icon");
    QTest::addColumn<QRect>("text");
    QTest::addColumn<QRect>("arrow");
    const QSize none;
    const QSize icon(16, 16);
    const QRect no;
    QTest::newRow("nothing") << 100 << VxButtonParts{none, 0, 0, 4, Qt::AlignLeft} << no << no
                             << no;
    QTest::newRow("text left") << 100 << VxButtonParts{none, 30, 0, 4, Qt::AlignLeft} << no
                               << QRect(10, 5, 30, 20) << no;
    QTest::newRow("text in the middle") << 100 << VxButtonParts{none, 30, 0, 4, Qt::AlignHCenter}
                                        << no << QRect(45, 5, 30, 20) << no;
    QTest::newRow("text right") << 100 << VxButtonParts{none, 30, 0, 4, Qt::AlignRight} << no
                                << QRect(80, 5, 30, 20) << no;
    QTest::newRow("text right of which the arrow takes its place")
        << 100 << VxButtonParts{none, 30, 10, 4, Qt::AlignRight} << no << QRect(66, 5, 30, 20)
        << QRect(100, 5, 10, 20);
    QTest::newRow("icon alone in the middle")
        << 100 << VxButtonParts{icon, 0, 0, 4, Qt::AlignHCenter} << QRect(52, 7, 16, 16) << no
        << no;
    QTest::newRow("icon, text and arrow")
        << 100 << VxButtonParts{icon, 30, 10, 4, Qt::AlignLeft} << QRect(10, 7, 16, 16)
        << QRect(30, 5, 30, 20) << QRect(100, 5, 10, 20);
    QTest::newRow("long text gets what is left")
        << 60 << VxButtonParts{icon, 200, 10, 4, Qt::AlignHCenter} << QRect(10, 7, 16, 16)
        << QRect(30, 5, 26, 20) << QRect(60, 5, 10, 20);
    QTest::newRow("exact fit") << 64 << VxButtonParts{icon, 30, 10, 4, Qt::AlignHCenter}
                               << QRect(10, 7, 16, 16) << QRect(30, 5, 30, 20)
                               << QRect(64, 5, 10, 20);
    QTest::newRow("no room for the text") << 30 << VxButtonParts{icon, 30, 10, 4, Qt::AlignLeft}
                                          << QRect(10, 7, 16, 16) << no << QRect(30, 5, 10, 20);
    QTest::newRow("arrow alone") << 30 << VxButtonParts{none, 0, 10, 4, Qt::AlignLeft} << no << no
                                 << QRect(30, 5, 10, 20);
}

void TestVxButtonContents::place()
{
    QFETCH(int, width);
    QFETCH(VxButtonParts, parts);
    const VxButtonContents placed = vxPlaceButtonContents(QRect(10, 5, width, 20), parts);
    QTEST(placed.icon, "icon");
    QTEST(placed.text, "text");
    QTEST(placed.arrow, "arrow");
}

void TestVxButtonContents::enoughWidthShowsAll_data()
{
    QTest::addColumn<VxButtonParts>("parts");
    QTest::addColumn<int>("width");
    QTest::newRow("nothing") << VxButtonParts{QSize(), 0, 0, 4, Qt::AlignLeft} << 0;
    QTest::newRow("text") << VxButtonParts{QSize(), 30, 0, 4, Qt::AlignLeft} << 30;
    QTest::newRow("text, arrow") << VxButtonParts{QSize(), 30, 9, 4, Qt::AlignLeft} << 43;
    QTest::newRow("icon, arrow") << VxButtonParts{QSize(16, 16), 0, 9, 4, Qt::AlignLeft} << 29;
    QTest::newRow("all") << VxButtonParts{QSize(16, 16), 30, 9, 4, Qt::AlignLeft} << 63;
}

void TestVxButtonContents::enoughWidthShowsAll()
{
    QFETCH(VxButtonParts, parts);
    QFETCH(int, width);
    QCOMPARE(vxButtonContentsWidth(parts), width);
    QCOMPARE(vxPlaceButtonContents(QRect(0, 0, width, 20), parts).text.width(), parts.textWidth);
}

VX_TEST_APPLESS_MAIN(TestVxButtonContents)
#include "tst_vxbuttoncontents.moc"
