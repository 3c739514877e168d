// soak_fbx COUNT [FILE...]: reads COUNT damaged FBX files, each in a process of its own, and
// reports what became of them: refusals, the longest time and the largest memory. The files of the
// command line are damaged beside those that the program writes itself. Fails when one crashes,
// takes more than 5 s or 500 MB, or gives neither a valid motion nor a message with a place.

#include "fbx/fbxmutations.h"

#include <QFile>
#include <QTextStream>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

enum ExitCode { Accepted = 0, Refused = 1, Wrong = 2 };

// In the child: reads the file of a seed.
[[noreturn]] void readOne(unsigned seed, const QVector<QByteArray> &sources)
{
    const QByteArray bytes = fbxmutations::fileOf(seed, sources);
    double milliseconds = 0;
    bool isAccepted = false;
    const QByteArray wrong = fbxmutations::verdict(bytes, &milliseconds, &isAccepted);
    if (!wrong.isEmpty())
        QTextStream(stderr) << "seed " << seed << ": " << wrong << '\n';
    _exit(!wrong.isEmpty() ? Wrong : (isAccepted ? Accepted : Refused));
}

double secondsOf(const rusage &usage)
{
    const auto seconds = [](const timeval &time) {
        return double(time.tv_sec) + double(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

} // namespace

int main(int argc, char **argv)
{
    const unsigned count = argc > 1 ? unsigned(QByteArray(argv[1]).toUInt()) : 3000;
    const fbxdocument::Document document = fbxmutations::seedDocument();
    QVector<QByteArray> sources{document.write({false, 7400, true}),
                                document.write({false, 7700, true}),
                                document.write({true, 7700, false})};
    for (int i = 2; i < argc; ++i) {
        QFile file(QString::fromLocal8Bit(argv[i]));
        if (file.open(QIODevice::ReadOnly))
            sources.append(file.readAll());
    }
    int failures = 0;
    int refused = 0;
    double longest = 0;
    long largest = 0;
    for (unsigned seed = 0; seed < count; ++seed) {
        const pid_t child = fork();
        if (child == 0)
            readOne(seed, sources);
        int status = 0;
        rusage usage{};
        wait4(child, &status, 0, &usage);
        const double seconds = secondsOf(usage);
        const long megabytes = usage.ru_maxrss / 1024;
        longest = std::max(longest, seconds);
        largest = std::max(largest, megabytes);
        refused += WIFEXITED(status) && WEXITSTATUS(status) == Refused;
        const bool isGood =
            WIFEXITED(status) && WEXITSTATUS(status) != Wrong && seconds < 5.0 && megabytes < 500;
        if (isGood)
            continue;
        ++failures;
        QTextStream(stderr) << "seed " << seed << ": " << (WIFSIGNALED(status) ? "crashed, " : "")
                            << seconds << " s, " << megabytes << " MB\n";
    }
    QTextStream(stdout) << count << " files, " << refused << " refused, " << failures
                        << " failures, longest " << longest << " s, largest " << largest << " MB\n";
    return failures > 0;
}
