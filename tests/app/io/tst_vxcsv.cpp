// Motion as CSV tables: what is written is read back, and what is wrong is named with its place.

#include "io/csv/vxcsvexport.h"
#include "io/csv/vxcsvreader.h"
#include "io/formats/vxmotionexport.h"
#include "io/motion/vxmotionbuilder.h"
#include "randomkeys.h"
#include "testing/vxfilemutations.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QTemporaryDir>
#include <QtTest>
#include <cmath>
#include <random>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostack.h>

namespace {

void addKeys(VxFloatProperty *property, Random &random, float size)
{
    // Sometimes of one type, sometimes mixed, sometimes beyond the range.
    const int kinds = int(random() % 4);
    for (VxTime time = VxTime(random() % 900) - 400; time <= End + 500;
         time += 1 + VxTime(random() % 2000)) {
        const int type = kinds < 3 ? kinds : int(random() % 3);
        property->setKey(time, number(random, -size, size), type, number(random, -1, 1),
                         number(random, -1, 1), number(random, -1, 1));
    }
}

/// A figure, a prop and names of every kind.
void makeScene(VxScene *scene, unsigned seed)
{
    Random random(seed);
    auto *figure = new VxSkeleton(QStringLiteral("walk, \"fast\""));
    scene->addNode(figure);
    VxNode *parent = figure;
    const char *const names[] = {"hip", "a\\b",        "hip", "  spaced ",
                                 "",    "line\nbreak", "hip", "Ä/x"};
    for (const char *name : names) {
        auto *bone = new VxBone(QStringLiteral("bone"));
        scene->addNode(bone, random() % 2 ? parent : figure);
        bone->setLabel(QString::fromUtf8(name));
        parent = bone;
        bone->setOrigin({number(random, -9, 9), number(random, 0, 9), 0});
        bone->setEndPoint({0, number(random, 1, 9), 0});
        bone->setRotationOrder(VxNode::RotationOrder(random() % 6));
        for (VxFloatProperty *control :
             {bone->getXRotControl(), bone->getZRotControl(), bone->getYPosControl(),
              bone->getYScaleControl(), bone->getScaleControl()}) {
            if (random() % 2)
                addKeys(control, random, 90);
            else if (random() % 2)
                control->setStoredValue(number(random, 1, 5));
        }
    }
    auto *prop = new VxNode(QStringLiteral("face"));
    prop->setObject(new VxObject(QStringLiteral("face")));
    for (const char *name : {"smile", "Smile", "smile"})
        prop->getObject()->addSubElement(new VxMorph(QLatin1String(name)));
    addKeys(qobject_cast<VxMorph *>(prop->getObject()->getSubElement(1))->getValueControl(), random,
            1);
    auto *further = new VxFloatProperty(QStringLiteral("glow"), 0.5f);
    static const char *const groups[] = {"/Custom", "/Look/Of 1/5", "/back\\slash", "/", "/a//"};
    prop->addProperty(further, QLatin1String(groups[random() % 5]));
    auto *slashes = new VxFloatProperty(QStringLiteral("/a/b\\5"), 2.0f);
    prop->addProperty(slashes, QLatin1String(groups[random() % 5]));
    prop->setVisible(random() % 2);
    addKeys(further, random, 3);
    scene->addNode(prop);
}

bool isSame(const VxFloatProperty *a, const VxFloatProperty *b)
{
    const VxKeyColumns<float> x = a->getKeys();
    const VxKeyColumns<float> y = b->getKeys();
    const auto typeOf = [](const VxKeyColumns<float> &keys, int i) {
        return keys.types ? keys.types[i] : quint8(VxKeyInterp::Linear);
    };
    const auto tcbOf = [](const VxKeyColumns<float> &keys, int i) {
        return keys.tcb ? keys.tcb[i] : VxTcb();
    };
    if (x.count != y.count || (x.count == 0 && a->getStoredValue() != b->getStoredValue()))
        return false;
    for (int i = 0; i < x.count; ++i) {
        // Only smooth keys show their tension, continuity and bias.
        if (x.times[i] != y.times[i] || x.values[i] != y.values[i] ||
            typeOf(x, i) != typeOf(y, i) ||
            (typeOf(x, i) == VxKeyInterp::Tcb && tcbOf(x, i) != tcbOf(y, i)))
            return false;
    }
    return true;
}

} // namespace

