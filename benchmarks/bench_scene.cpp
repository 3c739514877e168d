// Whole scenes of known size: memory a key, opening and saving, and the evaluation of a frame.
// Each time is compared with its floor: a plain loop over arrays of the same size.
//
// S: 1,530 channels of 300 keys; M: 1,530 of 3,000; W: 15,300 of 300.

#include "io/bvh/vxbvhwriter.h"
#include "io/formats/vxmotionimport.h"
#include "io/vxscenereader.h"
#include "io/vxscenewriter.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cmath>
#include <testing/vxscenebuilder.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

namespace {

using Size = VxSceneBuilder::Size;

/// A scene of a size, made once: building it takes longer than measuring it.
VxScene &scene(Size size)
{
    static std::map<Size, std::unique_ptr<VxScene>> scenes;
    std::unique_ptr<VxScene> &entry = scenes[size];
    if (!entry) {
        entry = std::make_unique<VxScene>();
        VxSceneBuilder(entry.get()).build(size);
    }
    return *entry;
}

QVector<VxFloatProperty *> keyedChannels(const VxScene &scene)
{
    QVector<VxFloatProperty *> channels;
    for (VxNode *node : scene.getNodes()) {
        for (int i = 0; i < node->getNumProperties(); ++i) {
            auto *channel = qobject_cast<VxFloatProperty *>(node->getProperty(i));
            if (channel && channel->getNumKeys() > 0)
                channels.append(channel);
        }
    }
    return channels;
}

qint64 keyCount(Size size)
{
    qint64 keys = 0;
    for (const VxFloatProperty *channel : keyedChannels(scene(size)))
        keys += channel->getNumKeys();
    return keys;
}

QByteArray sceneBytes(const VxScene &scene)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    VxFileError error;
    VxSceneWriter(&scene).write(&buffer, &error);
    return bytes;
}

/// Motion of the same number of values as the scene has keys, give or take: three rotations a
/// joint, in a file's text.
VxBvhDocument motion(int joints, int frames)
{
    VxBvhDocument document;
    document.frameCount = frames;
    for (int i = 0; i < joints; ++i) {
        VxBvhJoint joint;
        joint.name = QStringLiteral("joint%1").arg(i);
        joint.parent = i - 1;
        joint.channels = {VxBvhChannel::ZRotation, VxBvhChannel::YRotation,
                          VxBvhChannel::XRotation};
        document.joints.push_back(joint);
    }
    for (int i = 0; i < joints * 3 * frames; ++i)
        document.values.push_back(float(std::round(std::sin(i * 0.01) * 1e6) / 1e4));
    return document;
}

void memoryPerKey(benchmark::State &state, Size size)
{
    const QVector<VxFloatProperty *> channels = keyedChannels(scene(size));
    qint64 bytes = 0;
    qint64 keys = 0;
    for (auto _ : state) {
        bytes = keys = 0;
        for (const VxFloatProperty *channel : channels) {
            bytes += channel->getKeyMemory();
            keys += channel->getNumKeys();
        }
    }
    state.counters["keys"] = double(keys);
    state.counters["bytes_per_key"] = double(bytes) / double(keys);
}

/// One frame after another, as in playback: the channels' values at the next frame's time.
void evaluateFrame(benchmark::State &state, Size size)
{
    VxScene &measured = scene(size);
    const QVector<VxFloatProperty *> channels = keyedChannels(measured);
    const VxTime step = measured.getTimeStep();
    const VxTime end = measured.getAnimRange().getEnd();
    VxTime time = 0;
    for (auto _ : state) {
        float sum = 0.0f;
        for (const VxFloatProperty *channel : channels)
            sum += channel->getValue(time + step / 2);
        benchmark::DoNotOptimize(sum);
        time = time + step > end ? 0 : time + step;
    }
    state.counters["channels"] = channels.size();
}

