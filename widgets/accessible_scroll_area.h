#pragma once

namespace kelvar {

// Lets screen readers ask a scroll area for a scroll bar that has gone since they counted: Qt's own
// answer is read from beyond the end of a list, and the program may crash. Harmless when called again.
void make_scroll_areas_accessible();

}  // namespace kelvar