class tst_VxCsv : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void keysRoundTrip_data() { seeds(); }
    void keysRoundTrip();
    void framesRoundTrip_data() { seeds(); }
    void framesRoundTrip();
    void aRangeKeepsTheCurvesWithin();
    void oneNodeAlone();
    void linkedValuesAreSampled();
    void tablesOfOtherPrograms();
    void wrongTextsAreRefused_data();
    void wrongTextsAreRefused();
    void wrongFramesAreRefused_data();
    void wrongFramesAreRefused();
    void tooManyLevelsAreRefused();
    void damagedFilesGiveKeysOrAMessage();
    void anUnwritableFileStays();

private:
    static void seeds();
    QByteArray written(bool frames, const VxNode *root = nullptr);
    bool read(const QByteArray &bytes, const QString &figureName = QStringLiteral("figure"));
    const VxNode *again(const VxNode *node) const;

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<VxUndoStack> m_undo;
    QScopedPointer<VxScene> m_scene;
    QScopedPointer<VxScene> m_again;
    VxTimeRange m_range;
    VxImportReport m_report;
    VxFileError m_error;
};

void tst_VxCsv::init()
{
    m_guard.reset(new VxWarningGuard);
    m_undo.reset(new VxUndoStack);
    m_scene.reset(new VxScene);
    m_again.reset(new VxScene);
    m_scene->setTimeStep(Step);
    m_range = {0, End};
}

void tst_VxCsv::cleanup()
{
    m_again.reset();
    m_scene.reset();
    m_undo.reset();
    m_guard.reset();
}

void tst_VxCsv::seeds()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 0; seed < 12; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

QByteArray tst_VxCsv::written(bool frames, const VxNode *root)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("motion.csv"));
    QString summary;
    if (!vxWriteCsv({m_scene.data(), m_range, root, frames}, file.fileName(), &summary, &m_error) ||
        !file.open(QIODevice::ReadOnly))
        qFatal("%s", qPrintable(m_error.text()));
    return file.readAll();
}

bool tst_VxCsv::read(const QByteArray &bytes, const QString &figureName)
{
    VxImportedMotion motion;
    VxSceneContents contents;
    VxMotionBuildOptions options;
    options.figureName = figureName;
    m_report = VxImportReport();
    if (!vxReadCsv(bytes, {}, &motion, &m_error) ||
        !vxBuildMotion(std::move(motion), options, {}, &contents, &m_report, &m_error))
        return false;
    VxSceneReader::install(std::move(contents), m_again.data());
    return true;
}

/** Nodes keep their order. */
const VxNode *tst_VxCsv::again(const VxNode *node) const
{
    return m_again->getNodes().at(m_scene->getNodes().indexOf(const_cast<VxNode *>(node)));
}

void tst_VxCsv::keysRoundTrip()
{
    QFETCH(unsigned, seed);
    makeScene(m_scene.data(), seed);
    m_range = {-100000, 100000};
    const QByteArray bytes = written(false);
    QVERIFY2(read(bytes), qPrintable(m_error.text()));
    QCOMPARE(m_again->getNumNodes(), m_scene->getNumNodes());
    for (const VxNode *node : m_scene->getNodes()) {
        const VxNode *other = again(node);
        QCOMPARE(other->metaObject(), node->metaObject());
        if (!node->getLabel().isEmpty())
            QCOMPARE(other->getLabel(), node->getLabel());
        QCOMPARE(other->getRotationOrder(), node->getRotationOrder());
        QCOMPARE(other->getEndPoint(), node->getEndPoint());
        QCOMPARE(other->isVisible(), node->isVisible());
        for (const auto control : {&VxNode::getXRotControl, &VxNode::getYRotControl,
                                   &VxNode::getZRotControl, &VxNode::getYScaleControl})
            QVERIFY2(isSame((node->*control)(), (other->*control)()), qPrintable(node->getLabel()));
        const float height = node->getOrigin().y() + node->getYPosControl()->getValue(777);
        QVERIFY(std::abs(height - other->getOrigin().y() - other->getYPosControl()->getValue(777)) <
                1e-4f);
        for (const VxTime time : {0, 333, 5000})
            QCOMPARE(other->getScaleControl()->getValue(time),
                     node->getScaleControl()->getValue(time));
    }
    const VxNode *face = m_again->findNode("face");
    QCOMPARE(face->getObject()->getNumSubElements(), 3);
    const auto morph = [](const VxNode *node, int i) {
        return qobject_cast<VxMorph *>(node->getObject()->getSubElement(i))->getValueControl();
    };
    for (int i = 0; i < 3; ++i)
        QVERIFY(isSame(morph(m_scene->findNode("face"), i), morph(face, i)));
    for (const char *name : {"glow", "/a/b\\5"}) {
        const VxProperty *before = m_scene->findNode("face")->findProperty(QLatin1String(name));
        const VxProperty *after = face->findProperty(QLatin1String(name));
        QVERIFY(after);
        QCOMPARE(after->getPath(), before->getPath());
        QVERIFY(isSame(qobject_cast<const VxFloatProperty *>(before),
                       qobject_cast<const VxFloatProperty *>(after)));
    }
    // Every name but an empty one is written again as it was.
    QCOMPARE(m_report.keysAfter, m_report.keysBefore);
}

