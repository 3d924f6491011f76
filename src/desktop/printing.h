// A page to paper, to a file, or onto the screen first.
#pragma once

#include <QPrinter>
#include <QTextDocument>
#include <QWidget>

/// Prints documents with the printer and the page set up last; both live as long as this object.
class Printing
{
public:
    Printing();

    /// Asks for the printer (a PDF file is one of them) and prints; false when the user gave up.
    bool print(QWidget* parent, const QTextDocument& document);
    void preview(QWidget* parent, const QTextDocument& document);
    void setUpPage(QWidget* parent);
    /// Writes the pages to a PDF file without asking; false when the file cannot be written.
    [[nodiscard]] bool printToPdf(const QTextDocument& document, const QString& path) const;

private:
    QPrinter m_printer;
};
