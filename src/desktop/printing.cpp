#include "desktop/printing.h"

#include "desktop/pagepainter.h"
#include "desktop/pdffile.h"

#include <QApplication>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>

using namespace Qt::StringLiterals;

QPrinter& Printing::printer()
{
    if (!m_printer) {
        m_printer.emplace(QPrinter::HighResolution);
        m_printer->setCreator(u"Jobwright"_s);
    }
    return *m_printer;
}

bool Printing::print(const ReportDocument& document, const Step& step)
{
    printer().setDocName(document.title);
    QPrintDialog dialog(&printer(), QApplication::activeWindow());
    dialog.setObjectName(u"printDialog"_s);
    return dialog.exec() == QDialog::Accepted && PagePainter::paint(printer(), document, step);
}

void Printing::preview(const ReportDocument& document)
{
    printer().setDocName(document.title);
    QPrintPreviewDialog dialog(&printer(), QApplication::activeWindow());
    dialog.setObjectName(u"printPreview"_s);
    dialog.setWindowTitle(document.title);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&document](QPrinter* pages) { PagePainter::paint(*pages, document); });
    dialog.exec();
}

void Printing::setUpPage()
{
    QPageSetupDialog dialog(&printer(), QApplication::activeWindow());
    dialog.setObjectName(u"pageSetup"_s);
    dialog.exec();
}

bool Printing::writePdf(const ReportDocument& document, const QString& path, const Step& step)
{
    return pdffile::write(document, path, step);
}
