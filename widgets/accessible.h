// What screen readers need beyond what the toolkit tells them. Each is harmless when called again.
#pragma once

namespace kelvar {

// Lets screen readers press options, check boxes and pictures as others do. By Qt's own action an
// option is chosen without a click, so that no screen hears of it, and a picture that opens a message
// or a menu keeps the reader waiting until that is closed.
void make_buttons_accessible();

// Lets screen readers see a Chart as a chart whose children are its places, each named in words.
//
void make_charts_accessible();

// Lets screen readers ask a scroll area for a scroll bar that has gone since they counted: Qt's own
// answer is read from beyond the end of a list, and the program may crash.
void make_scroll_areas_accessible();

}  // namespace kelvar
