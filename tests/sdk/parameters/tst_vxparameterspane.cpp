// The rows of the Parameters pane: whose they are, key marks, groups, menu and look.

#include "parameterspanetestbase.h"
#include "testing/vxpaintwatch.h"
#include "testing/vxtestmain.h"
#include "vxwidgetpictures.h"

#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <vxcore/vxsettings.h>

class TestParametersPane : public ParametersPaneTestBase
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void showsThePrimarySelection();
    void aLongNameMakesNothingWider();
    void severalNodesAreNamedAndChanged();
    void tooManyNodes();
    void manyNodesSelectedOneByOne();
    void theKeyMarkSetsAndDeletes();
    void theKeyMarkOfSeveralRows();
    void headingsOpenAndClose();
    void closedGroupsAreKept();
    void selectionIsKeptFromNodeToNode();
    void aRemovedRowLeavesNoSelection();
    void contextMenu();
    void contextMenuOfALockedRow();
    void playbackRepaintsNoMoreThanOnceAFrame();
    void pictures_data();
    void pictures();

private:
    QPoint headingPlace(const VxProperty *first, int x) const;
};

QPoint TestParametersPane::headingPlace(const VxProperty *first, int x) const
{
    const QModelIndex index = cell(first, Model::LabelColumn);
    return {x, view()->visualRect(index.sibling(index.row() - 1, 0)).center().y()};
}

void TestParametersPane::showsThePrimarySelection()
{
    const auto *title = m_pane->findChild<QLabel *>(QStringLiteral("ParametersTitleLbl"));
    QCOMPARE(title->text(), QString("hip"));
    hip()->setLabel(QStringLiteral("Hip"));
    QCOMPARE(title->text(), QString("Hip"));
    QCOMPARE(model()->getNode(), hip());
    vxScene->selectAllNodes(false);
    QCOMPARE(title->text(), QString("Nothing selected"));
    QCOMPARE(model()->rowCount(), 0);
    m_bones.at(1)->select();
    QCOMPARE(model()->getNode(), m_bones.at(1));
}

void TestParametersPane::aLongNameMakesNothingWider()
{
    const int before = m_pane->minimumSizeHint().width();
    QVERIFY(before < 150);
    hip()->setLabel(QString(300, QLatin1Char('m')));
    QCoreApplication::processEvents();
    QCOMPARE(m_pane->minimumSizeHint().width(), before);
    QCOMPARE(m_pane->width(), 280);
}

// The controls of nodes that are not shown are not created.
void TestParametersPane::tooManyNodes()
{
    QVector<VxNode *> nodes;
    for (int i = 0; i < 6000; ++i) {
        nodes.append(new VxNode(QStringLiteral("node %1").arg(i)));
        vxScene->addNode(nodes.last());
    }
    vxScene->selectAllNodes(false);
    vxScene->selectNodes(nodes, true);
    QCoreApplication::processEvents();
    const auto *title = m_pane->findChild<QLabel *>(QStringLiteral("ParametersTitleLbl"));
    QCOMPARE(title->text(), QString("node 5999 only: 5999 more are too many to edit together"));
    QCOMPARE(model()->getNodes(), QVector<VxNode *>{nodes.last()});
    QVERIFY(nodes.first()->getMadeProperties().isEmpty());
    vxScene->selectNodes(nodes.mid(10), false);
    QCoreApplication::processEvents();
    QCOMPARE(model()->getNodes().size(), 10);
}

void TestParametersPane::severalNodesAreNamedAndChanged()
{
    m_bones.at(1)->select();
    m_bones.at(2)->select();
    QCoreApplication::processEvents();
    const auto *title = m_pane->findChild<QLabel *>(QStringLiteral("ParametersTitleLbl"));
    QCOMPARE(title->text(), QString("shin and 2 more"));
    QCOMPARE(model()->getNodes().size(), 3);
    m_bones.at(0)->getYPosControl()->setStoredValue(10.0f);
    drag(m_bones.at(2)->getYPosControl(), 40);
    QCOMPARE(m_bones.at(2)->getYPosControl()->getValue(), 20.0f);
    QCOMPARE(m_bones.at(0)->getYPosControl()->getValue(), 30.0f); // from where it was
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    m_bones.at(2)->select(false);
    QCoreApplication::processEvents();
    QCOMPARE(model()->getNodes().size(), 2);
}

void TestParametersPane::manyNodesSelectedOneByOne()
{
    VxSceneBuilder builder(vxScene);
    builder.addSkeleton(QStringLiteral("figure"), 300);
    QSignalSpy reset(model(), &Model::modelReset);
    const QVector<VxNode *> nodes = vxScene->getNodes();
    for (VxNode *node : nodes)
        node->select();
    QCoreApplication::processEvents();
    QCOMPARE(model()->getNodes().size(), nodes.size());
    // One for each new primary one, with one node's rows, and one for all.
    QVERIFY2(reset.count() <= nodes.size() + 1, qPrintable(QString::number(reset.count())));
}

