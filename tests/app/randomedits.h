#ifndef RANDOMEDITS_H
#define RANDOMEDITS_H

#include <QStringList>
#include <random>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxsceneviews.h>
#include <vxcore/vxstringproperty.h>
#include <vxcore/vxundostackhold.h>

/// Edits of all kinds that a seed decides, each one entry of the history.
class RandomEdits
{
public:
    RandomEdits(VxScene *scene, unsigned seed)
        : m_scene(scene)
        , m_random(seed)
    {
    }

    int below(int limit) { return int(m_random() % unsigned(qMax(1, limit))); }

    /// One to three edits within a hold. Empty hold: no entry.
    void edit()
    {
        VxUndoStackHold hold;
        for (int i = below(3); i >= 0; --i)
            step(below(17));
        hold.accept(QStringLiteral("Edit"));
    }

    /// An edit that no record can hold.
    void unwritableEdit()
    {
        VxUndoStackHold hold;
        if (VxNode *node = anyNode())
            node->addProperty(new VxFloatProperty(unusedName()), QStringLiteral("/Added"));
        hold.accept(QStringLiteral("Add Property"));
    }

    /// A change outside of any hold.
    void unrecordedChange()
    {
        if (VxFloatProperty *property = anyFloat())
            property->setKey(below(20) * 160, float(below(100)), 0);
    }

    VxNode *anyNode()
    {
        const QVector<VxNode *> nodes = m_scene->getNodes();
        return nodes.isEmpty() ? nullptr : nodes.at(below(nodes.size()));
    }

private:
    QString unusedName() { return QStringLiteral("n%1").arg(++m_names); }

    VxFloatProperty *anyFloat()
    {
        const VxNode *node = anyNode();
        VxProperty *property = node ? node->getProperty(below(node->getNumProperties())) : nullptr;
        return qobject_cast<VxFloatProperty *>(property);
    }

    QVector<int> someKeys(const VxProperty *property)
    {
        QVector<int> indexes;
        for (int i = 0; i < property->getNumKeys(); ++i) {
            if (below(3) == 0)
                indexes.append(i);
        }
        return indexes;
    }

    void step(int kind)
    {
        if (kind < 6)
            editKeys(kind);
        else if (kind < 11)
            editNodes(kind);
        else if (kind < 14)
            editProperty(kind);
        else
            editScene(kind);
    }

    void editKeys(int kind)
    {
        VxFloatProperty *property = anyFloat();
        if (!property)
            return;
        const QVector<int> keys = someKeys(property);
        if (kind == 0) {
            property->deleteKeys(keys);
        } else if (kind == 1) {
            QVector<VxTime> times;
            for (const int key : keys)
                times.append(property->getKeyTime(key) + 7);
            property->moveKeys(keys, times);
        } else if (kind == 2) {
            property->setKeyInterpolations(keys, {VxKeyInterp::Tcb, {0.5f, 0, float(below(3))}});
        } else if (kind == 3) {
            for (int i = 0; i < 40; ++i)
                property->setKey(i * 160, float(below(1000)) / 10, below(3));
        } else if (kind == 4) {
            property->setStoredValue(float(below(90)));
        } else {
            property->setKey(below(4000), float(below(1000)), 0);
        }
    }

    std::unique_ptr<VxNode> makeNode()
    {
        auto node = std::make_unique<VxNode>(unusedName());
        node->getXPosControl()->setKey(below(100), 5, 0);
        node->addProperty(new VxIntProperty(QStringLiteral("count"), 3), QStringLiteral("/Own"));
        node->addProperty(new VxStringProperty(QStringLiteral("text")), QStringLiteral("/Own"));
        return node;
    }

