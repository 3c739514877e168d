#ifndef VXPARAMETERSPANE_H
#define VXPARAMETERSPANE_H

#include <vxcore/vxpane.h>

class VxSideNavPropertyListView;

/// The pane "Parameters": the properties of the selected nodes with their values at the current
/// time, to be edited. The primary selection determines the listed properties and the shown
/// values; an edit applies to all selected nodes.
class VXCORE_EXPORT VxParametersPane : public VxPane
{
    Q_OBJECT
public:
    VxParametersPane();
    ~VxParametersPane() override;

    /// Never null; owned by the pane.
    VxSideNavPropertyListView *getPropertyListView() const;

    void restoreSettings(VxSettings *settings) override;
    void saveSettings(VxSettings *settings) const override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
