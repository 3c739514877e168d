#ifndef WINDOWPICTURE_H
#define WINDOWPICTURE_H

#include <QSize>
#include <QString>

class QWidget;

/// Shows a window at a size (even below its minimum size), waits until it has laid out and painted
/// itself, at most a few seconds, and writes its image as PNG. False with a sentence in error
/// (never null) when the file cannot be written.
bool writeWindowPicture(QWidget *window, const QSize &size, const QString &fileName,
                        QString *error);

#endif
