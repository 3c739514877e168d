// Texts of values in the parameters pane, and the endless drag on them.

#include "parameters/vxpointerwrap.h"
#include "parameters/vxpropertyvalue.h"
#include "testing/vxtestmain.h"

#include <QtTest>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>

class TestPropertyInput : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void textsOfNumbers_data();
    void textsOfNumbers();
    void numbersInNarrowPlaces_data();
    void numbersInNarrowPlaces();
    void floatsAreShownInTheirShortestForm();
    void germanNumbersAreShownAndTypedWithAComma();
    void everyFloatSurvivesItsText();
    void setTextReportsItsResult();
    void thePointerContinuesBeyondAnEdge();
    void movesBeforeTheJumpCount();
    void aPointerThatStaysEndsAtTheEdge();
};

void TestPropertyInput::textsOfNumbers_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0.0 << "0";
    QTest::newRow("negative zero") << -0.0 << "0";
    QTest::newRow("whole") << 120.0 << "120";
    QTest::newRow("rounded") << 0.123456 << "0.1235";
    QTest::newRow("small but not zero") << 0.000012 << "1.2e-05";
    QTest::newRow("small and negative") << -0.00003 << "-3e-05";
    QTest::newRow("large") << 123456789.25 << "123456789.25";
    QTest::newRow("beyond all digits") << 3.5e20 << "3.5e+20";
}

void TestPropertyInput::textsOfNumbers()
{
    QFETCH(double, value);
    QTEST(VxPropertyValue::numberText(value, 4), "text");
}

void TestPropertyInput::numbersInNarrowPlaces_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<int>("room"); // in letters
    QTest::addColumn<QString>("text");
    QTest::newRow("room for all") << 123456.79f << 9 << "123456.79";
    QTest::newRow("one decimal less") << 123456.79f << 8 << "123456.8";
    QTest::newRow("no decimal") << 123456.79f << 7 << "123457";
    QTest::newRow("no room for the whole number") << 123456.79f << 5 << "1e+05";
    QTest::newRow("rather too long than wrong") << 123456.79f << 2 << "1e+05";
    QTest::newRow("negative") << -0.26f << 4 << "-0.3";
    QTest::newRow("small but not zero") << 0.001234f << 5 << "0.001";
}

void TestPropertyInput::numbersInNarrowPlaces()
{
    QFETCH(float, value);
    QFETCH(int, room);
    VxFloatProperty property(QStringLiteral("p"));
    property.setStoredValue(value);
    QTEST(VxPropertyValue::narrowText(&property, 0,
                                      [room](const QString &text) { return text.size() <= room; }),
          "text");
}

void TestPropertyInput::floatsAreShownInTheirShortestForm()
{
    VxFloatProperty property(QStringLiteral("p"));
    property.setStoredValue(0.1f);
    QCOMPARE(VxPropertyValue::fullText(&property, 0), QString("0.1"));
    property.setStoredValue(12345.678f);
    QCOMPARE(VxPropertyValue::text(&property, 0), QString("12345.678"));
    property.setStoredValue(0.123456789f);
    QCOMPARE(VxPropertyValue::text(&property, 0), QString("0.1235"));
    QCOMPARE(VxPropertyValue::fullText(&property, 0), QString("0.12345679"));
    property.setPercentage(true);
    property.setStoredValue(0.07f);
    QCOMPARE(VxPropertyValue::fullText(&property, 0), QString("7%"));
}

/** What is copied to other programs stays plain; a point is read as well. */
void TestPropertyInput::germanNumbersAreShownAndTypedWithAComma()
{
    const QLocale former;
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    VxFloatProperty property(QStringLiteral("p"));
    property.setAnimatable(false);
    property.setMinMax(-10, 10);
    for (const char *typed : {"1,5", "1.5", "3,0/2"}) {
        property.setValue(0, 0);
        const auto result = VxPropertyValue::setText(&property, 0, QLatin1String(typed));
        QVERIFY2(result == VxPropertyValue::Set, typed);
        QCOMPARE(property.getValue(0), 1.5F);
    }
    QCOMPARE(VxPropertyValue::text(&property, 0), QString("1,5"));
    QCOMPARE(VxPropertyValue::narrowText(&property, 0, [](const QString &) { return true; }),
             QString("1,5"));
    QCOMPARE(VxPropertyValue::fullText(&property, 0), QString("1.5"));
    QLocale::setDefault(former);
}

