#include "io/bvh/vxbvhreader.h"

#include "io/bvh/vxbvhparser.h"
#include "io/vxfiletext.h"
#include "io/vxreadfile.h"

#include <utility>

bool vxReadBvh(const QByteArray &bytes, VxBvhDocument *out, VxFileError *error,
               const VxFileProgress &progress, QString *note)
{
    VxBvhParser parser(bytes, progress);
    if (!parser.parse()) {
        *error = parser.error();
        return false;
    }
    *out = std::move(parser.document());
    if (note)
        *note = parser.surplusFrames() > 0
                    ? VxFileText::tr("The file has %n more frames than the %1 it "
                                     "declares; the extra frames were ignored.",
                                     nullptr, int(parser.surplusFrames()))
                          .arg(out->frameCount)
                    : QString();
    return true;
}

bool vxReadBvhFile(const QString &fileName, VxBvhDocument *out, VxFileError *error,
                   const VxFileProgress &progress, QString *note)
{
    QByteArray bytes;
    const bool done =
        vxReadFile(fileName, &bytes, error) && vxReadBvh(bytes, out, error, progress, note);
    if (!done)
        error->file = fileName;
    return done;
}
