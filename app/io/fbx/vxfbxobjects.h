#ifndef VXFBXOBJECTS_H
#define VXFBXOBJECTS_H

#include "io/fbx/vxfbxrecords.h"

#include <QStringList>
#include <array>
#include <map>

/// The objects of a document and their connections.
///
/// Object 0 is the scene's root, which has no record. Connections keep the order of the file, which
/// is the order of children and layers. Connections with a missing object are left out.
class VxFbxObjects
{
public:
    /// A connection from one of its two ends: the object at the other end.
    struct Link
    {
        int object;
        std::string_view property; ///< empty for a connection from object to object
    };
    /// A run of links, to be iterated.
    struct Links
    {
        const Link *first;
        const Link *last;
        const Link *begin() const { return first; }
        const Link *end() const { return last; }
    };

    /// The records must outlive the objects.
    explicit VxFbxObjects(const VxFbxRecords &records);

    /// Reads sections "Definitions", "Objects" and "Connections"; false with an error when there
    /// are no objects.
    bool read(VxFileError *error);

    int count() const { return static_cast<int>(m_objects.size()); }
    VxFbxRecords::Index record(int object) const { return m_objects[std::size_t(object)].record; }
    /// The kind of object, such as "Model".
    std::string_view kind(int object) const;
    /// The kind within that kind, such as "LimbNode".
    std::string_view subclass(int object) const;
    /// The name without its class.
    QString name(int object) const;

    /// The objects connected below this one (its children, or the drivers of its properties), and
    /// those above it.
    Links sources(int object) const { return links(m_sources, object); }
    Links targets(int object) const { return links(m_targets, object); }

    /// A value of a property: the object's own, else from the template of its kind; null when
    /// neither has it.
    const VxFbxValue *property(int object, std::string_view name, int component = 0) const;
    /// Properties as numbers, `fallback` for one that is missing or not finite.
    double number(int object, std::string_view name, double fallback) const;
    qint64 integer(int object, std::string_view name, qint64 fallback) const;
    std::array<double, 3> vector(int object, std::string_view name,
                                 const std::array<double, 3> &fallback) const;

    /// Whether the object itself has a user-defined property of that name, with one number.
    bool isUserNumber(int object, std::string_view name) const;

    /// Sentences about recoverable errors in the objects.
    const QStringList &notes() const { return m_notes; }

private:
    struct Object
    {
        VxFbxRecords::Index record;
        VxFbxRecords::Index properties; // its "Properties70"
    };
    struct Connection
    {
        int source;
        int target;
        std::string_view property;
    };
    /// Links of all objects; those of an object are from starts[object] to starts[object + 1].
    struct LinkTable
    {
        std::vector<Link> links;
        std::vector<std::size_t> starts;
    };

    static Links links(const LinkTable &table, int object);
    void readTemplates();
    void readObjects(VxFbxRecords::Index section);
    std::vector<Connection> readConnections() const;
    LinkTable tableOf(const std::vector<Connection> &connections, bool bySource) const;

    const VxFbxRecords &m_records;
    std::vector<Object> m_objects;
    std::map<qint64, int> m_byId;
    std::map<std::string_view, VxFbxRecords::Index> m_templates; // by kind
    LinkTable m_sources;
    LinkTable m_targets;
    QStringList m_notes;
};

/// A number of a "Properties70" record without an object, such as the global settings.
double vxFbxNumber(const VxFbxRecords &records, VxFbxRecords::Index properties,
                   std::string_view name, double fallback);
/// The value of a property in a "Properties70" record, or null.
const VxFbxValue *vxFbxProperty(const VxFbxRecords &records, VxFbxRecords::Index properties,
                                std::string_view name, int component = 0);

#endif
