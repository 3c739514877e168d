#include "actions_table.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimelineactions/vxtransportactions.h"
#include "vxtimelineplugin.h"

#include <QAction>
#include <QCryptographicHash>
#include <QPointer>
#include <QScriptEngine>
#include <QtTest>
#include <vxcore/vxapp.h>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxplugin.h>
#include <vxcore/vxscriptablefactory.h>

class TestVxTimelinePlugin : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void sdkVersion();
    void recordIsOne();
    void recordContents();
    void factoriesInOrder();
    void identifiers();
    void factoriesCreateTheirClass();
    void pointerTypesAreRegistered();

    void everyClassIsAScriptConstructor();
    void scriptObjectIsTheHosts();
    void constructorWithoutNew();
    void constructorWithoutFactory();
    void paneEnumerationsInScripts_data();
    void paneEnumerationsInScripts();
    void paneFlagSetsInScripts();
    void paneChoicesInScripts_data();
    void paneChoicesInScripts();
    void invalidPaneChoicesInScripts_data();
    void invalidPaneChoicesInScripts();
    void valueWithoutObjectIsNull_data();
    void valueWithoutObjectIsNull();
    void pointerRoundTrip();
    void registeringTwice();
    void registeringWithoutEngineWarns();

private:
    static QVector<VxClassFactory *> factories();
    static VxClassFactory *factoryOf(const char *className);

    std::unique_ptr<VxApp> m_app;
    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<QScriptEngine> m_engine;
};

QVector<VxClassFactory *> TestVxTimelinePlugin::factories()
{
    return getPluginDefinition()->getClassFactories();
}

VxClassFactory *TestVxTimelinePlugin::factoryOf(const char *className)
{
    const auto all = factories();
    for (VxClassFactory *factory : all) {
        if (factory->className() == QLatin1String(className))
            return factory;
    }
    return nullptr;
}

void TestVxTimelinePlugin::initTestCase()
{
    m_app = std::make_unique<VxApp>();
}

void TestVxTimelinePlugin::cleanupTestCase()
{
    m_app.reset();
}

void TestVxTimelinePlugin::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_engine = std::make_unique<QScriptEngine>();
    const auto all = factories();
    for (VxClassFactory *factory : all)
        factory->registerClass(m_engine.get());
}

void TestVxTimelinePlugin::cleanup()
{
    m_engine.reset();
    m_guard.reset();
}

void TestVxTimelinePlugin::sdkVersion()
{
    QVERIFY(getSDKVersion() == VxVersion(4, 22, 0, 7));
    QVERIFY(getSDKVersion().runsIn(VxVersion::sdk()));
}

void TestVxTimelinePlugin::recordIsOne()
{
    QVERIFY(getPluginDefinition());
    QCOMPARE(getPluginDefinition(), getPluginDefinition());
}

void TestVxTimelinePlugin::recordContents()
{
    const VxPlugin *plugin = getPluginDefinition();
    QCOMPARE(plugin->getName(), QString("VxTimeline"));
    QVERIFY(!plugin->getAuthor().isEmpty());
    QCOMPARE(plugin->getVersion().toString(), QString("1.7.0.15"));
    QVERIFY(!VxApp::getAppName().isEmpty());
    QCOMPARE(plugin->getDescription(),
             "An animation dope sheet and graph editor for " + VxApp::getAppName());
}

void TestVxTimelinePlugin::factoriesInOrder()
{
    QStringList expected;
    for (const char *className : registeredClasses)
        expected << QLatin1String(className);
    QStringList names;
    const auto all = factories();
    for (const VxClassFactory *factory : all)
        names << factory->className();
    QCOMPARE(names.size(), 57);
    QCOMPARE(names, expected);
}

