// A report in pages, with its long table divided where its readers expect it.
#pragma once

class QPagedPaintDevice;
class QTextDocument;

namespace kelvar {

// Lays out a report for a device, which must outlive its use; may be done again for another one. The
// longest table with a heading is divided so that no row stands alone on a page, and none that is not
// like the first one, such as a total, begins a page: an empty row before it fills up the page before.
// Tables with borders, or with space between their cells, are divided as they come.
void lay_out_report(QTextDocument& report, QPagedPaintDevice& device);

}  // namespace kelvar