void TestParametersPane::theKeyMarkSetsAndDeletes()
{
    vxScene->setTime(480);
    click(x(), Model::KeyColumn);
    QVERIFY(x()->hasKey(480));
    QCOMPARE(cell(x(), Model::KeyColumn).data(Model::KeyStateRole).toInt(), int(Model::OnKey));
    click(x(), Model::KeyColumn);
    QCOMPARE(x()->getNumKeys(), 0);
    QCOMPARE(vxApp->getUndoStack()->count(), 2);
    VxMouseDriver(port()).doubleClick(middle(x(), Model::KeyColumn));
    QCOMPARE(x()->getNumKeys(), 0); // on and off
}

void TestParametersPane::theKeyMarkOfSeveralRows()
{
    VxMouseDriver mouse(port());
    mouse.click(middle(x(), Model::LabelColumn));
    mouse.click(middle(hip()->getZPosControl(), Model::LabelColumn), Qt::LeftButton,
                Qt::ShiftModifier);
    click(x(), Model::KeyColumn);
    QVERIFY(x()->hasKey(0) && hip()->getYPosControl()->hasKey(0) &&
            hip()->getZPosControl()->hasKey(0));
    QCOMPARE(view()->selectionModel()->selectedRows().size(), 3);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    click(hip()->getXRotControl(), Model::KeyColumn); // not one of them
    QCOMPARE(hip()->getXRotControl()->getNumKeys(), 1);
    QCOMPARE(x()->getNumKeys(), 1);
}

void TestParametersPane::headingsOpenAndClose()
{
    const int row = cell(x(), Model::LabelColumn).row();
    const QString path = x()->getPath();
    VxMouseDriver mouse(port());
    mouse.click(headingPlace(x(), 8));
    QVERIFY(view()->isRowHidden(row, QModelIndex()));
    QVERIFY(view()->isGroupCollapsed(path));
    QVERIFY(!view()->isRowHidden(row - 1, QModelIndex()));
    mouse.click({8, view()->visualRect(model()->index(row - 1, 0)).center().y()});
    QVERIFY(!view()->isRowHidden(row, QModelIndex()));
    mouse.doubleClick(headingPlace(x(), 100));
    QVERIFY(view()->isRowHidden(row, QModelIndex()));
    QTest::keyClick(view(), Qt::Key_Right);
    QVERIFY(!view()->isRowHidden(row, QModelIndex()));
    QTest::keyClick(view(), Qt::Key_Left);
    QVERIFY(view()->isRowHidden(row, QModelIndex()));
}

void TestParametersPane::closedGroupsAreKept()
{
    view()->setGroupCollapsed(x()->getPath(), true);
    view()->header()->resizeSection(Model::ValueColumn, 120);
    m_bones.at(1)->select();
    const VxProperty *other = m_bones.at(1)->getXPosControl();
    QVERIFY(view()->isRowHidden(cell(other, 0).row(), QModelIndex()));
    VxSettings settings;
    m_pane->saveSettings(&settings);
    VxParametersPane second;
    second.restoreSettings(&settings);
    QCOMPARE(second.getPropertyListView()->getCollapsedGroups(), QStringList{x()->getPath()});
    QCOMPARE(second.getPropertyListView()->header()->sectionSize(Model::ValueColumn), 120);
}

void TestParametersPane::selectionIsKeptFromNodeToNode()
{
    click(hip()->getYRotControl(), Model::LabelColumn);
    QSignalSpy selected(view()->selectionModel(), &QItemSelectionModel::selectionChanged);
    vxScene->selectAllNodes(false);
    QVERIFY(selected.count() > 0); // reported, though the rows are removed
    QVERIFY(!view()->selectionModel()->hasSelection());
    m_bones.at(1)->select();
    QCOMPARE(view()->selectionModel()->selectedRows(),
             QModelIndexList{cell(m_bones.at(1)->getYRotControl(), Model::LabelColumn)});
}

/// Not the heading of its group either, whose commands apply to all properties of the group.
void TestParametersPane::aRemovedRowLeavesNoSelection()
{
    auto *removed = new VxFloatProperty(QStringLiteral("removed"));
    hip()->addProperty(removed, QStringLiteral("/Group"));
    hip()->addProperty(new VxFloatProperty(QStringLiteral("other")), QStringLiteral("/Group"));
    QCoreApplication::processEvents();
    click(removed, Model::LabelColumn);
    QVERIFY(view()->selectionModel()->hasSelection());
    hip()->removeProperty(removed);
    QCoreApplication::processEvents();
    QVERIFY(!view()->selectionModel()->hasSelection());
    QVERIFY(!view()->currentIndex().isValid());
}

