// soak_import: damages a motion file in thousands of ways and reads each through the importer
// process. Ends with the counts, the longest time and the most memory.
//
//     soak_import IMPORTER FILE COUNT [FIRST-SEED]

#include "io/worker/vximportworker.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtEndian>
#include <cstdio>
#include <random>
#include <sys/resource.h>
#include <vxcore/vxnode.h>

namespace {

using Random = std::mt19937;

int below(Random &random, int limit)
{
    return int(random() % unsigned(qMax(1, limit)));
}

void plantText(QByteArray &bytes, Random &random)
{
    static const char *const numbers[] = {"-1",  "0",  "1e999", "99999999999", "4294967295", "1e9",
                                          "nan", "[]", "{}",    "\"a\"",       "2147483647"};
    for (int at = below(random, bytes.size()); at < bytes.size(); ++at) {
        if (bytes.at(at) < '0' || bytes.at(at) > '9')
            continue;
        int end = at;
        while (end < bytes.size() && bytes.at(end) >= '0' && bytes.at(end) <= '9')
            ++end;
        bytes.replace(at, end - at, numbers[below(random, 11)]);
        return;
    }
}

void plantWord(QByteArray &bytes, Random &random)
{
    static const quint32 words[] = {0,          1,          0xffffffff, 0x7fffffff,
                                    0x80000000, 0x7fc00000, 0x7f800000};
    const int at = below(random, bytes.size() - 4);
    if (at + 4 <= bytes.size())
        qToLittleEndian(words[random() % 7], bytes.data() + at);
}

void mutate(QByteArray &bytes, Random &random)
{
    if (bytes.isEmpty())
        return;
    const int at = below(random, bytes.size());
    switch (random() % 7) {
    case 0:
        bytes[at] = char(bytes.at(at) ^ (1 << below(random, 8)));
        break;
    case 1:
        bytes.remove(at, 1 + below(random, 60));
        break;
    case 2:
        bytes.insert(at, bytes.mid(below(random, bytes.size()), 1 + below(random, 200)));
        break;
    case 3:
        bytes.truncate(at);
        break;
    case 4:
        plantWord(bytes, random);
        break;
    default:
        plantText(bytes, random);
    }
}

/// What came of all runs.
struct Totals
{
    int accepted = 0;
    int refused = 0;
    int crashed = 0;
    qint64 longest = 0;
    unsigned slowest = 0;
};

void runOne(const VxImportWorker &worker, const QString &file, unsigned seed, Totals *totals)
{
    VxSceneContents contents;
    VxImportReport report;
    VxFileError error;
    QElapsedTimer timer;
    timer.start();
    const bool done = worker.run(file, {}, {}, &contents, &report, &error);
    if (timer.elapsed() > totals->longest) {
        totals->longest = timer.elapsed();
        totals->slowest = seed;
    }
    ++(done ? totals->accepted : totals->refused);
    const bool isBadEnd =
        !done && (error.message.contains(QLatin1String("crashed")) ||
                  error.message.contains(QLatin1String("stopped")) ||
                  error.message.contains(QLatin1String("memory")) ||
                  error.message.contains(QLatin1String("answer")) || error.message.isEmpty());
    if (!isBadEnd)
        return;
    ++totals->crashed;
    std::printf("seed %u: %s\n", seed, qPrintable(error.text()));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QFile file(arguments.value(2));
    if (arguments.size() < 4 || !file.open(QIODevice::ReadOnly)) {
        std::fputs("soak_import IMPORTER FILE COUNT [FIRST-SEED]\n", stderr);
        return 2;
    }
    const QByteArray whole = file.readAll();
    const unsigned first = arguments.value(4).toUInt();
    const unsigned count = arguments.at(3).toUInt();
    const QTemporaryDir dir;
    const QString name = dir.filePath(QStringLiteral("mutant.") + QFileInfo(file).suffix());
    VxImportWorker worker;
    worker.setProgram(arguments.at(1));
    Totals totals;
    for (unsigned seed = first; seed < first + count; ++seed) {
        Random random(seed);
        QByteArray bytes = whole;
        for (int i = 1 + below(random, 4); i > 0; --i)
            mutate(bytes, random);
        QFile mutant(name);
        if (!mutant.open(QIODevice::WriteOnly) || mutant.write(bytes) != bytes.size())
            return 2;
        mutant.close();
        runOne(worker, name, seed, &totals);
    }
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    std::printf("%d accepted, %d refused, %d of them by a bad end; longest %lld ms (seed %u); "
                "most memory %ld MB\n",
                totals.accepted, totals.refused, totals.crashed,
                static_cast<long long>(totals.longest), totals.slowest, usage.ru_maxrss / 1024);
    return totals.crashed > 0 ? 1 : 0;
}
