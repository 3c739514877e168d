#include "io/vxbvhimport.h"

#include "io/motion/vxmotionimport.h"

#include <vxcore/vxskeleton.h>

class VxBvhImport::Private
{
public:
    explicit Private(VxScene *scene)
        : import(scene)
    {
    }

    bool enter(bool loaded, VxFileError *error);

    VxMotionImport import;
    VxSkeleton *skeleton = nullptr;
};

bool VxBvhImport::Private::enter(bool loaded, VxFileError *error)
{
    if (!loaded || !import.enter({}, error))
        return false;
    skeleton = static_cast<VxSkeleton *>(import.getRoots().constFirst());
    return true;
}

VxBvhImport::VxBvhImport(VxScene *scene)
    : d(std::make_unique<Private>(scene))
{
}

VxBvhImport::~VxBvhImport() = default;

void VxBvhImport::setProgress(const VxFileProgress &progress)
{
    d->import.setProgress(progress);
}

void VxBvhImport::setReplacesScene(bool replaces)
{
    d->import.setReplacesScene(replaces);
}

bool VxBvhImport::importFile(const QString &fileName, VxFileError *error)
{
    return d->enter(d->import.load(fileName, error), error);
}

bool VxBvhImport::importDocument(const VxBvhDocument &document, const QString &fileName,
                                 VxFileError *error)
{
    return d->enter(d->import.loadDocument(document, QString(), fileName, error), error);
}

VxSkeleton *VxBvhImport::getSkeleton() const
{
    return d->skeleton;
}

QString VxBvhImport::getSummary() const
{
    return d->import.getSummary();
}
