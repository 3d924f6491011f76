// A selector that gets its names when somebody uses it.
#pragma once

#include "views/common/companyselector.h"

/// Asks for its names at the first key or opening: a list of everybody costs nothing until it is wanted.
class LazySelector : public CompanySelector
{
    Q_OBJECT

public:
    using CompanySelector::CompanySelector;

    /// The names are no longer those of the last filling.
    void forget() { m_filled = false; }
    void showPopup() override
    {
        fill();
        CompanySelector::showPopup();
    }

signals:
    /// To be answered with setCompanies().
    void namesWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        fill();
        CompanySelector::keyPressEvent(event);
    }

private:
    void fill()
    {
        if (m_filled)
            return;
        m_filled = true;
        emit namesWanted();
    }

    bool m_filled = false;
};