// Hosts store identifiers, so a change of any of them is a break with every earlier release.
void TestVxTimelinePlugin::identifiers()
{
    QSet<QString> seen;
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const auto all = factories();
    for (const VxClassFactory *factory : all) {
        const QString guid = factory->guid().toString();
        QVERIFY2(!factory->guid().isNull(), qPrintable(factory->className()));
        QVERIFY2(!seen.contains(guid), qPrintable(factory->className()));
        seen.insert(guid);
        hash.addData((factory->className() + '=' + guid + '\n').toUtf8());
    }
    QCOMPARE(seen.size(), 57);
    QCOMPARE(hash.result().toHex(),
             QByteArray("d3477e87e0132a174a15f46dfb251bcd115033299ef116b6e43d5a1ffa1e9f3b"));
}

void TestVxTimelinePlugin::factoriesCreateTheirClass()
{
    const auto all = factories();
    for (const VxClassFactory *factory : all) {
        const auto *scriptable = dynamic_cast<const VxScriptableFactory *>(factory);
        QVERIFY(scriptable);
        QCOMPARE(scriptable->getOwnership(), 0);
        const std::unique_ptr<QObject> plain(factory->createInstance());
        const std::unique_ptr<QObject> second(factory->createDefaultInstance());
        const std::unique_ptr<QObject> scripted(factory->createInstance(nullptr));
        for (const QObject *object : {plain.get(), second.get(), scripted.get()}) {
            QVERIFY2(object, qPrintable(factory->className()));
            QCOMPARE(object->metaObject(), factory->metaObject());
            QCOMPARE(QString(object->metaObject()->className()), factory->className());
        }
        QVERIFY(plain != second && second != scripted && plain != scripted);
    }
}

void TestVxTimelinePlugin::pointerTypesAreRegistered()
{
    for (const char *className : registeredClasses) {
        const int type = QMetaType::type(QByteArray(className) + '*');
        QVERIFY2(type != QMetaType::UnknownType, className);
        const QMetaObject *metaObject = QMetaType::metaObjectForType(type);
        QVERIFY2(metaObject, className);
        QCOMPARE(metaObject->className(), className);
    }
}

void TestVxTimelinePlugin::everyClassIsAScriptConstructor()
{
    for (const char *className : registeredClasses) {
        const QString name = QLatin1String(className);
        const QScriptValue made =
            m_engine->evaluate(QStringLiteral("made = new %1(); made").arg(name));
        QVERIFY2(!m_engine->hasUncaughtException(), qPrintable(made.toString()));
        const std::unique_ptr<QObject> object(made.toQObject());
        QVERIFY2(object, className);
        QCOMPARE(object->metaObject()->className(), className);
        QVERIFY2(m_engine->evaluate("made instanceof " + name).toBool(), className);
        QVERIFY2(!m_engine->evaluate("made instanceof Array").toBool(), className);
        if (qobject_cast<QAction *>(object.get()))
            QCOMPARE(m_engine->evaluate("made.objectName").toString(), name);
    }
}

void TestVxTimelinePlugin::scriptObjectIsTheHosts()
{
    const QScriptValue made = m_engine->evaluate("action = new VxNextFrameAction()");
    const QPointer<QObject> action(made.toQObject());
    const QPointer<QObject> pane(m_engine->evaluate("pane = new VxTimePane()").toQObject());
    QVERIFY(action && pane);
    m_engine->evaluate("action = null; pane = null");
    m_engine->collectGarbage();
    QVERIFY(action && pane);
    m_engine.reset();
    QVERIFY(action && pane);
    delete action;
    delete pane;
}

void TestVxTimelinePlugin::constructorWithoutNew()
{
    const QScriptValue made = m_engine->evaluate("VxNextFrameAction()");
    QVERIFY(!m_engine->hasUncaughtException());
    const std::unique_ptr<QObject> object(made.toQObject());
    QVERIFY(qobject_cast<VxNextFrameAction *>(object.get()));
    QVERIFY(!m_engine->globalObject().isQObject());
}

void TestVxTimelinePlugin::constructorWithoutFactory()
{
    QScriptValue function = m_engine->newFunction(&VxScriptableFactory::constructor, nullptr);
    QVERIFY(function.call().isUndefined());
}

