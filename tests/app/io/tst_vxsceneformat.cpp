// The promises of docs/format.md: every member is described, files of every earlier program open,
// what a later one has added is kept, and a damaged column is named.

#include "document/documentcontroller.h"
#include "io/vxscenefile.h"
#include "io/vxscenereader.h"
#include "io/vxscenewriter.h"
#include "richscene.h"
#include "scenebytes.h"
#include "testing/vxfilemutations.h"
#include "testing/vxsessionlength.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "widgets/usermessages.h"

#include <QCborArray>
#include <QCborMap>
#include <QCborValue>
#include <QCryptographicHash>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>
#include <vxcore/vxowncontents.h>
#include <vxcore/vxundostack.h>

namespace {

QByteArray fileBytes(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray richBytes()
{
    VxScene scene;
    RichScene::build(&scene);
    return sceneBytes(&scene);
}

void collectNames(const QCborValue &value, QSet<QString> *names)
{
    if (value.isMap()) {
        for (const auto member : value.toMap()) {
            names->insert(member.first.toString());
            collectNames(member.second, names);
        }
    }
    if (value.isArray()) {
        for (const QCborValue &element : value.toArray())
            collectNames(element, names);
    }
}

QSet<QString> matches(const QString &text, const char *pattern)
{
    QSet<QString> found;
    auto each = QRegularExpression(QLatin1String(pattern)).globalMatch(text);
    while (each.hasNext())
        found.insert(each.next().captured(1));
    return found;
}

QStringList missing(const QSet<QString> &needed, const QSet<QString> &available)
{
    QStringList list = (needed - available).values();
    list.sort();
    return list;
}

template <class V> QByteArray keyText(const VxOwnContents<V> &own)
{
    QByteArray text = QByteArray::number(double(own.stored));
    for (int i = 0; i < own.keys.count; ++i) {
        const VxTcb tcb = own.keys.tcb ? own.keys.tcb[i] : VxTcb();
        text += ' ' + QByteArray::number(own.keys.times[i]) + ':' +
                QByteArray::number(double(own.keys.values[i]), 'g', 9) + ':' +
                QByteArray::number(own.keys.types ? own.keys.types[i] : 0) + ':' +
                QByteArray::number(double(tcb.tension + 10 * tcb.continuity + 100 * tcb.bias));
    }
    return text;
}

QByteArray propertyText(const VxProperty *property)
{
    QByteArray text = property->getPath().toUtf8() + ' ' + property->getName().toUtf8() + ' ' +
                      property->getLabel().toUtf8() + ' ' +
                      QByteArray::number(property->isHidden() + 2 * property->isLocked() +
                                         4 * property->isAnimatable()) +
                      ' ';
    if (const auto *number = qobject_cast<const VxFloatProperty *>(property))
        text += keyText(vxOwnContents(number)) + ' ' + QByteArray::number(double(number->getMin()));
    else if (const auto *whole = qobject_cast<const VxIntProperty *>(property))
        text += keyText(vxOwnContents(whole)) + ' ' + QByteArray::number(whole->getMin());
    else if (const auto *string = qobject_cast<const VxStringProperty *>(property))
        text += vxOwnText(string).toUtf8();
    if (const VxProperty *target = property->getKeyHolder(); target != property)
        text += " -> " + target->getName().toUtf8();
    return text + '\n';
}

QByteArray elementText(const VxElement *element)
{
    QByteArray text = element->getName().toUtf8() + ' ' + element->getLabel().toUtf8() + '\n';
    QByteArrayList properties;
    for (const VxProperty *property : element->getMadeProperties())
        properties.append(propertyText(property));
    // Their order and the controls that are made on demand differ between versions.
    std::sort(properties.begin(), properties.end());
    return text + properties.join();
}

/// What a file holds, in a form that later versions of the format do not change.
QByteArray summaryOf(const VxScene &scene)
{
    QByteArray text = QByteArray::number(scene.getTimeStep()) + ' ' +
                      QByteArray::number(scene.getAnimRange().getEnd()) + '\n';
    for (const VxNode *node : scene.getNodes()) {
        const VxNode *parent = node->getNodeParent();
        const QVector3D origin = node->getOrigin();
        text += (parent ? parent->getName().toUtf8() : QByteArray("-")) + ' ' +
                QByteArray::number(double(origin.x() + 10 * origin.y() + 100 * origin.z())) + ' ' +
                QByteArray::number(node->getRotationOrder()) + ' ' + elementText(node);
        const VxObject *object = node->getObject();
        for (int i = 0; object && i < object->getNumSubElements(); ++i)
            text += elementText(object->getSubElement(i));
    }
    return text;
}

QByteArray digestOf(const QByteArray &text)
{
    return QCryptographicHash::hash(text, QCryptographicHash::Md5).toHex();
}

/// A document of this program, as a window has it.
struct Document
{
    Document()
        : messages(UserMessages::Mode::Console)
        , controller(&scene, &history, &messages)
    {
    }

    VxScene scene;
    VxUndoStack history;
    const UserMessages messages;
    DocumentController controller;
};

/// The rich scene with members of a later version at every level.
QCborMap laterMap()
{
    QCborMap map = QCborValue::fromCbor(richBytes()).toMap();
    const QString later = QStringLiteral("later");
    const auto add = [&later](QCborValueRef value, const QCborValue &added) {
        QCborMap changed = value.toMap();
        changed.insert(later, added);
        value = changed;
    };
    QCborArray nodes = map.value(QLatin1String("nodes")).toArray();
    QCborMap light = nodes.last().toMap();
    QCborMap object = light.value(QLatin1String("object")).toMap();
    QCborArray elements = object.value(QLatin1String("subElements")).toArray();
    add(elements[0], 4);
    object[QLatin1String("subElements")] = elements;
    object.insert(later, QCborArray{3, QStringLiteral("three")});
    light[QLatin1String("object")] = object;
    QCborArray properties = light.value(QLatin1String("properties")).toArray();
    add(properties[0], QCborValue(QCborTag(VxSceneFile::TagInt32), QByteArray(300, 'x')));
    light[QLatin1String("properties")] = properties;
    light.insert(later, QCborMap{{QStringLiteral("deep"), QCborArray{1.5, true}}});
    nodes[nodes.size() - 1] = light;
    map[QLatin1String("nodes")] = nodes;
    map.insert(later, 1);
    map.insert(QStringLiteral("later2"), QStringLiteral("two"));
    return map;
}

int countLater(const QCborValue &value)
{
    int count = 0;
    if (value.isMap()) {
        for (const auto member : value.toMap())
            count += member.first.toString().startsWith("later") + countLater(member.second);
    }
    if (value.isArray()) {
        for (const QCborValue &element : value.toArray())
            count += countLater(element);
    }
    return count;
}

void write(const QString &name, const QByteArray &bytes)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write");
}

} // namespace

