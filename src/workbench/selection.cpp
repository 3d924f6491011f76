#include "workbench/selection.h"

void Selection::setSelectedCompanyName(const QString& name)
{
    if (m_companyName == name)
        return;
    m_companyName = name;
    emit selectedCompanyNameChanged(name);
}
