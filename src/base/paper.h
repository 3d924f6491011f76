// The way of a report out of the program.
#pragma once

#include "base/reportpage.h"

#include <functional>

/// Puts documents onto paper, into a file, or onto the screen first. The desktop's and the tests' differ.
class Paper
{
public:
    /// Hears how many pages are done; false ends the work.
    using Step = std::function<bool(int done)>;

    virtual ~Paper() = default;
    /// Asks for the printer and prints; false when the user gave up, or the printer refuses.
    virtual bool print(const ReportDocument& document, const Step& step) = 0;
    virtual void preview(const ReportDocument& document) = 0;
    /// Writes a PDF file, whole or not at all; false when it cannot be written or @p step ended the work.
    virtual bool writePdf(const ReportDocument& document, const QString& path, const Step& step) = 0;
};
