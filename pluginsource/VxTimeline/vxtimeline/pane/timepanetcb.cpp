// The fields for tension, continuity and bias of the selected keys.
//
// A field shows less of a number than there is. One that still shows what it was given stands for
// the exact value, so that entering one component does not round the others.

#include <QtCore/QScopedValueRollback>
#include <QtWidgets/QDoubleSpinBox>
#include <vxcore/vxundostackhold.h>

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/vxtimepane_p.h"

// Without a value the field stays as it is: the keys have none in common.
void VxTimePane::Private::TcbField::show(std::optional<float> value)
{
    if (value)
        box->setValue(double(*value));
    shown = box->value();
    exact = value.value_or(float(shown));
}

bool VxTimePane::Private::TcbField::isEdited() const
{
    return box->value() != shown;
}

float VxTimePane::Private::TcbField::entered()
{
    if (isEdited()) {
        shown = box->value();
        exact = float(shown);
    }
    return exact;
}

void VxTimePane::updateKeyInterpType()
{
    const VxDopeSheetView *view = d->dopeSheetView;
    const bool hasKeys = view->hasSelectedKeys();
    for (const Private::TcbField *field : {&d->tensionField, &d->continuityField, &d->biasField})
        field->box->setEnabled(hasKeys);
    if (!hasKeys)
        return;
    const QScopedValueRollback<bool> updating(d->tcbFieldsUpdating, true);
    float value = 0.0f;
    const auto ifCommon = [&value](bool isCommon) {
        return isCommon ? std::optional<float>(value) : std::nullopt;
    };
    d->tensionField.show(ifCommon(view->getCommonTension(&value)));
    d->continuityField.show(ifCommon(view->getCommonContinuity(&value)));
    d->biasField.show(ifCommon(view->getCommonBias(&value)));
}

// Enter gives the keys what the fields show, whether that is new or not. A field that is only left
// has nothing to say unless it was edited: what it shows need not be what all the keys have.
// Meanwhile nothing is written into the field that is being typed in.
void VxTimePane::updateTCB()
{
    if (d->tcbFieldsUpdating)
        return;
    const auto *box = qobject_cast<const QDoubleSpinBox *>(sender());
    const bool isEdited =
        d->tensionField.isEdited() || d->continuityField.isEdited() || d->biasField.isEdited();
    if (box && !box->hasFocus() && !isEdited)
        return;
    const QScopedValueRollback<bool> updating(d->tcbFieldsUpdating, true);
    const float tension = d->tensionField.entered();
    const float continuity = d->continuityField.entered();
    const float bias = d->biasField.entered();
    d->editSelectedKeys(tr("Set TCB Parameters"), [this, tension, continuity, bias] {
        d->dopeSheetView->setTCB(tension, continuity, bias);
    });
}

// What was undone or redone may be the very values that are shown.
void VxTimePane::handleUndoIndexChanged()
{
    if (d->tcbFieldsUpdating)
        return;
    updateKeyInterpType();
    updateActionStates();
}
