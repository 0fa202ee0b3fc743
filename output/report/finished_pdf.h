// What the toolkit cannot write into a PDF.
#pragma once

#include <QByteArray>
#include <vector>

#include "output/report/report.h"

namespace kelvar {

// The same pages with an outline, their language, and the title for the window that shows them. No time
// of day is in it: the same pages are the same bytes. Throws PrintError for what is no PDF.
QByteArray finished_pdf(const QByteArray& pdf, const std::vector<OutlineEntry>& outline);

}  // namespace kelvar
