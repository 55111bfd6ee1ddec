// PrintPreview: Qt's print preview of pages drawn by ProofPages, on a device of its own
// on the program's printer, so that what it shows is what it prints.
#pragma once

#include "output/proofpages.h"

class QWidget;

namespace PrintPreview {

// Shows the preview modally. Printing from it sends the pages as one job; closing it
// sends nothing. True when the pages were printed.
bool exec(QWidget* owner, const ProofPages::Drawing& draw);

} // namespace PrintPreview
