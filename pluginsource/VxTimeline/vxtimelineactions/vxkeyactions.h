#ifndef VXKEYACTIONS_H
#define VXKEYACTIONS_H

#include "vxtimelineactions/vxanimationaction.h"

// The commands that make, delete, copy and paste keys.

/// Keys on every property of the selected nodes.
class VxAddKeysAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxAddKeysAction();
};

/// Deletes the keys at the current time from every property of the selected nodes.
class VxDeleteKeysAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxDeleteKeysAction();
};

/// Creates keys on the properties that filter and scope include.
class VxTimePaneCreateKeysAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneCreateKeysAction();
};

/// Deletes the keys that are selected in the dope sheet.
class VxTimePaneDeleteSelectedKeysAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneDeleteSelectedKeysAction();
};

/// Copies the keys that are selected in the dope sheet.
class VxTimePaneCopySelectedKeysAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneCopySelectedKeysAction();
    bool isClipboardAction() const override;
};

/// Pastes the copied keys at the current time.
class VxTimePanePasteKeysAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePanePasteKeysAction();
};

#endif