class tst_VxSceneFormat : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void everyMemberIsDocumented();
    void theRichSceneHasEveryMember();
    void theRichSceneRoundTrips();
    void oldFilesOpen_data();
    void oldFilesOpen();
    void anAbsentValueIsTheDefault();
    void membersOfALaterVersionAreKept();
    void newDocumentsHaveNothingOfFormerOnes();
    void membersThatCannotBeKeptAreNamed();
    void tooMuchToBeKept();
    void whatIsKeptCanBeReadAgain();
    void laterVersionsAreRefused();
    void damagedColumnsAreNamed_data();
    void damagedColumnsAreNamed();
    void aDamagedDocumentNamesItsBackup();

private:
    const VxWarningGuard m_guard;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_VxSceneFormat::everyMemberIsDocumented()
{
    QSet<QString> names;
    collectNames(QCborValue::fromCbor(richBytes()), &names);
    const QString page = QString::fromUtf8(fileBytes(VX_SOURCE_DIR "/docs/format.md"));
    const QSet<QString> documented = matches(page, "`(\\w+)`");
    QCOMPARE(missing(names, documented), QStringList());
    QVERIFY2(page.contains(QStringLiteral("version %1").arg(VxSceneFile::Version)), "version");
}

/// A member that is added to the writer must be added here, and so to the documentation.
void tst_VxSceneFormat::theRichSceneHasEveryMember()
{
    QSet<QString> names;
    collectNames(QCborValue::fromCbor(richBytes()), &names);
    const QString code = QString::fromUtf8(fileBytes(VX_SOURCE_DIR "/app/io/vxscenewriter.cpp"));
    const QSet<QString> written = matches(
        code, "\\b(?:text|flag|integer|number|numbers|range|vector|key|array|column|reference)"
              "\\(\\s*\"(\\w+)\"");
    QVERIFY(written.size() > 50);
    QCOMPARE(missing(written, names), QStringList());
}

