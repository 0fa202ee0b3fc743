// Names and writes the PDF file that a print job goes into, and keeps the program's own files safe from
// it.
#pragma once

#include "output/report/print_job.h"

namespace kelvar {

// What a PDF file is called, such as "Periodic Payments 5% 2020-01-15". What no file name can hold is
// left out of the title.
QString pdf_name(const QString& title, const QString& rate, Date day);

// Writes the job into the file with this path. An existing file is only replaced by a complete one;
// where the name is a link to another file, that file is replaced and the link stays. Throws PrintError
// for a file that belongs to the program, and when the file cannot be written.
void write_pdf(const Module1& module, const QString& name, const PrintJob& job);

}  // namespace kelvar
