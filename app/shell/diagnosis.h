#ifndef DIAGNOSIS_H
#define DIAGNOSIS_H

#include <QString>

class VxApp;

/// A page of plain text about the program and its environment, for error reports: versions,
/// plug-ins, settings of a file, except what is private in them, and screens. Nothing of any
/// document.
QString diagnosisPage(const VxApp &app, const QString &pluginFolder, const QString &settingsFile);

#endif
