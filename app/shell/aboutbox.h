#ifndef ABOUTBOX_H
#define ABOUTBOX_H

#include <QString>

class QWidget;
class VxPluginMgr;

/// The versions of the program and of what runs in it, in rich text: what somebody asks for who is
/// told of a fault.
QString aboutText(const VxPluginMgr &plugins);
/// Shows it, and waits.
void showAboutBox(QWidget *parent, const VxPluginMgr &plugins);

#endif
