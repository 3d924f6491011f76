#include "views/workbench/addressentryview.h"

#include "ui_addressentryview.h"
#include "views/common/doubleclick.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"
#include "workbench/addressentry.h"

using namespace Qt::StringLiterals;

AddressEntryView::AddressEntryView(FrmAddressEntry& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::AddressEntryView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    m_ui->cmdSave1->setIcon(icons::named(u"document-save"_s));
    m_ui->lblURL1C->setIcon(icons::named(u"globe"_s));
    m_ui->lblURL2C->setIcon(icons::named(u"globe"_s));
    // Enter in a field saves; no other button may be the one that it presses.
    for (QPushButton* button : {m_ui->cmdSetCompany, m_ui->cmdFastParser, m_ui->cmdClear1, m_ui->cmdCancel})
        button->setAutoDefault(false);
    new FormBinder(presenter.form(), presenter, *this);
    new DoubleClick(*m_ui->txtEAddress, [&presenter] { presenter.cmdFastParser(); });
    connect(&presenter, &FrmAddressEntry::closeRequested, this, &QDialog::close);
    windowstate::restore(*this, m_layout);
    m_ui->txtEAddress->setFocus();
}

AddressEntryView::~AddressEntryView()
{
    windowstate::save(*this, m_layout);
}
