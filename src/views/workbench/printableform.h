// A screen's form as a page to print.
#pragma once

#include "base/reportpage.h"

class Form;
class QWidget;

/// The form's values under their labels on the view, in the form's order, below @p heading; boxes of several
/// lines stand under a heading of their own. Empty fields are left out. Texts of the user stand as they are,
/// never as markup.
[[nodiscard]] ReportDocument printableForm(const QWidget& view, const Form& form, const QString& heading);
