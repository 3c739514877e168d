// Writes the sample files: walkgen FOLDER makes walk.vxscene and walk.bvh in it.

#include "io/bvh/vxbvhwriter.h"
#include "io/vxscenewriter.h"
#include "walksample.h"

#include <QCoreApplication>
#include <QDir>
#include <cstdio>
#include <vxcore/vxscene.h>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: walkgen FOLDER\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    VxScene scene;
    WalkSample::build(&scene);
    VxFileError error;
    const bool written =
        VxSceneWriter(&scene).writeFile(folder.filePath(QStringLiteral("walk.vxscene")), &error) &&
        VxBvhWriter::writeFile(WalkSample::motion(), folder.filePath(QStringLiteral("walk.bvh")),
                               &error);
    if (!written)
        std::fprintf(stderr, "%s\n", qPrintable(error.text()));
    return written ? 0 : 1;
}
