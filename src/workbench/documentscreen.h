// The Document screen: the repository of files given to contacts.
#pragma once

#include "base/form.h"

#include <QObject>

class FrmData;

/// Lists the documents by type, keeps what is known of each, and opens them in their viewers.
class DocumentScreen : public QObject
{
    Q_OBJECT

public:
    explicit DocumentScreen(FrmData& workbench);
    ~DocumentScreen() override;

    [[nodiscard]] Form& form() { return m_form; }

    void load(); ///< loadDocumentFrame, behind the shell's own refusals
    /// Clears tvwDocs and adds its root "Documents" with the key "A0"; part of the start.
    void resetTree();
    /// Shows the document of this name.
    void showDocument(const QString& name);

signals:
    void changed();

private:
    FrmData& m_workbench;
    Form m_form;
};
