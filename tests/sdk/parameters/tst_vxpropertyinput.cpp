// What is typed into a value's field: arithmetic, and changes of the present value.

#include "parameters/vxendlesshand.h"
#include "parameters/vxpropertyinput.h"
#include "parameters/vxpropertyvalue.h"
#include "testing/vxtestmain.h"

#include <QtTest>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>

class TestPropertyInput : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void reading_data();
    void reading();
    void deepNestingIsNoValue();
    void textsOfNumbers_data();
    void textsOfNumbers();
    void numbersInNarrowPlaces_data();
    void numbersInNarrowPlaces();
    void floatsAreShownAsTheyAreMeant();
    void everyFloatSurvivesItsText();
    void whatIsSetIsTold();
    void theHandGoesOnBeyondAnEdge();
    void movesBeforeTheJumpCount();
    void aPointerThatStaysEndsAtTheEdge();
};

void TestPropertyInput::reading_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::addColumn<double>("of8"); // what comes of a present value of 8
    const int value = VxPropertyInput::Value, bad = VxPropertyInput::Unreadable;
    QTest::newRow("a number") << "12.5" << value << 12.5;
    QTest::newRow("a comma") << "-1,5" << value << -1.5;
    QTest::newRow("no digit before the point") << ".5" << value << 0.5;
    QTest::newRow("no digit behind the point") << "3." << value << 3.0;
    QTest::newRow("a power of ten") << "2.5e-3" << value << 0.0025;
    QTest::newRow("blanks") << "  1 + 2 " << value << 3.0;
    QTest::newRow("products first") << "2+3*4-6/2" << value << 11.0;
    QTest::newRow("from the left") << "24/4/2-1-1" << value << 1.0;
    QTest::newRow("parentheses") << "(2+3)*(1-(4))" << value << -15.0;
    QTest::newRow("signs in a row") << "3--2" << value << 5.0;
    QTest::newRow("a sign before a parenthesis") << "-(2+1)" << value << -3.0;
    QTest::newRow("a percent sign") << "75 %" << value << 75.0;
    QTest::newRow("added") << "+=5" << int(VxPropertyInput::Offset) << 13.0;
    QTest::newRow("taken off") << "-=2*3" << int(VxPropertyInput::Offset) << 2.0;
    QTest::newRow("multiplied") << "*=1/4" << int(VxPropertyInput::Factor) << 2.0;
    QTest::newRow("divided") << "/=16" << int(VxPropertyInput::Factor) << 0.5;
    QTest::newRow("nothing") << "" << int(VxPropertyInput::Empty) << 8.0;
    QTest::newRow("only blanks") << " \t" << int(VxPropertyInput::Empty) << 8.0;
    QTest::newRow("an operator too many") << "3*" << bad << 8.0;
    QTest::newRow("an open parenthesis") << "(3" << bad << 8.0;
    QTest::newRow("a closed one") << "3)" << bad << 8.0;
    QTest::newRow("empty parentheses") << "()" << bad << 8.0;
    QTest::newRow("two numbers") << "3(4)" << bad << 8.0;
    QTest::newRow("two points") << "1.2.3" << bad << 8.0;
    QTest::newRow("only a sign") << "-" << bad << 8.0;
    QTest::newRow("only a percent sign") << "%" << bad << 8.0;
    QTest::newRow("nothing to add") << "+=" << bad << 8.0;
    QTest::newRow("divided by zero") << "1/0" << bad << 8.0;
    QTest::newRow("changed by a division by zero") << "/=0" << bad << 8.0;
    QTest::newRow("too large for any number") << "1e400" << bad << 8.0;
    QTest::newRow("a word") << "inf" << bad << 8.0;
    QTest::newRow("another one") << "nan" << bad << 8.0;
    QTest::newRow("a unit") << "3 cm" << bad << 8.0;
    QTest::newRow("letters beyond ASCII") << QString::fromUtf8("3\u00b0") << bad << 8.0;
    QTest::newRow("equals") << "=5" << bad << 8.0;
}

void TestPropertyInput::reading()
{
    QFETCH(QString, text);
    QFETCH(int, kind);
    QFETCH(double, of8);
    const VxPropertyInput input = VxPropertyInput::read(text);
    QCOMPARE(int(input.kind), kind);
    QCOMPARE(input.appliedTo(8.0), of8);
}

void TestPropertyInput::deepNestingIsNoValue()
{
    const auto nested = [](int depth) {
        return VxPropertyInput::read(QString(depth, '(') + '1' + QString(depth, ')')).kind;
    };
    QCOMPARE(nested(50), VxPropertyInput::Value);
    QCOMPARE(nested(51), VxPropertyInput::Unreadable);
    QCOMPARE(nested(200000), VxPropertyInput::Unreadable);
    QCOMPARE(VxPropertyInput::read(QString(200001, '-') + '1').amount, -1.0);
}

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

void TestPropertyInput::floatsAreShownAsTheyAreMeant()
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

void TestPropertyInput::whatIsSetIsTold()
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

void TestPropertyInput::theHandGoesOnBeyondAnEdge()
{
    VxEndlessHand hand(0, 799);
    int target = -1;
    QCOMPARE(hand.follow(700), 700);
    QVERIFY(!hand.wantsJump(&target));
    QCOMPARE(hand.follow(799), 799);
    QVERIFY(hand.wantsJump(&target));
    QCOMPARE(target, 2);
    QVERIFY(!hand.wantsJump(&target)); // once
    QCOMPARE(hand.follow(2), 799);
    QCOMPARE(hand.follow(12), 809);
    // Round again, and all the way back.
    QCOMPARE(hand.follow(810), 1607); // beyond the edge, on a screen beside it
    QVERIFY(hand.wantsJump(&target));
    QCOMPARE(hand.follow(4), 1609);
    QCOMPARE(hand.follow(0), 1605);
    QVERIFY(hand.wantsJump(&target));
    QCOMPARE(target, 797);
    QCOMPARE(hand.follow(795), 1603);
}

void TestPropertyInput::movesBeforeTheJumpCount()
{
    VxEndlessHand hand(0, 799);
    int target = -1;
    hand.follow(799);
    QVERIFY(hand.wantsJump(&target));
    QCOMPARE(hand.follow(790), 790);
    QCOMPARE(hand.follow(795), 795);
    QCOMPARE(hand.follow(5), 798); // from the target, which stands for where the hand was last
}

void TestPropertyInput::aPointerThatStaysEndsAtTheEdge()
{
    VxEndlessHand hand(0, 799);
    int target = -1;
    hand.follow(799);
    QVERIFY(hand.wantsJump(&target));
    for (int x = 799; x >= 0; x -= 30)
        QCOMPARE(hand.follow(x), x); // nowhere taken for a jump
    VxEndlessHand narrow(0, 50);
    narrow.follow(50);
    QVERIFY(!narrow.wantsJump(&target));
}

VX_TEST_GUILESS_MAIN(TestPropertyInput)
#include "tst_vxpropertyinput.moc"
