// The Position screen: one open position with the people assigned to it.
#pragma once

#include "base/form.h"
#include "store/recordset.h"

#include <QObject>

class FrmData;

/// Shows, saves and removes a position of the selected company; assigns contacts; places the pointer of the ranks.
class PositionScreen : public QObject
{
    Q_OBJECT

public:
    explicit PositionScreen(FrmData& workbench);
    ~PositionScreen() override;

    [[nodiscard]] Form& form() { return m_form; }

    void load(); ///< loadPositionFrame, behind the shell's own refusals
    void clearPositionForm();
    void loadPositionList();
    /// The selector has taken another company while this screen is open.
    void companyChosen();
    /// The toolbar's "new": an empty form, the focus on the title.
    void newRecord();
    /// Shows a position of the selected company by its title.
    void showPosition(const QString& title);
    /// Shows the position at which @p record stands, and makes it the current one.
    void fillPosForm(const RecordSet& record);
    /// Writes the form's position anew, with these values of the eleven steps ("'date',medium," each) and this offer
    /// status. False when the row did not get into the store.
    bool upPosx(const QString& stepValues, const QString& offerStatus);
    /// Trims txtPosTitle: the shell asks for it at every change of any screen's field.
    void trimTitle();

signals:
    void changed();

private:
    FrmData& m_workbench;
    Form m_form;
};
