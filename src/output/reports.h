// The four printed reports as texts.
#pragma once

#include "base/reportpage.h"
#include "store/session.h"

#include <QString>
#include <QStringList>

#include <optional>

enum class ReportKind { Company, Contact, Position, Target };

/// The text of a report is one string: a rule of 110 underscores below each record, "|" where a page ends.
/// What stands in it is put together as the report's readers know it, blanks or none between the values;
/// lines that are too long are wrapped where they are shown or printed.
namespace reports {

/// The end of a page. One in a text of the user ends the page as well, as nothing tells it apart.
inline constexpr QChar pageMark = u'|';
/// So many pages go to the printer at most.
inline constexpr int mostPrinted = 20;

/// "Company Report".
[[nodiscard]] QString title(ReportKind kind);
/// The title with a blank and today's date.
[[nodiscard]] QString header(ReportKind kind, const Session& session);

/// @p text fitted to a column: cut to the width, or filled with blanks. As it stands when it is empty or the
/// width is 0.
[[nodiscard]] QString addText(const QString& text, int width);

/// The report's text; empty when there is nothing to report, which a report of companies, contacts or
/// positions says in a message. Shows its progress; nothing when the user cancelled.
[[nodiscard]] std::optional<QString> build(ReportKind kind, Session& session);

/// The pieces between the page marks, each a page, the empty one behind the last mark as well.
[[nodiscard]] QStringList pages(const QString& text);
/// The pages as the printer gets them, with a header, page numbers when wanted, and the program's caption.
[[nodiscard]] ReportDocument document(const QString& text, const QString& header, bool numbered);

} // namespace reports
