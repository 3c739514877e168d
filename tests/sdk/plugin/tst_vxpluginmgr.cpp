#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtScript/QScriptEngine>
#include <QtTest>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxplugin.h>
#include <vxcore/vxpluginmgr.h>

Q_DECLARE_METATYPE(VxPlugin *)

namespace {

QString modulePath(const char *name)
{
    return QStringLiteral(VX_BINARY_DIR "/tests/modules/%1.so").arg(QLatin1String(name));
}

class TimerFactory : public VxClassFactory
{
public:
    explicit TimerFactory(const QMetaObject *metaObject = &QTimer::staticMetaObject)
        : VxClassFactory(metaObject, VxGuid())
    {
    }
    using VxClassFactory::createInstance;
    QObject *createInstance() const override { return new QTimer; }
};

VxPlugin *makePlugin(const char *name)
{
    return new VxPlugin(QString::fromLatin1(name), QString(), QString(), 1, 0, 0, 0);
}

} // namespace

class tst_VxPluginMgr : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<VxPlugin *>(); }
    void init();
    void cleanup();
    void loadsAModule();
    void refuses_data();
    void refuses();
    void refusesModulesThatAreCutOff();
    void namesBothVersions();
    void refusesASecondPluginOfTheSameName();
    void keepsTheFirstOfTwoClassesOfOneName();
    void refusesRecordsWithoutNameOrTwice();
    void hostFactoriesAreFoundByName();
    void registersEveryClassInOrder();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void tst_VxPluginMgr::init()
{
    m_guard.reset(new VxWarningGuard);
}

void tst_VxPluginMgr::cleanup()
{
    m_guard.reset();
}

void tst_VxPluginMgr::loadsAModule()
{
    VxPluginMgr manager;
    QSignalSpy added(&manager, &VxPluginMgr::pluginAdded);
    QString error = QStringLiteral("untouched");
    VxPlugin *plugin = manager.loadPlugin(modulePath("testmodule_good"), &error);
    QVERIFY2(plugin, qPrintable(error));
    QVERIFY(error.isEmpty());
    QCOMPARE(plugin->getName(), QStringLiteral("Good"));
    QCOMPARE(plugin->getVersion().toString(), QStringLiteral("1.2.3.4"));
    QCOMPARE(manager.getPlugins(), QVector<VxPlugin *>{plugin});
    QCOMPARE(added.size(), 1);
    VxClassFactory *factory = manager.findClassFactory(QStringLiteral("QObject"));
    QVERIFY(factory);
    const std::unique_ptr<QObject> object(factory->createInstance());
    QCOMPARE(object->metaObject()->className(), "QObject");
}

void tst_VxPluginMgr::refuses_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("reason");
    QTest::newRow("a file that is not there") << modulePath("absent") << "does not exist";
    QTest::newRow("a folder") << QStringLiteral(VX_BINARY_DIR) << "is not a file";
    QTest::newRow("a text named like a library")
        << modulePath("testmodule_text") << "cannot be loaded: ";
    QTest::newRow("a library without a version")
        << modulePath("testmodule_noversion") << "no entry point \"getSDKVersion\"";
    QTest::newRow("a library without a record entry point")
        << modulePath("testmodule_nodefinition") << "no entry point \"getPluginDefinition\"";
    QTest::newRow("a null record") << modulePath("testmodule_norecord") << "no plug-in record";
    QTest::newRow("a newer SDK") << modulePath("testmodule_newersdk") << "SDK version";
}

void tst_VxPluginMgr::refuses()
{
    QFETCH(QString, file);
    QFETCH(QString, reason);
    VxPluginMgr manager;
    QSignalSpy added(&manager, &VxPluginMgr::pluginAdded);
    QString error;
    QVERIFY(!manager.loadPlugin(file, &error));
    QVERIFY2(error.contains(reason), qPrintable(error));
    QVERIFY2(error.contains(file), qPrintable(error));
    QVERIFY(manager.getPlugins().isEmpty());
    QVERIFY(manager.getClassFactories().isEmpty());
    QVERIFY(added.isEmpty());
    QVERIFY(!manager.loadPlugin(file, nullptr));
}

