// What the length screen says of the limits of its options; empty while they are not known.
#pragma once

#include <QString>

#include "core/module1.h"

namespace kelvar {

class LifeOptions;

QString number_limit(Module1& module);  // "At most 349 monthly payments"
QString amount_limit(Module1& module);  // "At least $715.93 a month"

// How many payments the chosen life expectancy gives: "349 monthly payments".
QString life_limit(Module1& module, const LifeOptions& options);

}  // namespace kelvar
