#pragma once

namespace quorvane {

class XGridView;

/// Makes grids describe themselves to assistive technology by the cells in sight only; a tool that walks
/// through everything then ends at once also with 100,000 rows. To be called before the first grid's view is
/// made; further calls do nothing.
void installXGridAccessibility();

/// Tells assistive technology, when one listens, that the cursor stands on another cell.
void announceCursor(XGridView& view);

} // namespace quorvane
