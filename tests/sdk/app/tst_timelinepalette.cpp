#include "app/timelinepalette.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QApplication>
#include <QDockWidget>
#include <QTreeView>
#include <QtTest>
#include <cmath>
#include <memory>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxstyle.h>

namespace {

using Scheme = VxStyle::ColorScheme;

double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

// The contrast ratio of the web accessibility guidelines: 1 for the same colour, 21 at most.
double contrast(const QColor &a, const QColor &b)
{
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QColor selectedRow(const QPalette &palette)
{
    const QColor base = palette.color(QPalette::Base);
    const QColor highlight = palette.color(QPalette::Highlight);
    const auto blend = [](int below, int above) { return below + (above - below) * 64 / 255; };
    return QColor(blend(base.red(), highlight.red()), blend(base.green(), highlight.green()),
                  blend(base.blue(), highlight.blue()));
}

} // namespace

// The colours of time lines in the main window's palette, and those of its children.
class TestTimelinePalette : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void linesAreFaint_data();
    void linesAreFaint();
    void selectedNamesStayReadable();
    void otherPalette();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxApp> m_app;
    std::unique_ptr<VxMainWindow> m_window;
};

void TestTimelinePalette::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_app = std::make_unique<VxApp>();
    m_window = std::make_unique<VxMainWindow>();
}

void TestTimelinePalette::cleanup()
{
    m_window.reset();
    m_app.reset();
    m_guard.reset();
}

void TestTimelinePalette::linesAreFaint_data()
{
    QTest::addColumn<Scheme>("scheme");
    QTest::newRow("dark") << Scheme::Dark;
    QTest::newRow("light") << Scheme::Light;
}

// Faint even where they form one area because they touch each other, but not invisible.
void TestTimelinePalette::linesAreFaint()
{
    QFETCH(Scheme, scheme);
    const QPalette palette = TimelinePalette::faint(VxStyle(scheme).standardPalette());
    const double onRow = contrast(palette.color(QPalette::Dark), palette.color(QPalette::Base));
    const double onSelected =
        contrast(palette.color(QPalette::HighlightedText), selectedRow(palette));
    QVERIFY2(onRow > 1.08 && onRow < 1.2, qPrintable(QString::number(onRow)));
    QVERIFY2(onSelected > 1.08 && onSelected < 1.2, qPrintable(QString::number(onSelected)));
}

void TestTimelinePalette::selectedNamesStayReadable()
{
    auto *dock = new QDockWidget(m_window.get());
    auto *tree = new QTreeView(dock);
    dock->setWidget(tree);
    m_window->addDockWidget(Qt::LeftDockWidgetArea, dock);
    m_window->show();
    const QPalette application = QApplication::palette();
    QCOMPARE(tree->palette().color(QPalette::HighlightedText),
             application.color(QPalette::HighlightedText));
    QCOMPARE(tree->palette().color(QPalette::Dark), application.color(QPalette::Dark));
    QVERIFY(m_window->palette().color(QPalette::Dark) != application.color(QPalette::Dark));
    QCOMPARE(m_window->palette().color(QPalette::Window), application.color(QPalette::Window));
}

void TestTimelinePalette::otherPalette()
{
    auto *child = new QWidget(m_window.get());
    m_window->show();
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        m_app->getStyle()->setColorScheme(scheme);
        QCoreApplication::processEvents();
        const QPalette application = QApplication::palette();
        const QPalette faint = TimelinePalette::faint(application);
        for (const auto role : {QPalette::Dark, QPalette::HighlightedText, QPalette::Base}) {
            QCOMPARE(m_window->palette().color(role), faint.color(role));
            QCOMPARE(child->palette().color(role), application.color(role));
        }
    }
}

VX_TEST_MAIN(TestTimelinePalette)
#include "tst_timelinepalette.moc"
