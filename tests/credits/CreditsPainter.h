// A second painter of the animation, in plain GDI: how the state of a CreditsModel has to look.
#pragma once

#include "CreditsModel.h"

#include <gtest/gtest.h>

#include "kit/Picture.h"

class CreditsPainter
{
public:
    // Both pictures begin black.
    CreditsPainter(CSize size, const CellFont& font);

    // What a tick draws: nothing on timer 0, else the rain's strokes and a new frame.
    void Tick(const CreditsModel& model, UINT_PTR id);

    // The rain alone, and the last frame.
    const testkit::Picture& Rain() const { return m_rain; }
    const testkit::Picture& Frame() const { return m_frame; }

    // Draws a text, in an opaque black of its own, as the animation draws all but what fades.
    void String(testkit::Picture& picture, CPoint cell, std::wstring_view text, COLORREF color);
    void Block(testkit::Picture& picture, CPoint cell, COLORREF color);

private:
    void Compose(const CreditsModel& model);
    void Output(testkit::Picture& picture, int x, int y, std::wstring_view text, COLORREF color);

    const CellFont& m_font;
    testkit::Picture m_rain;
    testkit::Picture m_frame;
};

// Whether two pictures are alike; if not, names the first pixel that differs, with both colours.
testing::AssertionResult SamePixels(const testkit::Picture& drawn, const testkit::Picture& expected);
