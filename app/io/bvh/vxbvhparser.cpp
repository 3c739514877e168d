#include "io/bvh/vxbvhparser.h"

#include "io/vxfiletext.h"

#include <QTextCodec>
#include <algorithm>

namespace {

// Old files have joint names in an 8-bit code; names that are not UTF-8 are read as Latin 1, so
// that no name is refused or loses a letter.
QString nameText(const VxBvhTokenizer::Word &word)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QTextCodec *utf8 = QTextCodec::codecForMib(106);
    const QString text = utf8->toUnicode(word.data, word.size, &state);
    if (state.invalidChars == 0 && state.remainingChars == 0)
        return text;
    return QString::fromLatin1(word.data, word.size);
}

bool channelOf(const VxBvhTokenizer::Word &word, VxBvhChannel *channel)
{
    static const char *const names[VxBvhChannelKinds] = {"xposition", "yposition", "zposition",
                                                         "xrotation", "yrotation", "zrotation"};
    for (int i = 0; i < VxBvhChannelKinds; ++i) {
        if (word.is(names[i])) {
            *channel = static_cast<VxBvhChannel>(i);
            return true;
        }
    }
    return false;
}

} // namespace

VxBvhParser::VxBvhParser(const QByteArray &bytes, const VxFileProgress &progress)
    : m_tokens(bytes)
    , m_progress(progress, bytes.size())
{
}

bool VxBvhParser::parse()
{
    if (m_tokens.isAtEnd())
        return failAtEnd(VxFileText::tr("The file is empty."));
    const qint64 binaryLine = m_tokens.firstBinaryLine();
    if (binaryLine >= 0)
        return fail(binaryLine, VxFileText::tr("This is not a text file."));
    if (!report())
        return false;
    return parseHierarchy() && parseFrameCount() && parseFrameTime() && checkRoom() &&
           parseMotion();
}

bool VxBvhParser::fail(qint64 line, const QString &message)
{
    m_error.line = line;
    m_error.message = message;
    return false;
}

bool VxBvhParser::failNumber(VxBvhTokenizer::NumberResult result, const QString &what)
{
    const Word word = m_tokens.next();
    switch (result) {
    case VxBvhTokenizer::NumberResult::NotFinite:
        return fail(word.line,
                    VxFileText::tr("%1 must be finite, not \"%2\".").arg(what, word.shown()));
    case VxBvhTokenizer::NumberResult::OutOfRange:
        return fail(word.line,
                    VxFileText::tr("%1 is out of range: \"%2\".").arg(what, word.shown()));
    case VxBvhTokenizer::NumberResult::EndOfFile:
        return failAtEnd(VxFileText::tr("%1 is missing: the file ends here.").arg(what));
    default:
        return fail(word.line,
                    VxFileText::tr("%1 must be a number, not \"%2\".").arg(what, word.shown()));
    }
}

QString VxBvhParser::found(const Word &word) const
{
    return word.isEmpty() ? VxFileText::tr("the end of the file")
                          : QLatin1Char('"') + word.shown() + QLatin1Char('"');
}

// The hierarchy

bool VxBvhParser::parseHierarchy()
{
    const Word first = m_tokens.next();
    if (!first.is("hierarchy"))
        return fail(first.line,
                    VxFileText::tr("This is not a BVH file: \"HIERARCHY\" expected, found %1.")
                        .arg(found(first)));
    bool done = false;
    while (!done) {
        const Word word = m_tokens.next();
        if (!(m_open.empty() ? parseTopLevel(word, &done) : parseInJoint(word)))
            return false;
    }
    m_channelCount = m_document.channelCount();
    return true;
}

bool VxBvhParser::parseTopLevel(const Word &word, bool *done)
{
    if (word.is("root"))
        return openJoint(word, -1);
    if (m_document.joints.empty())
        return word.isEmpty()
                   ? failAtEnd(VxFileText::tr("The hierarchy has no ROOT: the file ends here."))
                   : fail(word.line,
                          VxFileText::tr("\"ROOT\" expected, found %1.").arg(found(word)));
    if (word.isEmpty())
        return failAtEnd(VxFileText::tr("\"MOTION\" is missing: the file ends here."));
    if (word.is("}"))
        return fail(word.line, VxFileText::tr("Unmatched \"}\"."));
    if (!word.is("motion"))
        return fail(word.line,
                    VxFileText::tr("\"ROOT\" or \"MOTION\" expected, found %1.").arg(found(word)));
    *done = true;
    return true;
}

bool VxBvhParser::parseInJoint(const Word &word)
{
    OpenJoint &open = m_open.back();
    if (word.is("offset"))
        return parseOffset(&open, word.line);
    if (word.is("channels"))
        return parseChannels(&open, word.line);
    if (word.is("joint"))
        return beginsChild(word) && openJoint(word, open.index);
    if (word.is("end"))
        return beginsChild(word) && parseEndSite(word);
    if (word.is("}"))
        return beginsChild(word) && closeJoint();

    const VxBvhJoint &joint = m_document.joints[static_cast<std::size_t>(open.index)];
    const QString unclosed =
        VxFileText::tr("Joint \"%1\" (line %2) is not closed with \"}\": found %3.")
            .arg(joint.name, QString::number(open.line), found(word));
    if (word.isEmpty())
        return failAtEnd(unclosed);
    if (word.is("motion") || word.is("root"))
        return fail(word.line, unclosed);
    return fail(
        word.line,
        VxFileText::tr("\"OFFSET\", \"CHANNELS\", \"JOINT\", \"End Site\" or \"}\" expected, "
                       "found %1.")
            .arg(found(word)));
}

