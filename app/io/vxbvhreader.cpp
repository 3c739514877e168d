#include "io/vxbvhreader.h"

#include "io/vxbvhparser.h"
#include "io/vxfiletext.h"

#include <QFile>
#include <QFileInfo>
#include <utility>

bool VxBvhReader::read(const QByteArray &bytes, VxBvhDocument *out, VxFileError *error)
{
    VxBvhParser parser(bytes, m_progress);
    if (!parser.parse()) {
        *error = parser.error();
        error->file = m_fileName;
        return false;
    }
    *out = std::move(parser.document());
    m_note.clear();
    if (parser.surplusFrames() > 0)
        m_note = VxFileText::tr("The file has %n more frames than the %1 it "
                                "declares; the extra frames were ignored.",
                                nullptr, int(parser.surplusFrames()))
                     .arg(out->frameCount);
    return true;
}

bool VxBvhReader::readFile(VxBvhDocument *out, VxFileError *error)
{
    const QFileInfo info(m_fileName);
    if (info.exists() && !info.isFile())
        return vxFail(error, VxFileText::tr("Not a regular file."), m_fileName);
    QFile file(m_fileName);
    const bool open = file.open(QIODevice::ReadOnly);
    const QByteArray bytes = open ? file.readAll() : QByteArray();
    if (!open || file.error() != QFileDevice::NoError)
        return vxFail(error, VxFileText::tr("The file cannot be read: %1.").arg(file.errorString()),
                      m_fileName);
    return read(bytes, out, error);
}
