#include "testing/vxtestmain.h"

#include <QByteArray>
#include <QFileInfo>
#include <cstdio>
#include <map>
#include <vector>

namespace {

using Units = std::map<QByteArray, VxTestUnit::Run>;

Units &units()
{
    static Units all;
    return all;
}

QByteArray baseName(const char *path)
{
    return QFileInfo(QString::fromLocal8Bit(path)).completeBaseName().toLocal8Bit();
}

int listUnits()
{
    std::fputs("usage: PROGRAM UNIT [arguments of QtTest], or start a unit by its own name\n",
               stderr);
    for (const auto &unit : units())
        std::fprintf(stderr, "  %s\n", unit.first.constData());
    return 2;
}

} // namespace

VxTestUnit::VxTestUnit(const char *file, Run run)
{
    units().emplace(baseName(file), run);
}

int main(int argc, char **argv)
{
    // Every window test measures text at the same resolution, whatever the screen.
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    auto unit = units().find(baseName(argv[0]));
    if (unit != units().end())
        return unit->second(argc, argv);
    unit = argc > 1 ? units().find(baseName(argv[1])) : units().end();
    if (unit == units().end())
        return listUnits();
    std::vector<char *> arguments(argv, argv + argc + 1);
    arguments.erase(arguments.begin() + 1);
    return unit->second(argc - 1, arguments.data());
}
