#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxsettings.h>

Q_DECLARE_METATYPE(VxPane *)

class NotesPane : public VxPane
{
    Q_OBJECT
public:
    NotesPane()
        : VxPane(QStringLiteral("Notes"))
    {
    }
    void restoreSettings(VxSettings *settings) override
    {
        ++numRestores;
        open = settings->getBoolValue(QStringLiteral("Open"), false);
    }
    void saveSettings(VxSettings *settings) const override
    {
        settings->setBoolValue(QStringLiteral("Open"), open);
    }
    bool open = false;
    int numRestores = 0;
};

class CurvesPane : public VxPane
{
    Q_OBJECT
public:
    CurvesPane()
        : VxPane(QStringLiteral("Curves"))
    {
    }
};

/// Looks itself up while it is being made.
class SelfishPane : public VxPane
{
    Q_OBJECT
public:
    SelfishPane()
        : VxPane(QStringLiteral("Selfish"))
    {
        ++numMade;
        found = manager->findOrCreatePane(QStringLiteral("SelfishPane"));
    }
    static VxPaneMgr *manager;
    static int numMade;
    VxPane *found = nullptr;
};

VxPaneMgr *SelfishPane::manager = nullptr;
int SelfishPane::numMade = 0;

namespace {

template <class T> class Factory : public VxClassFactory
{
public:
    Factory()
        : VxClassFactory(&T::staticMetaObject, VxGuid())
    {
    }
    using VxClassFactory::createInstance;
    QObject *createInstance() const override { return new T; }
};

class FailingFactory : public VxClassFactory
{
public:
    FailingFactory()
        : VxClassFactory(&CurvesPane::staticMetaObject, VxGuid())
    {
    }
    using VxClassFactory::createInstance;
    QObject *createInstance() const override { return new QObject; }
};

const QString notes = QStringLiteral("NotesPane");
const QString curves = QStringLiteral("CurvesPane");

} // namespace

class tst_VxPaneMgr : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<VxPane *>(); }
    void init();
    void cleanup();
    void createsOneOfEachPaneClass();
    void findsExistingPanesOnly();
    void createsAPaneOnDemand();
    void namesPanesAfterTheirClass();
    void continuesWhenAFactoryFails();
    void aPaneMayAskForItself();
    void refusesASecondPaneOfAClass();
    void restoresSettingsOnceFromItsGroup();
    void savesIntoTheGroups();
    void worksWithoutSettings();
    void removesADestroyedPane();
    void destroysTheLastOneFirst();
    void undockedPanesAreDeletedWithTheManager();
    void dockedPanesOutliveTheManager();
    void showingIsARequest();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
    Factory<NotesPane> m_notes;
    Factory<QTimer> m_timer;
    Factory<CurvesPane> m_curves;
    std::unique_ptr<VxPluginMgr> m_plugins;
};

void tst_VxPaneMgr::init()
{
    m_guard.reset(new VxWarningGuard);
    m_plugins.reset(new VxPluginMgr);
    m_plugins->addClassFactory(&m_notes);
    m_plugins->addClassFactory(&m_timer);
    m_plugins->addClassFactory(&m_curves);
}

void tst_VxPaneMgr::cleanup()
{
    m_guard.reset();
}

void tst_VxPaneMgr::createsOneOfEachPaneClass()
{
    VxPaneMgr manager;
    QSignalSpy added(&manager, &VxPaneMgr::paneAdded);
    manager.createPanes(m_plugins.get());
    manager.createPanes(m_plugins.get());
    manager.createPanes(nullptr);
    QCOMPARE(added.size(), 2);
    QCOMPARE(manager.getPanes().size(), 2);
    QVERIFY(qobject_cast<NotesPane *>(manager.getPanes().at(0)));
    QVERIFY(qobject_cast<CurvesPane *>(manager.getPanes().at(1)));
}

void tst_VxPaneMgr::findsExistingPanesOnly()
{
    VxPaneMgr manager;
    QVERIFY(!manager.findPane(notes));
    manager.createPanes(m_plugins.get());
    QCOMPARE(manager.findPane(notes), manager.getPanes().at(0));
    QVERIFY(!manager.findPane(QStringLiteral("UnknownPane")));
    QVERIFY(!manager.findPane(QStringLiteral("VxPane")));
    QVERIFY(!manager.findPane(QString()));
}

void tst_VxPaneMgr::createsAPaneOnDemand()
{
    VxPaneMgr manager;
    QVERIFY(!manager.findOrCreatePane(notes));
    manager.createPanes(m_plugins.get());
    delete manager.findPane(notes);
    QSignalSpy added(&manager, &VxPaneMgr::paneAdded);
    VxPane *pane = manager.findOrCreatePane(notes);
    QVERIFY(pane);
    QCOMPARE(manager.findOrCreatePane(notes), pane);
    QCOMPARE(added.size(), 1);
    QVERIFY(!manager.findOrCreatePane(QStringLiteral("QTimer")));
}

void tst_VxPaneMgr::namesPanesAfterTheirClass()
{
    VxPaneMgr manager;
    manager.createPanes(m_plugins.get());
    QCOMPARE(manager.findPane(notes)->objectName(), notes);
    VxPaneMgr other;
    NotesPane named;
    named.setObjectName(QStringLiteral("chosen"));
    other.addPane(&named);
    QCOMPARE(named.objectName(), QStringLiteral("chosen"));
    QCOMPARE(other.findPane(notes), &named);
}

