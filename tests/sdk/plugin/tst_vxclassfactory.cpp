#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtScript/QScriptEngine>
#include <QtTest>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxscriptablefactory.h>

/// A base with a key that its subclass hides.
class Instrument : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int Volume MEMBER m_volume)
public:
    enum Level { Silent = 0, Loud = 9, Volume = 77 };
    Q_ENUM(Level)
    int m_volume = 5;
};

class Drum : public Instrument
{
    Q_OBJECT
public:
    enum Part { Skin = 0x1, Rim = 0x2, Both = 0x3 };
    Q_DECLARE_FLAGS(Parts, Part)
    Q_FLAG(Parts)
    enum Strength { Soft = -1, Loud = 4 };
    Q_ENUM(Strength)
    Q_INVOKABLE QString sound() const { return QStringLiteral("boom"); }
};

namespace {

const char *guidText = "0F5D2B7E-8A11-4C3D-9E6F-7A8B9C0D1E2F";

class DrumFactory : public VxClassFactory
{
public:
    DrumFactory()
        : VxClassFactory(&Drum::staticMetaObject, VxGuid::fromString(QLatin1String(guidText)))
    {
    }
    using VxClassFactory::createInstance;
    QObject *createInstance() const override { return new Drum; }
};

} // namespace

class tst_VxClassFactory : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard.reset(new VxWarningGuard); }
    void cleanup() { m_guard.reset(); }
    void returnsClassAndIdentifier();
    void everyCreationEndsInThePlainOne();
    void engineKeepsClassesInOrder();
    void enginesDoNotShareTheirLists();
    void registeringWithoutEngineWarns();
    void enumKeys_data();
    void enumKeys();
    void enumKeysAreReadOnly();
    void keysOfTheToolkitsBaseAreLeftOut();
    void enumKeysOnAPlainObject();
    void badArgumentsForEnumsWarn();
    void hostClassIsConstructedByScripts();
    void scriptNeverOwnsAHostObject();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void tst_VxClassFactory::returnsClassAndIdentifier()
{
    const DrumFactory factory;
    QCOMPARE(factory.className(), QStringLiteral("Drum"));
    QCOMPARE(factory.metaObject(), &Drum::staticMetaObject);
    QCOMPARE(factory.guid().toString(), QLatin1String(guidText));
}

void tst_VxClassFactory::everyCreationEndsInThePlainOne()
{
    const DrumFactory factory;
    const VxClassFactory &base = factory;
    const std::unique_ptr<QObject> plain(base.createInstance());
    const std::unique_ptr<QObject> scripted(base.createInstance(nullptr));
    const std::unique_ptr<QObject> second(base.createDefaultInstance());
    QVERIFY(qobject_cast<Drum *>(plain.get()));
    QVERIFY(qobject_cast<Drum *>(scripted.get()));
    QVERIFY(qobject_cast<Drum *>(second.get()));
}

void tst_VxClassFactory::engineKeepsClassesInOrder()
{
    QScriptEngine engine;
    const VxScriptableFactoryOf<Instrument> instrument(guidText);
    const DrumFactory drum;
    drum.registerClass(&engine);
    instrument.registerClass(&engine);
    drum.registerClass(&engine);
    QCOMPARE(VxClassFactory::registeredClasses(&engine),
             (QStringList{QStringLiteral("Drum"), QStringLiteral("Instrument")}));
    QVERIFY(VxClassFactory::registeredClasses(nullptr).isEmpty());
}

void tst_VxClassFactory::enginesDoNotShareTheirLists()
{
    QScriptEngine first;
    const DrumFactory drum;
    drum.registerClass(&first);
    const QScriptEngine second;
    QVERIFY(VxClassFactory::registeredClasses(&second).isEmpty());
}

void tst_VxClassFactory::registeringWithoutEngineWarns()
{
    const DrumFactory drum;
    m_guard->expect(QRegularExpression(QStringLiteral("Drum cannot be registered")));
    drum.registerClass(nullptr);
}

void tst_VxClassFactory::enumKeys_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("value");
    QTest::newRow("a flag") << "Rim" << 2;
    QTest::newRow("a combination") << "Both" << 3;
    QTest::newRow("a negative value") << "Soft" << -1;
    QTest::newRow("a key of the base") << "Silent" << 0;
    QTest::newRow("a key that the class and its base have") << "Loud" << 4;
    QTest::newRow("a property of that name stays the property") << "Volume" << 5;
}

