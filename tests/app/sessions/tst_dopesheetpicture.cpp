// The dope sheet's picture of a motion file: its marks are in the columns that the frames of the
// file ask for, and nowhere else. Everything expected is worked out here from the file's text and
// the style's measures.

#include "studiotestbase.h"
#include "testing/vxtestmain.h"

#include <QHeaderView>
#include <QPainter>
#include <QProcess>
#include <QTreeView>
#include <cmath>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxstyle.h>

namespace {

constexpr int NameColumn = 0;
constexpr int KeysColumn = 1;

// The motion as the file has it.
struct Motion
{
    int frames = 0;
    double frameTime = 0; // seconds
};

Motion motionOf(const QByteArray &text)
{
    Motion motion;
    for (const QByteArray &line : text.split('\n')) {
        if (line.startsWith("Frames:"))
            motion.frames = line.mid(7).trimmed().toInt();
        if (line.startsWith("Frame Time:"))
            motion.frameTime = line.mid(11).trimmed().toDouble();
    }
    return motion;
}

// One joint that turns all the time.
QByteArray plainFile(int frames, const char *frameTime)
{
    QByteArray text = "HIERARCHY\nROOT hip\n{\nOFFSET 0 0 0\nCHANNELS 6 Xposition Yposition "
                      "Zposition Zrotation Yrotation Xrotation\nEnd Site\n{\nOFFSET 0 10 0\n}\n}\n"
                      "MOTION\nFrames: ";
    text += QByteArray::number(frames) + "\nFrame Time: " + frameTime + "\n";
    for (int i = 0; i < frames; ++i) {
        const QByteArray value = QByteArray::number((i * 37) % 90);
        text += value + " " + value + " 0 " + value + " 1 " + value + "\n";
    }
    return text;
}

// The scale, in its own words: products in 32 bits, positions truncated.
struct Scale
{
    int frameWidth = 0;
    int keyMargin = 0;
    int framesPerSecond = 0;
    double zoom = 0;
    VxTime playStart = 0;

    int x(VxTime time) const
    {
        const auto product = qint32(quint32(time) * quint32(framesPerSecond * frameWidth));
        return int(product * zoom / 4800.0);
    }
    int keyLeft(int column, VxTime time) const
    {
        return column + int(float(keyMargin) * 0.5f - float(x(playStart))) + x(time);
    }
};

} // namespace

class TestDopeSheetPicture : public QObject, private StudioTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void marksAreDrawnAtTheirFrames_data();
    void marksAreDrawnAtTheirFrames();
    void atTwiceTheScale();

private:
    Scale scaleOf(const Motion &motion) const;
    QModelIndex rowOfProperty(const VxNode *node, const VxProperty *property) const;
    // The pixels of a mark along its middle, and those of a row.
    QVector<QRgb> markLine(QStyle::State look) const;
    QVector<QRgb> rowLine(const QModelIndex &row) const;
    void checkRow(const QModelIndex &row, QStyle::State look);
    int ratio() const { return m_view->devicePixelRatio(); }

    QTreeView *m_view = nullptr;
    Motion m_motion;
};

void TestDopeSheetPicture::marksAreDrawnAtTheirFrames_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("firstFrame");
    QTest::addColumn<int>("lastFrame");

    QFile sample(QStringLiteral(VX_SOURCE_DIR "/samples/walk.bvh"));
    QVERIFY(sample.open(QIODevice::ReadOnly));
    const QByteArray walk = sample.readAll();
    const QByteArray dense = plainFile(2000, "0.008333333");
    const QSize small(1280, 800);
    const QSize large(2560, 1440);
    QTest::newRow("the sample") << walk << small << 0 << 144;
    QTest::newRow("the sample on a large screen") << walk << large << 0 << 144;
    QTest::newRow("twenty frames of it") << walk << small << 31 << 50;
    QTest::newRow("many frames a pixel") << dense << small << 0 << 1999;
    QTest::newRow("few of many frames") << dense << small << 700 << 820;
    QTest::newRow("two frames") << plainFile(2, "0.04") << small << 0 << 1;
}

Scale TestDopeSheetPicture::scaleOf(const Motion &motion) const
{
    const VxStyle *style = vxApp->getStyle();
    Scale scale;
    scale.frameWidth = style->metric(VxStyle::PM_VxTimelineFrameWidth);
    scale.keyMargin = style->metric(VxStyle::PM_VxTimelineKeyMargin);
    scale.framesPerSecond = int(std::lround(1 / motion.frameTime));
    scale.playStart = vxScene->getPlayRange().getStart();
    const int width = m_view->columnWidth(KeysColumn) - 30;
    scale.zoom = width * 4800.0 / vxScene->getPlayRange().getDuration() / scale.frameWidth /
                 scale.framesPerSecond;
    return scale;
}

// A node's properties precede its children.
QModelIndex TestDopeSheetPicture::rowOfProperty(const VxNode *node,
                                                const VxProperty *property) const
{
    const QAbstractItemModel *model = m_view->model();
    const auto flags = Qt::MatchExactly | Qt::MatchRecursive;
    const QModelIndex row =
        model->match(model->index(0, 0), Qt::DisplayRole, node->getLabel(), 1, flags).value(0);
    return model->match(model->index(0, 0, row), Qt::DisplayRole, property->getLabel(), 1, flags)
        .value(0);
}

