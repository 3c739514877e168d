#include "widgets/focusring.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QTabBar>

namespace {

constexpr int RingWidth = 2; // pixels

/// The ring alone, so that what it surrounds is not painted again.
class RingFrame : public QWidget
{
public:
    explicit RingFrame(QWidget *window)
        : QWidget(window)
    {
        setObjectName(QStringLiteral("FocusRingFrame"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void resizeEvent(QResizeEvent *) override
    {
        setMask(QRegion(rect()) - rect().adjusted(RingWidth, RingWidth, -RingWidth, -RingWidth));
    }

    void paintEvent(QPaintEvent *) override
    {
        QPainter(this).fillRect(rect(), palette().color(QPalette::Highlight));
    }
};

bool showsItsFocus(const QWidget *widget)
{
    // The key cursor is a ring itself.
    return qobject_cast<const QAbstractButton *>(widget) ||
           qobject_cast<const QAbstractSlider *>(widget) ||
           qobject_cast<const QAbstractSpinBox *>(widget) ||
           qobject_cast<const QComboBox *>(widget) || qobject_cast<const QLineEdit *>(widget) ||
           qobject_cast<const QMenu *>(widget) || qobject_cast<const QMenuBar *>(widget) ||
           qobject_cast<const QTabBar *>(widget) || widget->isWindow() ||
           widget->objectName() == QLatin1String("TimelineKeyCursor");
}

} // namespace

FocusRing::FocusRing(QObject *parent)
    : QObject(parent)
{
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget *, QWidget *now) { follow(now); });
}

FocusRing::~FocusRing()
{
    delete m_frame;
}

void FocusRing::follow(QWidget *widget)
{
    leave();
    if (!widget || showsItsFocus(widget) ||
        !widget->window()->testAttribute(Qt::WA_KeyboardFocusChange))
        return;
    m_widget = widget;
    for (QWidget *each = widget; each; each = each->isWindow() ? nullptr : each->parentWidget()) {
        each->installEventFilter(this);
        m_watched.append(each);
    }
    m_frame = new RingFrame(widget->window());
    updateFrame();
    m_frame->show();
    m_frame->raise();
}

void FocusRing::leave()
{
    for (const QPointer<QWidget> &each : qAsConst(m_watched)) {
        if (each)
            each->removeEventFilter(this);
    }
    m_watched.clear();
    m_widget.clear();
    delete m_frame;
}

/// Over the visible part of the widget.
void FocusRing::updateFrame()
{
    QWidget *window = m_widget->window();
    QRect shown(m_widget->mapTo(window, QPoint()), m_widget->size());
    for (const QPointer<QWidget> &each : qAsConst(m_watched)) {
        if (each && each != m_widget)
            shown &= QRect(each->mapTo(window, QPoint()), each->size());
    }
    m_frame->setGeometry(shown);
}

bool FocusRing::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
        if (m_widget && m_frame)
            updateFrame();
        break;
    case QEvent::Hide:
        leave();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
