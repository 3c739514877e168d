#include "io/fbx/vxfbxobjects.h"

#include "io/vxfiletext.h"

namespace {

constexpr int firstPropertyValue = 4; // after name, type, label and flags

} // namespace

const VxFbxValue *vxFbxProperty(const VxFbxRecords &records, VxFbxRecords::Index properties,
                                std::string_view name, int component)
{
    if (properties == VxFbxRecords::None)
        return nullptr;
    for (auto at = records.firstChild(properties); at != VxFbxRecords::None;
         at = records.nextSibling(at)) {
        if (records.characters(records.value(at, 0)) == name)
            return records.value(at, firstPropertyValue + component);
    }
    return nullptr;
}

double vxFbxNumber(const VxFbxRecords &records, VxFbxRecords::Index properties,
                   std::string_view name, double fallback)
{
    return records.finite(vxFbxProperty(records, properties, name), fallback);
}

VxFbxObjects::VxFbxObjects(const VxFbxRecords &records)
    : m_records(records)
    , m_objects{{VxFbxRecords::None, VxFbxRecords::None}}
    , m_byId{{0, 0}}
{
}

bool VxFbxObjects::read(VxFileError *error)
{
    const VxFbxRecords::Index section = m_records.find({"Objects"});
    if (section == VxFbxRecords::None)
        return m_records.fail(error, m_records.bytes().size(),
                              VxFileText::tr("The section \"Objects\" is missing."));
    readTemplates();
    readObjects(section);
    const std::vector<Connection> connections = readConnections();
    m_sources = tableOf(connections, false);
    m_targets = tableOf(connections, true);
    return true;
}

void VxFbxObjects::readTemplates()
{
    const VxFbxRecords::Index section = m_records.find({"Definitions"});
    if (section == VxFbxRecords::None)
        return;
    for (auto at = m_records.firstChild(section); at != VxFbxRecords::None;
         at = m_records.nextSibling(at)) {
        const auto properties =
            m_records.child(m_records.child(at, "PropertyTemplate"), "Properties70");
        if (m_records.name(at) == "ObjectType" && properties != VxFbxRecords::None)
            m_templates.emplace(m_records.characters(m_records.value(at, 0)), properties);
    }
}

void VxFbxObjects::readObjects(VxFbxRecords::Index section)
{
    int duplicates = 0;
    QString firstDuplicate;
    for (auto at = m_records.firstChild(section); at != VxFbxRecords::None;
         at = m_records.nextSibling(at)) {
        qint64 id = 0;
        if (!m_records.integer(m_records.value(at, 0), &id))
            continue;
        if (!m_byId.emplace(id, count()).second) {
            if (duplicates++ == 0)
                firstDuplicate = m_records.text(m_records.value(at, 1)).section(QChar(0), 0, 0);
            continue;
        }
        m_objects.push_back({at, m_records.child(at, "Properties70")});
    }
    if (duplicates > 0)
        m_notes.append(VxFileText::tr("Objects with a duplicate number were left out: %1. The "
                                      "first is \"%2\".")
                           .arg(QString::number(duplicates), firstDuplicate));
}

std::vector<VxFbxObjects::Connection> VxFbxObjects::readConnections() const
{
    std::vector<Connection> connections;
    const VxFbxRecords::Index section = m_records.find({"Connections"});
    if (section == VxFbxRecords::None)
        return connections;
    for (auto at = m_records.firstChild(section); at != VxFbxRecords::None;
         at = m_records.nextSibling(at)) {
        const std::string_view type = m_records.characters(m_records.value(at, 0));
        qint64 source = 0;
        qint64 target = 0;
        if ((type != "OO" && type != "OP") || !m_records.integer(m_records.value(at, 1), &source) ||
            !m_records.integer(m_records.value(at, 2), &target))
            continue;
        const auto from = m_byId.find(source);
        const auto to = m_byId.find(target);
        if (from == m_byId.end() || to == m_byId.end())
            continue;
        const std::string_view property =
            type == "OP" ? m_records.characters(m_records.value(at, 3)) : std::string_view();
        connections.push_back({from->second, to->second, property});
    }
    return connections;
}

// Sorts the connections by one of their ends, by counting.
VxFbxObjects::LinkTable VxFbxObjects::tableOf(const std::vector<Connection> &connections,
                                              bool bySource) const
{
    LinkTable table;
    table.starts.resize(m_objects.size() + 1);
    for (const Connection &it : connections)
        ++table.starts[static_cast<std::size_t>(bySource ? it.source : it.target) + 1];
    for (std::size_t i = 1; i < table.starts.size(); ++i)
        table.starts[i] += table.starts[i - 1];
    table.links.resize(connections.size());
    std::vector<std::size_t> next = table.starts;
    for (const Connection &it : connections) {
        const int owner = bySource ? it.source : it.target;
        const int other = bySource ? it.target : it.source;
        table.links[next[static_cast<std::size_t>(owner)]++] = {other, it.property};
    }
    return table;
}

VxFbxObjects::Links VxFbxObjects::links(const LinkTable &table, int object)
{
    const auto at = static_cast<std::size_t>(object);
    return {table.links.data() + table.starts[at], table.links.data() + table.starts[at + 1]};
}

std::string_view VxFbxObjects::kind(int object) const
{
    const VxFbxRecords::Index at = record(object);
    return at == VxFbxRecords::None ? std::string_view() : m_records.name(at);
}

std::string_view VxFbxObjects::subclass(int object) const
{
    return m_records.characters(m_records.value(record(object), 2));
}

// Binary files have "Name\0\1Class", text files "Class::Name".
QString VxFbxObjects::name(int object) const
{
    const QString whole = m_records.text(m_records.value(record(object), 1));
    if (!m_records.isText())
        return whole.section(QChar(0), 0, 0);
    const int separator = whole.indexOf(QLatin1String("::"));
    return separator < 0 ? whole : whole.mid(separator + 2);
}

const VxFbxValue *VxFbxObjects::property(int object, std::string_view name, int component) const
{
    const VxFbxRecords::Index own = m_objects[static_cast<std::size_t>(object)].properties;
    if (const VxFbxValue *value = vxFbxProperty(m_records, own, name, component))
        return value;
    const auto shared = m_templates.find(kind(object));
    return shared == m_templates.end() ? nullptr
                                       : vxFbxProperty(m_records, shared->second, name, component);
}

double VxFbxObjects::number(int object, std::string_view name, double fallback) const
{
    return m_records.finite(property(object, name), fallback);
}

qint64 VxFbxObjects::integer(int object, std::string_view name, qint64 fallback) const
{
    qint64 whole = 0;
    return m_records.integer(property(object, name), &whole) ? whole : fallback;
}

std::array<double, 3> VxFbxObjects::vector(int object, std::string_view name,
                                           const std::array<double, 3> &fallback) const
{
    std::array<double, 3> result{};
    for (std::size_t i = 0; i < 3; ++i)
        result[i] = m_records.finite(property(object, name, static_cast<int>(i)), fallback[i]);
    return result;
}

bool VxFbxObjects::isUserNumber(int object, std::string_view name) const
{
    const VxFbxRecords::Index own = m_objects[static_cast<std::size_t>(object)].properties;
    constexpr int flags = -1; // the value before the first component
    const std::string_view letters =
        m_records.characters(vxFbxProperty(m_records, own, name, flags));
    double number = 0.0;
    return letters.find('U') != std::string_view::npos &&
           m_records.number(vxFbxProperty(m_records, own, name), &number) &&
           !vxFbxProperty(m_records, own, name, 1);
}
