// Markers as CSV text: what is written is read back; what is wrong is named by line and column.

#include "io/csv/vxmarkercsv.h"
#include "testing/vxtestmain.h"

#include <QtTest>
#include <random>

namespace {

bool read(const QByteArray &bytes, VxMarkerList *markers, VxFileError *error)
{
    const VxTimeDisplay display{VxTimeDisplay::Frames, {30000, 1001}, true};
    return vxReadMarkerCsv(bytes, display, 160, markers, error);
}

// As name@start-end colour, in ticks.
QString drawn(const VxMarkerList &markers)
{
    QStringList texts;
    for (const VxMarker &each : markers)
        texts.append(QStringLiteral("%1@%2-%3 %4")
                         .arg(each.name)
                         .arg(each.span.getStart())
                         .arg(each.span.getEnd())
                         .arg(each.color & 0xffffff, 6, 16, QLatin1Char('0')));
    return texts.join(QLatin1Char('|'));
}

} // namespace

class tst_VxMarkerCsv : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void writtenText();
    void readTexts_data();
    void readTexts();
    void errors_data();
    void errors();
    void anyMarkersRoundTrip();
    void damagedTextsNeverCrash();
};

void tst_VxMarkerCsv::writtenText()
{
    VxMarker point;
    point.name = QStringLiteral("Start");
    point.span = VxTimeRange(1, 1);
    VxMarker span;
    span.name = QStringLiteral("a \"b\", c");
    span.span = VxTimeRange(-4800, 7200);
    span.color = 0xff0102ff;
    QCOMPARE(vxWriteMarkerCsv({point, span}),
             QByteArray("name,start,end,colour\r\n"
                        "Start,0.000208,,#e0a030\r\n"
                        "\"a \"\"b\"\", c\",-1.000000,1.500000,#0102ff\r\n"));
    QCOMPARE(vxWriteMarkerCsv({}), QByteArray("name,start,end,colour\r\n"));
}

void tst_VxMarkerCsv::readTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("markers");
    const auto row = [](const char *name, const char *text, const char *markers) {
        QTest::newRow(name) << QByteArray(text) << QString::fromUtf8(markers);
    };
    row("a point", "name,start,end,colour\na,1,,\n", "a@4800-4800 e0a030");
    row("a span", "name,start,end,colour\na,1,2.5,#ff0000\n", "a@4800-12000 ff0000");
    row("no markers", "name,start,end,colour\n", "");
    row("start alone", "start\n0\n-1", "@0-0 e0a030|@-4800--4800 e0a030");
    row("another order", "Colour,END,Name,start\nred,2,x,1", "x@4800-9600 ff0000");
    row("the other spelling", "start,color\n1,blue", "@4800-4800 0000ff");
    row("short rows", "start,end,colour,name\n1\n2,3", "@4800-4800 e0a030|@9600-14400 e0a030");
    row("frames and ticks", "start,end\n12f,1930t", "@1920-1930 e0a030");
    row("timecode", "start\n00:00:01:12", "@6720-6720 e0a030");
    row("drop-frame timecode", "start\n00:01:00;02", "@288000-288000 e0a030");
    row("quotes, breaks and blanks", "name,start\r\n\"a \"\"b\"\",\r\nc \",1\r\n",
        "a \"b\",\r\nc @4800-4800 e0a030");
    row("a byte order mark", "\xEF\xBB\xBFname,start\n\xC3\xA4,1", "\xC3\xA4@4800-4800 e0a030");
    row("empty lines", "\n\nname,start\n\na,1\n\n", "a@4800-4800 e0a030");
}

void tst_VxMarkerCsv::readTexts()
{
    QFETCH(QByteArray, text);
    VxMarkerList markers;
    VxFileError error;
    QVERIFY2(read(text, &markers, &error), qPrintable(error.text()));
    QTEST(drawn(markers), "markers");
}

