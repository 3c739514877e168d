#ifndef ALLKEYTYPES_H
#define ALLKEYTYPES_H

#include "vxtimeline/pane/timepanechoice.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <QAction>
#include <memory>
#include <vector>

/// A check mark for one type of property: without any, the rows show no keys.
class TypeAction : public QAction, public TimePaneChoice
{
public:
    explicit TypeAction(int type)
        : m_type(type)
    {
        setCheckable(true);
        setChecked(true);
    }

    Family family() const override { return PropertyTypeFamily; }
    int value() const override { return m_type; }

private:
    int m_type;
};

/// The check marks of all types for a pane that is tested without actions.
class AllKeyTypes
{
public:
    void addTo(VxTimePane *pane)
    {
        for (const int type : {1, 2, 4, 8}) {
            m_actions.push_back(std::make_unique<TypeAction>(type));
            pane->registerAction(m_actions.back().get());
        }
    }

private:
    std::vector<std::unique_ptr<TypeAction>> m_actions;
};

#endif