void TestVxTimelinePlugin::paneEnumerationsInScripts_data()
{
    QTest::addColumn<int>("value");
    QTest::newRow("ControlsBottom") << 0;
    QTest::newRow("ControlsTop") << 1;
    QTest::newRow("BasicView") << 0;
    QTest::newRow("IntermediateView") << 1;
    QTest::newRow("AdvancedView") << 2;
    QTest::newRow("PropNone") << 0;
    QTest::newRow("PropTranslate") << 0x1;
    QTest::newRow("PropRotate") << 0x2;
    QTest::newRow("PropScale") << 0x4;
    QTest::newRow("PropOther") << 0x8;
    QTest::newRow("PropAlias") << 0x10;
    QTest::newRow("PropHidden") << 0x20;
    QTest::newRow("ScopeObject") << 0;
    QTest::newRow("ScopeNodeRecurse") << 1;
    QTest::newRow("ScopeNode") << 2;
    QTest::newRow("ScopeProperties") << 3;
}

void TestVxTimelinePlugin::paneEnumerationsInScripts()
{
    QFETCH(int, value);
    const QString key = QString::fromLatin1(QTest::currentDataTag());
    const QScriptValue pane = m_engine->evaluate("pane = new VxTimePane()");
    const std::unique_ptr<QObject> object(pane.toQObject());
    const QScriptValue read = m_engine->evaluate("pane." + key);
    QVERIFY2(read.isNumber(), qPrintable(read.toString()));
    QCOMPARE(read.toInt32(), value);
    QCOMPARE(m_engine->evaluate("VxTimePane." + key).toInt32(), value);
}

void TestVxTimelinePlugin::paneFlagSetsInScripts()
{
    const std::unique_ptr<QObject> object(
        m_engine->evaluate("pane = new VxTimePane()").toQObject());
    auto *pane = qobject_cast<VxTimePane *>(object.get());
    std::vector<std::unique_ptr<QObject>> actions;
    const auto all = factories();
    for (const VxClassFactory *factory : all) {
        if (factory->className().startsWith("VxTimePaneSetPropertyType")) {
            actions.emplace_back(factory->createInstance());
            pane->registerAction(qobject_cast<QAction *>(actions.back().get()));
        }
    }
    QCOMPARE(int(actions.size()), 6);
    const QString script("pane.setFilteredPropertyTypes(%1); pane.getFilteredPropertyTypes()");
    const QPair<const char *, int> sets[] = {
        {"pane.PropRotate | pane.PropHidden", 0x22}, {"pane.PropScale", 0x4}, {"0", 0}};
    for (const auto &set : sets) {
        const QScriptValue types = m_engine->evaluate(script.arg(QLatin1String(set.first)));
        QVERIFY2(!m_engine->hasUncaughtException(), qPrintable(types.toString()));
        QVERIFY(types.isNumber());
        QCOMPARE(types.toInt32(), set.second);
        QCOMPARE(int(pane->getFilteredPropertyTypes()), set.second);
    }
}

void TestVxTimelinePlugin::paneChoicesInScripts_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("a new pane's view mode") << "pane.getViewMode() === pane.AdvancedView";
    QTest::newRow("key of the object") << "pane.setViewMode(pane.IntermediateView);"
                                          "pane.getViewMode() === pane.IntermediateView";
    QTest::newRow("key of the class") << "pane.setViewMode(VxTimePane.BasicView);"
                                         "pane.getViewMode() == VxTimePane.BasicView";
    QTest::newRow("name of a key") << "pane.setViewMode('BasicView'); pane.getViewMode() === 0";
    QTest::newRow("controls position") << "pane.setControlsPosition(pane.ControlsTop);"
                                          "pane.getControlsPosition() === pane.ControlsTop";
    QTest::newRow("key scope") << "pane.getFilteredKeyCreationScope() === pane.ScopeNode";
    QTest::newRow("what a signal carries")
        << "reported = null; pane.viewModeChanged.connect(function(mode) { reported = mode; });"
           "pane.setViewMode(pane.BasicView); reported === pane.BasicView";
}