/// The floor of the above: one value a channel read from an array of its own.
void evaluateFloor(benchmark::State &state, Size size)
{
    const QVector<VxFloatProperty *> channels = keyedChannels(scene(size));
    const int keys = channels.first()->getNumKeys();
    std::vector<std::vector<float>> values(size_t(channels.size()),
                                           std::vector<float>(size_t(keys), 1.0f));
    int frame = 0;
    for (auto _ : state) {
        float sum = 0.0f;
        for (const std::vector<float> &column : values)
            sum += column[size_t(frame)];
        benchmark::DoNotOptimize(sum);
        frame = frame + 1 < keys ? frame + 1 : 0;
    }
}

void openScene(benchmark::State &state, Size size)
{
    const QByteArray bytes = sceneBytes(scene(size));
    for (auto _ : state) {
        VxScene target;
        VxSceneContents contents;
        VxFileError error;
        if (!VxSceneReader().read(bytes, &contents, &error))
            state.SkipWithError(qPrintable(error.text()));
        VxSceneReader::install(std::move(contents), &target);
        benchmark::DoNotOptimize(target.getNumNodes());
    }
    state.counters["file_bytes"] = double(bytes.size());
}

void saveScene(benchmark::State &state, Size size)
{
    const VxScene &measured = scene(size);
    int bytes = 0;
    for (auto _ : state) {
        bytes = sceneBytes(measured).size();
        benchmark::DoNotOptimize(bytes);
    }
    state.counters["file_bytes"] = bytes;
    state.counters["bytes_per_key"] = double(bytes) / double(keyCount(size));
}

/// As the program does it: into a file that takes the former one's place when it is complete, and
/// out of one.
void saveFile(benchmark::State &state, Size size)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("scene.vxscene"));
    const VxScene &measured = scene(size);
    VxFileError error;
    for (auto _ : state) {
        if (!VxSceneWriter(&measured).writeFile(name, &error))
            state.SkipWithError(qPrintable(error.text()));
    }
    state.counters["file_bytes"] = double(QFileInfo(name).size());
}

void openFile(benchmark::State &state, Size size)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("scene.vxscene"));
    VxFileError error;
    if (!VxSceneWriter(&scene(size)).writeFile(name, &error))
        state.SkipWithError(qPrintable(error.text()));
    for (auto _ : state) {
        VxScene target;
        VxSceneContents contents;
        if (!VxSceneReader().readFile(name, &contents, &error))
            state.SkipWithError(qPrintable(error.text()));
        VxSceneReader::install(std::move(contents), &target);
        benchmark::DoNotOptimize(target.getNumNodes());
    }
}

/// The floor of opening and saving: the file's bytes copied once.
void copyFloor(benchmark::State &state, Size size)
{
    const QByteArray bytes = sceneBytes(scene(size));
    for (auto _ : state) {
        QByteArray copy(bytes.constData(), bytes.size());
        benchmark::DoNotOptimize(copy.data());
    }
}

/// Reading half a million values of motion text and building the figure with its keys.
void openMotion(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("motion.bvh"));
    VxFileError error;
    if (!VxBvhWriter::writeFile(motion(170, 1000), fileName, &error))
        state.SkipWithError(qPrintable(error.text()));
    for (auto _ : state) {
        VxScene target;
        VxMotionImport import(&target);
        if (!import.load(fileName, &error) || !import.enter({}, &error))
            state.SkipWithError(qPrintable(error.text()));
        benchmark::DoNotOptimize(target.getNumNodes());
    }
    state.counters["values"] = 170 * 3 * 1000;
}

} // namespace

BENCHMARK_CAPTURE(memoryPerKey, S, Size::S)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(memoryPerKey, M, Size::M)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(evaluateFrame, S, Size::S)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(evaluateFloor, S, Size::S)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(evaluateFrame, M, Size::M)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(evaluateFloor, M, Size::M)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(evaluateFrame, W, Size::W)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(openScene, S, Size::S)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(saveScene, S, Size::S)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openFile, S, Size::S)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(saveFile, S, Size::S)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(copyFloor, S, Size::S)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openScene, M, Size::M)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(saveScene, M, Size::M)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openFile, M, Size::M)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(saveFile, M, Size::M)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(copyFloor, M, Size::M)->Unit(benchmark::kMillisecond);
BENCHMARK(openMotion)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
