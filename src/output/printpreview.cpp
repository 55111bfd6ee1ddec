// PrintPreview: QPrintPreviewDialog over a fresh device of the program's printer.
#include "output/printpreview.h"

#include "components/printer.h"

#include <QPrintPreviewDialog>
#include <QPrinter>

namespace PrintPreview {

bool exec(QWidget* owner, const ProofPages::Drawing& draw)
{
    // Not the program's own device: a document left open there (the printed font list
    // waits in one) stays as it is.
    std::unique_ptr<QPrinter> printer = Printer::instance().newDevice();
    QPrintPreviewDialog dialog(printer.get(), owner);
    dialog.setObjectName(QStringLiteral("PrintPreview"));
    dialog.setWindowTitle(QStringLiteral("Aperçu avant impression"));
    dialog.resize(900, 700);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&draw](QPrinter* device) { ProofPages::drawPages(*device, draw); });
    return dialog.exec() == QDialog::Accepted;
}

} // namespace PrintPreview
