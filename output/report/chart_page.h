// One printed page with headings, tables and a chart below them.
#pragma once

#include <QString>

#include "core/dates.h"

class QPagedPaintDevice;

namespace kelvar {

class Chart;

// `above` is HTML; the chart takes the room that it leaves. Throws PrintError when the device cannot be
// drawn on.
void draw_chart_page(QPagedPaintDevice& device, Date printed, const QString& title,
                     const QString& above, const Chart& chart);

}  // namespace kelvar
