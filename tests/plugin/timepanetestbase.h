#ifndef TIMEPANETESTBASE_H
#define TIMEPANETESTBASE_H

#include "testing/vxwarningguard.h"
#include "vxtimeline/pane/timepanechoice.h"
#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/timelinemetrics.h"
#include "vxtimeline/time/timelineplayback.h"

#include <QtTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QBoxLayout>
#include <memory>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

/// A check mark for one value of one of the pane's choices.
class ChoiceAction : public QAction, public TimePaneChoice
{
public:
    ChoiceAction(Family family, int value)
        : m_family(family)
        , m_value(value)
    {
        setCheckable(true);
    }

    Family family() const override { return m_family; }
    int value() const override { return m_value; }

private:
    Family m_family;
    int m_value;
};

/// An application with an empty scene and a pane, made anew for each test function.
class TimePaneTest
{
protected:
    void setUp()
    {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(12);
        QApplication::setFont(font);
        TimelineMetrics::shared() = TimelineMetrics();
        TimelinePlayback::setPlaysAllFrames(false);
        guard = std::make_unique<VxWarningGuard>();
        app = std::make_unique<VxApp>();
        pane = std::make_unique<VxTimePane>();
    }

    void tearDown()
    {
        actions.clear();
        pane.reset();
        app.reset();
        guard.reset();
    }

    /// Registers an action for each value from first to last, or for each bit of them.
    void addChoices(TimePaneChoice::Family family, std::initializer_list<int> values)
    {
        for (const int value : values) {
            actions.push_back(std::make_unique<ChoiceAction>(family, value));
            pane->registerAction(actions.back().get());
        }
    }

    /// The values of a family's actions that are checked.
    QVector<int> checked(TimePaneChoice::Family family) const
    {
        QVector<int> values;
        for (const auto &action : actions) {
            if (action->family() == family && action->isChecked())
                values.append(action->value());
        }
        return values;
    }

    void showPane(int width = 1600, int height = 500)
    {
        pane->resize(width, height);
        pane->show();
        QVERIFY(QTest::qWaitForWindowExposed(pane.get()));
    }

    template <typename Widget> Widget *find(const char *name) const
    {
        return pane->findChild<Widget *>(QLatin1String(name));
    }

    /// What a layout holds, item by item: "name/stretch", with "*" for a stretch and "_n" for a
    /// space.
    static QStringList layoutItems(const QWidget *widget)
    {
        const auto *box = qobject_cast<const QBoxLayout *>(widget->layout());
        QStringList items;
        for (int i = 0; i < box->count(); ++i) {
            QLayoutItem *item = box->itemAt(i);
            QString text = QStringLiteral("*");
            if (item->widget())
                text = item->widget()->objectName();
            else if (item->sizeHint().width() > 0)
                text = QStringLiteral("_%1").arg(item->sizeHint().width());
            items += QStringLiteral("%1/%2").arg(text).arg(box->stretch(i));
        }
        return items;
    }

    static QStringList undoTexts()
    {
        QStringList texts;
        const VxUndoStack *stack = vxApp->getUndoStack();
        for (int i = 0; i < stack->count(); ++i)
            texts += stack->text(i);
        return texts;
    }

    std::unique_ptr<VxWarningGuard> guard;
    std::unique_ptr<VxApp> app;
    std::unique_ptr<VxTimePane> pane;
    std::vector<std::unique_ptr<ChoiceAction>> actions;
};

#endif
