#pragma once

namespace kelvar {

// Lets screen readers press options, check boxes and pictures as others do. By Qt's own action an
// option is chosen without a click, so that no screen hears of it, and a picture that opens a message
// or a menu keeps the reader waiting until that is closed. Harmless when called again.
void make_buttons_accessible();

}  // namespace kelvar
