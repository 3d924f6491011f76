#include "views/output/reportview.h"

#include "output/frmreport.h"
#include "ui_reportview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"

using namespace Qt::StringLiterals;

ReportView::ReportView(FrmReport& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::ReportView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    const std::initializer_list<std::pair<QAbstractButton*, QString>> pictures = {
        {m_ui->imgCompany1, u"view-bank"_s},    {m_ui->imgContact1, u"user-identity"_s},
        {m_ui->imgPosition1, u"view-task"_s},   {m_ui->imgTarget1, u"flag"_s},
        {m_ui->cmdPrint1, u"document-print"_s}, {m_ui->cmdPreview, u"document-print-preview"_s},
        {m_ui->cmdPdf, u"document-export"_s},   {m_ui->cmdText, u"document-save"_s}};
    for (const auto& [button, icon] : pictures)
        button->setIcon(icons::named(icon));
    m_ui->rtfReport->setPlaceholderText(tr("Choose a report above."));
    resize(fontMetrics().averageCharWidth() * 125, fontMetrics().height() * 42);
    windowstate::restore(*this, m_layout);
    new FormBinder(presenter.form(), presenter, *this);
    connect(&presenter, &FrmReport::textChanged, this,
            [this, &presenter] { m_ui->rtfReport->setReport(presenter.text()); });
    m_ui->rtfReport->setReport(presenter.text());
    m_ui->imgCompany1->setFocus();
}

ReportView::~ReportView() = default;

void ReportView::done(int result)
{
    windowstate::save(*this, m_layout);
    QDialog::done(result);
}
