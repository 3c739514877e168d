#ifndef DIAGNOSIS_H
#define DIAGNOSIS_H

#include <QString>

class VxApp;

/// A page of plain text about the program and its environment, for error reports: versions,
/// plug-ins, settings and screens. Nothing of any document. A run without a user may have separate
/// settings; the page names the user's.
QString diagnosisPage(const VxApp &app, const QString &pluginFolder);

#endif
