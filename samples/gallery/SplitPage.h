// A page with a control at its left and what is told of it at the right.
#pragma once

#include "GalleryPage.h"

class CSplitPage : public CGalleryPage
{
public:
    CSize PictureSize() const override { return CSize(660, 420); }
    bool IsPosed() const override;

protected:
    // Lays the control out with its label over it, and returns the place for the rest.
    CRect LayOutLeft(CSize size, CWnd& label, CWnd& control);

    // Puts a heading and so many lines of text below it at the top of `rest`, and takes their room off it.
    static void PlaceText(CRect& rest, CStatic& heading, CStatic& text, int lines);

    // Rests the mouse on a place of the control, where a tip is to be seen.
    void PoseMouse(const CWnd& control, CPoint place);
};
