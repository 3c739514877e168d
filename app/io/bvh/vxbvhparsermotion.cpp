#include "io/vxfiletext.h"
// The motion block of a BVH file: its counts, and the values.

#include "io/bvh/vxbvhparser.h"

#include <charconv>
#include <limits>

namespace {

// Rows transposed to columns at a time: enough to write whole cache lines.
constexpr int FramesPerBlock = 16;

// Copies rows of \a channels values, one row a frame, into the channels' columns from \a frame on.
void scatter(const std::vector<float> &rows, int channels, int frame, int count,
             VxBvhDocument *document)
{
    const auto width = static_cast<std::size_t>(channels);
    for (std::size_t c = 0; c < width; ++c) {
        float *column =
            document->values.data() + c * static_cast<std::size_t>(document->frameCount) + frame;
        for (int f = 0; f < count; ++f)
            column[f] = rows[static_cast<std::size_t>(f) * width + c];
    }
}

} // namespace

bool VxBvhParser::parseFrameCount()
{
    const Word word = m_tokens.next();
    if (word.isEmpty())
        return failAtEnd(VxFileText::tr("\"Frames:\" is missing: the file ends here."));
    if (!word.is("frames"))
        return fail(word.line, VxFileText::tr("\"Frames:\" expected, found %1.").arg(found(word)));
    if (m_tokens.peek().is(":"))
        m_tokens.next();
    qint64 count = 0;
    if (!parseCount(VxFileText::tr("The number of frames"), &count, &m_framesLine))
        return false;
    if (count > std::numeric_limits<int>::max())
        return fail(m_framesLine, VxFileText::tr("Too many frames: %1.").arg(count));
    m_document.frameCount = static_cast<int>(count);
    return true;
}

bool VxBvhParser::parseFrameTime()
{
    const Word word = m_tokens.next();
    const Word second = m_tokens.next();
    if (word.isEmpty())
        return failAtEnd(VxFileText::tr("\"Frame Time:\" is missing: the file ends here."));
    if (!word.is("frame") || !second.is("time"))
        return fail(word.line,
                    VxFileText::tr("\"Frame Time:\" expected, found %1.").arg(found(word)));
    if (m_tokens.peek().is(":"))
        m_tokens.next();
    const Word shown = m_tokens.peek();
    const VxBvhTokenizer::NumberResult result = m_tokens.readNumber(&m_document.frameTime);
    if (result != VxBvhTokenizer::NumberResult::Ok)
        return failNumber(result, VxFileText::tr("The frame time"));
    if (!(m_document.frameTime > 0.0))
        return fail(
            shown.line,
            VxFileText::tr("The frame time must be greater than 0, not %1.").arg(shown.shown()));
    return true;
}

// A whole number from 0 on, of any size: the caller checks its range.
bool VxBvhParser::parseCount(const QString &what, qint64 *count, qint64 *line)
{
    const Word word = m_tokens.next();
    *line = word.line;
    if (word.isEmpty())
        return failAtEnd(VxFileText::tr("%1 is missing: the file ends here.").arg(what));
    const char *end = word.data + word.size;
    const char *from = *word.data == '+' && word.size > 1 ? word.data + 1 : word.data;
    const std::from_chars_result result = std::from_chars(from, end, *count);
    if (result.ptr != end || result.ec == std::errc::invalid_argument)
        return fail(word.line,
                    VxFileText::tr("%1 must be a whole number, not %2.").arg(what, found(word)));
    if (*word.data == '-' && word.size > 1 && (result.ec != std::errc() || *count < 0))
        return fail(word.line,
                    VxFileText::tr("%1 cannot be negative: %2.").arg(what, word.shown()));
    if (result.ec != std::errc())
        return fail(word.line, VxFileText::tr("%1 is too large: %2.").arg(what, word.shown()));
    return true;
}

// A value needs at least a digit and a blank. Nothing is allocated before this check, so a declared
// number that is too large for the file costs nothing.
bool VxBvhParser::checkRoom()
{
    const qint64 frames = m_document.frameCount;
    if (frames > 0 && m_channelCount == 0)
        return fail(m_framesLine,
                    VxFileText::tr("%n frames are declared, but no joint has a channel.", nullptr,
                                   int(frames)));
    const qint64 room = (m_tokens.remaining() + 1) / 2;
    if (frames * m_channelCount <= room)
        return true;
    return fail(m_framesLine,
                VxFileText::tr("%1 frames of %2 values are declared, but the rest of the file "
                               "can hold at most %3 values.")
                    .arg(frames)
                    .arg(m_channelCount)
                    .arg(room));
}

