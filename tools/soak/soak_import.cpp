// soak_import: damages motion files in thousands of ways and imports each beside a scene, as the
// program does: most formats by way of the importer process. Ends with the counts, the longest time
// and the most memory; fails on a crash, on more than 5 s or 500 MB, on a refusal without a
// message, on keys that are not finite or out of order, and on a scene that is not as it was after
// a refusal or after undo.
//
//     soak_import COUNT FILE...
//     soak_import FIRST-LAST FILE...
//
// COUNT mutants for each file, or those of some seeds, in a process of their own each. The limit
// of time is for that of the processor, which is the same however busy the machine is.

#include "io/formats/vxmotionimport.h"
#include "io/vxscenewriter.h"
#include "testing/vxfilemutations.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cmath>
#include <cstdio>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

namespace {

constexpr qint64 MaxMilliseconds = 5000;
constexpr long MaxMegabytes = 500;

enum Outcome { Accepted = 0, Refused = 1, Stopped = 2, Wrong = 3 };

QByteArray bytesOf(const VxScene &scene)
{
    QBuffer buffer;
    VxFileError error;
    buffer.open(QIODevice::WriteOnly);
    VxSceneWriter(&scene).write(&buffer, &error);
    return buffer.data();
}

bool isSound(const VxElement *element)
{
    for (int i = 0; i < element->getNumProperties(); ++i) {
        const auto *property = qobject_cast<const VxFloatProperty *>(element->getProperty(i));
        if (!property)
            continue;
        const VxKeyColumns<float> keys = property->getKeys();
        for (int k = 0; k < keys.count; ++k) {
            if (!std::isfinite(keys.values[k]) || (k > 0 && keys.times[k] <= keys.times[k - 1]))
                return false;
        }
        if (!std::isfinite(property->getStoredValue()))
            return false;
    }
    return true;
}

bool isSound(const VxScene &scene)
{
    const QVector<VxNode *> nodes = scene.getNodes();
    for (const VxNode *node : nodes) {
        if (!isSound(node))
            return false;
        const VxObject *object = node->getObject();
        for (int i = 0; object && i < object->getNumSubElements(); ++i) {
            if (!isSound(object->getSubElement(i)))
                return false;
        }
    }
    return true;
}

/// How the importer process ended, where it did not end by itself.
bool isBadEnd(const QString &message)
{
    for (const char *word : {"crashed", "stopped", "without a result", "answer of the importer"}) {
        if (message.contains(QLatin1String(word)))
            return true;
    }
    return false;
}

/** In a process of its own: imports one file beside a node. */
Outcome importOne(const QString &file, QString *text)
{
    VxUndoStack undo;
    VxScene scene;
    scene.addNode(new VxNode(QStringLiteral("before")));
    isSound(scene); // looking at a node's controls makes them
    const QByteArray before = bytesOf(scene);
    VxMotionImport import(&scene);
    VxFileError error;
    const bool done = import.load(file, &error) && import.enter({}, &error);
    *text = error.text();
    if (done && !isSound(scene))
        *text = QStringLiteral("keys that are not sound");
    else if (!done && error.message.isEmpty())
        *text = QStringLiteral("no message");
    if (done && undo.canUndo())
        undo.undo();
    const bool isSame = bytesOf(scene) == before;
    if (!isSame)
        *text = QStringLiteral("the scene is not as it was");
    if (!isSame || text->startsWith(QLatin1String("keys that")) || text->isEmpty() != done)
        return Wrong;
    return done ? Accepted : isBadEnd(error.message) ? Stopped : Refused;
}

/// Results of all mutants of a file.
struct Totals
{
    int counts[4] = {0, 0, 0, 0};
    int failures = 0;
    qint64 longest = 0;
    unsigned slowest = 0;
    qint64 longestWall = 0;
    long megabytes = 0;
};

qint64 milliseconds(const timeval &time)
{
    return qint64(time.tv_sec) * 1000 + time.tv_usec / 1000;
}

void runOne(const QString &file, unsigned seed, Totals *totals)
{
    std::fflush(stdout);
    QElapsedTimer wall;
    wall.start();
    const pid_t child = fork();
    if (child == 0) {
        QString text;
        const Outcome outcome = importOne(file, &text);
        if (outcome >= Stopped)
            std::printf("seed %u: %s\n", seed, qPrintable(text));
        std::fflush(stdout);
        // The importer's memory counts as this process's.
        rusage own{};
        rusage below{};
        getrusage(RUSAGE_SELF, &own);
        getrusage(RUSAGE_CHILDREN, &below);
        const long most = std::max(own.ru_maxrss, below.ru_maxrss) / 1024;
        if (most > MaxMegabytes)
            std::printf("seed %u: %ld MB\n", seed, most);
        std::fflush(stdout);
        _exit(most > MaxMegabytes ? Wrong : outcome);
    }
    int status = 0;
    rusage usage{}; // with the importer's
    wait4(child, &status, 0, &usage);
    totals->longestWall = std::max(totals->longestWall, wall.elapsed());
    const qint64 elapsed = milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
    if (elapsed > totals->longest) {
        totals->longest = elapsed;
        totals->slowest = seed;
    }
    const int outcome = WIFEXITED(status) ? WEXITSTATUS(status) : int(Wrong);
    if (!WIFEXITED(status))
        std::printf("seed %u: the program crashed (signal %d)\n", seed, WTERMSIG(status));
    if (elapsed > MaxMilliseconds)
        std::printf("seed %u: %lld ms\n", seed, static_cast<long long>(elapsed));
    ++totals->counts[qBound(0, outcome, 3)];
    totals->failures += outcome == Wrong || elapsed > MaxMilliseconds;
}

int runFile(const QString &name, unsigned first, unsigned last)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s cannot be read\n", qPrintable(name));
        return 1;
    }
    const QByteArray whole = file.readAll();
    const QTemporaryDir dir;
    const QString mutantName = dir.filePath(QStringLiteral("mutant.") + QFileInfo(name).suffix());
    Totals totals;
    for (unsigned seed = first; seed <= last; ++seed) {
        const QByteArray bytes = VxFileMutations::mutant(whole, seed);
        QFile mutant(mutantName);
        if (!mutant.open(QIODevice::WriteOnly) || mutant.write(bytes) != bytes.size())
            return 1;
        mutant.close();
        runOne(mutantName, seed, &totals);
    }
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    std::printf(
        "%s: %u mutants, %d accepted, %d refused, %d of the importer stopped or crashed, %d "
        "failures; longest %lld ms (seed %u), %lld ms by the clock; most memory so far %ld MB\n",
        qPrintable(QFileInfo(name).fileName()), last - first + 1, totals.counts[Accepted],
        totals.counts[Refused], totals.counts[Stopped], totals.failures,
        static_cast<long long>(totals.longest), totals.slowest,
        static_cast<long long>(totals.longestWall), usage.ru_maxrss / 1024);
    std::fflush(stdout);
    return totals.failures;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3) {
        std::fputs("soak_import COUNT FILE...\n", stderr);
        return 2;
    }
    const QStringList seeds = arguments.at(1).split(QLatin1Char('-'));
    const unsigned first = seeds.size() > 1 ? seeds.constFirst().toUInt() : 0;
    const unsigned last = seeds.constLast().toUInt() - (seeds.size() > 1 ? 0 : 1);
    int failures = 0;
    for (int i = 2; i < arguments.size(); ++i)
        failures += runFile(arguments.at(i), first, last);
    return failures > 0 ? 1 : 0;
}
