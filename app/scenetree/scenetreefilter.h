#ifndef SCENETREEFILTER_H
#define SCENETREEFILTER_H

#include "scenetree/scenetreecompanion.h"

#include <QVector>

class VxNode;

/// Shows only those rows of the scene's tree whose name contains a text, and their ancestors.
///
/// Rows are hidden in the view and stay in the model, so that a search does not change the
/// selection. Added, moved and renamed nodes are matched once per event loop iteration.
class SceneTreeFilter : public SceneTreeCompanion
{
    Q_OBJECT
public:
    /// All are borrowed. The view must have the model set; the parent should be the view.
    SceneTreeFilter(QTreeView *view, SceneTreeModel *model, VxScene *scene, QObject *parent);

    /// Ignores case; an empty text shows every row.
    void setText(const QString &text);
    /// The nodes whose own name contains the text, in the order of the hierarchy.
    const QVector<VxNode *> &matches() const { return m_matches; }

Q_SIGNALS:
    void matchesChanged();

private:
    void catchUp() override;

    QString m_text;
    QVector<VxNode *> m_matches;
    bool m_hasHidden = false;
};

#endif