void tst_VxClassFactory::enumKeys()
{
    QFETCH(QString, key);
    QFETCH(int, value);
    QScriptEngine engine;
    Drum drum;
    QScriptValue object = engine.newQObject(&drum);
    VxClassFactory::registerEnumsOnClass(&engine, &Drum::staticMetaObject, object);
    QVERIFY(object.property(key).isNumber());
    QCOMPARE(object.property(key).toInt32(), value);
    QCOMPARE(drum.m_volume, 5);
}

void tst_VxClassFactory::enumKeysAreReadOnly()
{
    QScriptEngine engine;
    Drum drum;
    QScriptValue object = engine.newQObject(&drum);
    VxClassFactory::registerEnumsOnClass(&engine, &Drum::staticMetaObject, object);
    engine.globalObject().setProperty(QStringLiteral("drum"), object);
    QCOMPARE(engine.evaluate(QStringLiteral("drum.Rim = 12; drum.Rim")).toInt32(), 2);
    QVERIFY(object.propertyFlags(QStringLiteral("Rim")) & QScriptValue::ReadOnly);
}

void tst_VxClassFactory::keysOfTheToolkitsBaseAreLeftOut()
{
    QScriptEngine engine;
    QObject plain;
    QScriptValue object = engine.newObject();
    VxClassFactory::registerEnumsOnClass(&engine, &QObject::staticMetaObject, object);
    QVERIFY(!object.property(QStringLiteral("Rim")).isValid());
    QVERIFY(!object.property(QStringLiteral("AlignLeft")).isValid());
}

void tst_VxClassFactory::enumKeysOnAPlainObject()
{
    QScriptEngine engine;
    QScriptValue object = engine.newObject();
    VxClassFactory::registerEnumsOnClass(&engine, &Drum::staticMetaObject, object);
    QCOMPARE(object.property(QStringLiteral("Loud")).toInt32(), 4);
}

void tst_VxClassFactory::badArgumentsForEnumsWarn()
{
    QScriptEngine engine;
    QScriptValue number(7);
    m_guard->expect(
        QRegularExpression(QStringLiteral("Drum require a script engine and an object")));
    VxClassFactory::registerEnumsOnClass(&engine, &Drum::staticMetaObject, number);
    QScriptValue object = engine.newObject();
    m_guard->expect(QRegularExpression(QStringLiteral("enumerations of no class")));
    VxClassFactory::registerEnumsOnClass(&engine, nullptr, object);
}

void tst_VxClassFactory::hostClassIsConstructedByScripts()
{
    QScriptEngine engine;
    const VxScriptableFactoryOf<Drum> factory(guidText);
    factory.registerClass(&engine);
    const QScriptValue drum = engine.evaluate(QStringLiteral("drum = new Drum()"));
    const std::unique_ptr<QObject> owned(drum.toQObject());
    QVERIFY(qobject_cast<Drum *>(owned.get()));
    QCOMPARE(engine.evaluate(QStringLiteral("drum.sound()")).toString(), QStringLiteral("boom"));
    QVERIFY(engine.evaluate(QStringLiteral("drum instanceof Drum")).toBool());
    QCOMPARE(engine.evaluate(QStringLiteral("drum.Both")).toInt32(), 3);
    QCOMPARE(engine.evaluate(QStringLiteral("Drum.Both")).toInt32(), 3);
    QVERIFY(!engine.hasUncaughtException());
}

void tst_VxClassFactory::scriptNeverOwnsAHostObject()
{
    QPointer<QObject> drum;
    {
        QScriptEngine engine;
        const VxScriptableFactoryOf<Drum> factory(guidText);
        factory.registerClass(&engine);
        drum = engine.evaluate(QStringLiteral("new Drum()")).toQObject();
        QVERIFY(drum);
        engine.collectGarbage();
        QVERIFY(drum);
    }
    QVERIFY(drum);
    delete drum;
}

VX_TEST_MAIN(tst_VxClassFactory)
#include "tst_vxclassfactory.moc"