bool VxBvhParser::openJoint(const Word &keyword, int parent)
{
    if (m_open.size() >= VxBvhMaxDepth)
        return fail(
            keyword.line,
            VxFileText::tr("Joints are nested more than %1 levels deep.").arg(VxBvhMaxDepth));
    VxBvhJoint joint;
    const Word name = m_tokens.restOfLine();
    joint.name = nameText(name);
    joint.parent = parent;
    if (joint.name.isEmpty())
        return fail(keyword.line, VxFileText::tr("A joint has no name."));
    if (joint.name.endsWith(u'{'))
        return fail(keyword.line, VxFileText::tr("Unexpected \"{\"."));
    const int index = static_cast<int>(m_document.joints.size());
    const QString where = VxFileText::tr("joint \"%1\"").arg(joint.name);
    m_document.joints.push_back(std::move(joint));
    m_open.push_back({index, keyword.line, false, false});
    return expectBrace("{", where);
}

bool VxBvhParser::closeJoint()
{
    m_open.pop_back();
    return true;
}

// Parses the item after a joint's own data: a child, an end site or the end of its block.
bool VxBvhParser::beginsChild(const Word &keyword)
{
    const OpenJoint &open = m_open.back();
    const QString &name = m_document.joints[static_cast<std::size_t>(open.index)].name;
    if (!open.hasOffset)
        return fail(keyword.line, VxFileText::tr("\"OFFSET\" of joint \"%1\" expected, found %2.")
                                      .arg(name, found(keyword)));
    return true;
}

bool VxBvhParser::parseOffset(OpenJoint *open, qint64 line)
{
    VxBvhJoint &joint = m_document.joints[static_cast<std::size_t>(open->index)];
    if (open->hasOffset)
        return fail(line, VxFileText::tr("Joint \"%1\" has a second \"OFFSET\".").arg(joint.name));
    open->hasOffset = true;
    return readOffset(&joint.offset, VxFileText::tr("joint \"%1\"").arg(joint.name));
}

bool VxBvhParser::parseChannels(OpenJoint *open, qint64 line)
{
    VxBvhJoint &joint = m_document.joints[static_cast<std::size_t>(open->index)];
    if (open->hasChannels)
        return fail(line,
                    VxFileText::tr("Joint \"%1\" has a second \"CHANNELS\".").arg(joint.name));
    // The order of the values in a frame is the order of the CHANNELS in the file.
    if (static_cast<std::size_t>(open->index) + 1 < m_document.joints.size())
        return fail(line, VxFileText::tr("\"CHANNELS\" of joint \"%1\" must precede its children.")
                              .arg(joint.name));
    open->hasChannels = true;
    qint64 count = 0;
    qint64 countLine = line;
    if (!parseCount(VxFileText::tr("The number of channels"), &count, &countLine))
        return false;
    if (count > VxBvhChannelKinds)
        return fail(
            countLine,
            VxFileText::tr("Joint \"%1\" cannot have %2 channels; the maximum is %3.")
                .arg(joint.name, QString::number(count), QString::number(VxBvhChannelKinds)));
    return parseChannelNames(&joint, count);
}

bool VxBvhParser::parseChannelNames(VxBvhJoint *joint, qint64 count)
{
    for (qint64 i = 0; i < count; ++i) {
        const Word word = m_tokens.next();
        VxBvhChannel channel = VxBvhChannel::XPosition;
        if (word.isEmpty())
            return failAtEnd(
                VxFileText::tr("A channel of joint \"%1\" is missing: the file ends here.")
                    .arg(joint->name));
        if (!channelOf(word, &channel))
            return fail(
                word.line,
                VxFileText::tr("A channel of joint \"%1\" expected (%2 are declared), found %3.")
                    .arg(joint->name, QString::number(count), found(word)));
        if (std::count(joint->channels.begin(), joint->channels.end(), channel))
            return fail(word.line, VxFileText::tr("Joint \"%1\" lists channel %2 twice.")
                                       .arg(joint->name, found(word)));
        joint->channels.push_back(channel);
    }
    return true;
}

bool VxBvhParser::parseEndSite(const Word &keyword)
{
    const Word site = m_tokens.next();
    if (!site.is("site"))
        return fail(
            keyword.line,
            VxFileText::tr("\"End Site\" expected, found \"End\" and %1.").arg(found(site)));
    const auto owner = static_cast<std::size_t>(m_open.back().index);
    const QString where =
        VxFileText::tr("the end site of joint \"%1\"").arg(m_document.joints[owner].name);
    if (!expectBrace("{", where))
        return false;
    const Word word = m_tokens.next();
    if (!word.is("offset"))
        return word.isEmpty()
                   ? failAtEnd(VxFileText::tr("\"OFFSET\" of %1 is missing: the file ends here.")
                                   .arg(where))
                   : fail(word.line, VxFileText::tr("\"OFFSET\" of %1 expected, found %2.")
                                         .arg(where, found(word)));
    QVector3D offset;
    if (!readOffset(&offset, where))
        return false;
    m_document.joints[owner].endSites.push_back(offset);
    return expectBrace("}", where);
}

bool VxBvhParser::readOffset(QVector3D *offset, const QString &owner)
{
    for (int axis = 0; axis < 3; ++axis) {
        const VxBvhTokenizer::NumberResult result = m_tokens.readNumber(&(*offset)[axis]);
        if (result != VxBvhTokenizer::NumberResult::Ok)
            return failNumber(result, VxFileText::tr("The offset of %1").arg(owner));
    }
    return true;
}

bool VxBvhParser::expectBrace(const char *brace, const QString &where)
{
    const Word word = m_tokens.next();
    if (word.is(brace))
        return true;
    const QString message = VxFileText::tr("\"%1\" of %2 expected, found %3.")
                                .arg(QLatin1String(brace), where, found(word));
    return word.isEmpty() ? failAtEnd(message) : fail(word.line, message);
}
