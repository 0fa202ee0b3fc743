// One printed page with headings, tables and a chart below them.
#pragma once

#include "output/report/report.h"

namespace kelvar {

// `above` is HTML; the chart takes the room that it leaves.
Report chart_page(const QString& title, const QString& above, PaintChart chart);

}  // namespace kelvar
