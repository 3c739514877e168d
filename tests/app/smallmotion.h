#ifndef SMALLMOTION_H
#define SMALLMOTION_H

#include <QByteArray>

/// A BVH file of one joint and three frames.
const QByteArray smallMotion =
    "HIERARCHY\nROOT hip\n{\nOFFSET 0 1 0\nCHANNELS 1 Xposition\nEnd Site\n{\nOFFSET 0 1 0\n}\n}\n"
    "MOTION\nFrames: 3\nFrame Time: 0.025\n1\n2\n3\n";

#endif