void tst_VxSceneFormat::theRichSceneRoundTrips()
{
    VxSceneContents contents;
    VxFileError error;
    QVERIFY2(VxSceneReader().read(richBytes(), &contents, &error), qPrintable(error.text()));
    VxScene scene;
    VxSceneReader::install(std::move(contents), &scene);
    QCOMPARE(sceneBytes(&scene).toHex(' '), richBytes().toHex(' '));
}

void tst_VxSceneFormat::oldFilesOpen_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("digest");
    QTest::newRow("the first program")
        << "walk-first.vxscene.z" << QByteArray("64fbc6f31425f776e8fb5d1bdbeb71da");
    QTest::newRow("controls are written when they were made")
        << "walk-controls-on-demand.vxscene.z" << QByteArray("0eb4c51f76bd593a903c83a64aa6d2e4");
    QTest::newRow("nodes have identifiers")
        << "walk-identifiers.vxscene.z" << QByteArray("0eb4c51f76bd593a903c83a64aa6d2e4");
    QTest::newRow("columns have checksums")
        << "rich-checksums.vxscene.z" << QByteArray("2b56a8a2cc50790e4ed2b41f7deb0575");
}

/// Files that earlier programs have written, each kept for ever.
void tst_VxSceneFormat::oldFilesOpen()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, digest);
    const QByteArray bytes =
        qUncompress(fileBytes(QStringLiteral(VX_SOURCE_DIR "/tests/app/io/files/") + file));
    QVERIFY(!bytes.isEmpty());
    VxSceneContents contents;
    VxFileError error;
    QVERIFY2(VxSceneReader().read(bytes, &contents, &error), qPrintable(error.text()));
    QCOMPARE(contents.unknownMembers, QStringList());
    VxScene scene;
    VxSceneReader::install(std::move(contents), &scene);
    QCOMPARE(digestOf(summaryOf(scene)), digest);
    // What is saved now holds the same.
    VxSceneContents again;
    QVERIFY2(VxSceneReader().read(sceneBytes(&scene), &again, &error), qPrintable(error.text()));
    VxScene copy;
    VxSceneReader::install(std::move(again), &copy);
    QCOMPARE(summaryOf(copy), summaryOf(scene));
}

/// As in files of earlier programs, which left out the value of an alias.
void tst_VxSceneFormat::anAbsentValueIsTheDefault()
{
    QCborMap map = QCborValue::fromCbor(richBytes()).toMap();
    QCborArray nodes = map.value(QLatin1String("nodes")).toArray();
    QCborMap light = nodes.last().toMap();
    QCborArray properties = light.value(QLatin1String("properties")).toArray();
    for (QCborValueRef element : properties) {
        QCborMap property = element.toMap();
        property.remove(QLatin1String("value"));
        element = property;
    }
    light[QLatin1String("properties")] = properties;
    nodes[nodes.size() - 1] = light;
    map[QLatin1String("nodes")] = nodes;
    VxSceneContents contents;
    VxFileError error;
    QVERIFY2(VxSceneReader().read(map.toCborValue().toCbor(), &contents, &error),
             qPrintable(error.text()));
    VxNode *node = contents.rootNodes.back().get();
    const auto *fixed = qobject_cast<VxFloatProperty *>(node->findProperty("fixed"));
    const auto *count = qobject_cast<VxIntProperty *>(node->findProperty("count"));
    QCOMPARE(vxOwnContents(fixed).stored, 3.0f);
    QCOMPARE(vxOwnContents(count).stored, 4);
}

