// The Contact screen: one person of the network.
#pragma once

#include "base/form.h"

#include <QObject>

class FrmData;

/// Shows, saves, removes and reassigns a contact of the selected company or category.
class ContactScreen : public QObject
{
    Q_OBJECT

public:
    explicit ContactScreen(FrmData& workbench);
    ~ContactScreen() override;

    [[nodiscard]] Form& form() { return m_form; }

    void load(); ///< loadContactFrame, behind the shell's own refusals
    void clearContactForm();
    void loadContactList();
    /// The selector has taken another company while this screen is open.
    void companyChosen();
    /// The toolbar's "new": an empty form, the focus on the first name.
    void newRecord();
    /// Shows a contact of the selected company by "First Last".
    void showContact(const QString& name);

signals:
    void changed();

private:
    FrmData& m_workbench;
    Form m_form;
};
