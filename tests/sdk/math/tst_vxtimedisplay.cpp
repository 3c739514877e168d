#include "testing/vxtestmain.h"

#include <QtTest>
#include <vxcore/vxtimedisplay.h>

Q_DECLARE_METATYPE(VxFrameRate)

namespace {

constexpr VxFrameRate Ntsc{30000, 1001};

VxTimeDisplay timecodes(VxFrameRate rate, bool drops = true)
{
    return {VxTimeDisplay::Timecode, rate, drops};
}

} // namespace

/// Times as text, and timecodes of all rates.
class tst_VxTimeDisplay : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void timecode_data();
    void timecode();
    void dropFrameFollowsTheClock();
    void everyFrameHasItsOwnNumber();
    void skippedNumbersAreNoTimes();
    void texts_data();
    void texts();
    void typed_data();
    void typed();
    void textsAreReadAsTheSameTime();
    void rates_data();
    void rates();
};

// Drop-frame numbers as published tables have them.
void tst_VxTimeDisplay::timecode_data()
{
    QTest::addColumn<qint64>("frame");
    QTest::addColumn<int>("nominal");
    QTest::addColumn<bool>("drops");
    QTest::addColumn<QString>("text");
    const auto row = [](qint64 frame, int nominal, bool drops, const char *text) {
        QTest::addRow("%lld at %d%s", frame, nominal, drops ? ", drop-frame" : "")
            << frame << nominal << drops << QString::fromLatin1(text);
    };
    row(0, 30, true, "00:00:00;00");
    row(1799, 30, true, "00:00:59;29");
    row(1800, 30, true, "00:01:00;02");
    row(3597, 30, true, "00:01:59;29");
    row(3598, 30, true, "00:02:00;02");
    row(17981, 30, true, "00:09:59;29");
    row(17982, 30, true, "00:10:00;00");
    row(19781, 30, true, "00:10:59;29");
    row(19782, 30, true, "00:11:00;02");
    row(107892, 30, true, "01:00:00;00");
    row(-1800, 30, true, "-00:01:00;02");
    row(3599, 60, true, "00:00:59;59");
    row(3600, 60, true, "00:01:00;04");
    row(35964, 60, true, "00:10:00;00");
    row(1800, 30, false, "00:01:00:00");
    row(1439, 24, false, "00:00:59:23");
    row(86400, 24, false, "01:00:00:00");
    row(-25, 25, false, "-00:00:01:00");
    row(360000 * 25, 25, false, "100:00:00:00");
}

void tst_VxTimeDisplay::timecode()
{
    QFETCH(qint64, frame);
    QFETCH(int, nominal);
    QFETCH(bool, drops);
    QFETCH(QString, text);
    QCOMPARE(VxTimecode::text(frame, nominal, drops), text);
    const QStringList fields = text.mid(frame < 0 ? 1 : 0).split(QRegExp("[:;]"));
    QCOMPARE(VxTimecode::frameOf(fields.at(0).toInt(), fields.at(1).toInt(), fields.at(2).toInt(),
                                 fields.at(3).toInt(), nominal, drops),
             qAbs(frame));
}

// Within 0.16 seconds at any time of a day; without drop-frame it is 86 seconds off.
void tst_VxTimeDisplay::dropFrameFollowsTheClock()
{
    for (qint64 frame = 0; frame < 2589408; frame += 997) {
        const double clock = double(frame) * 1001 / 30000;
        const QStringList fields = VxTimecode::text(frame, 30, true).split(QRegExp("[:;]"));
        const double shown = fields.at(0).toInt() * 3600 + fields.at(1).toInt() * 60 +
                             fields.at(2).toInt() + fields.at(3).toInt() / 30.0;
        QVERIFY2(qAbs(shown - clock) < 0.16, qPrintable(QString::number(frame)));
    }
}

