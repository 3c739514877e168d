#ifndef VXBVHPARSER_H
#define VXBVHPARSER_H

#include "io/bvh/vxbvhdocument.h"
#include "io/bvh/vxbvhtokenizer.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <vector>

/// The grammar of one BVH file, over one buffer; the implementation of vxReadBvh().
///
/// The hierarchy is read with an explicit stack of open joints, the motion block as one stream of
/// numbers in which line ends have no meaning. Row ends are recorded nevertheless: when the number
/// of values is wrong, the first irregular row is the best position for the message.
class VxBvhParser
{
public:
    VxBvhParser(const QByteArray &bytes, const VxFileProgress &progress);

    /// Reads the whole file; false with an error otherwise. Call it once.
    bool parse();

    VxBvhDocument &document() { return m_document; }
    const VxFileError &error() const { return m_error; }
    /// Whole frames at the end beyond the declared number.
    qint64 surplusFrames() const { return m_surplusFrames; }

private:
    using Word = VxBvhTokenizer::Word;

    struct OpenJoint
    {
        int index;
        qint64 line; // of its ROOT or JOINT
        bool hasOffset;
        bool hasChannels;
    };

    bool fail(qint64 line, const QString &message);
    bool failAtEnd(const QString &message) { return fail(m_tokens.lastLine(), message); }
    bool failNumber(VxBvhTokenizer::NumberResult result, const QString &what);
    QString found(const Word &word) const;

    bool parseHierarchy();
    bool parseTopLevel(const Word &word, bool *done);
    bool parseInJoint(const Word &word);
    bool openJoint(const Word &keyword, int parent);
    bool closeJoint();
    bool parseOffset(OpenJoint *open, qint64 line);
    bool parseChannels(OpenJoint *open, qint64 line);
    bool parseChannelNames(VxBvhJoint *joint, qint64 count);
    bool parseEndSite(const Word &keyword);
    bool beginsChild(const Word &keyword);
    bool readOffset(QVector3D *offset, const QString &owner);
    bool expectBrace(const char *brace, const QString &where);

    bool parseFrameCount();
    bool parseFrameTime();
    bool parseCount(const QString &what, qint64 *count, qint64 *line);
    bool checkRoom();
    bool parseMotion();
    bool parseFrame(int frame, float *row);
    void noteRow(bool startsFrame, int frame, qint64 line);
    bool failTooFew(int frame, int channel);
    bool skipSurplusFrames();
    bool failTooMany();
    bool report();

    VxBvhTokenizer m_tokens;
    VxBvhDocument m_document;
    VxFileError m_error;
    VxReadProgress m_progress;
    std::vector<OpenJoint> m_open;
    int m_channelCount = 0;
    qint64 m_surplusFrames = 0;
    qint64 m_framesLine = -1;
    qint64 m_valueLine = -1;     // line of the last motion value
    qint64 m_irregularLine = -1; // first row that is not one frame
};

#endif
