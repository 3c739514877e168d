#ifndef ABOUTBOX_H
#define ABOUTBOX_H

#include <QString>

class QWidget;
class VxPluginMgr;

/// The versions of the program and of its components, in rich text, for error reports.
QString aboutText(const VxPluginMgr &plugins);
/// Shows it modally.
void showAboutBox(QWidget *parent, const VxPluginMgr &plugins);

#endif
