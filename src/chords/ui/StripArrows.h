#pragma once
// The two arrows of the strip of small chord diagrams. They tell whether
// the strip can scroll further up or down, and a touch on one scrolls it by
// a page. Offsets and heights in the strip's own units.

namespace zt {

struct StripArrows {
    static constexpr double kOpaque = 1.0;
    // An arrow that cannot scroll further.
    static constexpr double kDimmed = 0.3;
    // Both, when every diagram fits and neither arrow does anything.
    static constexpr double kAllVisible = 0.2;

    double upper = kAllVisible;
    double lower = kAllVisible;

    // y: the strip's scroll offset; contentHeight: the height of all its
    // diagrams; viewHeight: the height it shows at once.
    static StripArrows forScroll(double y, double contentHeight, double viewHeight);

    // Where a touch on an arrow scrolls to: a page up (direction < 0) or
    // down, a page being as many whole diagrams (`item` high) as the view
    // shows, counted from the diagram nearest the top, and never past
    // either end. A view a whole number of diagrams high thus always starts
    // and ends on whole diagrams.
    static double pageTarget(int direction, double y, double contentHeight, double viewHeight,
                             double item);
};

}  // namespace zt
