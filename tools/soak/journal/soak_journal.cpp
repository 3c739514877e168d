// Kills a program that edits at random, at many random moments, and compares the recovered document
// with the one of the last change that was on the disk: soak_journal [MOMENTS [FIRST_SEED]]

#include "journalkills.h"

#include <algorithm>
#include <cstdio>

namespace {

struct Row
{
    const char *name;
    bool losesPower;
    bool fails;
    int moments = 0;
    int faults = 0;
    qint64 changes = 0;
    qint64 history = 0;
    qint64 numLost = 0;
    qint64 lost = 0;
    qint64 mostLost = 0;
};

void add(Row *row, const JournalKills::Outcome &outcome)
{
    ++row->moments;
    row->changes += outcome.changes;
    row->history += outcome.history;
    row->numLost += outcome.numLost;
    row->lost += outcome.lost;
    row->mostLost = std::max(row->mostLost, outcome.lost);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--edit"))
        return JournalKills::edit(arguments.value(2), arguments.value(3).toUInt());
    const int moments = arguments.size() > 1 ? arguments.at(1).toInt() : 300;
    const unsigned first = arguments.value(2, QStringLiteral("1")).toUInt();

    Row rows[] = {{"killed", false, false},
                  {"power lost", true, false},
                  {"power lost, disk full or failing at times", true, true}};
    int faults = 0;
    for (int i = 0; i < moments; ++i) {
        Row &row = rows[i % 3];
        const unsigned seed = first + unsigned(i);
        const JournalKills::Outcome outcome = JournalKills::run(
            QCoreApplication::applicationFilePath(), {QStringLiteral("--edit")}, seed, 2000,
            row.losesPower ? QStringLiteral(VX_SHIM) : QString(), row.fails);
        add(&row, outcome);
        if (outcome.fault.isEmpty() && outcome.lost < 1000)
            continue;
        ++row.faults;
        ++faults;
        std::printf("seed %u, %s: %s, %lld ms lost\n", seed, row.name, qPrintable(outcome.fault),
                    static_cast<long long>(outcome.lost));
        std::fflush(stdout);
    }
    std::printf("%-42s %7s %8s %8s %8s %12s %12s %6s\n", "", "moments", "changes", "history",
                "lost", "mean lost s", "most lost s", "faults");
    for (const Row &row : rows)
        std::printf("%-42s %7d %8lld %8lld %8lld %12.3f %12.3f %6d\n", row.name, row.moments,
                    static_cast<long long>(row.changes), static_cast<long long>(row.history),
                    static_cast<long long>(row.numLost),
                    double(row.lost) / 1000 / std::max(1, row.moments), double(row.mostLost) / 1000,
                    row.faults);
    return faults == 0 ? 0 : 1;
}
