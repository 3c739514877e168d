#ifndef VXCORE_VXPARAMETERSPANE_H
#define VXCORE_VXPARAMETERSPANE_H

#include <vxcore/vxpane.h>

class VxSideNavPropertyListView;

/// The pane "Parameters": the properties of the primary selection with their values at the
/// current time, to be edited.
class VXCORE_EXPORT VxParametersPane : public VxPane
{
    Q_OBJECT
public:
    VxParametersPane();
    ~VxParametersPane() override;

    /// Never null; owned by the pane.
    VxSideNavPropertyListView *getPropertyListView() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