/// Nothing is lost when a text is copied, or confirmed in its field.
void TestPropertyInput::everyFloatSurvivesItsText()
{
    VxFloatProperty property(QStringLiteral("p"));
    quint32 random = 1;
    for (int i = 0; i < 20000; ++i) {
        random = random * 1664525u + 1013904223u;
        const float value = (float(random >> 8) - 8388608.0f) * (i % 2 ? 1e-6f : 1e-3f);
        property.setPercentage(i % 3 == 0);
        property.setStoredValue(value);
        const QString text = VxPropertyValue::fullText(&property, 0);
        property.setStoredValue(0.0f);
        property.setAnimatable(false);
        QCOMPARE(VxPropertyValue::setText(&property, 0, text), VxPropertyValue::Set);
        if (property.getStoredValue() != value)
            QFAIL(qPrintable(QStringLiteral("%1 became %2 by way of %3")
                                 .arg(double(value), 0, 'g', 12)
                                 .arg(double(property.getStoredValue()), 0, 'g', 12)
                                 .arg(text)));
    }
}

void TestPropertyInput::setTextReportsItsResult()
{
    VxIntProperty whole(QStringLiteral("i"));
    whole.setAnimatable(false);
    whole.setMinMax(-5, 5);
    QCOMPARE(VxPropertyValue::setText(&whole, 0, "1+2"), VxPropertyValue::Set);
    QCOMPARE(whole.getValue(0), 3);
    QCOMPARE(VxPropertyValue::setText(&whole, 0, "+=1"), VxPropertyValue::Set);
    QCOMPARE(whole.getValue(0), 4);
    QCOMPARE(VxPropertyValue::setText(&whole, 0, "1e300"), VxPropertyValue::Limited);
    QCOMPARE(whole.getValue(0), 5);
    QCOMPARE(VxPropertyValue::setText(&whole, 0, "1.4"), VxPropertyValue::Limited);
    QCOMPARE(whole.getValue(0), 1);
    QCOMPARE(VxPropertyValue::setText(&whole, 0, "2%"), VxPropertyValue::Unreadable);
    QCOMPARE(VxPropertyValue::setText(&whole, 0, ""), VxPropertyValue::Unreadable);
    whole.setLocked(true);
    QCOMPARE(VxPropertyValue::setText(&whole, 0, "2"), VxPropertyValue::Refused);
    QCOMPARE(whole.getValue(0), 1);
}

void TestPropertyInput::thePointerContinuesBeyondAnEdge()
{
    VxPointerWrap hand(0, 799);
    int target = -1;
    QCOMPARE(hand.follow(700), 700);
    QVERIFY(!hand.needsJump(&target));
    QCOMPARE(hand.follow(799), 799);
    QVERIFY(hand.needsJump(&target));
    QCOMPARE(target, 2);
    QVERIFY(!hand.needsJump(&target)); // once
    QCOMPARE(hand.follow(2), 799);
    QCOMPARE(hand.follow(12), 809);
    // Round again, and all the way back.
    QCOMPARE(hand.follow(810), 1607); // beyond the edge, on a screen beside it
    QVERIFY(hand.needsJump(&target));
    QCOMPARE(hand.follow(4), 1609);
    QCOMPARE(hand.follow(0), 1605);
    QVERIFY(hand.needsJump(&target));
    QCOMPARE(target, 797);
    QCOMPARE(hand.follow(795), 1603);
}

void TestPropertyInput::movesBeforeTheJumpCount()
{
    VxPointerWrap hand(0, 799);
    int target = -1;
    hand.follow(799);
    QVERIFY(hand.needsJump(&target));
    QCOMPARE(hand.follow(790), 790);
    QCOMPARE(hand.follow(795), 795);
    QCOMPARE(hand.follow(5), 798); // from the target, which replaces the pointer's last position
}

void TestPropertyInput::aPointerThatStaysEndsAtTheEdge()
{
    VxPointerWrap hand(0, 799);
    int target = -1;
    hand.follow(799);
    QVERIFY(hand.needsJump(&target));
    for (int x = 799; x >= 0; x -= 30)
        QCOMPARE(hand.follow(x), x); // nowhere taken for a jump
    VxPointerWrap narrow(0, 50);
    narrow.follow(50);
    QVERIFY(!narrow.needsJump(&target));
}

VX_TEST_GUILESS_MAIN(TestPropertyInput)
#include "tst_vxpropertyinput.moc"
