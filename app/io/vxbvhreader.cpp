#include "io/vxbvhreader.h"

#include "io/vxbvhparser.h"
#include "io/vxfiletext.h"
#include "io/vxreadfile.h"

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
    QByteArray bytes;
    return vxReadFile(m_fileName, &bytes, error) && read(bytes, out, error);
}
