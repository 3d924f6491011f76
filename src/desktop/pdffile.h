// A document as a PDF file.
#pragma once

#include "base/paper.h"

namespace pdffile {

/// Writes the document on A4 paper, with text that can be selected. False, and nothing at @p path is touched,
/// when the file cannot be written or @p step ended the work.
[[nodiscard]] bool write(const ReportDocument& document, const QString& path, const Paper::Step& step = {});

} // namespace pdffile