void tst_VxSceneFormat::membersOfALaterVersionAreKept()
{
    const QString name = m_folder->filePath("later.vxscene");
    const QCborMap map = laterMap();
    write(name, map.toCborValue().toCbor());
    Document document;
    QVERIFY2(document.controller.open(name), qPrintable(document.controller.lastError()));
    QVERIFY2(document.controller.summary().endsWith("Saving keeps it."),
             qPrintable(document.controller.summary()));
    QVERIFY2(document.controller.summary().contains("later, later2"),
             qPrintable(document.controller.summary()));
    // An edit of their owners does not change them.
    VxNode *light = document.scene.findNode(QStringLiteral("light"));
    light->setLabel(QStringLiteral("Lamp"));
    light->findProperty(QStringLiteral("count"))->deleteAllKeys();
    QVERIFY(document.controller.save(name));
    const QCborValue saved = QCborValue::fromCbor(fileBytes(name));
    QCOMPARE(countLater(saved), countLater(map));
    const QCborMap before = map.value(QLatin1String("nodes")).toArray().last().toMap();
    const QCborMap after = saved.toMap().value(QLatin1String("nodes")).toArray().last().toMap();
    QVERIFY(after.value(QLatin1String("later")) == before.value(QLatin1String("later")));
    QCOMPARE(after.value(QLatin1String("label")).toString(), QStringLiteral("Lamp"));
    // Again, from what was saved.
    QVERIFY(document.controller.open(name) && document.controller.save(name));
    QCOMPARE(countLater(QCborValue::fromCbor(fileBytes(name))), countLater(map));
}

void tst_VxSceneFormat::newDocumentsHaveNothingOfFormerOnes()
{
    const QString name = m_folder->filePath("later.vxscene");
    write(name, laterMap().toCborValue().toCbor());
    Document document;
    QVERIFY(document.controller.open(name));
    document.controller.clear();
    const QString other = m_folder->filePath("new.vxscene");
    QVERIFY(document.controller.save(other));
    QCOMPARE(countLater(QCborValue::fromCbor(fileBytes(other))), 0);
}

void tst_VxSceneFormat::membersThatCannotBeKeptAreNamed()
{
    QCborMap map = laterMap();
    QCborMap camera = map.value(QLatin1String("camera")).toMap();
    camera.insert(QStringLiteral("lens"), 50);
    map[QLatin1String("camera")] = camera;
    const QString name = m_folder->filePath("later.vxscene");
    write(name, map.toCborValue().toCbor());
    Document document;
    QVERIFY(document.controller.open(name));
    QVERIFY2(document.controller.summary().endsWith("Saving loses: lens."),
             qPrintable(document.controller.summary()));
}

void tst_VxSceneFormat::tooMuchToBeKept()
{
    QCborMap map = laterMap();
    map.insert(QStringLiteral("large"), QByteArray(17 << 20, 'x'));
    VxSceneContents contents;
    VxFileError error;
    QVERIFY(VxSceneReader().read(map.toCborValue().toCbor(), &contents, &error));
    QCOMPARE(contents.droppedMembers, QStringList{QStringLiteral("large")});
    QVERIFY(contents.keptMembers.size() < 100);
}