bool VxBvhParser::parseMotion()
{
    const int frameCount = m_document.frameCount;
    const auto width = static_cast<std::size_t>(m_channelCount);
    m_document.values.resize(width * static_cast<std::size_t>(frameCount));
    std::vector<float> rows(width * FramesPerBlock);
    for (int frame = 0; frame < frameCount; frame += FramesPerBlock) {
        const int count = std::min(FramesPerBlock, frameCount - frame);
        for (int f = 0; f < count; ++f) {
            if (!parseFrame(frame + f, rows.data() + static_cast<std::size_t>(f) * width))
                return false;
        }
        scatter(rows, m_channelCount, frame, count, &m_document);
        if (!report())
            return false;
    }
    return m_tokens.isAtEnd() || skipSurplusFrames() || failTooMany();
}

// Some programs write a frame more than they declare. Rows of exactly one frame each are
// unambiguous, so such rows at the end are skipped and counted.
bool VxBvhParser::skipSurplusFrames()
{
    const VxBvhTokenizer before = m_tokens;
    if (m_channelCount == 0 || m_irregularLine >= 0 || m_tokens.peek().line == m_valueLine)
        return false;
    std::vector<float> row(static_cast<std::size_t>(m_channelCount));
    qint64 frames = 0;
    while (!m_tokens.isAtEnd()) {
        for (float &value : row) {
            if (m_tokens.readNumber(&value) != VxBvhTokenizer::NumberResult::Ok) {
                m_tokens = before;
                return false;
            }
        }
        ++frames;
    }
    m_surplusFrames = frames;
    return true;
}

bool VxBvhParser::parseFrame(int frame, float *row)
{
    for (int channel = 0; channel < m_channelCount; ++channel) {
        const VxBvhTokenizer::NumberResult result = m_tokens.readNumber(row + channel);
        if (result == VxBvhTokenizer::NumberResult::EndOfFile)
            return failTooFew(frame, channel);
        if (result != VxBvhTokenizer::NumberResult::Ok)
            return failNumber(
                result, VxFileText::tr("Value %1 of frame %2").arg(channel + 1).arg(frame + 1));
        noteRow(channel == 0, frame, m_tokens.line());
    }
    return true;
}

// In a regular file rows start exactly where frames start. Files that break every frame over lines
// fail this in their first frame, which is then not reported.
void VxBvhParser::noteRow(bool startsFrame, int frame, qint64 line)
{
    const bool startsRow = line != m_valueLine;
    if (startsRow != startsFrame && m_irregularLine < 0)
        m_irregularLine = frame == 0 ? 0 : m_valueLine;
    m_valueLine = line;
}

bool VxBvhParser::failTooFew(int frame, int channel)
{
    if (m_irregularLine > 0)
        return fail(m_irregularLine,
                    VxFileText::tr("This row does not have the %n values of one frame, and "
                                   "values are missing at the end of the file.",
                                   nullptr, m_channelCount));
    if (channel == 0)
        return failAtEnd(VxFileText::tr("%1 frames are declared, but the file ends after %2.")
                             .arg(m_document.frameCount)
                             .arg(frame));
    return failAtEnd(
        VxFileText::tr("The file ends within frame %1 of %2, after %3 of its %4 values.")
            .arg(frame + 1)
            .arg(m_document.frameCount)
            .arg(channel)
            .arg(m_channelCount));
}

bool VxBvhParser::failTooMany()
{
    const Word word = m_tokens.next();
    if (m_irregularLine > 0)
        return fail(m_irregularLine,
                    VxFileText::tr("This row does not have the %n values of one frame, and "
                                   "the end of the file has extra values.",
                                   nullptr, m_channelCount));
    return fail(word.line,
                VxFileText::tr(
                    "There are more values than the %1 frames of %2 declared in line %3: found %4.")
                    .arg(QString::number(m_document.frameCount), QString::number(m_channelCount),
                         QString::number(m_framesLine), found(word)));
}

bool VxBvhParser::report()
{
    m_error.cancelled = !m_progress.report(m_tokens.position());
    return !m_error.cancelled || fail(-1, VxFileText::tr("Reading was cancelled."));
}
