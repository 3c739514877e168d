#include "testing/vxtestmain.h"

#include <QtTest>
#include <vxcore/vxtypedinput.h>

/// Texts typed for values and times.
class tst_VxTypedInput : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void reading_data();
    void reading();
    void deepNestingIsNoValue();
    void offsets_data();
    void offsets();
    void times_data();
    void times();
};

void tst_VxTypedInput::reading_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::addColumn<double>("of8"); // the result for a present value of 8
    const int value = VxTypedInput::Value, bad = VxTypedInput::Unreadable;
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
    QTest::newRow("added") << "+=5" << int(VxTypedInput::Offset) << 13.0;
    QTest::newRow("subtracted") << "-=2*3" << int(VxTypedInput::Offset) << 2.0;
    QTest::newRow("multiplied") << "*=1/4" << int(VxTypedInput::Factor) << 2.0;
    QTest::newRow("divided") << "/=16" << int(VxTypedInput::Factor) << 0.5;
    QTest::newRow("nothing") << "" << int(VxTypedInput::Empty) << 8.0;
    QTest::newRow("only blanks") << " \t" << int(VxTypedInput::Empty) << 8.0;
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
    QTest::newRow("a time") << "1s" << bad << 8.0;
    QTest::newRow("a timecode") << "1:02" << bad << 8.0;
}

void tst_VxTypedInput::reading()
{
    QFETCH(QString, text);
    QFETCH(int, kind);
    QFETCH(double, of8);
    const VxTypedInput input = VxTypedInput::read(text);
    QCOMPARE(int(input.kind), kind);
    QCOMPARE(input.appliedTo(8.0), of8);
}

void tst_VxTypedInput::deepNestingIsNoValue()
{
    const auto nested = [](int depth) {
        return VxTypedInput::read(QString(depth, '(') + '1' + QString(depth, ')')).kind;
    };
    QCOMPARE(nested(50), VxTypedInput::Value);
    QCOMPARE(nested(51), VxTypedInput::Unreadable);
    QCOMPARE(nested(200000), VxTypedInput::Unreadable);
    QCOMPARE(VxTypedInput::read(QString(200001, '-') + '1').amount, -1.0);
}

void tst_VxTypedInput::offsets_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::addColumn<double>("of8");
    const int value = VxTypedInput::Value, bad = VxTypedInput::Unreadable;
    const int offset = VxTypedInput::Offset, factor = VxTypedInput::Factor;
    QTest::newRow("a number") << "12.5" << value << 12.5;
    QTest::newRow("plus") << "+10" << offset << 18.0;
    QTest::newRow("minus") << "-10" << offset << -2.0;
    QTest::newRow("minus a sum") << "-(2+3)" << offset << 3.0;
    QTest::newRow("a negative value") << "=-10" << value << -10.0;
    QTest::newRow("percent") << "150%" << factor << 12.0;
    QTest::newRow("negative percent after a star") << "*-50 %" << factor << -4.0;
    QTest::newRow("times") << "*2" << factor << 16.0;
    QTest::newRow("divided") << "/4" << factor << 2.0;
    QTest::newRow("plus equals") << "+=3" << offset << 11.0;
    QTest::newRow("divided by zero") << "/0" << bad << 8.0;
    QTest::newRow("percent alone") << "%" << bad << 8.0;
    QTest::newRow("a sign alone") << "+" << bad << 8.0;
    QTest::newRow("no number") << "nan%" << bad << 8.0;
    QTest::newRow("nothing") << "  " << int(VxTypedInput::Empty) << 8.0;
}

void tst_VxTypedInput::offsets()
{
    QFETCH(QString, text);
    QFETCH(int, kind);
    QFETCH(double, of8);
    const VxTypedInput input = VxTypedInput::read(text, VxTypedInput::OfOffsets);
    QCOMPARE(int(input.kind), kind);
    QCOMPARE(input.appliedTo(8.0), of8);
}

void tst_VxTypedInput::times_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("ticksPerFrame");
    QTest::addColumn<int>("kind");
    QTest::addColumn<double>("amount");
    const int value = VxTypedInput::Value, bad = VxTypedInput::Unreadable;
    const int offset = VxTypedInput::Offset, factor = VxTypedInput::Factor;
    QTest::newRow("frames") << "10" << 160 << value << 1600.0;
    QTest::newRow("frames with their unit") << "10f" << 160 << value << 1600.0;
    QTest::newRow("a part of a frame") << "0.5" << 160 << value << 80.0;
    QTest::newRow("seconds") << "1.5s" << 160 << value << 7200.0;
    QTest::newRow("milliseconds") << "250 ms" << 160 << value << 1200.0;
    QTest::newRow("ticks") << "7t" << 160 << value << 7.0;
    QTest::newRow("timecode") << "00:00:01:12" << 160 << value << 42 * 160.0;
    QTest::newRow("timecode of 24 frames a second")
        << "01:02:03:04" << 200 << value << (3723 * 24 + 4) * 200.0;
    QTest::newRow("short timecode") << "2:05" << 200 << value << 53 * 200.0;
    QTest::newRow("a frame too many in a timecode") << "0:30" << 160 << bad << 0.0;
    QTest::newRow("too many fields") << "1:1:1:1:1" << 160 << bad << 0.0;
    QTest::newRow("a broken timecode") << "1:" << 160 << bad << 0.0;
    QTest::newRow("fractions in a timecode") << "1.5:02" << 160 << bad << 0.0;
    QTest::newRow("mixed units") << "1s - 2 + 3t" << 160 << value << 4483.0;
    QTest::newRow("a multiple of a time") << "2 * 00:00:01:12" << 160 << value << 84 * 160.0;
    QTest::newRow("a multiple of frames") << "2 * 3" << 160 << value << 960.0;
    QTest::newRow("a part of a time") << "1s / 4" << 160 << value << 1200.0;
    QTest::newRow("a ratio of times counts frames") << "2s / 1s" << 160 << value << 320.0;
    QTest::newRow("the square of a time") << "1s * 1s" << 160 << bad << 0.0;
    QTest::newRow("a number divided by a time") << "1 / 1s" << 160 << bad << 0.0;
    QTest::newRow("later") << "+10" << 160 << offset << 1600.0;
    QTest::newRow("earlier by a time") << "-0.5s" << 160 << offset << -2400.0;
    QTest::newRow("a negative time") << "=-1s" << 160 << value << -4800.0;
    QTest::newRow("longer") << "150%" << 160 << factor << 1.5;
    QTest::newRow("a factor of a time") << "*2s" << 160 << bad << 0.0;
    QTest::newRow("percent of a time") << "+10%" << 160 << bad << 0.0;
    QTest::newRow("an unknown unit") << "3m" << 160 << bad << 0.0;
    QTest::newRow("no frames") << "3" << 0 << bad << 0.0;
}

void tst_VxTypedInput::times()
{
    QFETCH(QString, text);
    QFETCH(int, ticksPerFrame);
    QFETCH(int, kind);
    QFETCH(double, amount);
    const VxTypedInput input = VxTypedInput::readTime(text, ticksPerFrame, VxTypedInput::OfOffsets);
    QCOMPARE(int(input.kind), kind);
    QCOMPARE(input.amount, amount);
}

VX_TEST_GUILESS_MAIN(tst_VxTypedInput)
#include "tst_vxtypedinput.moc"
