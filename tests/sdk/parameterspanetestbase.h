#ifndef PARAMETERSPANETESTBASE_H
#define PARAMETERSPANETESTBASE_H

#include "testing/vxmousedriver.h"
#include "testing/vxscenebuilder.h"
#include "testing/vxwarningguard.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QLabel>
#include <QWheelEvent>
#include <QtTest>
#include <memory>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxparameterspane.h>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxsidenavpropertylistview.h>
#include <vxcore/vxundostack.h>

/// A Parameters pane on show with a node selected that has properties of every kind, and hands to
/// work with it at real places.
class ParametersPaneTestBase : public QObject
{
protected:
    using Model = VxPropertyListItemModel;

    void setUp();
    void tearDown();

    VxNode *hip() const { return m_bones.at(0); }
    VxFloatProperty *x() const { return hip()->getXPosControl(); }
    VxSideNavPropertyListView *view() const { return m_pane->getPropertyListView(); }
    QWidget *port() const { return view()->viewport(); }
    Model *model() const { return view()->getPropertyListModel(); }
    QModelIndex cell(const VxProperty *property, int column) const;
    QPoint middle(const VxProperty *property, int column) const;
    QAbstractSpinBox *field() const;
    QString notice() const;
    void type(const VxProperty *property, const QString &text, int end = Qt::Key_Return);
    void click(const VxProperty *property, int column = Model::ValueColumn);
    void drag(const VxProperty *property, int pixels, Qt::KeyboardModifiers = Qt::NoModifier);
    void wheel(QWidget *target, int steps) const;

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxApp> m_app;
    std::unique_ptr<VxParametersPane> m_pane;
    VxSceneBuilder::Special m_special;
    QVector<VxNode *> m_bones;
};

inline void ParametersPaneTestBase::setUp()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_app = std::make_unique<VxApp>();
    VxSceneBuilder builder(vxScene);
    m_bones = {builder.addNode(QStringLiteral("hip")), builder.addNode(QStringLiteral("thigh")),
               builder.addNode(QStringLiteral("shin"))};
    m_special = builder.addSpecialProperties(hip());
    m_pane = std::make_unique<VxParametersPane>();
    m_pane->resize(280, 600);
    hip()->select();
    m_pane->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_pane.get()));
    m_pane->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_pane.get()));
}

inline void ParametersPaneTestBase::tearDown()
{
    m_pane.reset();
    m_app.reset();
    m_guard.reset();
}

inline QModelIndex ParametersPaneTestBase::cell(const VxProperty *property, int column) const
{
    const QModelIndex label = model()->findProperty(property);
    return label.sibling(label.row(), column);
}

inline QPoint ParametersPaneTestBase::middle(const VxProperty *property, int column) const
{
    const QModelIndex index = cell(property, column);
    view()->scrollTo(index);
    return view()->visualRect(index).center();
}

inline QAbstractSpinBox *ParametersPaneTestBase::field() const
{
    return view()->findChild<QAbstractSpinBox *>(QStringLiteral("PropertyValueSpinBox"));
}

/// The message below the list; empty without one.
inline QString ParametersPaneTestBase::notice() const
{
    const auto *label = m_pane->findChild<QLabel *>(QStringLiteral("ParametersNoticeLbl"));
    return label->isVisible() ? label->text() : QString();
}

/// Clicks on a value, types and ends it with a key.
inline void ParametersPaneTestBase::type(const VxProperty *property, const QString &text, int end)
{
    click(property);
    QTRY_VERIFY(field() && field()->hasFocus());
    QTest::keyClicks(field(), text);
    QTest::keyClick(field(), Qt::Key(end));
}

inline void ParametersPaneTestBase::click(const VxProperty *property, int column)
{
    VxMouseDriver(port()).click(middle(property, column));
}

inline void ParametersPaneTestBase::drag(const VxProperty *property, int pixels,
                                         Qt::KeyboardModifiers modifiers)
{
    const QPoint from = middle(property, Model::ValueColumn);
    VxMouseDriver mouse(port());
    mouse.press(from);
    // The drag begins after the distance of a click, and counts from there.
    const int begin = pixels > 0 ? 20 : -20;
    mouse.moveTo(from + QPoint(begin, 0), modifiers);
    for (int i = 1; i <= 50; ++i)
        mouse.moveTo(from + QPoint(begin + pixels * i / 50, 0), modifiers);
    mouse.release(from + QPoint(begin + pixels, 0), Qt::LeftButton, modifiers);
}

inline void ParametersPaneTestBase::wheel(QWidget *target, int steps) const
{
    const QPoint place = target->rect().center();
    QWheelEvent event(place, target->mapToGlobal(place), QPoint(), QPoint(0, 120 * steps),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(target, &event);
}

/// The same font on every platform.
template <class Test> int runParametersTest(int argc, char **argv)
{
    QApplication application(argc, argv);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(13);
    QApplication::setFont(font);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

#endif