void tst_VxMarkerCsv::errors_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("message");
    const auto row = [](const char *name, const char *text, int line, int column,
                        const char *message) {
        QTest::newRow(name) << QByteArray(text) << line << column << QString::fromLatin1(message);
    };
    row("empty", "", -1, -1, "The file is empty");
    row("no header", "a,1,2,#ff0000\n", 1, 1, "Unknown column \"a\"");
    row("unknown column", "name,start,length\n", 1, 3, "Unknown column \"length\"");
    row("a column twice", "start,color,colour\n", 1, 3, "occurs twice");
    row("no start column", "name,end\n", 1, 1, "\"start\" is missing");
    row("no start", "name,start\na,1\nb,\n", 3, 2, "The start is missing");
    row("no time", "name,start\na,soon\n", 2, 2, "\"soon\" is not a time");
    row("no number", "start\nnan\n", 2, 1, "is not a time");
    row("endless", "start\ninf\n", 2, 1, "is not a time");
    row("a change", "start\n+=5f\n", 2, 1, "is not a time");
    row("a skipped timecode", "start\n00:01:00;00\n", 2, 1, "is not a time");
    row("beyond all times", "start,end\n0,500000\n", 2, 2, "out of range");
    row("ends before", "start,end\n1,2\n3,2.9\n", 3, 2, "The end is before the start");
    row("no colour", "start,colour\n1,sky\n", 2, 2, "\"sky\" is not a colour");
    row("too many cells", "start,colour\n1,red,2\n", 2, 3, "more cells");
    row("an open quotation mark", "name,start\n\"a,1\n", 2, 1, "not closed");
    row("no text", "name,start\n\"\xff\",1\n", 2, 1, "not UTF-8");
    row("after a name of two lines", "name,start\n\"a\nb\",1\nc,x\n", 4, 2, "not a time");
}

void tst_VxMarkerCsv::errors()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    VxMarkerList markers{VxMarker()};
    VxFileError error;
    QVERIFY(!read(text, &markers, &error));
    QVERIFY2(error.message.contains(message), qPrintable(error.text()));
    QTEST(int(error.line), "line");
    QTEST(int(error.column), "column");
    QCOMPARE(markers.size(), 1); // nothing is half read
}

void tst_VxMarkerCsv::anyMarkersRoundTrip()
{
    std::mt19937 random(7);
    const QString letters = QString::fromUtf8("ab ,\"\n\r;\täß\xE6\x97\xA5#=");
    VxMarkerList markers;
    for (int i = 0; i < 3000; ++i) {
        VxMarker marker;
        for (int length = int(random() % 8); length > 0; --length)
            marker.name += letters.at(int(random() % uint(letters.size())));
        const auto a = VxTime(random());
        const auto b = VxTime(random());
        marker.span = random() % 2 ? VxTimeRange(a, a) : VxTimeRange(qMin(a, b), qMax(a, b));
        marker.color = 0xff000000 | QRgb(random());
        markers.append(marker);
    }
    VxMarkerList copy;
    VxFileError error;
    QVERIFY2(read(vxWriteMarkerCsv(markers), &copy, &error), qPrintable(error.text()));
    QCOMPARE(copy.size(), markers.size());
    for (int i = 0; i < markers.size(); ++i)
        QCOMPARE(drawn({copy.at(i)}), drawn({markers.at(i)}));
}

void tst_VxMarkerCsv::damagedTextsNeverCrash()
{
    const QByteArray whole("name,start,end,colour\r\n\"a, \"\"b\"\"\",1.5,00:00:03:02,#ff0000\r\n"
                           "c,12f,,\r\nd,-1,2s,blue\r\n");
    std::mt19937 random(3);
    for (int i = 0; i < 20000; ++i) {
        QByteArray damaged = whole;
        for (int changes = 1 + int(random() % 3); changes > 0; --changes)
            damaged[int(random() % uint(damaged.size()))] = char(random());
        damaged.truncate(int(random() % uint(damaged.size() + 1)));
        VxMarkerList markers{VxMarker(), VxMarker()};
        VxFileError error;
        if (!read(damaged, &markers, &error)) {
            QVERIFY(!error.message.isEmpty());
            QCOMPARE(markers.size(), 2);
        }
    }
}

VX_TEST_APPLESS_MAIN(tst_VxMarkerCsv)
#include "tst_vxmarkercsv.moc"