void tst_VxTimeDisplay::everyFrameHasItsOwnNumber()
{
    for (const int nominal : {30, 60, 120}) {
        QString last;
        for (qint64 frame = 0; frame < nominal * 1300; ++frame) {
            const QString text = VxTimecode::text(frame, nominal, true);
            QVERIFY2(nominal > 99 || text > last, qPrintable(text));
            const QStringList fields = text.split(QRegExp("[:;]"));
            QCOMPARE(VxTimecode::frameOf(fields.at(0).toInt(), fields.at(1).toInt(),
                                         fields.at(2).toInt(), fields.at(3).toInt(), nominal, true),
                     frame);
            last = text;
        }
    }
}

void tst_VxTimeDisplay::skippedNumbersAreNoTimes()
{
    QCOMPARE(VxTimecode::frameOf(0, 1, 0, 0, 30, true), -1);
    QCOMPARE(VxTimecode::frameOf(0, 1, 0, 1, 30, true), -1);
    QCOMPARE(VxTimecode::frameOf(0, 1, 0, 2, 30, true), 1800);
    QCOMPARE(VxTimecode::frameOf(0, 10, 0, 0, 30, true), 17982);
    QCOMPARE(VxTimecode::frameOf(0, 1, 0, 3, 60, true), -1);
    QCOMPARE(VxTimecode::frameOf(0, 0, 0, 30, 30, false), -1);
    QCOMPARE(VxTimecode::frameOf(0, 0, -1, 0, 30, false), -1);
    QCOMPARE(VxTimecode::frameOf(qQNaN(), 0, 0, 0, 30, false), -1);
}

void tst_VxTimeDisplay::texts_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<VxFrameRate>("rate");
    QTest::addColumn<int>("time");
    QTest::addColumn<int>("step");
    QTest::addColumn<QString>("text");
    const VxFrameRate none;
    QTest::newRow("frames") << 0 << none << 1600 << 160 << "10";
    QTest::newRow("frames at 29.97") << 0 << Ntsc << 1600 << 160 << "10";
    QTest::newRow("between frames") << 0 << none << 1640 << 160 << "10.25";
    QTest::newRow("before zero") << 0 << none << -40 << 160 << "-0.25";
    QTest::newRow("seconds") << 1 << none << 7200 << 160 << "1.5s";
    QTest::newRow("seconds at 29.97 are those of playback") << 1 << Ntsc << 7200 << 160 << "1.5s";
    QTest::newRow("ticks") << 2 << none << -7 << 160 << "-7t";
    QTest::newRow("timecode of the step") << 3 << none << 42 * 200 << 200 << "00:00:01:18";
    QTest::newRow("29.97") << 3 << Ntsc << 1800 * 160 << 160 << "00:01:00;02";
    QTest::newRow("23.976") << 3 << VxFrameRate{24000, 1001} << 1440 * 200 << 200 << "00:01:00:00";
    QTest::newRow("59.94") << 3 << VxFrameRate{60000, 1001} << 3600 * 80 << 80 << "00:01:00;04";
    QTest::newRow("timecode between frames") << 3 << none << 1640 << 160 << "10.25";
    QTest::newRow("earliest time") << 2 << none << VxTimeMin << 160 << "-2147483648t";
    QTest::newRow("earliest frame") << 3 << none << VxTimeMin << 1 << "-124:16:32:2048";
    QTest::newRow("no step") << 0 << none << 12 << 0 << "12";
}

void tst_VxTimeDisplay::texts()
{
    QFETCH(int, unit);
    QFETCH(VxFrameRate, rate);
    QFETCH(int, time);
    QFETCH(int, step);
    const VxTimeDisplay display{VxTimeDisplay::Unit(unit), rate, true};
    QTEST(display.text(time, step), "text");
}

