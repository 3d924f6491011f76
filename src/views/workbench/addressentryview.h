// How the Address entry looks.
#pragma once

#include <QDialog>

#include <memory>

class FrmAddressEntry;
class QSettings;

namespace Ui {
class AddressEntryView;
}

/// The dialog frmAddressEntry: the address of one contact. Closing it any other way than by its save button
/// stores nothing.
class AddressEntryView : public QDialog
{
    Q_OBJECT

public:
    /// The presenter has been loaded. @p layout remembers the size; both must outlive the dialog.
    AddressEntryView(FrmAddressEntry& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~AddressEntryView() override;

private:
    QSettings& m_layout;
    std::unique_ptr<Ui::AddressEntryView> m_ui;
};
