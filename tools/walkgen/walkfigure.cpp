#include "walkfigure.h"

#include <QHash>
#include <initializer_list>

namespace {

class FigureBuilder
{
public:
    /// Adds a bone below a named one (empty: none) and stores it under its name.
    void add(const char *name, const char *label, const QString &parent, const QVector3D &origin,
             const QVector3D &end)
    {
        add(QString::fromLatin1(name), QString::fromLatin1(label), parent, origin, end);
    }
    void add(const QString &name, const QString &label, const QString &parent,
             const QVector3D &origin, const QVector3D &end)
    {
        m_index.insert(name, int(m_bones.size()));
        m_bones.push_back({name, label, m_index.value(parent, -1), origin, end});
    }

    void addTrunk();
    /// side: 'l' or 'r'.
    void addLeg(char side);
    void addArm(char side);
    void addFingers(char side);

    /// The bones in pre-order, as motion files list them.
    std::vector<WalkBone> take() const
    {
        std::vector<WalkBone> ordered;
        appendBelow(-1, -1, &ordered);
        return ordered;
    }

private:
    void appendBelow(int parent, int newParent, std::vector<WalkBone> *ordered) const
    {
        for (size_t i = 0; i < m_bones.size(); ++i) {
            if (m_bones[i].parent != parent)
                continue;
            ordered->push_back(m_bones[i]);
            ordered->back().parent = newParent;
            appendBelow(int(i), int(ordered->size()) - 1, ordered);
        }
    }

    std::vector<WalkBone> m_bones;
    QHash<QString, int> m_index;
};

float sign(char side)
{
    return side == 'l' ? 1.0f : -1.0f;
}

QString sided(char side, const char *name)
{
    return QLatin1Char(side) + QString::fromLatin1(name);
}

QString sidedLabel(char side, const char *label)
{
    const QString word = side == 'l' ? QStringLiteral("Left ") : QStringLiteral("Right ");
    return word + QString::fromLatin1(label);
}

void FigureBuilder::addTrunk()
{
    add("hip", "Hip", {}, {0, 98, 0}, {0, 6, 0});
    add("pelvis", "Pelvis", QStringLiteral("hip"), {0, 2, 0}, {0, -8, 0});
    add("abdomenLower", "Abdomen Lower", QStringLiteral("hip"), {0, 6, 0}, {0, 9, 0});
    add("abdomenUpper", "Abdomen Upper", QStringLiteral("abdomenLower"), {0, 9, 0}, {0, 9, 0});
    add("chestLower", "Chest Lower", QStringLiteral("abdomenUpper"), {0, 9, 0}, {0, 12, 0});
    add("chestUpper", "Chest Upper", QStringLiteral("chestLower"), {0, 12, 0}, {0, 14, 0});
    add("neckLower", "Neck Lower", QStringLiteral("chestUpper"), {0, 14, -1}, {0, 4, 0});
    add("neckUpper", "Neck Upper", QStringLiteral("neckLower"), {0, 4, 0}, {0, 4, 0});
    add("head", "Head", QStringLiteral("neckUpper"), {0, 4, 0}, {0, 20, 0});
    add("jaw", "Jaw", QStringLiteral("head"), {0, 1, 3}, {0, -3, 7});
    add("lEye", "Left Eye", QStringLiteral("head"), {3.2f, 8, 7}, {0, 0, 2});
    add("rEye", "Right Eye", QStringLiteral("head"), {-3.2f, 8, 7}, {0, 0, 2});
}

void FigureBuilder::addLeg(char side)
{
    const float x = sign(side);
    add(sided(side, "Thigh"), sidedLabel(side, "Thigh"), QStringLiteral("pelvis"), {9 * x, -6, 0},
        {0, -42, 0});
    add(sided(side, "Shin"), sidedLabel(side, "Shin"), sided(side, "Thigh"), {0, -42, 0},
        {0, -42, 0});
    add(sided(side, "Foot"), sidedLabel(side, "Foot"), sided(side, "Shin"), {0, -42, 0},
        {0, -8, 12});
    add(sided(side, "Toe"), sidedLabel(side, "Toe"), sided(side, "Foot"), {0, -8, 12}, {0, 0, 8});
}

void FigureBuilder::addArm(char side)
{
    const float x = sign(side);
    add(sided(side, "Collar"), sidedLabel(side, "Collar"), QStringLiteral("chestUpper"),
        {3 * x, 9, 0}, {13 * x, 1, 0});
    add(sided(side, "Shoulder"), sidedLabel(side, "Shoulder"), sided(side, "Collar"),
        {13 * x, 1, 0}, {28 * x, 0, 0});
    add(sided(side, "Forearm"), sidedLabel(side, "Forearm"), sided(side, "Shoulder"),
        {28 * x, 0, 0}, {25 * x, 0, 0});
    add(sided(side, "Hand"), sidedLabel(side, "Hand"), sided(side, "Forearm"), {25 * x, 0, 0},
        {9 * x, 0, 0});
    addFingers(side);
}

void FigureBuilder::addFingers(char side)
{
    struct Finger
    {
        const char *name;
        QVector3D base;
        float length;
    };
    const float x = sign(side);
    const Finger fingers[] = {{"Thumb", {2 * x, -1, 3}, 3.2f},
                              {"Index", {9 * x, 0, 3}, 3.4f},
                              {"Middle", {9 * x, 0, 1}, 3.7f},
                              {"Ring", {9 * x, 0, -1}, 3.4f},
                              {"Little", {8 * x, 0, -3}, 2.6f}};
    for (const Finger &finger : fingers) {
        QString parent = sided(side, "Hand");
        QVector3D origin = finger.base;
        for (int joint = 1; joint <= 3; ++joint) {
            const QString name = sided(side, finger.name) + QString::number(joint);
            const QString label =
                sidedLabel(side, finger.name) + QLatin1Char(' ') + QString::number(joint);
            const QVector3D end(finger.length * x, 0, 0);
            add(name, label, parent, origin, end);
            parent = name;
            origin = end;
        }
    }
}

} // namespace

std::vector<WalkBone> walkFigure()
{
    FigureBuilder builder;
    builder.addTrunk();
    for (const char side : {'l', 'r'})
        builder.addLeg(side);
    for (const char side : {'l', 'r'})
        builder.addArm(side);
    return builder.take();
}
