// Exports of any format: the summary lists the contents that a format lacks.

#include "io/formats/vxmotionexport.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QTemporaryDir>
#include <QtTest>
#include <vxcore/vxbone.h>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

class tst_VxMotionExport : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void summaryNamesLosses_data();
    void summaryNamesLosses();
    void summaryOfTransformsAlone();
};

namespace {

/// figure > hip with a number, a truth value and two morphs, and a lamp beside it with a number.
struct Stage
{
    Stage()
    {
        figure->addNodeChild(hip);
        scene.addNode(figure);
        scene.addNode(lamp);
        hip->getXRotControl()->setKey(0, 1, VxKeyInterp::Linear);
    }

    void addFurther()
    {
        hip->addProperty(new VxFloatProperty(QStringLiteral("glow"), 1.0f),
                         QStringLiteral("/Look"));
        hip->addProperty(new VxBoolProperty(QStringLiteral("on"), true), QStringLiteral("/Look"));
        hip->setObject(new VxObject(QStringLiteral("shape")));
        for (const char *name : {"smile", "frown"})
            hip->getObject()->addSubElement(new VxMorph(QLatin1String(name)));
        lamp->addProperty(new VxFloatProperty(QStringLiteral("light"), 1.0f),
                          QStringLiteral("/Look"));
    }

    QString summary(const QString &suffix, const VxNode *root = nullptr) const
    {
        const QTemporaryDir dir;
        QString text;
        VxFileError error;
        VxMotionExportOptions options;
        options.root = root;
        if (!vxExportMotion(&scene, options, dir.filePath("out." + suffix), {}, &text, &error))
            qFatal("%s", qPrintable(error.text()));
        return text;
    }

    VxScene scene;
    VxSkeleton *figure = new VxSkeleton(QStringLiteral("figure"));
    VxBone *hip = new VxBone(QStringLiteral("hip"));
    VxNode *lamp = new VxNode(QStringLiteral("lamp"));
};

} // namespace

void tst_VxMotionExport::summaryNamesLosses_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("all");
    QTest::addColumn<QString>("figureAlone");
    QTest::newRow("glTF") << "glb"
                          << "3 other properties."
                          << "2 other properties.";
    QTest::newRow("BVH") << "bvh"
                         << "2 other properties, 2 morphs."
                         << "2 other properties, 2 morphs.";
    QTest::newRow("CSV") << "csv"
                         << "1 other property."
                         << "1 other property.";
}

void tst_VxMotionExport::summaryNamesLosses()
{
    QFETCH(QString, suffix);
    QFETCH(QString, all);
    QFETCH(QString, figureAlone);
    const VxWarningGuard guard;
    Stage stage;
    stage.addFurther();
    const QString leftOut = "does not support them: ";
    QVERIFY2(stage.summary(suffix).endsWith(leftOut + all), qPrintable(stage.summary(suffix)));
    const QString ofFigure = stage.summary(suffix, stage.figure);
    QVERIFY2(ofFigure.endsWith(leftOut + figureAlone), qPrintable(ofFigure));
}

void tst_VxMotionExport::summaryOfTransformsAlone()
{
    const VxWarningGuard guard;
    const Stage stage;
    for (const char *suffix : {"glb", "gltf", "bvh", "csv"})
        QVERIFY(!stage.summary(QLatin1String(suffix)).contains("Left out"));
}

VX_TEST_GUILESS_MAIN(tst_VxMotionExport)
#include "tst_vxmotionexport.moc"