void TestVxTimelinePlugin::paneChoicesInScripts()
{
    QFETCH(QString, script);
    const std::unique_ptr<QObject> object(
        m_engine->evaluate("pane = new VxTimePane()").toQObject());
    const QScriptValue result = m_engine->evaluate(script);
    QVERIFY2(!m_engine->hasUncaughtException(), qPrintable(result.toString()));
    QVERIFY(result.isBool());
    QVERIFY(result.toBool());
}

void TestVxTimelinePlugin::invalidPaneChoicesInScripts_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("beyond the last") << "3";
    QTest::newRow("below the first") << "-1";
    QTest::newRow("broken number") << "0.5";
    QTest::newRow("name of no key") << "'Basic'";
    QTest::newRow("nothing") << "undefined";
    QTest::newRow("null") << "null";
    QTest::newRow("object") << "({})";
    QTest::newRow("not a number") << "NaN";
}

void TestVxTimelinePlugin::invalidPaneChoicesInScripts()
{
    QFETCH(QString, value);
    const std::unique_ptr<QObject> object(
        m_engine->evaluate("pane = new VxTimePane()").toQObject());
    m_guard->expect(QRegularExpression("Invalid value passed to VxTimePane::setViewMode"));
    m_engine->evaluate(QStringLiteral("pane.setViewMode(%1)").arg(value));
    QCOMPARE(qobject_cast<VxTimePane *>(object.get())->getViewMode(), VxTimePane::AdvancedView);
}

void TestVxTimelinePlugin::valueWithoutObjectIsNull_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("undefined") << "undefined";
    QTest::newRow("null") << "null";
    QTest::newRow("number") << "17";
    QTest::newRow("text") << "'VxNextFrameAction'";
    QTest::newRow("plain object") << "({})";
    QTest::newRow("function") << "(function() {})";
    QTest::newRow("object of another class") << "other";
}

void TestVxTimelinePlugin::valueWithoutObjectIsNull()
{
    QFETCH(QString, script);
    QObject other;
    m_engine->globalObject().setProperty("other", m_engine->newQObject(&other));
    const QScriptValue value = m_engine->evaluate(script);
    QVERIFY(!m_engine->hasUncaughtException());
    QVERIFY(!qscriptvalue_cast<VxNextFrameAction *>(value));
    QVERIFY(!qscriptvalue_cast<VxTimePane *>(value));
    QVERIFY(!m_engine->hasUncaughtException());
}

void TestVxTimelinePlugin::pointerRoundTrip()
{
    VxNextFrameAction action;
    const QScriptValue value = m_engine->toScriptValue(&action);
    QVERIFY(value.isQObject());
    QCOMPARE(value.toQObject(), &action);
    QCOMPARE(qscriptvalue_cast<VxNextFrameAction *>(value), &action);
    QVERIFY(!qscriptvalue_cast<VxPrevFrameAction *>(value));

    VxNextFrameAction *none = nullptr;
    QVERIFY(!qscriptvalue_cast<VxNextFrameAction *>(m_engine->toScriptValue(none)));
}

void TestVxTimelinePlugin::registeringTwice()
{
    factoryOf("VxNextFrameAction")->registerClass(m_engine.get());
    const QScriptValue made = m_engine->evaluate("new VxNextFrameAction()");
    const std::unique_ptr<QObject> object(made.toQObject());
    QVERIFY(qobject_cast<VxNextFrameAction *>(object.get()));
}

void TestVxTimelinePlugin::registeringWithoutEngineWarns()
{
    for (const char *className : {"VxTimePane", "VxNextFrameAction"}) {
        m_guard->expect(
            QRegularExpression(QLatin1String(className) + QStringLiteral(" cannot be registered")));
        factoryOf(className)->registerClass(nullptr);
    }
}

VX_TEST_MAIN(TestVxTimelinePlugin)
#include "tst_vxtimelineplugin.moc"
