#include "output/frmreport.h"

#include "store/session.h"

#include <QDir>
#include <QSaveFile>

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 4> doors{u"cmdPrint1", u"cmdPreview", u"cmdPdf", u"cmdText"};

} // namespace

FrmReport::FrmReport(Session& session, Paper& paper)
    : m_session(session)
    , m_paper(paper)
    , m_form({{u"Label1"_s, {}, SaveOn::Never},
              {u"txtHeader"_s, {}, SaveOn::Never},
              {u"chkPage"_s, {}, SaveOn::Never},
              {u"lblPages"_s, {}, SaveOn::Never}})
{
}

void FrmReport::load()
{
    m_form.clear();
    m_form.setText(u"Label1"_s, tr("Report"));
    show({});
}

void FrmReport::show(const QString& text)
{
    m_text = text;
    m_form.setText(u"lblPages"_s,
                   text.isEmpty() ? QString() : tr("Pages: %1").arg(reports::pages(text).size()));
    for (const QStringView door : doors)
        m_form.setEnabled(door.toString(), !text.isEmpty());
    emit textChanged();
}

void FrmReport::build(ReportKind kind)
{
    m_form.setText(u"Label1"_s, reports::title(kind));
    m_form.setText(u"txtHeader"_s, reports::header(kind, m_session));
    show({});
    show(reports::build(kind, m_session).value_or(QString()));
}

ReportDocument FrmReport::document() const
{
    return reports::document(m_text, m_form.text(u"txtHeader"_s), m_form.text(u"chkPage"_s) == u"1");
}

QString FrmReport::printedOf(qsizetype pages) const
{
    return pages <= reports::mostPrinted ? QString()
                                         : tr("The report has %1 pages; the printer takes the first %2 of "
                                              "them, the preview and the PDF file "
                                              "have them all.")
                                               .arg(pages)
                                               .arg(reports::mostPrinted);
}

void FrmReport::cmdPrint1()
{
    ReportDocument pages = document();
    const auto all = static_cast<qsizetype>(pages.pages.size());
    if (all > reports::mostPrinted)
        pages.pages.resize(reports::mostPrinted);
    // The bar comes with the first page, not while the printer is chosen.
    std::optional<ProgressScope> progress;
    const bool printed = m_paper.print(pages, [&](int done) {
        if (!progress)
            progress.emplace(m_session, tr("Printing"), static_cast<int>(pages.pages.size()));
        return progress->step(done);
    });
    progress.reset();
    if (printed && all > reports::mostPrinted)
        m_session.msgBox(printedOf(all));
}

void FrmReport::cmdPreview()
{
    ReportDocument pages = document();
    const auto all = static_cast<qsizetype>(pages.pages.size());
    if (all > reports::mostPrinted)
        pages.title = tr("%1 (%2 pages, of which the printer takes %3)")
                          .arg(pages.title)
                          .arg(all)
                          .arg(reports::mostPrinted);
    m_paper.preview(pages);
}

QString FrmReport::fileName(const QString& ending) const
{
    return QDir::home().filePath(m_form.text(u"Label1"_s) + ending);
}

void FrmReport::cmdPdf()
{
    const QString path = m_session.prompts().saveFile(tr("Save the report as PDF"), fileName(u".pdf"_s),
                                                      {tr("PDF files (*.pdf)")});
    if (path.isEmpty())
        return;
    const ReportDocument pages = document();
    const auto all = static_cast<qsizetype>(pages.pages.size());
    bool cancelled = false;
    bool written = false;
    {
        ProgressScope progress(m_session, tr("Writing the PDF file"), static_cast<int>(all));
        written =
            m_paper.writePdf(pages, path, [&](int done) { return !(cancelled = !progress.step(done)); });
    }
    if (written)
        m_session.msgBox(tr("The report has been saved as \"%1\". %2")
                             .arg(QDir::toNativeSeparators(path), printedOf(all))
                             .trimmed());
    else if (!cancelled)
        m_session.msgBox(tr("The file \"%1\" could not be written.").arg(QDir::toNativeSeparators(path)));
}

void FrmReport::cmdText()
{
    const QString path = m_session.prompts().saveFile(tr("Save the report as text"), fileName(u".txt"_s),
                                                      {tr("Text files (*.txt)")});
    if (path.isEmpty())
        return;
    QSaveFile file(path);
    const QByteArray bytes = m_text.toUtf8();
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    if (!written)
        m_session.msgBox(tr("The file \"%1\" could not be written.").arg(QDir::toNativeSeparators(path)));
}
