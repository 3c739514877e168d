#include "import/colladainfo.h"

#include "io/vxfiletext.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <cmath>

namespace {

/// One pass over a document.
class Scanner
{
public:
    Scanner(const QByteArray &bytes, ColladaInfo *info)
        : m_xml(bytes)
        , m_info(info)
    {
    }

    bool scan(VxFileError *error);

private:
    bool is(const char *name) const { return m_xml.name() == QLatin1String(name); }
    QString attribute(const char *name) const
    {
        return m_xml.attributes().value(QLatin1String(name)).toString();
    }
    QString text() { return m_xml.readElementText(QXmlStreamReader::SkipChildElements); }
    void startElement();
    bool fail(const QString &message, VxFileError *error) const;

    QXmlStreamReader m_xml;
    ColladaInfo *const m_info;
    int m_depth = 0;
    bool m_isCollada = false;
};

bool Scanner::fail(const QString &message, VxFileError *error) const
{
    vxFail(error, message);
    error->line = m_xml.lineNumber();
    error->column = m_xml.columnNumber() + 1;
    return false;
}

void Scanner::startElement()
{
    if (m_depth == 1) {
        m_isCollada = is("COLLADA");
        m_info->version = attribute("version");
    } else if (is("node")) {
        ColladaInfo::Node node;
        node.name = attribute("name");
        node.isJoint = attribute("type") == QLatin1String("JOINT");
        m_info->nodes.insert(attribute("id"), node);
    } else if (is("unit") && m_depth == 3) {
        const double metres = attribute("meter").toDouble();
        if (metres > 0.0 && std::isfinite(metres))
            m_info->metresPerUnit = metres;
    } else if (is("up_axis") && m_depth == 3) {
        const QString axis = text().trimmed();
        --m_depth; // the text was read with its end
        m_info->upAxis = axis.startsWith(QLatin1Char('Z'))   ? 'Z'
                         : axis.startsWith(QLatin1Char('X')) ? 'X'
                                                             : 'Y';
    } else if (is("authoring_tool") && m_info->writer.isEmpty()) {
        m_info->writer = text().simplified();
        --m_depth;
    } else if (is("Name_array")) {
        const QString names = text();
        --m_depth;
        m_info->hasTangents = m_info->hasTangents || names.contains(QLatin1String("BEZIER")) ||
                              names.contains(QLatin1String("HERMITE")) ||
                              names.contains(QLatin1String("CARDINAL")) ||
                              names.contains(QLatin1String("BSPLINE"));
    }
    m_info->meshes += is("instance_geometry") || is("instance_controller");
    m_info->cameras += is("instance_camera");
    m_info->lights += is("instance_light");
}

bool Scanner::scan(VxFileError *error)
{
    // The library that reads the document recurses over nested elements.
    constexpr int MaxDepth = 1000;
    while (!m_xml.atEnd()) {
        const QXmlStreamReader::TokenType token = m_xml.readNext();
        if (token == QXmlStreamReader::StartElement) {
            if (++m_depth > MaxDepth)
                return fail(
                    VxFileText::tr("Elements are nested more than %1 levels deep.").arg(MaxDepth),
                    error);
            startElement();
        } else if (token == QXmlStreamReader::EndElement) {
            --m_depth;
        }
    }
    if (m_xml.hasError())
        return fail(VxFileText::tr("Invalid XML: %1").arg(m_xml.errorString()), error);
    return m_isCollada || fail(VxFileText::tr("Not a COLLADA document."), error);
}

} // namespace

bool readColladaInfo(const QByteArray &bytes, ColladaInfo *info, VxFileError *error)
{
    return Scanner(bytes, info).scan(error);
}

QByteArray plainCollada(const QByteArray &bytes)
{
    QByteArray plain;
    QXmlStreamReader reader(bytes);
    reader.setNamespaceProcessing(false);
    QXmlStreamWriter writer(&plain);
    bool isFirst = false; // the text right after the start of its element
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::Characters && isFirst) {
            const QStringRef text = reader.text();
            int blanks = 0;
            while (blanks < text.size() && text.at(blanks).isSpace())
                ++blanks;
            writer.writeCharacters(text.mid(blanks).toString());
        } else if (token != QXmlStreamReader::DTD && token != QXmlStreamReader::Invalid) {
            writer.writeCurrentToken(reader);
        }
        isFirst = token == QXmlStreamReader::StartElement;
    }
    return plain;
}
