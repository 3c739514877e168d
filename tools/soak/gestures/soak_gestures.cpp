// Random gestures with the tools of the viewport, see GestureSession:
//   soak_gestures [GESTURES] [SEED]      20000 and 1 when not given
// Ends with the number of undo entries, or with the fault, its gesture and the seed. A warning ends
// it, too.

#include "gesturesession.h"
#include "testing/vxwarningguard.h"

#include <QApplication>
#include <cstdio>

namespace {

constexpr int SessionLength = 500; // gestures with one scene and one seed

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const int gestures = arguments.value(1, QStringLiteral("20000")).toInt();
    uint seed = arguments.value(2, QStringLiteral("1")).toUInt();
    int entries = 0;
    for (int done = 0; done < gestures; done += SessionLength, ++seed) {
        VxWarningGuard guard;
        GestureSession session(seed);
        const QString fault = session.run(qMin(SessionLength, gestures - done));
        if (!fault.isEmpty()) {
            std::printf("seed %u, %s\n", seed, qPrintable(fault));
            return 1;
        }
        entries += session.entries();
    }
    std::printf("%d gestures, %d entries\n", gestures, entries);
    return 0;
}