QVector<QRgb> TestDopeSheetPicture::markLine(QStyle::State look) const
{
    const int side = vxApp->getStyle()->metric(VxStyle::PM_VxTimelineFrameWidth);
    QImage image(side * ratio(), side * ratio(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio());
    image.fill(Qt::transparent);
    QPainter painter(&image);
    VxStyleOptionCustom option;
    option.initFrom(m_view);
    option.rect = QRect(0, 0, side, side);
    option.state |= look;
    vxApp->getStyle()->drawPrimitive(static_cast<QStyle::PrimitiveElement>(VxStyle::PE_VxKeyMark),
                                     &option, &painter, m_view);
    painter.end();
    QVector<QRgb> line;
    for (int x = 0; x < image.width(); ++x)
        line += image.pixel(x, side / 2 * ratio());
    return line;
}

QVector<QRgb> TestDopeSheetPicture::rowLine(const QModelIndex &row) const
{
    m_view->scrollTo(row);
    QCoreApplication::processEvents();
    const QImage image = m_view->viewport()->grab().toImage();
    const QRect rect = m_view->visualRect(row);
    const int y = (rect.y() + rect.height() / 2) * ratio();
    QVector<QRgb> line;
    for (int x = 0; x < image.width(); ++x)
        line += image.pixel(x, y);
    return line;
}

void TestDopeSheetPicture::checkRow(const QModelIndex &row, QStyle::State look)
{
    const Scale scale = scaleOf(m_motion);
    const QVector<QRgb> picture = rowLine(row);
    const QVector<QRgb> mark = markLine(look);
    const int column = m_view->columnWidth(NameColumn);
    const int end = column + m_view->columnWidth(KeysColumn);
    QVERIFY(scale.framesPerSecond > 0);
    const VxTime step = 4800 / scale.framesPerSecond;

    // Later marks cover earlier ones; translucent pixels are not compared.
    QVector<QRgb> expected(picture.size(), 0);
    int marks = 0;
    for (int frame = 0; frame < m_motion.frames; ++frame) {
        const int left = scale.keyLeft(column, frame * step);
        if (left < column || left + scale.frameWidth > end)
            continue;
        ++marks;
        for (int i = 0; i < mark.size(); ++i) {
            if (qAlpha(mark.at(i)) > 0)
                expected[left * ratio() + i] = mark.at(i);
        }
    }
    QVERIFY(marks > 1);
    const QRgb fill = mark.at(mark.size() / 2);
    QCOMPARE(qAlpha(fill), 255);
    for (int x = column * ratio(); x < picture.size(); ++x) {
        const QByteArray where = "column " + QByteArray::number(x) + " of \"" +
                                 row.data().toString().toUtf8() +
                                 "\": " + QByteArray::number(picture.at(x), 16) + ", not " +
                                 QByteArray::number(expected.at(x), 16);
        if (qAlpha(expected.at(x)) == 255)
            QVERIFY2(picture.at(x) == expected.at(x), where.constData());
        else if (qAlpha(expected.at(x)) == 0)
            QVERIFY2(picture.at(x) != fill, where.constData());
    }
}

void TestDopeSheetPicture::marksAreDrawnAtTheirFrames()
{
    QFETCH(QByteArray, text);
    QFETCH(QSize, size);
    QFETCH(int, firstFrame);
    QFETCH(int, lastFrame);
    start();
    window()->resize(size);
    const QString path = folder->filePath(QStringLiteral("motion.bvh"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    file.close();
    QVERIFY(window()->document()->open(path));
    QCoreApplication::processEvents();
    m_view = inTimePane<QTreeView>("TimelineDopeSheetTView");
    m_motion = motionOf(text);
    QVERIFY(m_motion.frames > 1);
    const VxTime step = vxScene->getTimeStep();
    QCOMPARE(step, VxTime(std::lround(4800 * m_motion.frameTime)));
    vxScene->setPlayRange(VxTimeRange(firstFrame * step, lastFrame * step));
    vxScene->setTime(firstFrame * step);
    vxScene->selectAllNodes(false);
    QCoreApplication::processEvents();

    // Closed, the figure's row shows the frames of all that is below it.
    checkRow(m_view->model()->index(0, 0), QStyle::State_Children);
    m_view->expandAll();
    QCoreApplication::processEvents();
    const VxNode *hip = vxScene->findNode(QStringLiteral("hip"));
    QVERIFY(hip);
    checkRow(rowOfProperty(hip, hip->getXRotControl()), QStyle::State_Raised);
}

// The scale is settled before a program begins.
void TestDopeSheetPicture::atTwiceTheScale()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
    QProcess again;
    again.setProcessEnvironment(environment);
    again.setProcessChannelMode(QProcess::MergedChannels);
    again.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("marksAreDrawnAtTheirFrames")});
    QVERIFY(again.waitForFinished(120000));
    QVERIFY2(again.exitStatus() == QProcess::NormalExit && again.exitCode() == 0,
             again.readAll().constData());
}

VX_TEST_MAIN(TestDopeSheetPicture)
#include "tst_dopesheetpicture.moc"