void tst_VxTimeDisplay::typed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<VxFrameRate>("rate");
    QTest::addColumn<bool>("drops");
    QTest::addColumn<double>("frames"); // of 160 ticks; NaN: cannot be read
    QTest::newRow("drop-frame") << "00:01:00;02" << Ntsc << true << 1800.0;
    QTest::newRow("drop-frame with colons") << "00:10:00:00" << Ntsc << true << 17982.0;
    QTest::newRow("without drop-frame") << "00:10:00:00" << Ntsc << false << 18000.0;
    QTest::newRow("a semicolon asks for drop-frame") << "00:10:00;00" << Ntsc << false << 17982.0;
    QTest::newRow("short") << "1;02" << Ntsc << true << 32.0;
    QTest::newRow("a skipped number") << "00:01:00;00" << Ntsc << true << qQNaN();
    QTest::newRow("a semicolon at 24") << "00:01:00;02" << VxFrameRate{24, 1} << true << qQNaN();
    QTest::newRow("a semicolon too early") << "00;01:00:02" << Ntsc << true << qQNaN();
    QTest::newRow("23.976") << "00:01:00:00" << VxFrameRate{24000, 1001} << true << 1440.0;
    QTest::newRow("arithmetic") << "00:01:00;02 + 2 * 1:00" << Ntsc << true << 1860.0;
    QTest::newRow("a bare number counts frames") << "12" << Ntsc << true << 12.0;
}

void tst_VxTimeDisplay::typed()
{
    QFETCH(QString, text);
    QFETCH(VxFrameRate, rate);
    QFETCH(bool, drops);
    QFETCH(double, frames);
    const VxTypedInput input = timecodes(rate, drops).read(text, 160);
    QCOMPARE(input.kind, qIsNaN(frames) ? VxTypedInput::Unreadable : VxTypedInput::Value);
    if (!qIsNaN(frames))
        QCOMPARE(input.amount, frames * 160);
}

void tst_VxTimeDisplay::textsAreReadAsTheSameTime()
{
    for (const VxFrameRate rate : {VxFrameRate(), Ntsc, VxFrameRate{24000, 1001},
                                   VxFrameRate{60000, 1001}, VxFrameRate{25, 1}}) {
        for (const int unit : {0, 1, 2, 3}) {
            for (const bool drops : {true, false}) {
                const VxTimeDisplay display{VxTimeDisplay::Unit(unit), rate, drops};
                for (const int step : {160, 200, 40, 77}) {
                    for (int time = -100003; time < 4000000; time += 31999) {
                        for (const int each : {time, time / step * step}) {
                            const VxTypedInput input = display.read(display.text(each, step), step);
                            QCOMPARE(input.kind, VxTypedInput::Value);
                            QCOMPARE(qRound64(input.amount), qint64(each));
                        }
                    }
                }
            }
        }
    }
}

void tst_VxTimeDisplay::rates_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<VxFrameRate>("rate");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("canDrop");
    QTest::newRow("24") << 24.0 << VxFrameRate{24, 1} << "24" << false;
    QTest::newRow("29.97") << 29.97 << Ntsc << "29.97" << true;
    QTest::newRow("23.976") << 23.976 << VxFrameRate{24000, 1001} << "23.976" << false;
    QTest::newRow("23.98") << 23.98 << VxFrameRate{24000, 1001} << "23.976" << false;
    QTest::newRow("59.94") << 59.94 << VxFrameRate{60000, 1001} << "59.94" << true;
    QTest::newRow("30") << 30.0 << VxFrameRate{30, 1} << "30" << false;
    QTest::newRow("12.5") << 12.5 << VxFrameRate{25, 2} << "12.5" << false;
    QTest::newRow("0.5") << 0.5 << VxFrameRate{1, 2} << "0.5" << false;
    QTest::newRow("zero") << 0.0 << VxFrameRate() << "" << false;
    QTest::newRow("negative") << -24.0 << VxFrameRate() << "" << false;
    QTest::newRow("too high") << 1e9 << VxFrameRate() << "" << false;
    QTest::newRow("no number") << qQNaN() << VxFrameRate() << "" << false;
}

void tst_VxTimeDisplay::rates()
{
    QFETCH(double, number);
    QFETCH(VxFrameRate, rate);
    const VxFrameRate found = VxFrameRate::of(number);
    QCOMPARE(found.frames, rate.frames);
    QCOMPARE(found.seconds, rate.seconds);
    QCOMPARE(found.isValid(), rate.frames > 0);
    QTEST(found.text(), "text");
    QTEST(found.isValid() && found.canDropFrames(), "canDrop");
}

VX_TEST_APPLESS_MAIN(tst_VxTimeDisplay)
#include "tst_vxtimedisplay.moc"
