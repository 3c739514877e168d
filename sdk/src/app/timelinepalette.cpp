#include "app/timelinepalette.h"

#include "style/vxcolors.h"

#include <QtGui/QtEvents>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMainWindow>

namespace {

/// Mixing factor of the lines' colour, from the background to the text.
constexpr qreal LineStrength = 0.06;
/// Mixing factor of the highlight colour in the background of a selected row.
constexpr qreal HighlightShare = 64.0 / 255;

QPalette withRolesOf(QPalette palette, const QPalette &colors)
{
    for (const QPalette::ColorRole role : {QPalette::Dark, QPalette::HighlightedText}) {
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            palette.setColor(group, role, colors.color(group, role));
    }
    return palette;
}

} // namespace

TimelinePalette::TimelinePalette(QMainWindow *window)
    : QObject(window)
    , m_window(window)
{
    window->installEventFilter(this);
    apply();
}

QPalette TimelinePalette::faint(const QPalette &palette)
{
    QPalette result = palette;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor &ground = palette.color(group, QPalette::Base);
        const QColor &text = palette.color(group, QPalette::Text);
        const QColor selected =
            VxColors::mix(ground, palette.color(group, QPalette::Highlight), HighlightShare);
        result.setColor(group, QPalette::Dark, VxColors::mix(ground, text, LineStrength));
        result.setColor(group, QPalette::HighlightedText,
                        VxColors::mix(selected, text, LineStrength));
    }
    return result;
}

bool TimelinePalette::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange)
        apply();
    else if (event->type() == QEvent::ChildPolished)
        applyTo(qobject_cast<QWidget *>(static_cast<QChildEvent *>(event)->child()));
    return QObject::eventFilter(watched, event);
}

void TimelinePalette::apply() const
{
    m_window->setPalette(withRolesOf(QPalette(), faint(QApplication::palette())));
    for (QObject *child : m_window->children())
        applyTo(qobject_cast<QWidget *>(child));
}

void TimelinePalette::applyTo(QWidget *child)
{
    if (child)
        child->setPalette(withRolesOf(QPalette(), QApplication::palette()));
}
