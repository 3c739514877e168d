#ifndef ABOUTBOX_H
#define ABOUTBOX_H

#include <QString>

class QWidget;
class VxPluginMgr;

/// The versions of the program and of its components, in rich text, for error reports.
QString aboutText(const VxPluginMgr &plugins);
/// What changed in this version, as in the log of changes.
QString changesText();
/// Shows both modally; the changes as details.
void showAboutBox(QWidget *parent, const VxPluginMgr &plugins);

#endif
