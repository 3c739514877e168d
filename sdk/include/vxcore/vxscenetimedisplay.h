#ifndef VXSCENETIMEDISPLAY_H
#define VXSCENETIMEDISPLAY_H

#include <QtCore/QObject>
#include <memory>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxtimedisplay.h>

class VxScene;

/// How the program shows the times of a scene, part of the document: frames in a cleared scene.
class VXCORE_EXPORT VxSceneTimeDisplay : public QObject
{
    Q_OBJECT
public:
    /// That of a scene, which owns it. Never null for a scene.
    static VxSceneTimeDisplay *of(VxScene *scene);
    /// A copy of a scene's.
    static VxTimeDisplay displayOf(const VxScene *scene);
    /// A time of a scene as text.
    static QString textOf(const VxScene *scene, VxTime time);
    /// The same for a label: frames follow the word "Frame", other units show what they are.
    static QString labelOf(const VxScene *scene, VxTime time);
    /// A typed time of a scene, or a change of one, as VxTimeDisplay::read() reads it. In it
    /// "@Step" is the start of the marker of that name, "@Step.end" its end (the first one of that
    /// name, else of that name in other letters), "@>" and "@<" are the next and the previous start
    /// or end of a marker after and before the current time. A name of other than letters, digits
    /// and underscores has quotation marks: @"Left step" - 2.
    static VxTypedInput read(const VxScene *scene, const QString &text,
                             VxTypedInput::Signs signs = VxTypedInput::OfValues);
    ~VxSceneTimeDisplay() override;

    const VxTimeDisplay &display() const;
    /// Recorded for undo within a hold.
    void setDisplay(const VxTimeDisplay &display);

Q_SIGNALS:
    void changed();

private:
    explicit VxSceneTimeDisplay(VxScene *scene);
    class Private;
    std::unique_ptr<Private> d;
};

#endif
