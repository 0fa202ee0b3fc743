// What becomes of the participants as CSV for other programs: one line for each of them and rate, and
// all payments.
#pragma once

#include <string>
#include <vector>

#include "engine/projection.h"
#include "statements/columns.h"

namespace kelvar {

std::string results_header();
// The figures are those of the comparison of the rates; one line says why a participant was refused.
std::string result_lines(const Participant& participant, const std::vector<Projection>& projections);

std::string payments_header();
// Of complete projections; a lump sum is a payment without a number.
std::string payment_lines(const Participant& participant, const std::vector<Projection>& projections);

// At each of the participant's rates; none of one who was refused.
std::vector<Projection> projections_of(const Participant& participant, Date today);

}  // namespace kelvar
