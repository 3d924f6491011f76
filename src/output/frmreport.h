// The screen Report.
#pragma once

#include "base/form.h"
#include "base/paper.h"
#include "output/reports.h"

#include <QObject>

class Session;

/// Builds one of the four reports and lets it be seen, printed and kept as a file. The text itself is what
/// reports::build() answers; the form has what stands around it.
class FrmReport : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the screen.
    FrmReport(Session& session, Paper& paper);

    /// Label1 (the report's name), txtHeader, chkPage, lblPages; cmdPrint1, cmdPreview, cmdPdf and cmdText
    /// are enabled when there is a report.
    [[nodiscard]] Form& form() { return m_form; }
    /// rtfReport, as the report is built: a view wraps its lines.
    [[nodiscard]] const QString& text() const { return m_text; }

    void load();

public slots:
    void imgCompany1() { build(ReportKind::Company); }
    void imgContact1() { build(ReportKind::Contact); }
    void imgPosition1() { build(ReportKind::Position); }
    void imgTarget1() { build(ReportKind::Target); }
    void cmdPrint1(); ///< twenty pages at most
    void cmdPreview();
    void cmdPdf();
    void cmdText();

signals:
    void textChanged();

private:
    void build(ReportKind kind);
    void show(const QString& text);
    [[nodiscard]] ReportDocument document() const;
    [[nodiscard]] QString fileName(const QString& ending) const;
    [[nodiscard]] QString printedOf(qsizetype pages) const;

    Session& m_session;
    Paper& m_paper;
    Form m_form;
    QString m_text;
};
