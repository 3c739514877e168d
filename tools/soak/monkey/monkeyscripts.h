#ifndef MONKEYSCRIPTS_H
#define MONKEYSCRIPTS_H

#include "monkeyrandom.h"

#include <QString>

/// A short random program for the script engine: it edits nodes, properties, keys, the selection,
/// time and ranges, or triggers an action. Programs may end with an error.
QString monkeyScript(MonkeyRandom *random);

#endif
