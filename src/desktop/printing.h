// A document to paper, to a file, or onto the screen first.
#pragma once

#include "base/paper.h"

#include <QPrinter>

#include <optional>

class QWidget;

/// Prints documents with the printer and the page set up last; both live as long as this object. The system
/// is asked for its printers with the first of them, as that takes longer than the whole start. Dialogs
/// belong to the window in which the user works.
class Printing : public Paper
{
public:
    bool print(const ReportDocument& document, const Step& step = {}) override;
    void preview(const ReportDocument& document) override;
    bool writePdf(const ReportDocument& document, const QString& path, const Step& step = {}) override;
    void setUpPage();

private:
    [[nodiscard]] QPrinter& printer();

    std::optional<QPrinter> m_printer;
};
