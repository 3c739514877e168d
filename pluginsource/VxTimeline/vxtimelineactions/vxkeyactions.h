#ifndef VXKEYACTIONS_H
#define VXKEYACTIONS_H

#include "vxtimelineactions/vxanimationaction.h"

// The commands that make, delete, copy and paste keys.

// Keys on every property of the selected nodes.
class VxAddKeysAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxAddKeysAction();

protected:
    void executeAction() override;
};

// Deletes the keys at the current time from every property of the selected nodes.
class VxDeleteKeysAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxDeleteKeysAction();

protected:
    void executeAction() override;
};

// Creates keys on the properties that filter and scope include.
class VxTimePaneCreateKeysAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneCreateKeysAction();
    QString getDefaultAccel() const override;

protected:
    void executeAction() override;
};

// Deletes the keys that are selected in the dope sheet.
class VxTimePaneDeleteSelectedKeysAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneDeleteSelectedKeysAction();
    QString getDefaultAccel() const override;

protected:
    void executeAction() override;
};

// Copies the keys that are selected in the dope sheet.
class VxTimePaneCopySelectedKeysAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneCopySelectedKeysAction();
    QString getDefaultAccel() const override;
    bool isClipboardAction() const override;

protected:
    void executeAction() override;
};

// Pastes the copied keys at the current time.
class VxTimePanePasteKeysAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePanePasteKeysAction();
    QString getDefaultAccel() const override;

protected:
    void executeAction() override;
};

#endif