void TestParametersPane::contextMenu()
{
    x()->setKey(0, 1.0f, 0);
    x()->setKey(320, 3.0f, 0);
    vxScene->setTime(160);
    const auto open = [this] {
        const QPoint place = middle(x(), Model::LabelColumn);
        VxMouseDriver(port()).click(place, Qt::RightButton);
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    };
    const auto choose = [&](const QString &text) {
        QMenu *menu = open();
        QVERIFY(menu);
        for (QAction *action : menu->actions()) {
            if (action->text() != text)
                continue;
            QVERIFY2(action->isEnabled(), qPrintable(text));
            QVERIFY(QTest::qWaitForWindowExposed(menu));
            const QRect place = menu->actionGeometry(action);
            VxMouseDriver(menu).click(place.center());
            QTRY_VERIFY(!QApplication::activePopupWidget());
            return;
        }
        QFAIL(qPrintable(text));
    };
    choose("Set Key");
    QCOMPARE(x()->getNumKeys(), 3);
    choose("Next Key");
    QCOMPARE(vxScene->getTime(), 320);
    choose("Previous Key");
    QCOMPARE(vxScene->getTime(), 160);
    choose("Delete Key");
    QCOMPARE(x()->getNumKeys(), 2);
    choose("Copy Value");
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("2"));
    choose("Reset to Default");
    QCOMPARE(x()->getValue(), 0.0f);
    choose("Paste Value");
    QCOMPARE(x()->getValue(), 2.0f);
    choose("Delete All Keys");
    QCOMPARE(x()->getNumKeys(), 0);
    QCOMPARE(vxApp->getUndoStack()->count(), 5);
    QMenu *menu = open();
    QVERIFY(menu);
    QVERIFY(!menu->actions().value(1)->isEnabled()); // no key to delete
    menu->close();
}

void TestParametersPane::contextMenuOfALockedRow()
{
    const QPoint place = middle(m_special.locked, Model::LabelColumn);
    VxMouseDriver(port()).click(place, Qt::RightButton);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    for (QAction *action : menu->actions()) {
        const bool harmless = action->isSeparator() || action->text().endsWith(" Key") ||
                              action->text() == QString("Copy Value");
        if (!harmless)
            QVERIFY2(!action->isEnabled(), qPrintable(action->text()));
    }
    QVERIFY(!menu->actions().value(0)->isEnabled()); // Set Key
    menu->close();
}

void TestParametersPane::playbackRepaintsNoMoreThanOnceAFrame()
{
    x()->setKey(0, 0.0f, 0);
    x()->setKey(4800, 3.0f, 0);
    QCoreApplication::processEvents();
    const VxPaintWatch painted(port());
    for (VxTime time = 160; time <= 1600; time += 160) {
        vxScene->setTime(time);
        QCoreApplication::processEvents();
    }
    QVERIFY2(painted.count <= 10 && painted.count > 0, qPrintable(QString::number(painted.count)));
}

void TestParametersPane::pictures_data()
{
    QTest::addColumn<bool>("dark");
    QTest::addColumn<double>("scale");
    QTest::newRow("dark") << true << 1.0;
    QTest::newRow("dark, one and a half") << true << 1.5;
    QTest::newRow("light") << false << 1.0;
    QTest::newRow("light, double") << false << 2.0;
}

/// VX_PICTURES names a folder to which the pictures are written.
void TestParametersPane::pictures()
{
    QFETCH(bool, dark);
    QFETCH(double, scale);
    vxApp->getStyle()->setColorScheme(dark ? VxStyle::ColorScheme::Dark
                                           : VxStyle::ColorScheme::Light);
    x()->setKey(0, 1.25f, 0);
    hip()->getYPosControl()->setKey(320, -12.0f, 0);
    m_pane->resize(280, 640);
    QCoreApplication::processEvents();
    const QImage image = pictureOf(*m_pane, scale);
    const QString folder = qEnvironmentVariable("VX_PICTURES");
    if (!folder.isEmpty())
        QVERIFY(image.save(QStringLiteral("%1/parameters-%2-%3.png")
                               .arg(folder, dark ? "dark" : "light")
                               .arg(scale)));
    // The dot is small, the outline is empty in its middle, the full mark is not.
    const auto differs = [&](const VxProperty *property, const QPoint &beside) {
        const QPoint place = view()->visualRect(cell(property, Model::KeyColumn)).center() + beside;
        const QPoint corner = place - QPoint(0, 8);
        const auto colour = [&](const QPoint &at) {
            const QPoint inPane = port()->mapTo(m_pane.get(), at);
            return image.pixel(
                QPoint(qRound((inPane.x() + 0.5) * scale), qRound((inPane.y() + 0.5) * scale)));
        };
        return colour(place) != colour(corner);
    };
    const QPoint edge(3, 0);
    QVERIFY(differs(hip()->getZPosControl(), {}) && !differs(hip()->getZPosControl(), edge));
    QVERIFY(!differs(hip()->getYPosControl(), {}) && differs(hip()->getYPosControl(), edge));
    QVERIFY(differs(x(), {}) && differs(x(), edge));
}

VX_TEST_UNIT(&runParametersTest<TestParametersPane>)

#include "tst_vxparameterspane.moc"