/** The system maps a file without a look at its size: what is missing would end the program. */
void tst_VxPluginMgr::refusesModulesThatAreCutOff()
{
    QFile whole(modulePath("testmodule_good"));
    QVERIFY(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    const QTemporaryDir folder;
    for (const int length : {0, 3, 40, 64, 200, 1000, 4096, bytes.size() / 2, bytes.size() - 1}) {
        const QString name = folder.filePath(QStringLiteral("cut%1.so").arg(length));
        QFile cut(name);
        QVERIFY(cut.open(QIODevice::WriteOnly) && cut.write(bytes.left(length)) == length);
        cut.close();
        VxPluginMgr manager;
        QString error;
        QVERIFY2(!manager.loadPlugin(name, &error), qPrintable(name));
        QVERIFY2(error.contains(QLatin1String("cannot be loaded: ")), qPrintable(error));
    }
}

void tst_VxPluginMgr::namesBothVersions()
{
    VxPluginMgr manager;
    QString error;
    QVERIFY(!manager.loadPlugin(modulePath("testmodule_newersdk"), &error));
    QVERIFY2(error.contains(QLatin1String("4.23.0.0")), qPrintable(error));
    QVERIFY2(error.contains(VxVersion::sdk().toString()), qPrintable(error));
}

void tst_VxPluginMgr::refusesASecondPluginOfTheSameName()
{
    VxPluginMgr manager;
    QVERIFY(manager.loadPlugin(modulePath("testmodule_good")));
    QString error;
    QVERIFY(!manager.loadPlugin(modulePath("testmodule_twin"), &error));
    QVERIFY2(error.contains(QLatin1String("\"Good\" is already loaded (version 1.2.3.4)")),
             qPrintable(error));
    QVERIFY(!manager.loadPlugin(modulePath("testmodule_good"), &error));
    QCOMPARE(manager.getPlugins().size(), 1);
}

void tst_VxPluginMgr::keepsTheFirstOfTwoClassesOfOneName()
{
    VxPluginMgr manager;
    TimerFactory first;
    TimerFactory second;
    TimerFactory other(&QThread::staticMetaObject);
    const std::unique_ptr<VxPlugin> one(makePlugin("One"));
    one->addClassFactory(&first);
    const std::unique_ptr<VxPlugin> two(makePlugin("Two"));
    two->addClassFactory(&second);
    two->addClassFactory(&other);
    manager.addPlugin(one.get());
    m_guard->expect(QRegularExpression(QStringLiteral("\"QTimer\" of plug-in \"Two\"")));
    manager.addPlugin(two.get());
    QCOMPARE(manager.findClassFactory(QStringLiteral("QTimer")), &first);
    QCOMPARE(manager.getClassFactories(), (QVector<VxClassFactory *>{&first, &other}));
    QCOMPARE(manager.getPlugins().size(), 2);
}

void tst_VxPluginMgr::refusesRecordsWithoutNameOrTwice()
{
    VxPluginMgr manager;
    const std::unique_ptr<VxPlugin> nameless(makePlugin(""));
    m_guard->expect(QRegularExpression(QStringLiteral("has no name")));
    manager.addPlugin(nameless.get());
    m_guard->expect(QRegularExpression(QStringLiteral("no plug-in record to add")));
    manager.addPlugin(nullptr);
    const std::unique_ptr<VxPlugin> named(makePlugin("Named"));
    manager.addPlugin(named.get());
    m_guard->expect(QRegularExpression(QStringLiteral("\"Named\" is already loaded")));
    manager.addPlugin(named.get());
    QCOMPARE(manager.getPlugins(), QVector<VxPlugin *>{named.get()});
}

void tst_VxPluginMgr::hostFactoriesAreFoundByName()
{
    VxPluginMgr manager;
    TimerFactory factory;
    TimerFactory same;
    TimerFactory nameless(nullptr);
    QVERIFY(manager.addClassFactory(&factory));
    QVERIFY(!manager.addClassFactory(&same));
    QVERIFY(!manager.addClassFactory(&nameless));
    QVERIFY(!manager.addClassFactory(nullptr));
    QCOMPARE(manager.findClassFactory(QStringLiteral("QTimer")), &factory);
    QVERIFY(!manager.findClassFactory(QStringLiteral("QThread")));
    QVERIFY(!manager.findClassFactory(QString()));
}

void tst_VxPluginMgr::registersEveryClassInOrder()
{
    VxPluginMgr manager;
    TimerFactory timer;
    TimerFactory thread(&QThread::staticMetaObject);
    manager.addClassFactory(&timer);
    manager.addClassFactory(&thread);
    QScriptEngine engine;
    manager.registerClasses(&engine);
    const QStringList expected{QStringLiteral("QTimer"), QStringLiteral("QThread")};
    QCOMPARE(VxClassFactory::registeredClasses(&engine), expected);
    manager.registerClasses(&engine);
    QCOMPARE(VxClassFactory::registeredClasses(&engine), expected);
}

VX_TEST_MAIN(tst_VxPluginMgr)
#include "tst_vxpluginmgr.moc"
