#ifndef PALETTETONE_H
#define PALETTETONE_H

#include <QPalette>

/// True when the viewport's background is dark, so that colours on it must be light.
inline bool hasDarkBase(const QPalette &palette)
{
    return palette.color(QPalette::Base).lightness() < 128;
}

#endif