void tst_VxCsv::framesRoundTrip()
{
    QFETCH(unsigned, seed);
    makeScene(m_scene.data(), seed);
    QVERIFY2(read(written(true)), qPrintable(m_error.text()));
    QCOMPARE(m_again->getNumNodes(), m_scene->getNumNodes());
    QCOMPARE(m_again->getTimeStep(), Step);
    QCOMPARE(m_again->getAnimRange(), m_range);
    for (const VxNode *node : m_scene->getNodes()) {
        const VxNode *other = again(node);
        QCOMPARE(other->isVisible(), node->isVisible());
        for (VxTime time = 0; time <= End; time += Step) {
            for (const auto control :
                 {&VxNode::getXRotControl, &VxNode::getYRotControl, &VxNode::getZRotControl,
                  &VxNode::getYScaleControl, &VxNode::getScaleControl})
                QCOMPARE((other->*control)()->getValue(time), (node->*control)()->getValue(time));
            const QVector3D a = node->getWorldTransform(time).map(QVector3D(1, 2, 3));
            const QVector3D b = other->getWorldTransform(time).map(QVector3D(1, 2, 3));
            QVERIFY((a - b).length() <= 1e-4f * (1 + a.length()));
        }
    }
}

void tst_VxCsv::aRangeKeepsTheCurvesWithin()
{
    makeScene(m_scene.data(), 3);
    m_range = {2000, 5000};
    QVERIFY2(read(written(false)), qPrintable(m_error.text()));
    for (const VxNode *node : m_scene->getNodes()) {
        for (VxTime time = 2000; time <= 5000; time += 7)
            QCOMPARE(again(node)->getXRotControl()->getValue(time),
                     node->getXRotControl()->getValue(time));
    }
    QVERIFY(m_report.keysAfter < 150);
}

void tst_VxCsv::oneNodeAlone()
{
    makeScene(m_scene.data(), 1);
    const QByteArray bytes = written(false, m_scene->findNode("face"));
    QVERIFY2(read(bytes), qPrintable(m_error.text()));
    QCOMPARE(m_again->getNumNodes(), 1);
    QVERIFY(!bytes.contains("hip"));
}

void tst_VxCsv::linkedValuesAreSampled()
{
    auto *leader = new VxNode(QStringLiteral("leader"));
    auto *follower = new VxNode(QStringLiteral("follower"));
    m_scene->addNode(leader);
    m_scene->addNode(follower);
    leader->getXPosControl()->setKey(0, 0, VxKeyInterp::Linear);
    leader->getXPosControl()->setKey(End, 6, VxKeyInterp::Linear);
    QVERIFY(follower->getYPosControl()->setAliasedProperty(leader->getXPosControl()));
    QVERIFY2(read(written(false)), qPrintable(m_error.text()));
    QCOMPARE(again(follower)->getYPosControl()->getValue(End / 2), 3.0f);
}

