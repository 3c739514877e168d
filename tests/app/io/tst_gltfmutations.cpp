// A glTF file damaged in many ways that a seed decides: each gives nodes with sound keys, or one
// message. tools/soak does the same by the thousand through the importer process.

#include "gltfsample.h"
#include "io/gltf/vxgltfreader.h"
#include "io/motion/vxmotionbuilder.h"
#include "soundscene.h"
#include "testing/vxfilemutations.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QElapsedTimer>
#include <QtTest>
#include <cmath>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

namespace {

/// Two figures of joints with rotations, positions and weights in every interpolation.
QByteArray sampleFile()
{
    GltfSample sample;
    sample.root.insert(
        "nodes", QJsonArray{QJsonObject{{"name", "hip"}, {"children", QJsonArray{1, 2}}},
                            QJsonObject{{"name", "knee"}, {"rotation", QJsonArray{0, 0, 0, 1}}},
                            QJsonObject{{"name", "face"}, {"mesh", 0}}});
    sample.root.insert("skins", QJsonArray{QJsonObject{{"joints", QJsonArray{0, 1}}}});
    const QJsonArray targets{QJsonObject{{"POSITION", 0}}, QJsonObject{{"POSITION", 0}}};
    sample.root.insert(
        "meshes",
        QJsonArray{QJsonObject{{"primitives", QJsonArray{QJsonObject{{"targets", targets}}}}}});
    const int times = sample.floats({0, 0.5f, 2}, "SCALAR", 1);
    sample.animate(0, 0, "translation", "LINEAR", times,
                   sample.floats({1, 2, 3, 4, 5, 6, 7, 8, 9}, "VEC3", 3));
    sample.animate(0, 1, "rotation", "LINEAR", times,
                   sample.floats({0, 0, 0, 1, 0.6f, 0, 0, 0.8f, 0, 1, 0, 0}, "VEC4", 4));
    sample.animate(1, 0, "rotation", "CUBICSPLINE", times,
                   sample.floats(std::vector<float>(36, 0.5f), "VEC4", 4));
    sample.animate(1, 2, "weights", "STEP", times,
                   sample.floats({0, 1, 0.5f, 0.5f, 1, 0}, "SCALAR", 1));
    return QJsonDocument(sample.json()).toJson(QJsonDocument::Compact);
}

} // namespace

class tst_GltfMutations : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void damagedFilesGiveKeysOrAMessage();
};

void tst_GltfMutations::damagedFilesGiveKeysOrAMessage()
{
    const VxWarningGuard guard;
    const QByteArray whole = sampleFile();
    VxImportedMotion undamaged;
    VxFileError none;
    QVERIFY2(vxReadGltf(whole, QString(), {}, &undamaged, &none), qPrintable(none.text()));
    int accepted = 0;
    int refused = 0;
    for (unsigned seed = 0; seed < 600; ++seed) {
        const QByteArray bytes = VxFileMutations::mutant(whole, seed);
        QElapsedTimer timer;
        timer.start();
        VxImportedMotion motion;
        VxSceneContents contents;
        VxImportReport report;
        VxFileError error;
        const bool done = vxReadGltf(bytes, QString(), {}, &motion, &error) &&
                          vxBuildMotion(std::move(motion), {}, {}, &contents, &report, &error);
        const QByteArray name = "seed " + QByteArray::number(seed);
        QVERIFY2(timer.elapsed() < 5000, name.constData());
        QVERIFY2(done ? isSound(contents) : !error.message.isEmpty(), name.constData());
        QVERIFY2(done || contents.rootNodes.empty(), name.constData());
        ++(done ? accepted : refused);
    }
    QVERIFY2(accepted > 10, QByteArray::number(accepted).constData());
    QVERIFY2(refused > 200, QByteArray::number(refused).constData());
}

VX_TEST_GUILESS_MAIN(tst_GltfMutations)
#include "tst_gltfmutations.moc"
