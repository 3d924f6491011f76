// What the five screens of the workbench speak about.
#pragma once

#include "base/key.h"

#include <QObject>
#include <QString>

/// The workbench's selection, shared by its screens and read by others. Keys change at each whole-record
/// save.
class Selection : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    QString currentScreen =
        QStringLiteral("Company"); ///< "Company", "Position", "Contact", "Document" or "Pipeline"
    Key currentCompanyKey = 0;     ///< 0: no saved company
    Key currentPositionKey = 0;    ///< 0: no saved position
    Key currentContactKey = 0;     ///< 0: no saved contact
    QString selectedDocType;

    /// The text of the company selector: a company, a category ("~ Name ~"), "<New>", or empty.
    [[nodiscard]] const QString& selectedCompanyName() const { return m_companyName; }
    void setSelectedCompanyName(const QString& name);

signals:
    void selectedCompanyNameChanged(const QString& name);

private:
    QString m_companyName;
};