// Columns in any order, CR LF, a mark of the encoding, numbers of every form, no optional column.
void tst_VxCsv::tablesOfOtherPrograms()
{
    QVERIFY2(read("\xEF\xBB\xBFValue,Time,Property,Node\r\n1,0,X Position,ball\r\n\r\n"
                  "+2.5e0,\"0.5\",x position,ball\r\n"),
             qPrintable(m_error.text()));
    const VxNode *ball = m_again->findNode("ball");
    QCOMPARE(ball->getXPosControl()->getNumKeys(), 2);
    QCOMPARE(ball->getXPosControl()->getValue(1200), 1.75f);
    QCOMPARE(m_report.format, QString("CSV, one row a key"));
    m_again.reset(new VxScene);
    QVERIFY2(read("node:,ball,ball\ntime,y rotation,x position\n0,10,5\n0.04,,5\n0.08,30,5"),
             qPrintable(m_error.text()));
    ball = m_again->findNode("ball");
    QCOMPARE(ball->getYRotControl()->getNumKeys(), 2);
    QCOMPARE(ball->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(ball->getXPosControl()->getValue(0), 5.0f);
    QCOMPARE(m_report.sourceRate, 25.0);
}

void tst_VxCsv::wrongTextsAreRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("reason");
    const QByteArray head = "node,kind,property,time,value,interpolation,bias\n";
    const auto row = [&](const char *name, const QByteArray &text, int line, int column,
                         const char *reason) {
        QTest::newRow(name) << text << line << column << QString(reason);
    };
    row("nothing", "", 0, 1, "empty");
    row("blank lines alone", "\n\n , ,\n", 3, 1, "empty");
    row("binary data", QByteArray("\0\1\2\3", 4), 1, 1, "not text");
    row("another encoding", head + "b\xE4ll,,x position,0,1", 2, 1, "not UTF-8");
    row("an unknown column", "node,speed\n", 1, 2, "Unknown column \"speed\"");
    row("a column twice", "node,time,node\n", 1, 3, "occurs twice");
    row("a missing column", "node,time,value\n", 1, 1, "\"property\" is missing");
    row("no rows", head, 1, 1, "no nodes");
    row("no node", head + ",,x position,0,1", 2, 1, "node is missing");
    row("no property", head + "a,,,0,1", 2, 3, "property is missing");
    row("no value", head + "a,,x position,0,", 2, 5, "value is missing");
    row("an unknown property", head + "a,,w position,0,1", 2, 3, "Unknown property \"w position\"");
    row("an unknown kind", head + "a,dog", 2, 2, "Unknown kind \"dog\"");
    row("two kinds", head + "a,bone\na,node", 3, 2, "was bone");
    row("a word for a number", head + "a,,x position,0,many", 2, 5, "\"many\" is not a number");
    row("not a number", head + "a,,x position,0,nan", 2, 5, "\"nan\" is not a number");
    row("an infinite number", head + "a,,x position,inf,1", 2, 4, "\"inf\" is not a number");
    row("a number too large", head + "a,,x position,0,1e39", 2, 5, "out of range");
    row("a time too large", head + "a,,x position,1e39,0", 2, 4, "out of range");
    row("a number far too large", head + "a,,x position,0,1e999", 2, 5, "out of range");
    row("digits and more", head + "a,,x position,0,12x", 2, 5, "\"12x\" is not a number");
    row("times that descend", head + "a,,scale,1,1\na,,scale,0.5,1", 3, 4, "must ascend");
    row("a time twice", head + "a,,scale,1,1\na,,scale,1,2", 3, 4, "must ascend");
    row("a value and a key", head + "a,,scale,,1\na,,scale,0,1", 3, 4, "without a time");
    row("a value twice", head + "a,,scale,,1\na,,scale,,1", 3, 5, "has a value or a key");
    row("an end that moves", head + "a,,x end,0,1\na,,x end,1,2", 3, 4, "end of a bone");
    row("an unknown segment", head + "a,,scale,0,1,spline", 2, 6,
        "Unknown interpolation \"spline\"");
    row("a shape that is no number", head + "a,,scale,0,1,tcb,flat", 2, 7, "\"flat\"");
    row("a stray backslash", head + "a\\b,,scale,0,1", 2, 1, "must be followed by");
    row("an open quotation mark", head + "\"a,,scale,0,1\n\n", 2, 1, "not closed");
    row("text after a quotation mark", head + "\"a\"b,,scale,0,1", 2, 1, "comma is missing");
    row("a quotation mark within", head + "a,,sc\"ale,0,1", 2, 3, "quotation mark within");
    row("too many cells", head + "a,,scale,0,1,tcb,0,,,,,,,,,,,", 2, 12, "too many cells");
    row("lines in quotation marks count", head + "\"a\n\nb\",,scale,,1\nc,,scale,x,1", 5, 4,
        "\"x\" is not a number");
    row("a time beyond the scene", head + "a,,scale,0,1\na,,scale,1e9,2", -1, -1, "key at 1e+09 s");
}

void tst_VxCsv::wrongTextsAreRefused()
{
    QFETCH(QByteArray, text);
    QFETCH(int, line);
    QFETCH(int, column);
    QFETCH(QString, reason);
    QVERIFY(!read(text));
    QVERIFY2(m_error.message.contains(reason), qPrintable(m_error.text()));
    QCOMPARE(int(m_error.line), line);
    QCOMPARE(int(m_error.column), column);
}

