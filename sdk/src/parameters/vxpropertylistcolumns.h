#ifndef VXPROPERTYLISTCOLUMNS_H
#define VXPROPERTYLISTCOLUMNS_H

class QTreeView;

/// The widths of a property list's columns: the labels get the room beside values and key marks;
/// the values have a share of the width until the user sets another.
class VxPropertyListColumns
{
public:
    /// Borrowed, with the header that it keeps.
    explicit VxPropertyListColumns(QTreeView *view);

    /// For a new model.
    void setUp();
    /// Fits the columns to the width and the font of the view.
    void fit();

    /// The width that the user set; 0 for none.
    int valueWidth() const { return m_valueWidth; }
    void setValueWidth(int width);

private:
    QTreeView *m_view;
    int m_valueWidth = 0;
    bool m_isFitting = false;
};

#endif
