// The search field of a pane's title bar: which panes have one, the texts that they get, and how it
// shows an active search.

#include "shell/panedock.h"
#include "shell/panesearchfield.h"
#include "testing/vxtestmain.h"

#include <QAction>
#include <QMainWindow>
#include <QtTest/QtTest>
#include <testing/vxwarningguard.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanesearch.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

namespace {

class PlainPane : public VxPane
{
    Q_OBJECT
public:
    PlainPane()
        : VxPane(QStringLiteral("Plain"))
    {
    }
};

class SearchedPane : public VxPane
{
    Q_OBJECT
public:
    SearchedPane()
        : VxPane(QStringLiteral("Searched"))
        , search(new VxPaneSearch(this))
    {
        setFocusPolicy(Qt::StrongFocus);
        connect(search, &VxPaneSearch::textChanged, this,
                [this](const QString &text) { texts.append(text); });
    }
    VxPaneSearch *const search;
    QStringList texts;
};

} // namespace

class TestPaneSearchField : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void onlyPanesWithASearchHaveAField();
    void typedTextReachesThePane();
    void escapeClearsThenReturnsTheFocus();
    void anActiveSearchIsVisible();
    void theButtonClears();
    void theFieldFollowsTheSearch();
    void anotherDocumentClearsTheSearch();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxApp> m_app;
};

void TestPaneSearchField::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_app = std::make_unique<VxApp>();
}

void TestPaneSearchField::cleanup()
{
    m_app.reset();
    m_guard.reset();
}

void TestPaneSearchField::onlyPanesWithASearchHaveAField()
{
    QMainWindow window;
    auto *plain = new PaneDock(new PlainPane, &window);
    auto *searched = new PaneDock(new SearchedPane, &window);
    QVERIFY(!plain->findChild<PaneSearchField *>());
    QVERIFY(searched->findChild<PaneSearchField *>());
}

void TestPaneSearchField::typedTextReachesThePane()
{
    SearchedPane pane;
    PaneSearchField field(pane.search, &pane, &pane);
    QTest::keyClicks(&field, QStringLiteral("hip"));
    QCOMPARE(pane.texts.join(QLatin1Char(' ')), QStringLiteral("h hi hip"));
    pane.texts.clear();
    field.clear();
    QCOMPARE(pane.texts, QStringList{QString()});
}

void TestPaneSearchField::escapeClearsThenReturnsTheFocus()
{
    SearchedPane pane;
    auto *field = new PaneSearchField(pane.search, &pane, &pane);
    pane.show();
    QVERIFY(QTest::qWaitForWindowActive(&pane));
    field->setFocus();
    QTRY_VERIFY(field->hasFocus());
    QTest::keyClicks(field, QStringLiteral("a"));
    QTest::keyClick(field, Qt::Key_Escape);
    QVERIFY(!field->isActive());
    QVERIFY(field->hasFocus());
    QTest::keyClick(field, Qt::Key_Escape);
    QTRY_VERIFY(pane.hasFocus());
}

void TestPaneSearchField::anActiveSearchIsVisible()
{
    SearchedPane pane;
    PaneSearchField field(pane.search, &pane, &pane);
    const QColor usual = field.palette().color(QPalette::Base);
    field.setText(QStringLiteral("hip"));
    QCOMPARE(field.palette().color(QPalette::Base), pane.palette().color(QPalette::Highlight));
    QVERIFY(field.palette().color(QPalette::Base) != usual);
    const QColor former = field.palette().color(QPalette::Base);
    m_app->getStyle()->setColorScheme(VxStyle::ColorScheme::Contrast);
    QVERIFY(pane.palette().color(QPalette::Highlight) != former);
    QCOMPARE(field.palette().color(QPalette::Base), pane.palette().color(QPalette::Highlight));
    m_app->getStyle()->setColorScheme(VxStyle::ColorScheme::Dark);
    field.clear();
    QCOMPARE(field.palette().color(QPalette::Base), usual);
}

void TestPaneSearchField::theButtonClears()
{
    SearchedPane pane;
    PaneSearchField field(pane.search, &pane, &pane);
    QAction *clear = field.actions().first();
    QVERIFY(!clear->isVisible());
    field.setText(QStringLiteral("hip"));
    QVERIFY(clear->isVisible());
    clear->trigger();
    QVERIFY(!field.isActive());
    QVERIFY(!clear->isVisible());
    QCOMPARE(pane.texts.last(), QString());
}

void TestPaneSearchField::theFieldFollowsTheSearch()
{
    SearchedPane pane;
    auto *field = new PaneSearchField(pane.search, &pane, &pane);
    pane.show();
    pane.search->setText(QStringLiteral("hip"));
    QCOMPARE(field->text(), QStringLiteral("hip"));
    pane.search->setAvailable(false);
    QVERIFY(!field->isVisible());
    QCOMPARE(pane.search->text(), QStringLiteral("hip"));
    pane.search->setAvailable(true);
    QVERIFY(field->isVisible());
}

void TestPaneSearchField::anotherDocumentClearsTheSearch()
{
    SearchedPane pane;
    PaneSearchField field(pane.search, &pane, &pane);
    field.setText(QStringLiteral("hip"));
    vxScene->clear();
    QVERIFY(!field.isActive());
    QCOMPARE(pane.search->text(), QString());
}

VX_TEST_MAIN(TestPaneSearchField)
#include "tst_panesearchfield.moc"
