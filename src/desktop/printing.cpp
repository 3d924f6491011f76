#include "desktop/printing.h"

#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>

#include <QFileInfo>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Paper is white whatever the screen's palette, and the document of a screen must stay as it was.
void printOnto(QPrinter& printer, const QTextDocument& document)
{
    const std::unique_ptr<QTextDocument> pages(document.clone());
    pages->print(&printer);
}

} // namespace

Printing::Printing()
    : m_printer(QPrinter::HighResolution)
{
    m_printer.setCreator(u"Jobwright"_s);
}

bool Printing::print(QWidget* parent, const QTextDocument& document)
{
    QPrintDialog dialog(&m_printer, parent);
    dialog.setObjectName(u"printDialog"_s);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    printOnto(m_printer, document);
    return true;
}

void Printing::preview(QWidget* parent, const QTextDocument& document)
{
    QPrintPreviewDialog dialog(&m_printer, parent);
    dialog.setObjectName(u"printPreview"_s);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&document](QPrinter* printer) { printOnto(*printer, document); });
    dialog.exec();
}

void Printing::setUpPage(QWidget* parent)
{
    QPageSetupDialog dialog(&m_printer, parent);
    dialog.setObjectName(u"pageSetup"_s);
    dialog.exec();
}

bool Printing::printToPdf(const QTextDocument& document, const QString& path) const
{
    if (path.isEmpty() || !QFileInfo(QFileInfo(path).absolutePath()).isWritable())
        return false;
    QPrinter file(QPrinter::HighResolution);
    file.setOutputFormat(QPrinter::PdfFormat);
    file.setOutputFileName(path);
    file.setPageLayout(m_printer.pageLayout());
    printOnto(file, document);
    return file.printerState() != QPrinter::Error && QFileInfo(path).size() > 0;
}
