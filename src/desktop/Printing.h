// Reports on paper.
#pragma once

#include <QPagedPaintDevice>

#include "platform/Host.h"

namespace qel {

// Shows the pages; from there the user chooses a printer, or a PDF file, and prints.
void PreviewAndPrint(const PrintJob& job);

// Draws the pages of a job. A line is kept whole where the type can be made small enough for the longest one,
// down to 6 points; else long lines are wrapped.
void PrintPages(const PrintJob& job, QPagedPaintDevice& printer);

}  // namespace qel