void tst_VxPaneMgr::continuesWhenAFactoryFails()
{
    FailingFactory failing;
    VxPluginMgr plugins;
    plugins.addClassFactory(&failing);
    plugins.addClassFactory(&m_notes);
    VxPaneMgr manager;
    m_guard->expect(QRegularExpression(QStringLiteral("CurvesPane created no pane")));
    manager.createPanes(&plugins);
    QCOMPARE(manager.getPanes().size(), 1);
}

void tst_VxPaneMgr::aPaneMayAskForItself()
{
    Factory<SelfishPane> selfish;
    m_plugins->addClassFactory(&selfish);
    VxPaneMgr manager;
    SelfishPane::manager = &manager;
    SelfishPane::numMade = 0;
    manager.createPanes(m_plugins.get());
    QCOMPARE(SelfishPane::numMade, 1);
    auto *pane = qobject_cast<SelfishPane *>(manager.findPane(QStringLiteral("SelfishPane")));
    QVERIFY(pane);
    QVERIFY(!pane->found);
}

void tst_VxPaneMgr::refusesASecondPaneOfAClass()
{
    VxPaneMgr manager;
    NotesPane first;
    NotesPane second;
    QVERIFY(manager.addPane(&first));
    QVERIFY(!manager.addPane(&second));
    QVERIFY(!manager.addPane(&first));
    QVERIFY(!manager.addPane(nullptr));
    QCOMPARE(manager.getPanes(), QVector<VxPane *>{&first});
}

void tst_VxPaneMgr::restoresSettingsOnceFromItsGroup()
{
    VxSettings settings;
    settings.getSettings(notes)->setBoolValue(QStringLiteral("Open"), true);
    VxPaneMgr manager;
    manager.setSettings(&settings);
    bool openWhenAdded = false;
    connect(&manager, &VxPaneMgr::paneAdded, &manager, [&openWhenAdded](VxPane *pane) {
        if (const auto *added = qobject_cast<NotesPane *>(pane))
            openWhenAdded = added->open;
    });
    manager.createPanes(m_plugins.get());
    manager.findOrCreatePane(notes);
    QCOMPARE(static_cast<NotesPane *>(manager.findPane(notes))->numRestores, 1);
    QVERIFY(openWhenAdded);
}

void tst_VxPaneMgr::savesIntoTheGroups()
{
    VxSettings settings;
    VxPaneMgr manager;
    manager.setSettings(&settings);
    manager.createPanes(m_plugins.get());
    static_cast<NotesPane *>(manager.findPane(notes))->open = true;
    settings.getSettings(notes)->setBoolValue(QStringLiteral("Closed"), true);
    settings.getSettings(QStringLiteral("OtherPane"))->setIntValue(QStringLiteral("Width"), 7);
    manager.saveSettings();
    // Settings that the pane no longer writes are not restored beside those that it writes.
    QCOMPARE(settings.getSettings(notes)->getKeys(), QStringList("Open"));
    QCOMPARE(settings.getSettings(QStringLiteral("OtherPane"))->getKeys(), QStringList("Width"));
    settings.getSettings(QStringLiteral("OtherPane"))->clear();
    QVERIFY(settings.getSettings(notes)->getBoolValue(QStringLiteral("Open")));
    QCOMPARE(settings.getSettingsNames(), QStringList{notes});
}

void tst_VxPaneMgr::worksWithoutSettings()
{
    VxPaneMgr manager;
    manager.createPanes(m_plugins.get());
    manager.saveSettings();
    QCOMPARE(static_cast<NotesPane *>(manager.findPane(notes))->numRestores, 0);
}

void tst_VxPaneMgr::removesADestroyedPane()
{
    VxPaneMgr manager;
    manager.createPanes(m_plugins.get());
    QSignalSpy removed(&manager, &VxPaneMgr::paneRemoved);
    delete manager.findPane(notes);
    QVERIFY(!manager.findPane(notes));
    QCOMPARE(manager.getPanes().size(), 1);
    QCOMPARE(removed.size(), 1);
    QCOMPARE(removed.at(0).at(0).toString(), notes);
}

void tst_VxPaneMgr::destroysTheLastOneFirst()
{
    VxPaneMgr manager;
    manager.createPanes(m_plugins.get());
    QSignalSpy removed(&manager, &VxPaneMgr::paneRemoved);
    manager.destroyPanes();
    QCOMPARE(removed.size(), 2);
    QCOMPARE(removed.at(0).at(0).toString(), curves);
    QVERIFY(manager.getPanes().isEmpty());
    manager.destroyPanes();
}

void tst_VxPaneMgr::undockedPanesAreDeletedWithTheManager()
{
    QPointer<VxPane> pane;
    {
        VxPaneMgr manager;
        manager.createPanes(m_plugins.get());
        pane = manager.findPane(notes);
    }
    QVERIFY(!pane);
}

void tst_VxPaneMgr::dockedPanesOutliveTheManager()
{
    QWidget dock;
    QPointer<VxPane> pane;
    {
        VxPaneMgr manager;
        manager.createPanes(m_plugins.get());
        pane = manager.findPane(notes);
        pane->setParent(&dock);
    }
    QVERIFY(pane);
}

void tst_VxPaneMgr::showingIsARequest()
{
    VxPaneMgr manager;
    manager.createPanes(m_plugins.get());
    QSignalSpy requested(&manager, &VxPaneMgr::showRequested);
    manager.showPane(manager.findPane(curves));
    manager.showPane(nullptr);
    QCOMPARE(requested.size(), 1);
    QCOMPARE(requested.at(0).at(0).value<VxPane *>(), manager.findPane(curves));
}

VX_TEST_MAIN(tst_VxPaneMgr)
#include "tst_vxpanemgr.moc"
