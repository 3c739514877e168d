#include "io/vxbvhreader.h"

#include "io/vxbvhparser.h"
#include "io/vxfiletext.h"

#include <QFile>
#include <QFileInfo>
#include <utility>

class VxBvhReader::Private
{
public:
    QString fileName;
    VxFileProgress progress;
    QString note;
};

VxBvhReader::VxBvhReader(const QString &fileName)
    : d(std::make_unique<Private>())
{
    d->fileName = fileName;
}

VxBvhReader::~VxBvhReader() = default;

void VxBvhReader::setProgress(const VxFileProgress &progress)
{
    d->progress = progress;
}

bool VxBvhReader::read(const QByteArray &bytes, VxBvhDocument *out, VxFileError *error)
{
    VxBvhParser parser(bytes, d->progress);
    if (!parser.parse()) {
        *error = parser.error();
        error->file = d->fileName;
        return false;
    }
    *out = std::move(parser.document());
    d->note.clear();
    if (parser.surplusFrames() > 0)
        d->note = VxFileText::tr("The file has %n more frames than the %1 it "
                                 "declares; the extra frames were ignored.",
                                 nullptr, int(parser.surplusFrames()))
                      .arg(out->frameCount);
    return true;
}

QString VxBvhReader::getNote() const
{
    return d->note;
}

bool VxBvhReader::readFile(VxBvhDocument *out, VxFileError *error)
{
    const QFileInfo info(d->fileName);
    if (info.exists() && !info.isFile()) {
        *error = VxFileError();
        error->file = d->fileName;
        error->message = VxFileText::tr("Not a regular file.");
        return false;
    }
    QFile file(d->fileName);
    const bool open = file.open(QIODevice::ReadOnly);
    const QByteArray bytes = open ? file.readAll() : QByteArray();
    if (!open || file.error() != QFileDevice::NoError) {
        *error = VxFileError();
        error->file = d->fileName;
        error->message = VxFileText::tr("The file cannot be read: %1.").arg(file.errorString());
        return false;
    }
    return read(bytes, out, error);
}
