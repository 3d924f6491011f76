// The company summary: figures in, sentences out.
#pragma once

#include "workbench/companyfigures.h"

#include <QString>

/// The text of the summary box, with its line breaks and its own spacing.
QString companySummary(const CompanyFigures& figures, const QDate& today);
