// What the length screen says of the limits of its options; empty while they are not known.
#pragma once

#include <QString>

#include "core/module1.h"

namespace kelvar {

class LifeOptions;

QString number_limit(Module1& module);  // "At most 349 monthly payments"
// "At least $715.93 a month, more if the account grows. Entered: $2,500.00", with what becomes of an
// amount above the balance; once payments are to be of an amount, also what it takes to end in time.
QString amount_limit(Module1& module, const QString& typed);

// When a spouse for joint life is born: "More than ten years younger: born after 11/02/1965; ...".
QString spouse_limit(Module1& module);

// How many payments the chosen life expectancy gives: "349 monthly payments".
QString life_limit(Module1& module, const LifeOptions& options);

}  // namespace kelvar