    /// A reference to a property of a removed node is kept in the history, but not in a file.
    bool isReferredTo(const VxNode *removed) const
    {
        const auto isBelow = [removed](const VxProperty *target) {
            const auto *node = target ? qobject_cast<VxNode *>(target->getOwner()) : nullptr;
            return node && (node == removed || removed->isAncestorOf(node));
        };
        for (const VxNode *node : m_scene->getNodes()) {
            for (const VxProperty *property : node->getMadeProperties()) {
                const auto *number = qobject_cast<const VxNumericProperty *>(property);
                if (isBelow(property->getAliasedProperty()) ||
                    isBelow(property->getOverridingControl()) ||
                    (number && isBelow(number->getLinkedProperty())))
                    return true;
            }
        }
        return false;
    }

    void editNodes(int kind)
    {
        VxNode *node = anyNode();
        if (kind == 6 && m_scene->getNumNodes() > 15) {
            if (!isReferredTo(node))
                m_scene->removeNode(node);
        } else if (kind == 7 || !node) {
            std::unique_ptr<VxNode> made = makeNode();
            made->addNodeChild(makeNode().release());
            m_scene->addNode(made.release(), below(2) ? node : nullptr);
        } else if (kind == 8) {
            VxNode *parent = below(2) ? anyNode() : nullptr;
            if (node->canMoveBelow(parent))
                node->setNodeParent(parent, below(4));
        } else if (kind == 9) {
            // Half of them begin with a byte order mark, which readers of texts like to leave out.
            const int number = below(100);
            const QString mark = number % 2 == 0 ? QString(QChar::ByteOrderMark) : QString();
            node->setLabel(mark + QStringLiteral("Label %1").arg(number));
            node->setPinned(below(2));
            node->setVisible(below(2));
            node->setSelectable(below(2));
        } else {
            node->setOrigin(QVector3D(1, 2, float(below(9))));
            node->setEndPoint(QVector3D(0, float(below(9)), 0));
            node->setRotationOrder(VxNode::RotationOrder(below(6)));
            node->setIkNode(below(2));
            VxRestPose rest{};
            rest[0] = float(below(5));
            node->setRestPose(below(2) ? std::optional<VxRestPose>(rest) : std::nullopt);
        }
    }

    void editProperty(int kind)
    {
        VxNode *node = anyNode();
        if (!node)
            return;
        if (auto *count = qobject_cast<VxIntProperty *>(node->findProperty("count")))
            count->setKey(below(50), below(50));
        if (auto *text = qobject_cast<VxStringProperty *>(node->findProperty("text")))
            text->setValue(QString::number(below(50)));
        VxFloatProperty *property = anyFloat();
        VxFloatProperty *other = anyFloat();
        if (!property || !other)
            return;
        if (kind == 11) {
            property->setLabel(QStringLiteral("P%1").arg(below(50)));
            property->setHidden(below(8) == 0);
            property->setLocked(below(8) == 0);
            property->setAnimatable(below(8) != 0);
        } else if (kind == 12) {
            property->setLink(below(2) ? other : nullptr, below(2), 2, 1);
        } else if (below(2)) {
            property->setAliasedProperty(below(2) ? other : nullptr);
        } else {
            property->setOverridingControl(below(2) ? other : nullptr);
        }
    }

    void editScene(int kind)
    {
        VxMarkers *markers = VxMarkers::of(m_scene);
        if (kind == 14 && markers->count() > 4) {
            markers->remove({markers->list().at(below(markers->count())).id});
        } else if (kind == 14) {
            const int start = below(20);
            markers->add({0, QStringLiteral("m"), VxTimeRange(start, start + below(9))});
        } else if (kind == 15 && markers->count() > 0) {
            VxMarker marker = markers->list().at(below(markers->count()));
            marker.name += QLatin1Char('x');
            markers->set(marker);
        } else {
            m_scene->setTimeStep(100 + below(100));
            m_scene->setAnimRange(VxTimeRange(0, below(9000)));
            m_scene->setTime(below(900));
            VxSceneViews::of(m_scene)->setView(below(3), VxTimeRange(below(50), 100));
            VxTimeDisplay display;
            display.unit = VxTimeDisplay::Unit(below(4));
            VxSceneTimeDisplay::of(m_scene)->setDisplay(display);
        }
    }

    VxScene *m_scene;
    std::mt19937 m_random;
    int m_names = 0;
};

#endif
