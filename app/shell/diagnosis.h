#ifndef DIAGNOSIS_H
#define DIAGNOSIS_H

#include <QString>

class VxApp;

/// A page of plain text about the program and its surroundings, for reports of errors: versions,
/// plug-ins, settings and screens. Nothing of any document. Settings of their own that a run
/// without a user has are not the user's; the page names the user's.
QString diagnosisPage(const VxApp &app, const QString &pluginFolder);

#endif
