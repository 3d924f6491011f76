// The Address entry screen: where one contact is to be reached.
#pragma once

#include "base/form.h"
#include "base/key.h"

#include <QObject>

class DataJW;
class Shell;

/// Edits the Address row of one contact; can take the company's address over.
class FrmAddressEntry : public QObject
{
    Q_OBJECT

public:
    explicit FrmAddressEntry(Shell& shell);

    /// What the screen is opened with; both 0 for a contact that is not saved yet.
    struct Request
    {
        Key contactKey = 0;
        Key addressKey = 0;
    };

    [[nodiscard]] Form& form() { return m_form; }
    /// Fills the fields for a contact with its Address row.
    void load(const Request& request);
    /// The flag for the workbench: a save has happened since load().
    [[nodiscard]] bool saved() const { return m_saved; }
    /// The row that the contact has now.
    [[nodiscard]] Key addressKey() const { return m_addressKey; }

public slots:
    void cmdSave1();
    void cmdClear1();
    void cmdCancel() { emit closeRequested(); }
    void cmdSetCompany();
    void cmdFastParser();
    void lblURL1C();
    void lblURL2C();

signals:
    void closeRequested();

private:
    [[nodiscard]] DataJW& dataJW() const;
    [[nodiscard]] QList<std::pair<QString, QString>> values() const;
    [[nodiscard]] int addressUsers() const;
    bool updateRow();
    bool addRow();

    Shell& m_shell;
    Form m_form;
    Key m_contactKey = 0;
    Key m_addressKey = 0;
    bool m_saved = false;
};
