#ifndef VXSCENEPROPERTYREADER_H
#define VXSCENEPROPERTYREADER_H

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QVector>

class VxCborInput;
class VxElement;
class VxProperty;

/// Reads the properties of a scene file into elements, and resolves their references once all of
/// them exist.
class VxScenePropertyReader
{
public:
    explicit VxScenePropertyReader(VxCborInput *input)
        : m_input(input)
    {
    }

    /// Reads the property map at the present offset. An element's own control of that name gets the
    /// contents; otherwise a property is added to it.
    void read(VxElement *element);
    /// Sets aliases, overriding controls and links, then locks the locked properties.
    void resolve();

private:
    struct Record;
    struct Reference
    {
        int from = 0;    // number of a property in the file, as is `to`
        char kind = 'l'; // a alias, o override, l link
        qint64 to = 0;
        bool terminal = false;
        double factor = 1.0;
        double offset = 0.0;
    };

    void readValue(Record &record);
    void readLimits(Record &record);
    void readReference(char kind, Record &record);
    void readLink(Record &record);
    void readKeys(Record &record);
    void readChecksums(Record &record);
    bool checkColumns(const VxElement *element, const Record &record);
    void build(VxElement *element, const Record &record);
    VxProperty *makeProperty(const Record &record) const;
    void applyTraits(VxProperty *property, const Record &record) const;
    void applyValues(VxProperty *property, const Record &record) const;
    /// False, with a failure, when a number does not fit the kind of the property.
    bool checkRange(const Record &record);
    void setReference(const Reference &reference);
    void failReference(const Reference &reference);
    /// Indexes of the references, those of a property's targets before its own. References in
    /// cycles, and those to missing properties, are omitted.
    QVector<int> referencesFromTheirEnds() const;

    VxCborInput *m_input;
    QVector<VxProperty *> m_properties; // by their number in the file
    QSet<const VxProperty *> m_seen;    // a name may occur in an element once
    QVector<Reference> m_references;
    QVector<VxProperty *> m_locked;
};

#endif