void tst_VxCsv::wrongFramesAreRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("reason");
    const auto row = [&](const char *name, const QByteArray &text, int line, int column,
                         const char *reason) {
        QTest::newRow(name) << text << line << column << QString(reason);
    };
    row("no properties", "node:,a", 1, 1, "row \"time\"");
    row("an empty node", "node:,a,,b\n", 1, 3, "node is missing");
    row("an unknown row", "node:,a\nname:,b\n", 2, 1, "Unknown row \"name:\"");
    row("nodes twice", "node:,a\nnode:,b\n", 2, 1, "one row \"node:\"");
    row("a longer row", "node:,a\nkind:,bone,bone\n", 2, 3, "too many cells");
    row("a shorter row", "node:,a,b\ntime,scale\n", 2, 2, "different lengths");
    row("a property twice", "node:,a,a\ntime,scale,Scale\n", 2, 3, "has a column already");
    row("a parent that is not there", "node:,a\nparent:,b\n", 2, 2, "does not occur before");
    row("a parent that is the node", "node:,a\nparent:,a\n", 2, 2, "does not occur before");
    row("parents in a circle", "node:,a,b\nparent:,b,a\n", 2, 2, "does not occur before");
    row("two parents", "node:,a,b,c,c\nparent:,,,a,b\n", 2, 5, "another parent");
    row("times that descend", "node:,a\ntime,scale\n1,1\n0,1\n", 4, 1, "must ascend");
    row("no time", "node:,a\ntime,scale\n,1\n", 3, 1, "\"\" is not a number");
    row("a longer frame", "node:,a\ntime,scale\n0,1,2\n", 3, 3, "too many cells");
    row("a broken frame", "node:,a\ntime,scale\n0,1\n1,one\n", 4, 2, "\"one\" is not");
}

void tst_VxCsv::wrongFramesAreRefused()
{
    wrongTextsAreRefused();
}

// With the figure's root above them there is one level more than a scene allows.
void tst_VxCsv::tooManyLevelsAreRefused()
{
    for (const int levels : {VxNode::MaxDepth - 1, VxNode::MaxDepth}) {
        QByteArray text = "node,parent,kind,property,time,value\n";
        for (int i = 0; i < levels; ++i)
            text += 'n' + QByteArray::number(i) + ',' +
                    (i > 0 ? 'n' + QByteArray::number(i - 1) : QByteArray()) + ",bone\n";
        QCOMPARE(read(text), levels < VxNode::MaxDepth);
        QCOMPARE(m_again->getNumNodes(), VxNode::MaxDepth);
    }
    QVERIFY2(m_error.message.contains("level"), qPrintable(m_error.text()));
}

void tst_VxCsv::damagedFilesGiveKeysOrAMessage()
{
    makeScene(m_scene.data(), 5);
    m_range = {0, 10 * Step};
    const QByteArray sources[] = {written(false), written(true)};
    int accepted = 0;
    for (unsigned seed = 0; seed < 600; ++seed) {
        const QByteArray bytes = VxFileMutations::mutant(sources[seed % 2], seed);
        VxImportedMotion motion;
        VxFileError error;
        const bool done = vxReadCsv(bytes, {}, &motion, &error);
        QVERIFY2(done ? motion.isValid()
                      : !error.message.isEmpty() && error.line >= 1 && error.column >= 1 &&
                            motion.nodes.empty(),
                 qPrintable(QString("seed %1: %2").arg(seed).arg(error.text())));
        accepted += done;
    }
    QVERIFY2(accepted > 20 && accepted < 580, QByteArray::number(accepted).constData());
}

void tst_VxCsv::anUnwritableFileStays()
{
    makeScene(m_scene.data(), 2);
    m_scene->setAnimRange(m_range);
    const auto write = [this](const QString &name, const VxFileProgress &progress) {
        VxMotionExportOptions options;
        options.hasRowPerFrame = bool(progress);
        QString summary;
        return vxExportMotion(m_scene.data(), options, name, progress, &summary, &m_error);
    };
    QVERIFY(!write(QStringLiteral("/proc/none.csv"), {}));
    QVERIFY2(m_error.text().startsWith("/proc/none.csv: The file could not be written"),
             qPrintable(m_error.text()));
    const QTemporaryDir folder;
    QFile file(folder.filePath("walk.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("former") == 6);
    file.close();
    m_scene->setTimeStep(1);
    QVERIFY(!write(file.fileName(), [](int) { return false; }));
    QVERIFY(m_error.cancelled);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("former"));
}

VX_TEST_GUILESS_MAIN(tst_VxCsv)
#include "tst_vxcsv.moc"