/// Damaged members of a later version included: what was accepted is saved as a readable file.
void tst_VxSceneFormat::whatIsKeptCanBeReadAgain()
{
    QCborMap map = laterMap();
    for (int i = 0; i < 20; ++i)
        map.insert(QStringLiteral("later-%1").arg(i),
                   QCborMap{{QStringLiteral("a"), QCborArray{i, QStringLiteral("\u00e4"), 0.5}}});
    const QByteArray whole = map.toCborValue().toCbor();
    int kept = 0;
    for (int seed = 0; seed < vxSessionLength(4000); ++seed) {
        VxSceneContents contents;
        VxFileError error;
        const QByteArray bytes = VxFileMutations::mutant(whole, unsigned(seed));
        if (!VxSceneReader().read(bytes, &contents, &error))
            continue;
        const QStringList unknown = contents.unknownMembers;
        const QStringList dropped = contents.droppedMembers;
        VxScene scene;
        VxSceneReader::install(std::move(contents), &scene);
        const QByteArray saved = sceneBytes(&scene);
        QVERIFY2(VxSceneReader().read(saved, &contents, &error),
                 qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(error.text())));
        for (const QString &name : unknown)
            QVERIFY2(dropped.contains(name) || contents.unknownMembers.contains(name),
                     qPrintable(QString::number(seed)));
        ++kept;
    }
    QVERIFY2(kept > vxSessionLength(100), qPrintable(QString::number(kept)));
}

void tst_VxSceneFormat::laterVersionsAreRefused()
{
    QCborMap map = laterMap();
    map[QLatin1String("version")] = VxSceneFile::Version + 1;
    VxSceneContents contents;
    VxFileError error;
    QVERIFY(!VxSceneReader().read(map.toCborValue().toCbor(), &contents, &error));
    QVERIFY2(error.message.contains(QStringLiteral("version %1").arg(VxSceneFile::Version + 1)),
             qPrintable(error.message));
}

void tst_VxSceneFormat::damagedColumnsAreNamed_data()
{
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("column");
    for (const char *column : {"times", "values", "types", "tcb"})
        QTest::addRow("%s of numbers", column) << "rich" << QString(column);
    QTest::newRow("times of whole numbers") << "count"
                                            << "times";
    QTest::newRow("values of whole numbers") << "count"
                                             << "values";
}

/// Any altered bit of a column, also one that leaves the numbers valid.
void tst_VxSceneFormat::damagedColumnsAreNamed()
{
    QFETCH(QString, property);
    QFETCH(QString, column);
    const QByteArray bytes = richBytes();
    const auto text = [](const QString &name) {
        return QCborValue(name).toCbor(); // a name as it is in the file
    };
    const int place = bytes.indexOf(text("keys"), bytes.indexOf(text(property)));
    const int begin = bytes.indexOf(text(column), place) + text(column).size();
    QVERIFY(place > 0 && begin > place);
    // Tag and length of a short array take three or four bytes.
    for (int bit = 0; bit < 8; ++bit) {
        QByteArray damaged = bytes;
        damaged[begin + 4] = char(damaged.at(begin + 4) ^ (1 << bit));
        VxSceneContents contents;
        VxFileError error;
        QVERIFY(!VxSceneReader().read(damaged, &contents, &error));
        QCOMPARE(error.message,
                 QStringLiteral("The key column \"%1\" of the property \"%2\" of \"light\" is "
                                "damaged: its checksum differs.")
                     .arg(column, property));
        QCOMPARE(error.offset, qint64(begin));
        QVERIFY(contents.rootNodes.empty());
    }
}

void tst_VxSceneFormat::aDamagedDocumentNamesItsBackup()
{
    const QString name = m_folder->filePath("walk.vxscene");
    Document document;
    RichScene::build(&document.scene);
    QVERIFY(document.controller.save(name));
    document.scene.setTimeStep(document.scene.getTimeStep() + 1);
    QVERIFY(document.controller.save(name));
    QByteArray bytes = fileBytes(name);
    bytes.chop(40);
    write(name, bytes);
    QVERIFY(!document.controller.open(name));
    const QString backup = m_folder->filePath("walk.bak1.vxscene");
    QVERIFY2(document.controller.lastError().contains(backup),
             qPrintable(document.controller.lastError()));
    QVERIFY2(document.controller.open(backup), qPrintable(document.controller.lastError()));
}

VX_TEST_MAIN(tst_VxSceneFormat)
#include "tst_vxsceneformat.moc"
